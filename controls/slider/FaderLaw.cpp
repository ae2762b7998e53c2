#include "controls/slider/FaderLaw.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

QString numberText(float value)
{
    return QString::number(double(value), 'g', 6);
}

} // namespace

QString FaderLaw::text(float value) const
{
    if (format.minusInfinity && value == valueAt(lowest()))
        return u"-∞"_s;
    if (format.plusInfinity && value == valueAt(highest()))
        return u"+∞"_s;
    if (value == 0)
        return zeroText();
    return value > 0 ? u'+' + numberText(value) : numberText(value);
}

std::optional<int> FaderLaw::positionOf(const QString& text) const
{
    if (text == u"-∞"_s)
        return lowest();
    if (text == u"+∞"_s)
        return highest();
    bool isNumber = false;
    const float number = text.toFloat(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return std::nullopt; // nothing, or a sign alone
    return positionOfNumber(number);
}

int WholeFaderLaw::settled(float value) const
{
    return int(std::lround(std::clamp(value, float(mMin), float(mMax))));
}

/// Every number by itself, so that no digit can be typed that leads out of the range.
QString WholeFaderLaw::pattern() const
{
    QStringList numbers;
    for (int i = mMin; i <= mMax; ++i)
        numbers += i < 0 ? u"\\%1"_s.arg(i) : i == 0 ? u"\\-0|0|\\+0"_s : u"%1|\\+%1"_s.arg(i);
    return u"^(^$)|(\\-∞)|(\\+∞)|(\\-)|(\\+)|("_s + numbers.join(u'|') + u")$"_s;
}

bool WholeFaderLaw::setRange(int min, int max)
{
    if (min > max)
        return false;
    mMin = min;
    mMax = max;
    return true;
}

int LadderFaderLaw::settled(float value) const
{
    return positionOf(filtered(numberText(mLadder.clamp(value)))).value_or(0);
}

float LadderFaderLaw::stepped(float value, int notches) const
{
    const float next = notches > 0 ? mLadder.stepUp(value) : mLadder.stepDown(value);
    return value + (next - value) * float(std::abs(notches));
}

QString LadderFaderLaw::pattern() const
{
    return u"^([-+]?(?:[0-9]+(?:\\.[0-9])?))|[-+]∞|[-+]$"_s;
}

QString LadderFaderLaw::filtered(const QString& text) const
{
    QString left = text;
    for (;;) {
        bool isNumber = false;
        const float number = left.toFloat(&isNumber);
        if (!isNumber)
            return left;
        const float fraction = std::abs(number - std::trunc(number));
        if (!(number >= mLadder.threshold3 && number <= mLadder.max))
            left.chop(1);
        else if (number >= mLadder.threshold1 ? fraction != 0 && fraction != 0.5F : fraction != 0)
            left.chop(1);
        else if (number < mLadder.threshold1 && left.contains(u'.'))
            left.remove(u'.');
        else
            return left;
    }
}

int LadderFaderLaw::positionOfNumber(float number) const
{
    if (number < mLadder.threshold3)
        return highest();
    if (number < mLadder.threshold2 && std::fmod(number, 2.0F) != 0)
        number -= 1;
    return int((number - mLadder.max) * 2);
}

bool LadderFaderLaw::setLadder(const Ladder& ladder)
{
    if (!(ladder.max >= ladder.threshold1 && ladder.threshold1 >= ladder.threshold2 && ladder.threshold2 >= ladder.threshold3))
        return false;
    mLadder = ladder;
    return true;
}

} // namespace quillon
