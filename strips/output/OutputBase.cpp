#include "strips/output/OutputBase.h"

#include "controls/VSliderS1M2.h"

namespace
{

// What a muted output would send as its gain is never sent: its mute is a parameter of the device.
constexpr quillon::RouteKind kKind{.gainForm = quillon::ValueForm::Decimal,
                                   .muteGain = -88.0F,
                                   .muteByGain = false,
                                   .decaysWithSource = false,
                                   .linkDefault = true};
constexpr quillon::GainScale kScaleAtFirst{0, -10, -20, -30};

} // namespace

OutputBase::OutputBase(const quillon::RouteShape& shape, const QString& objectName, QWidget* parent)
    : RouteStrip(kKind, shape, objectName, parent)
{
    build<VSliderS1M2>([this](VSliderS1M2* fader) { mFaders.push_back(fader); });
    setGainRange(kScaleAtFirst);
}

OutputBase& OutputBase::setGainRange(const quillon::GainScale& scale)
{
    for (VSliderS1M2* fader : mFaders) {
        fader->setLadder(scale.maximum, scale.knee, scale.lowKnee, scale.minimum);
    }
    return *this;
}
