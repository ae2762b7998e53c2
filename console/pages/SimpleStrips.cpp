#include "console/pages/SimpleStrips.h"

namespace quillon
{

QList<PlainStrip*> addSimpleStrips(PageKit& kit, std::span<const SimpleRow> rows)
{
    QList<PlainStrip*> strips;
    for (const SimpleRow& row : rows) {
        OriginBase* strip = kit.add(row.make(QString::fromLatin1(row.object)), {row.receiver});
        strip->setChannelName(QString::fromLatin1(row.channelName)).setChineseName(QString::fromUtf8(row.chineseName));
        strip->setSaveEvents(false).setNameEditable(true);
        strip->setGainRange(row.scale).setGainDefault(row.gainDefaultDb).setUnmuteOnGain(true);
        if (row.levelObject) {
            kit.report(row.levelObject, u"MeterLeft", strip->deviceSetter(u"MeterLeft"));
            kit.report(row.levelObject, u"MeterRight", strip->deviceSetter(u"MeterRight"));
        }
        strips += strip;
    }
    return strips;
}

} // namespace quillon
