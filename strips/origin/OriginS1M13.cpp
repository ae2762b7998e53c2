#include "strips/origin/OriginS1M13.h"

#include "controls/PushButtonGroups.h"
#include "controls/ToolButtonS1M1.h"
#include "controls/VSliderS1M2.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"

using namespace Qt::StringLiterals;
using quillon::From;
using quillon::StripValue;
using quillon::ValueForm;

OriginS1M13::OriginS1M13(const QString& objectName, QWidget* parent)
    : OriginBase({80, 220}, objectName, parent), mSource(new ToolButtonS1M1(this))
{
    body().adopt(quillon::ValuePort{.widget = mSource, .setFont = [this](const QFont& font) { mSource->setFont(font); }},
                 "widgetToolButton", {4.0F, 2.0F, 92.0F, 7.0F, From::NameRow}, {"Source", "音源"});
    addSide(false, new VolumeMeterS1M4(this), "widgetMeterLeft", {4.0F, 11.0F, 29.0F, 64.0F, From::NameRow})
        ->setWidthRatio(43, 8, 20, 15, 14);
    addGain(new VSliderS1M2(this), "widgetVSlider", {34.0F, 11.0F, 32.0F, 64.0F, From::NameRow})->setMinusInfinity(true);
    addSide(true, new VolumeMeterS1M5(this), "widgetMeterRight", {67.0F, 11.0F, 29.0F, 64.0F, From::NameRow})
        ->setWidthRatio(43, 8, 20, 15, 14);
    addPanel(new PushButtonGroupS1M4(this), "widgetPushButtonGroup1", {34.0F, 87.0F, 32.0F, 0.0F});
    const auto row =
        engine().add({.key = u"AudioSource"_s,
                      .form = ValueForm::Text,
                      .initial = [this] { return mSourceDefault; },
                      .read = [this] { return mSource->currentItem(); },
                      .wanted = [this] { return mSourceVisible ? StripValue{mSource->currentItem()} : unsent(ValueForm::Text); },
                      .show = [this](const StripValue& value) { mSource->setCurrentItem(std::get<QString>(value)); },
                      .sends = {u"AudioSource"_s}});
    connect(mSource, &ToolButtonS1M1::attributeChanged, this, [this, row] { engine().changed(row); });
    declare({u"GAINLeft"_s, u"GAINRight"_s});
    setGainRange(quillon::scaleLine);
}

OriginS1M13& OriginS1M13::setAudioSourceDefault(const QString& source)
{
    mSourceDefault = source;
    return *this;
}

OriginS1M13& OriginS1M13::setAudioSourceList(const QString& section, const QStringList& sources)
{
    mSource->addMenu(section);
    for (const QString& source : sources) {
        mSource->addItem(section, source);
    }
    return *this;
}

OriginS1M13& OriginS1M13::setAudioSourceVisible(bool visible)
{
    mSourceVisible = visible;
    mSource->setVisible(visible);
    return *this;
}
