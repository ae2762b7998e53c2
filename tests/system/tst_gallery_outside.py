#!/usr/bin/python3
"""Drives the gallery as assistive technology does: tst_gallery_outside.py PROGRAM.

A virtual screen and a bus of its own; every control has a name, a role and, where it is one of range, a sane value; and a dial,
a fader, a combo box and a button are set from outside, seen both over the bus and in the log of signals.
"""

import os
import queue
import subprocess
import sys
import tempfile
import threading
import time

PATIENCE_S = 20  # for one condition, on a loaded machine
INSIDE = "QUILLON_GALLERY_INSIDE"
ROLES_OF_RANGE = {"dial", "slider", "progress bar", "level bar", "spin button"}
ROLES_OF_CHOICE = {"push button", "toggle button", "check box", "radio button", "combo box", "menu item", "check menu item"}
ROLES_OF_TEXT = {"text", "entry"}
KEYS = {"Down": 0xFF54, "Return": 0xFF0D}


def outside():
    """Starts the screen and the bus, and this script inside of them."""
    home = tempfile.TemporaryDirectory()
    environment = dict(os.environ, HOME=home.name, XDG_CONFIG_HOME=home.name, XDG_RUNTIME_DIR=home.name, NO_AT_BRIDGE="0",
                       QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LANG="C.UTF-8")
    environment.pop("WAYLAND_DISPLAY", None)
    read, write = os.pipe()
    started = [subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1600x1200x24", "-nolisten", "tcp"], pass_fds=[write],
                                stderr=subprocess.DEVNULL)]
    os.close(write)
    try:
        number = os.fdopen(read).readline().strip()
        assert number, "the virtual screen did not start"
        environment.update({"DISPLAY": ":" + number, INSIDE: "1"})
        started.append(subprocess.Popen(["openbox", "--sm-disable"], env=environment, stderr=subprocess.DEVNULL))
        return subprocess.run(["dbus-run-session", "--", sys.executable] + sys.argv, env=environment, check=False).returncode
    finally:
        for process in started[::-1]:
            process.terminate()
            process.wait()


def eventually(what, condition):
    """The first true answer; the test fails when none comes."""
    end = time.monotonic() + PATIENCE_S
    while True:
        answer = condition()
        if answer:
            return answer
        assert time.monotonic() < end, "did not happen: " + what
        time.sleep(0.02)


class Gallery:
    """The running program, its log, and its tree as the bus shows it."""

    def __init__(self, program):
        self.process = subprocess.Popen([program, "--log"], stdout=subprocess.PIPE, text=True, encoding="utf-8")
        self.lines = []
        self.incoming = queue.Queue()
        threading.Thread(target=lambda: [self.incoming.put(line.rstrip("\n")) for line in self.process.stdout], daemon=True).start()

    def log(self):
        assert self.process.poll() is None, "the gallery has ended"
        while not self.incoming.empty():
            self.lines.append(self.incoming.get())
        return self.lines

    def controls(self):
        eventually("the gallery is ready", lambda: "ready" in self.log())
        return [line[len("control "):] for line in self.log() if line.startswith("control ")]

    def root(self):
        desktop = pyatspi.Registry.getDesktop(0)
        return next((child for child in desktop if child and child.get_process_id() == self.process.pid and child.childCount), None)

    def end(self):
        self.process.terminate()
        code = self.process.wait(PATIENCE_S)
        assert code == 0, "the gallery ended with %d" % code


def walk(node, depth=100):
    yield node
    for child in node if depth else ():
        if child:
            yield from walk(child, depth - 1)


def has(node, state):
    node.clear_cache()
    return node.getState().contains(state)


def actions(node):
    try:
        action = node.queryAction()
    except NotImplementedError:
        return {}
    return {action.getName(i): i for i in range(action.nActions)}


def act(node, *names):
    offered = actions(node)
    name = next((name for name in names if name in offered), None)
    assert name, "'%s' offers %s, none of %s" % (node.name, list(offered), list(names))
    node.queryAction().doAction(offered[name])


def faults(node):
    """What is wrong with a control, as assistive technology sees it."""
    role = node.getRoleName()
    if role not in ROLES_OF_RANGE | ROLES_OF_CHOICE | ROLES_OF_TEXT:
        return
    told = "%s '%s'" % (role, node.name)
    if not node.name.strip():
        yield "%s has no name, in %s '%s'" % (told, node.parent.getRoleName(), node.parent.name)
    if role in ROLES_OF_RANGE:
        try:
            value = node.queryValue()
        except NotImplementedError:
            yield told + " has no value"
            return
        if not value.minimumValue < value.maximumValue:
            yield "%s has the range %g to %g" % (told, value.minimumValue, value.maximumValue)
        elif not value.minimumValue <= value.currentValue <= value.maximumValue:
            yield "%s is at %g, outside %g to %g" % (told, value.currentValue, value.minimumValue, value.maximumValue)
    elif role in ROLES_OF_CHOICE and node.getState().contains(pyatspi.STATE_ENABLED) and not actions(node):
        yield told + " can do nothing"


def showing_page(tab, pages):
    """The page of a tab, once it is the one on the screen."""
    act(tab, "Press")
    page = next(page for page in pages if page.name == tab.name)
    return eventually("the page %s is shown" % tab.name, lambda: has(page, pyatspi.STATE_SHOWING) and page)


def check_names(controls, nodes):
    """Every control of the gallery is found, in a role that has a name."""
    roles = {node.name: node.getRoleName() for node in nodes}
    for control in controls:
        if not any(name == control or name.startswith(control + " ") for name in roles):
            yield "nothing is called '%s'" % control
        elif roles.get(control) == "unknown":
            yield "'%s' has no role" % control


def check_set(gallery, node, value, logged):
    """A value that is set from outside is taken over and told."""
    node.queryValue().currentValue = value
    eventually("%s is %g" % (node.name, value), lambda: node.queryValue().currentValue == value)
    eventually(logged, lambda: logged in gallery.log())


def check_button(gallery, node, logged):
    assert not has(node, pyatspi.STATE_CHECKED)
    act(node, "Toggle", "Press")
    eventually("%s is checked" % node.name, lambda: has(node, pyatspi.STATE_CHECKED))
    eventually(logged, lambda: logged in gallery.log())


def check_combo(gallery, window, node, wanted, logged):
    """Opened by its action, turned by a key, closed by another."""
    eventually("the window is active", lambda: has(window, pyatspi.STATE_ACTIVE))
    act(node, "SetFocus")
    eventually(node.name + " has the focus", lambda: has(node, pyatspi.STATE_FOCUSED))
    act(node, "ShowMenu", "Press")
    eventually(node.name + " is open", lambda: has(node, pyatspi.STATE_EXPANDED))
    for key in ("Down", "Return"):
        pyatspi.Registry.generateKeyboardEvent(KEYS[key], None, pyatspi.KEY_SYM)
    eventually("%s shows %s" % (node.name, wanted), lambda: node.description == wanted)
    eventually(logged, lambda: logged in gallery.log())


def inside(program):
    gallery = Gallery(program)
    try:
        controls = gallery.controls()
        root = eventually("the gallery is on the bus", gallery.root)
        tabs = [node for node in walk(root, 5) if node.getRoleName() == "page tab"]
        frames = [node for node in walk(root, 7) if node.name in [tab.name for tab in tabs] and node.getRoleName() == "filler"]
        pages = {}
        for tab in tabs:
            page = showing_page(tab, frames)
            pages[tab.name] = [node for node in walk(page) if node.getState().contains(pyatspi.STATE_SHOWING)]
        nodes = sum(pages.values(), [])
        found = list(check_names(controls, nodes)) + [fault for node in nodes for fault in faults(node)]
        for fault in found:
            print(fault)

        def control(page, name, *roles):
            showing_page(next(tab for tab in tabs if tab.name == page), frames)
            return next(node for node in pages[page] if node.name == name and node.getRoleName() in roles)

        check_set(gallery, control("Dials", "DialS1M5 Middle", "dial"), 20, "DialS1M5 Middle: valueChanged(20)")
        check_set(gallery, control("Sliders", "VSliderS1M2 Zero", "slider"), -4.5, "VSliderS1M2 Zero: valueChanged(-4.5)")
        check_button(gallery, control("Buttons", "PushButtonGroupS1M2 Off SOLO", "check box", "toggle button"),
                     "PushButtonGroupS1M2 Off: stateChanged(SOLO, 1)")
        check_combo(gallery, root.getChildAtIndex(0), control("Small controls", "ComboBoxS1M2 Chosen", "combo box"), "96 kHz",
                    "ComboBoxS1M2 Chosen: attributeChanged(ComboBoxS1M2 Chosen, ItemChanged, 96 kHz)")
        print("%d controls, %d parts, %d faults" % (len(controls), len(nodes), len(found)))
        gallery.end()
        return 1 if found else 0
    finally:
        gallery.process.kill()


if __name__ == "__main__":
    if INSIDE in os.environ:
        import pyatspi
        sys.exit(inside(sys.argv[1]))
    sys.exit(outside())
