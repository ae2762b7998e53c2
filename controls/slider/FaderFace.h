#pragma once

#include "controls/slider/FaderCore.h"
#include "controls/slider/FaderLaw.h"

namespace quillon
{

/// What all faders can do, over the law of each. The member is the widget, and emits valueChanged() where changed is called.
/// Setters emit nothing. GUI thread.
template<typename Law> class FaderFace
{
public:
    using Value = typename Law::Value; // in dB

    Value value() const { return Value(mCore.value()); }
    Value defaultValue() const { return Value(mCore.defaultValue()); }
    /// Brought into the range and onto the steps.
    void setValue(Value value) { mCore.setValue(float(value)); }
    /// Where a double click leads.
    void setDefault(Value value) { mCore.setDefault(float(value)); }
    /// "-∞" for the minimum.
    void setMinusInfinity(bool on) { setFlag(mLaw.format.minusInfinity, on); }
    /// "+∞" for the maximum.
    void setPlusInfinity(bool on) { setFlag(mLaw.format.plusInfinity, on); }
    /// Shares of read-out, gap and fader, in percent.
    void setRatio(int text, int space, int slider) { mCore.setRatio({text, space, slider}); }
    /// The face of the read-out; its size follows from the row's.
    void setFont(const QFont& font) { mCore.setFont(font); }

protected:
    FaderFace(QWidget* host, const FaderShape& shape, std::function<void(float)> changed)
        : mCore(host, mLaw, shape, std::move(changed))
    {
    }

    void setFlag(bool& flag, bool on)
    {
        flag = on;
        mCore.showText();
    }

    Law mLaw;
    FaderCore mCore;
};

/// The faders in whole dB.
class WholeFaderFace : public FaderFace<WholeFaderLaw>
{
public:
    /// In dB; ignored if min is above max. The value is brought into it.
    void setRange(int min, int max)
    {
        if (mLaw.setRange(min, max))
            mCore.applyBounds();
    }

protected:
    using FaderFace::FaderFace;
};

} // namespace quillon
