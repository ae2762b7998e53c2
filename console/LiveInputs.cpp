#include "console/LiveInputs.h"

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "console/ConsolePage.h"
#include "console/InboundRouter.h"
#include "device/DeviceR47.h"
#include "strips/field/FieldInputS1M1.h"
#include "strips/input/InputS1M1.h"
#include "strips/input/InputS1M2.h"
#include "strips/input/InputS1M3.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr float kMicGainMinimumDb = 0;
constexpr float kMicGainMaximumDb = 88;

template<class Strip> InputBase* makeMicrophone(const QString& objectName)
{
    auto* strip = new Strip(objectName);
    strip->setGainRange(kMicGainMinimumDb, kMicGainMaximumDb);
    return strip;
}

template<const GainScale& Scale> InputBase* makeStereo(const QString& objectName)
{
    auto* strip = new InputS1M3(objectName);
    strip->setGainRange(Scale);
    return strip;
}

struct InputRow {
    const char* object;
    const char* channelName;
    InputBase* (*make)(const QString& objectName);
    float gainDefaultDb;
};

// In the order of the row, which is the order of loading.
constexpr InputRow kRows[]{
    {"Input_IN1", "IN 1", makeMicrophone<InputS1M1>, 26}, {"Input_IN2", "IN 2", makeMicrophone<InputS1M2>, 26},
    {"Input_AUX", "AUX", makeStereo<scaleAux>, 0},        {"Input_BT", "BT", makeStereo<scaleLine>, -6},
    {"Input_OTGIN", "OTG IN", makeStereo<scaleLine>, 0},
};

} // namespace

void buildLiveInputs(ConsolePage& page, DeviceR47& device, InboundRouter& router)
{
    const QFont font = GlobalFont::instance().font();
    AppSettingsSubject& settings = AppSettingsSubject::instance();

    auto* field = new FieldInputS1M1(u"FieldInput"_s);
    page.addField(ConsolePage::Left, field);
    page.addObserver(field);
    settings.addObserver(field);
    field->setFont(font);

    QList<InputBase*> strips;
    for (const InputRow& row : kRows) {
        const QString object = QString::fromLatin1(row.object);
        InputBase* strip = row.make(object);
        strip->setChannelName(QString::fromLatin1(row.channelName)).setGainDefault(row.gainDefaultDb).setFont(font);
        strip->setUnmuteOnGain(true).setSaveEvents(false).setNameEditable(true);
        QObject::connect(strip, &InputBase::attributeChanged, &device, &DeviceR47::in_fieldInput_attributeChanged,
                         Qt::UniqueConnection);
        router.bind(page.row().id, object, *strip);
        page.addObserver(strip);
        settings.addObserver(strip);
        strips += strip;
    }
    field->setWidgetList(strips);
    // One socket carries both directions of OTG: its plug is reported with the output and concerns the input as well.
    router.bind(page.row().id, u"Output_OTGOUT", u"Plug", strips.last()->deviceSetter(u"Plug"));
}

} // namespace quillon
