#pragma once

#include "controls/dial/DialCore.h"
#include "controls/dial/DialLaw.h"

#include <functional>
#include <utility>

class QColor;

namespace quillon
{

/// What all dials can do, over the law of each. The member is the widget: it passes its events to mCore and emits valueChanged()
/// where changed is called. Setters emit nothing. GUI thread.
template<typename Law> class DialFace : public ValueControlHost
{
public:
    float value() const { return mLaw.value(); }
    float defaultValue() const { return mLaw.defaultValue(); }

    /// Brought into the range, or ignored outside it where the dial's rules say so. What is no number is ignored.
    void setValue(float value)
    {
        if (mLaw.setValue(value))
            mCore.refresh();
    }
    /// Ignored outside the range, and in list mode with an empty list.
    void setDefault(float value) { mLaw.setDefault(value); }
    /// The arc grows from the top instead of from the start of the sweep.
    void setCentreArc(bool on) { mCore.setCentreArc(on); }
    /// The looks made of pictures keep this and always show the arc.
    void setArcVisible(bool visible) { mCore.setArcVisible(visible); }
    void setTextVisible(bool visible) { mCore.setTextVisible(visible); }
    /// "+∞" for the maximum.
    void setPlusInfinity(bool on) { setFlag(mLaw.format.plusInfinity, on); }
    /// "-∞" for the minimum.
    void setMinusInfinity(bool on) { setFlag(mLaw.format.minusInfinity, on); }
    /// The face of the text; its size follows from the dial's.
    void setFont(const QFont& font) { mCore.setFont(font); }

    ValueControl& valueControl() override { return mCore; }

protected:
    DialFace(QWidget* host, Law law, const DialLook& look, std::function<void(float)> changed)
        : mLaw(std::move(law)), mCore(host, mLaw, look, std::move(changed))
    {
    }

    void setFlag(bool& flag, bool on)
    {
        if (std::exchange(flag, on) != on)
            mCore.refresh();
    }

    Law mLaw;
    DialCore mCore;
};

/// The dials with plain steps.
class PlainDialFace : public DialFace<PlainDialLaw>
{
public:
    /// Ignored if min is above max. A default that falls outside becomes min; the value stays as it is.
    void setRange(float min, float max)
    {
        mLaw.setRange(min, max);
        mCore.refresh();
    }
    /// Decimals shown, 0 to 4; others are ignored.
    void setPrecision(int decimals)
    {
        mLaw.setPrecision(decimals);
        mCore.refresh();
    }
    /// "+" before positive values.
    void setSignShown(bool shown) { setFlag(mLaw.format.signShown, shown); }
    /// Kept for callers that have one: the dial stands on what is behind it.
    void setBackground(const QColor& color) { mBackground = color; }

protected:
    using DialFace::DialFace;

private:
    QColor mBackground{22, 22, 22};
};

/// The dials for a level in dB.
class LadderDialFace : public DialFace<LadderDialLaw>
{
public:
    /// Steps of 0.5 dB from threshold1 up, 1 from threshold2, 2 from threshold3, which is the minimum as well. Ignored unless they
    /// descend from max. A default that falls outside becomes the minimum; the value stays as it is.
    void setLadder(int max, int threshold1, int threshold2, int threshold3)
    {
        mLaw.setLadder({float(max), float(threshold1), float(threshold2), float(threshold3)});
        mCore.refresh();
    }

protected:
    using DialFace::DialFace;
};

/// The rules of the plain dials that are drawn without pictures.
inline constexpr PlainRules kDrawnDialRules{.clamps = false, .rounds = true, .everyKeyPaints = true};

} // namespace quillon
