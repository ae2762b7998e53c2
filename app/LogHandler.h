#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace quillon
{

/// One line of the log: colour, level, message, colour reset, newline, in the local 8-bit encoding. Any thread.
QByteArray formatLogLine(QtMsgType type, const QString& message);

/// Sends all of Qt's messages to standard error as such lines, each in one write, so that threads do not tear them. Once, in main.
void installLogHandler();

} // namespace quillon
