#include "strips/effect/ChannelEffect.h"

#include "controls/DialS1M3.h"
#include "controls/PushButtons.h"
#include "controls/VolumeMeterS1M1.h"
#include "strips/PanelRows.h"

using namespace Qt::StringLiterals;
using quillon::StripValue;
using quillon::ValueForm;

namespace
{

const QString kEnable = u"Enable"_s;

} // namespace

ChannelEffect::ChannelEffect(const quillon::EffectShape& shape, const QString& objectName, QWidget* parent)
    : EffectBase(shape, objectName, parent)
{
    engine().setHooks({.fresh = [this] { saveValue(kEnable, isStripEnabled()); }, .shown = [this] { showTitle(); }});
}

void ChannelEffect::declareChoice(const QString& key, const QStringList& buttons)
{
    Choice choice;
    for (const QString& button : buttons) {
        choice.buttons += button.section(u':', 0, 0);
        choice.values += button.section(u':', -1);
    }
    mButtons.set(choice.buttons.front(), true, false);
    const auto lit = [this, choice] {
        const auto at = std::ranges::find_if(choice.buttons, [this](const QString& button) { return mButtons.isOn(button); });
        return choice.values.value(at - choice.buttons.begin());
    };
    const auto show = [this, choice](const StripValue& value) {
        if (const QString& text = std::get<QString>(value); choice.values.contains(text)) {
            for (qsizetype i = 0; i < choice.buttons.size(); ++i) {
                mButtons.set(choice.buttons[i], choice.values[i] == text, false);
            }
        }
    };
    const auto initial = [first = choice.values.front()] { return first; };
    choice.row = engine().add({.key = key, .form = ValueForm::Text, .initial = initial, .read = lit, .show = show, .sends = {key}});
    mChoices.push_back(std::move(choice));
}

void ChannelEffect::declareSwitch(const QString& button)
{
    const auto row = engine().add(quillon::switchRow(mButtons, button));
    mChoices.push_back({.buttons = {button}, .values = {}, .row = row});
}

void ChannelEffect::pressed(const QString& button, bool on)
{
    for (const Choice& choice : mChoices) {
        if (!choice.buttons.contains(button)) {
            continue;
        }
        if (!choice.values.isEmpty()) {
            for (const QString& other : choice.buttons) {
                mButtons.set(other, other == button, false); // the lit one stays lit
            }
        }
        if (on || choice.values.isEmpty()) {
            engine().changed(choice.row);
        }
    }
}

void ChannelEffect::addLevel(const quillon::Place& meter, const quillon::Place& dial, const quillon::Place& mute)
{
    auto* bar = new VolumeMeterS1M1(this);
    quillon::standBeside(bar);
    mMeter = quillon::meterPort(bar);
    body().adopt(mMeter, "widgetVolumeMeter", meter);

    auto* level = new DialS1M3(this);
    level->setRange(-90, 0);
    level->setDefault(0);
    level->setValue(0);
    level->setMinusInfinity(true);
    body().adopt(quillon::ValuePort{.widget = level, .setFont = [level](const QFont& font) { level->setFont(font); }}, "widgetDial",
                 dial, {"Gain", "增益"});
    const auto gain = engine().add({.key = u"GAIN"_s,
                                    .form = ValueForm::Decimal,
                                    .initial = [] { return 0.0F; },
                                    .read = [level] { return level->value(); },
                                    .show = [level](const StripValue& value) { level->setValue(std::get<float>(value)); },
                                    .sends = {u"GAIN"_s}});
    connect(level, &DialS1M3::valueChanged, this, [this, gain] { engine().changed(gain); });

    auto* button = new PushButtonS1M7(this);
    mMute = quillon::panelPort(button);
    body().adopt(mMute, "widgetPushButton2", mute);
    mColumn.insert(mColumn.end(), {{bar, meter}, {level, dial}, {button, mute}});
    const auto row = engine().add(quillon::switchRow(mMute, u"MUTE"_s));
    connect(button, &PushButtonS1M7::buttonStateChanged, this, [this, row] { engine().changed(row); });
}

void ChannelEffect::setColumnShare(float share)
{
    for (const auto& [widget, place] : mColumn) {
        quillon::Place narrowed = place;
        narrowed.x *= share;
        narrowed.width *= share;
        body().setPlace(widget, narrowed);
    }
}

void ChannelEffect::setStripEnabled(bool enabled)
{
    EffectBase::setStripEnabled(enabled);
    if (engine().isLoaded()) {
        saveValue(kEnable, enabled);
    }
}

quillon::DeviceSetter ChannelEffect::deviceSetter(QStringView attribute)
{
    if (attribute == u"Meter") {
        return [this](const QVariant& level) { setVolumeMeter(level.toInt()); };
    }
    return EffectBase::deviceSetter(attribute);
}
