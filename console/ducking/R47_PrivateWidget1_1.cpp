#include "console/ducking/R47_PrivateWidget1_1.h"

#include "controls/VolumeMeterS1M8.h"

namespace
{

constexpr quillon::InputShape kShape{
    .minimum = {60, 220}, .meter = {6.0F, 2.0F, 88.0F, 88.0F, quillon::From::NameRow}, .groups = {}, .dial = {}, .slider = {}};

/// Two bars round one scale for the one level of a microphone.
class LevelPair final : public VolumeMeterS1M8
{
public:
    using VolumeMeterS1M8::VolumeMeterS1M8;

    void setVolumeMeter(int tenthsOfDb)
    {
        setVolumeMeterLeft(tenthsOfDb);
        setVolumeMeterRight(tenthsOfDb);
    }
    /// The shares of a meter with numbers, of which this one has none.
    void setHeightRatio(int text, int spaceText, int clip, int spaceClip, int bar, int bottom)
    {
        VolumeMeterS1M8::setHeightRatio(clip, spaceClip, text + spaceText + bar, bottom);
    }
};

} // namespace

R47_PrivateWidget1_1::R47_PrivateWidget1_1(const QString& objectName, QWidget* parent) : InputBase(kShape, objectName, parent)
{
    setNameEditable(false);
    addMeter(new LevelPair(this))->setWidthRatio(8, 24, 32);
}
