#pragma once
// A HID library that keeps what it is given, and breaks in the ways that devices do. It watches over its callers: no handle in two
// calls at once, none used or closed twice, none closed during a call.

#include "device/USBHIDAPI.h"

#include <QByteArray>
#include <QList>

namespace fakehid
{

/// How the device behaves. Defaults: it takes everything and is silent.
struct Behaviour {
    int failWriteAfter = -1;  // writes that succeed before one fails, -1 for all
    int blockWriteAfter = -1; // writes that succeed before one blocks for blockMs and then fails
    int blockMs = 5000;
    int writeMs = 0;       // time that each write takes
    bool keep = true;      // keep what is written
    int answer = -1;       // value of the report that answers each write under the same code, -1 for none
    int opensAllowed = -1; // handles that can be opened, -1 for any number
};

/// Puts the fake in place of the linked library, with a fresh device.
void install(const Behaviour& behaviour = {});
/// Lets the device say something.
void report(const QByteArray& bytes);
/// Lets writes take no time from now on.
void hurry();
/// Pulls the cable: reads and writes fail, a blocked write at once.
void unplug();

QList<QByteArray> written();
qint64 writtenCount();
int openHandles();
/// What the callers did wrong, empty for nothing.
QByteArray misuse();

} // namespace fakehid
