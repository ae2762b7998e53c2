#include "strips/origin/OriginS1M8.h"

#include "controls/VSliderS1M1.h"
#include "strips/mixer/MixGain.h"

using namespace Qt::StringLiterals;

OriginS1M8::OriginS1M8(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    addFaderColumn<VSliderS1M1>();
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
