#include "strips/origin/OriginS1M8.h"

#include "controls/PushButtons.h"
#include "controls/VSliderS1M1.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"
#include "strips/mixer/MixGain.h"

using namespace Qt::StringLiterals;

OriginS1M8::OriginS1M8(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    addSide(false, new VolumeMeterS1M4(this), "widgetMeterLeft", {4.0F, 3.0F, 29.0F, 72.0F, quillon::From::NameRow})
        ->setWidthRatio(43, 8, 20, 15, 14);
    addGain(new VSliderS1M1(this), "widgetVSlider", {34.0F, 3.0F, 32.0F, 72.0F, quillon::From::NameRow})->setMinusInfinity(true);
    addSide(true, new VolumeMeterS1M5(this), "widgetMeterRight", {67.0F, 3.0F, 29.0F, 72.0F, quillon::From::NameRow})
        ->setWidthRatio(43, 8, 20, 15, 14);
    addPanel(new PushButtonS1M7(this), "widgetPushButton", {30.0F, 87.0F, 40.0F, 0.0F});
    declare({});
    const auto addGains = [this](QLatin1StringView side, bool straight) {
        QStringList names{side.toString()};
        for (const char* mix : {"MixA_", "MixB_", "MixC_"}) {
            names += QLatin1StringView(mix) + side;
        }
        engine().add({.form = quillon::ValueForm::Integer,
                      .read =
                          [this, straight] {
                              return straight && !isMuted() ? static_cast<int>(quillon::linearGain(static_cast<int>(gainDb()))) : 0;
                          },
                      .sends = names,
                      .whileHidden = quillon::StripValue{0}});
    };
    addGains("GainMLCL"_L1, true);
    addGains("GainMLCR"_L1, false);
    addGains("GainMRCL"_L1, false);
    addGains("GainMRCR"_L1, true);
    setGainRange(quillon::scalePlayback);
}
