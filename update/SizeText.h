#pragma once

#include <QString>

namespace quillon
{

/// A byte count as the progress page shows it: "1.5 MB". `suffix` stands behind the unit, "/s" for a speed.
inline QString sizeText(qint64 bytes, const QString& suffix = {})
{
    const auto value = static_cast<double>(bytes);
    const auto text = [&suffix](double number, const char* unit) {
        return QStringLiteral("%1 %2%3").arg(QString::number(number, 'f', 1), QLatin1String(unit), suffix);
    };
    if (value >= 1048576) {
        return text(value * 9.5367431640625e-7, "MB");
    }
    return value >= 1024 ? text(value * 0.0009765625, "KB") : text(value, "B");
}

/// What came in a time, as a speed.
inline QString speedText(qint64 bytes, qint64 elapsedMs)
{
    return sizeText(bytes * 1000 / elapsedMs, QStringLiteral("/s"));
}

} // namespace quillon
