#include "controls/dial/DialLaw.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon
{

qsizetype nearestIndex(const QList<float>& list, float value, float tolerance)
{
    if (list.isEmpty())
        return -1;
    qsizetype low = 0;
    qsizetype high = list.size() - 1;
    while (low <= high) {
        const qsizetype middle = low + (high - low) / 2;
        if (std::abs(list[middle] - value) <= tolerance)
            return middle;
        if (list[middle] < value)
            low = middle + 1;
        else
            high = middle - 1;
    }
    if (high < 0)
        return 0;
    if (low >= list.size())
        return list.size() - 1;
    return value - list[high] <= list[low] - value ? high : low;
}

QString truncatedText(float value, int decimals)
{
    // Of the digits that a float is sure of: it has no 4.6, and what it has instead would be cut to 4.5. A number too large for
    // that is cut from the shortest text that means it.
    constexpr int kSureDigits = 6;
    const int whole = std::abs(value) < 10 ? 1 : int(std::log10(std::abs(value))) + 1;
    QString text;
    if (const int written = kSureDigits - whole; written > decimals + 1) {
        text = QString::number(double(value), 'f', written);
    } else {
        std::array<char, 64> digits{}; // the largest float has 39, the smallest 45 behind the point
        const auto end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed).ptr;
        text = QString::fromLatin1(digits.data(), end - digits.begin());
        text += (text.contains(u'.') ? u""_s : u"."_s) + QString(decimals, u'0');
    }
    return text.first(text.indexOf(u'.') + (decimals == 0 ? 0 : decimals + 1));
}

QString withInfinities(const QString& shown, float min, float max, const ValueText& text)
{
    const float read = shown.toFloat();
    if (text.plusInfinity && read == max)
        return u"+∞"_s;
    return text.minusInfinity && read == min ? u"-∞"_s : shown;
}

QString valuePattern(float min, float max, int decimals, bool sign)
{
    const double bound = std::min(std::floor(double(std::max(std::abs(min), std::abs(max)))), 1e9);
    const qsizetype digits = QString::number(qint64(bound)).size();
    QString pattern = u"^%1[0-9]{1,%2}"_s.arg(sign ? u"[-+]?"_s : QString()).arg(digits);
    if (decimals > 0)
        pattern += u"(\\.[0-9]{0,%1})?"_s.arg(decimals);
    return pattern + u'$';
}

bool DialLaw::reset()
{
    return mValue != mDefault && setValue(mDefault);
}

bool DialLaw::store(float value)
{
    if (value == mValue)
        return false;
    mValue = value;
    return true;
}

PlainDialLaw::PlainDialLaw(PlainRules rules) : mRules(rules)
{
    mValue = 25;
    mDefault = 25;
}

double PlainDialLaw::angle() const
{
    if (isList())
        return mList.size() > 1 ? mIndex * kDialSweep / double(mList.size() - 1) : 0;
    return mMax > mMin ? double(float(double(mValue - mMin) * kDialSweep / double(mMax - mMin))) : 0;
}

QString PlainDialLaw::text() const
{
    QString shown = mRules.rounds ? QString::number(double(mValue), 'f', mPrecision) : truncatedText(mValue, mPrecision);
    if (format.signShown && mValue > 0)
        shown.prepend(u'+');
    return withInfinities(shown, mMin, mMax, format);
}

ValueControl::Range PlainDialLaw::range() const
{
    return {mMin, mMax, mKeyStep};
}

bool PlainDialLaw::setValue(float value)
{
    if (std::isnan(value) || (!mRules.clamps && (value < mMin || value > mMax)))
        return false;
    value = std::min(std::max(value, mMin), mMax);
    if (!isList())
        return store(value);
    constexpr float kTolerance = 0.000001F;
    const int index = int(std::max<qsizetype>(nearestIndex(mList, value, kTolerance), 0));
    const bool moved = std::exchange(mIndex, index) != index;
    return store(value) || moved;
}

void PlainDialLaw::setDefault(float value)
{
    if (value >= mMin && value <= mMax && !(isList() && mList.isEmpty()))
        mDefault = value;
}

void PlainDialLaw::beginDrag()
{
    DialLaw::beginDrag();
    mDragStartIndex = mIndex;
}

bool PlainDialLaw::drag(double upPixels)
{
    const double way = int(upPixels / mPixelsPerStep) * double(mDragStep);
    if (isList()) {
        const double index = way + mDragStartIndex;
        if (std::trunc(index) != mDragStartIndex)
            return moveToIndex(index);
        mIndex = mDragStartIndex; // with the value that it stood for, which may be none of the list's
        return store(mDragStart);
    }
    return store(std::min(std::max(float(mDragStart + way), mMin), mMax));
}

bool PlainDialLaw::stepBy(double way)
{
    if (isList())
        return moveToIndex(way + mIndex);
    return store(std::min(std::max(float(mValue + way), mMin), mMax));
}

bool PlainDialLaw::moveToIndex(double index)
{
    if (mList.isEmpty())
        return false;
    mIndex = int(std::clamp(index, 0.0, double(mList.size() - 1)));
    return store(mList[mIndex]);
}

bool PlainDialLaw::assign(double value)
{
    if (std::isnan(value))
        return false;
    if (isList())
        return moveToIndex(double(nearestIndex(mList, float(value), 0)));
    return setValue(std::clamp(mMin + std::round((float(value) - mMin) / mKeyStep) * mKeyStep, mMin, mMax));
}

void PlainDialLaw::setRange(float min, float max)
{
    if (!(min <= max))
        return;
    mMin = min;
    mMax = max;
    if (mDefault < min || mDefault > max)
        mDefault = min;
}

void PlainDialLaw::setValueList(const QList<float>& list)
{
    mList = list;
    mIndex = std::min(mIndex, int(std::max<qsizetype>(list.size() - 1, 0)));
    if (list.isEmpty())
        return;
    mMin = list.first();
    mMax = list.last();
}

void PlainDialLaw::setMode(int mode)
{
    if (mode == Continuous || mode == List)
        mMode = mode;
}

void PlainDialLaw::setPrecision(int decimals)
{
    if (decimals >= 0 && decimals <= 4)
        mPrecision = decimals;
}

void PlainDialLaw::setStep(float& step, float value)
{
    if (value > 0 && value <= mMax - mMin)
        step = value;
}

double LadderDialLaw::angle() const
{
    const float span = mLadder.max - mLadder.threshold3;
    return span > 0 ? double(mValue - mLadder.threshold3) * kDialSweep / double(span) : 0;
}

QString LadderDialLaw::text() const
{
    if (format.minusInfinity && mValue == mLadder.threshold3)
        return u"-∞"_s;
    if (format.plusInfinity && mValue == mLadder.max)
        return u"+∞"_s;
    const QString shown = QString::number(double(mValue), 'f', mValue > mLadder.threshold1 ? 1 : 0);
    return mValue > 0 ? u'+' + shown : shown;
}

ValueControl::Range LadderDialLaw::range() const
{
    return {mLadder.threshold3, mLadder.max, 0.5};
}

bool LadderDialLaw::setValue(float value)
{
    return !std::isnan(value) && store(mLadder.clamp(value));
}

void LadderDialLaw::setDefault(float value)
{
    if (value >= mLadder.threshold3 && value <= mLadder.max)
        mDefault = value;
}

bool LadderDialLaw::drag(double upPixels)
{
    const int steps = int(upPixels) / mPixelsPerStep;
    const float value = mLadder.clamp(mDragStart + float(steps) * 0.5F);
    return mLadder.isOn(value) && store(value);
}

bool LadderDialLaw::assign(double value)
{
    return !std::isnan(value) && store(mLadder.nearest(float(value)));
}

void LadderDialLaw::setLadder(const Ladder& ladder)
{
    if (!(ladder.max >= ladder.threshold1 && ladder.threshold1 >= ladder.threshold2 && ladder.threshold2 >= ladder.threshold3))
        return;
    mLadder = ladder;
    if (mDefault < ladder.threshold3 || mDefault > ladder.max)
        mDefault = ladder.threshold3;
}

} // namespace quillon
