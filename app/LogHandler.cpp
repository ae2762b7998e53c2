#include "app/LogHandler.h"

#include <array>
#include <cstdio>

namespace quillon
{

namespace
{

struct Level {
    const char* colour;
    const char* label;
};

// By QtMsgType: debug, warning, critical, fatal, info. Green warnings and yellow infos are part of the format.
constexpr std::array<Level, 5> levels{{
    {"\033[37m", "[Debug]\t "},
    {"\033[32m", "[Warning]\t "},
    {"\033[38;5;208m", "[Critical] "},
    {"\033[31m", "[Fatal]\t "},
    {"\033[33m", "[Info]\t "},
}};
static_assert(QtDebugMsg == 0 && QtWarningMsg == 1 && QtCriticalMsg == 2 && QtFatalMsg == 3 && QtInfoMsg == 4);

void writeLogLine(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    const QByteArray line = formatLogLine(type, message);
    // Standard error is unbuffered: one call is one write.
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
}

} // namespace

QByteArray formatLogLine(QtMsgType type, const QString& message)
{
    const Level& level = levels.at(static_cast<size_t>(type));
    return QByteArray(level.colour) + level.label + message.toLocal8Bit() + "\033[0m\n";
}

void installLogHandler()
{
    qInstallMessageHandler(writeLogLine);
}

} // namespace quillon
