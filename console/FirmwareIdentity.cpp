#include "console/FirmwareIdentity.h"

#include <QStringList>

namespace quillon
{

QString firmwareVersionText(std::int32_t value)
{
    return QStringLiteral("%1.%2").arg(value / 100).arg(value % 100, 2, 10, QLatin1Char('0'));
}

QString FirmwareIdentity::take(int part, std::int32_t value)
{
    if (part < 1 || part > 5) {
        return {};
    }
    mFirmwareParts[0] |= 1 << (part - 1);
    mFirmwareParts[static_cast<std::size_t>(part)] = value;
    if (mFirmwareParts[0] != kComplete) {
        return {};
    }
    mFirmwareParts[0] = kReported;
    QStringList parts;
    for (std::size_t i = 1; i < mFirmwareParts.size(); ++i) {
        parts += QStringLiteral("%1").arg(static_cast<std::uint32_t>(mFirmwareParts[i]), 2, 16, QLatin1Char('0'));
    }
    return parts.join(QLatin1Char('.'));
}

} // namespace quillon
