#pragma once

#include "controls/dial/DialLaw.h"
#include "controls/dial/Ladder.h"

#include <QString>
#include <optional>

namespace quillon
{

/// How the positions of a fader, whole numbers, stand for levels in dB, and levels for texts. Knows no window.
class FaderLaw
{
public:
    virtual ~FaderLaw() = default;

    virtual int lowest() const = 0;
    virtual int highest() const = 0;
    /// In dB.
    virtual float valueAt(int position) const = 0;
    /// The position at which a level from elsewhere comes to rest, within the range.
    virtual int settled(float value) const = 0;
    /// Whether a drag may rest on value.
    virtual bool isOn(float value) const = 0;
    /// Value after that many steps, negative down; not settled.
    virtual float stepped(float value, int notches) const = 0;
    /// Regular expression of the texts that can be typed.
    virtual QString pattern() const = 0;
    /// What is left of a text while it is typed.
    virtual QString filtered(const QString& text) const { return text; }

    /// As shown, with the infinities where format asks for them.
    QString text(float value) const;
    /// Where a finished text leads; nothing where the value stays.
    std::optional<int> positionOf(const QString& text) const;

    ValueText format{.signShown = true};
    float start = 0; // value until one is set

protected:
    virtual QString zeroText() const = 0;
    /// For a number as typed.
    virtual int positionOfNumber(float number) const = 0;
};

/// Whole dB from min to max.
class WholeFaderLaw final : public FaderLaw
{
public:
    using Value = int;

    WholeFaderLaw() { start = 18; }
    int lowest() const override { return mMin; }
    int highest() const override { return mMax; }
    float valueAt(int position) const override { return float(position); }
    int settled(float value) const override;
    bool isOn(float) const override { return true; }
    float stepped(float value, int notches) const override { return value + float(notches); }
    QString pattern() const override;

    /// Ignored if min is above max.
    bool setRange(int min, int max);

protected:
    QString zeroText() const override { return QStringLiteral("-0"); }
    int positionOfNumber(float number) const override { return int(number); }

private:
    int mMin = -50;
    int mMax = 50;
};

/// Positions of half a dB below max, of which those on the ladder count.
class LadderFaderLaw final : public FaderLaw
{
public:
    using Value = float;

    int lowest() const override { return int((mLadder.threshold3 - mLadder.max) * 2); }
    int highest() const override { return 0; }
    float valueAt(int position) const override { return mLadder.max + float(position) * 0.5F; }
    /// Brought into the range, and then as if typed.
    int settled(float value) const override;
    bool isOn(float value) const override { return mLadder.isOn(value); }
    /// The step at value, times the notches.
    float stepped(float value, int notches) const override;
    QString pattern() const override;
    /// Cuts what leads off the ladder or out of the range, sign by sign from the end.
    QString filtered(const QString& text) const override;

    /// Ignored unless the marks descend from max.
    bool setLadder(const Ladder& ladder);

protected:
    QString zeroText() const override { return QStringLiteral("0"); }
    /// A number below the range leads to the top.
    int positionOfNumber(float number) const override;

private:
    Ladder mLadder;
};

} // namespace quillon
