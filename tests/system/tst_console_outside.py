#!/usr/bin/python3
"""Drives the console as assistive technology does: tst_console_outside.py PROGRAM R47D R47CTL DRIVER HID_FOLDER.

On a screen, a bus and a virtual unit of its own: the pages, the settings and an equalizer have a name, a role and a sane value for
each control, and what is set from outside arrives at the unit.
"""

import os
import subprocess
import sys

import tst_gallery_outside
from tst_gallery_outside import INSIDE, PATIENCE_S, act, eventually, faults, has, outside, walk

SETTINGS = {
    "System": {"Language", "UI Scale", "Follow system UI scaling", "Auto save workspace", "Launch at startup", "Auto check for updates"},
    "Device": {"Bluetooth", "Brightness", "OTG port power setting", "USB-C port power setting", "Mode select", "Auto power-off",
               "Reset to factory default", "Main button single-click customization", "Main button double-click customization"},
    "ASIO": {"Sample Rate", "Buffer Size", "Safe mode"},
    "About": {"Official website"},
}


class Console:
    """The virtual unit, the running program, and its tree as the bus shows it."""

    def __init__(self, program, r47d, r47ctl, driver, hid):
        home = os.environ["XDG_CONFIG_HOME"]
        with open(os.path.join(home, "TUSBAUDIO.conf"), "w", encoding="utf-8") as file:
            file.write("[CLSID]\n{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}\\InprocServer32=%s\n" % driver)
        self.control = [r47ctl, "--dir", os.path.join(home, "r47")]
        environment = dict(os.environ, XDG_DATA_HOME=home, R47_DIR=self.control[2], LD_LIBRARY_PATH=hid)
        self.started = [subprocess.Popen([r47d, "--dir", self.control[2], "--rate", "0", "--with-parent"])]
        eventually("the unit is there", lambda: self.unit("ping"))
        self.started.append(subprocess.Popen([program], env=environment, cwd=home, stderr=subprocess.DEVNULL))

    def unit(self, *command):
        return subprocess.run(self.control + list(command), check=False, capture_output=True).returncode == 0

    def root(self):
        desktop = pyatspi.Registry.getDesktop(0)
        return next((child for child in desktop if child and child.get_process_id() == self.started[1].pid and child.childCount), None)

    def shown(self):
        """All controls on the screen."""
        return [node for node in walk(self.root()) if node.getState().contains(pyatspi.STATE_SHOWING)]

    def find(self, name, *roles):
        return eventually("'%s' is shown" % name, lambda: next(
            (node for node in self.shown() if node.name == name and (not roles or node.getRoleName() in roles)), None))

    def end(self):
        for process in self.started[::-1]:
            process.terminate()
            code = process.wait(PATIENCE_S)
            assert code == 0, "%s ended with %d" % (process.args[0], code)


def settings_faults(console):
    act(console.find("Settings", "push button"), "Press")
    for tab, expected in SETTINGS.items():
        act(console.find(tab, "radio button", "page tab"), "Toggle", "Check", "Press")
        eventually("the tab " + tab, lambda wanted=expected: wanted <= {node.name for node in console.shown()})
        yield from (fault for node in console.shown() for fault in faults(node))
    act(console.find("Device", "radio button", "page tab"), "Toggle", "Check", "Press")
    act(console.find("Bluetooth", "check box"), "Toggle", "Check", "Press")
    assert console.unit("wait", "111A", "1"), "Bluetooth did not arrive"


def equalizer_faults(console):
    box = console.find("IN 1 EQ").queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    pyatspi.Registry.generateMouseEvent(box.x + box.width // 2, box.y + box.height // 2, "b1d")
    dial = console.find("Band 3 Gain")
    yield from (fault for node in console.shown() for fault in faults(node))
    dial.queryValue().currentValue = 6
    assert console.unit("wait", "9303", "60"), "the gain of the third band did not arrive"


def inside(*arguments):
    console = Console(*arguments)
    try:
        eventually("the program is on the bus", console.root)
        gain = console.find("IN 1 Gain")
        eventually("the console is on the screen", lambda: has(gain, pyatspi.STATE_SHOWING))
        found = [fault for node in console.shown() for fault in faults(node)]
        count = len(console.shown())
        gain.queryValue().currentValue = 33
        assert console.unit("wait", "2104", "33"), "the gain did not arrive"
        found += equalizer_faults(console)
        found += settings_faults(console)
        for fault in sorted(set(found)):
            print(fault)
        print("%d parts of the console, %d faults" % (count, len(set(found))))
    finally:
        console.end()
    return 1 if found else 0


if __name__ == "__main__":
    if INSIDE in os.environ:
        import pyatspi
        tst_gallery_outside.pyatspi = pyatspi
        sys.exit(inside(*sys.argv[1:]))
    sys.exit(outside())
