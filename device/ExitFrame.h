#pragma once

#include <QString>

/// An element of the writer's queue that ends the writer. It is never written to the device.
inline const QString ExitFrame = QStringLiteral("--##--<<__EXIT__>>--##--");
