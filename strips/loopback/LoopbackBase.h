#pragma once

#include "strips/output/RouteStrip.h"

/// The console column of one recording channel that the device gives back to the computer. The device knows no mute of it: a muted
/// loopback sends the lowest gain. GUI thread.
class LoopbackBase : public quillon::RouteStrip
{
    Q_OBJECT
protected:
    /// objectName: who the strip is to the device, and its group in the workspace.
    LoopbackBase(const quillon::RouteShape& shape, const QString& objectName, QWidget* parent);
};
