#pragma once

#include "controls/ValueControl.h"
#include "controls/dial/Ladder.h"

#include <QList>
#include <QString>

namespace quillon
{

/// The sweep of every dial, in degrees.
inline constexpr double kDialSweep = 270;

/// How a value is written.
struct ValueText {
    bool signShown = false;     // "+" before positive values
    bool plusInfinity = false;  // at the maximum
    bool minusInfinity = false; // at the minimum
};

/// Index of the entry of an ascending list that is nearest to value, the lower one on a tie; one within tolerance wins at
/// once. -1 for an empty list.
qsizetype nearestIndex(const QList<float>& list, float value, float tolerance);

/// Cut after the decimals, not rounded: 24.99 with 1 decimal reads 24.9.
QString truncatedText(float value, int decimals);

/// "+∞" at the maximum and "-∞" at the minimum where text asks for it, else shown. shown is compared as it reads, so that a value
/// cut down to the minimum counts as the minimum.
QString withInfinities(const QString& shown, float min, float max, const ValueText& text);

/// What may be typed for a value between min and max: at most the digits of the larger bound, at most that many decimals, a sign
/// only where signs are shown.
QString valuePattern(float min, float max, int decimals, bool sign);

/// A value, its default and the law by which the hand moves it. Knows no window. Operations return whether the value changed.
class DialLaw
{
public:
    virtual ~DialLaw() = default;

    float value() const { return mValue; }
    float defaultValue() const { return mDefault; }
    /// In degrees from the start of the sweep.
    virtual double angle() const = 0;
    virtual QString text() const = 0;
    virtual ValueControl::Range range() const = 0;

    /// Stores a value that did not come from the hand.
    virtual bool setValue(float value) = 0;
    /// Ignored outside the range.
    virtual void setDefault(float value) = 0;
    /// Notes where a drag starts, and moves by the way of the pointer upward since then, in pixels.
    virtual void beginDrag() { mDragStart = mValue; }
    virtual bool drag(double upPixels) = 0;
    virtual bool stepKey(int direction) = 0;
    virtual bool stepWheel(int notches) = 0;
    /// The nearest value that the hand could reach.
    virtual bool assign(double value) = 0;
    bool reset();
    /// Whether a key paints the dial even where it changes nothing.
    virtual bool everyKeyPaints() const { return false; }

    ValueText format;

protected:
    bool store(float value);

    float mValue = 0;
    float mDefault = 0;
    float mDragStart = 0;
    int mPixelsPerStep = 5;
};

/// Where the plain dials differ.
struct PlainRules {
    bool clamps = true;  // a value outside the range goes to its end; else it is ignored
    bool rounds = false; // the text; else it is cut
    bool everyKeyPaints = false;
};

/// Plain steps between two bounds, or the entries of a list.
class PlainDialLaw final : public DialLaw
{
public:
    enum Mode { Continuous = 0, List = 1 };

    explicit PlainDialLaw(PlainRules rules = {});

    double angle() const override;
    QString text() const override;
    ValueControl::Range range() const override;
    /// Clamped or ignored outside the range; in a list the pointer goes to the nearest entry and the value stays as told. What is
    /// no number is ignored.
    bool setValue(float value) override;
    void setDefault(float value) override;
    void beginDrag() override;
    bool drag(double upPixels) override;
    bool stepKey(int direction) override { return stepBy(direction * double(mKeyStep)); }
    bool stepWheel(int notches) override { return stepBy(notches * double(mWheelStep)); }
    bool assign(double value) override;
    bool everyKeyPaints() const override { return mRules.everyKeyPaints; }

    /// Ignored if min is above max. A default outside becomes min; the value stays.
    void setRange(float min, float max);
    void setValueList(const QList<float>& list);
    void setMode(int mode);
    /// 0 to 4 decimals; others are ignored.
    void setPrecision(int decimals);
    /// Ignored unless above 0 and at most the range.
    void setDragStep(float step) { setStep(mDragStep, step); }
    void setKeyStep(float step) { setStep(mKeyStep, step); }
    void setWheelStep(float step) { setStep(mWheelStep, step); }

    float minimum() const { return mMin; }
    float maximum() const { return mMax; }
    int index() const { return mIndex; }

private:
    bool isList() const { return mMode == List; }
    void setStep(float& step, float value);
    bool stepBy(double way);
    bool moveToIndex(double index);

    PlainRules mRules;
    int mMode = Continuous;
    QList<float> mList;
    int mIndex = 0;
    int mDragStartIndex = 0;
    float mMin = 0;
    float mMax = 50;
    float mDragStep = 1;
    float mKeyStep = 1;
    float mWheelStep = 1;
    int mPrecision = 0;
};

/// Steps that grow as the value falls.
class LadderDialLaw final : public DialLaw
{
public:
    double angle() const override;
    QString text() const override;
    ValueControl::Range range() const override;
    bool setValue(float value) override;
    void setDefault(float value) override;
    /// A value off the ladder is dropped: the dial waits where it is until the drag reaches the next one on it.
    bool drag(double upPixels) override;
    bool stepKey(int direction) override { return store(mLadder.steps(mValue, direction)); }
    bool stepWheel(int notches) override { return store(mLadder.steps(mValue, notches)); }
    bool assign(double value) override;

    /// A default outside becomes the minimum; the value stays. Ignored unless the thresholds descend from max.
    void setLadder(const Ladder& ladder);

private:
    Ladder mLadder;
};

} // namespace quillon
