#pragma once

#include "controls/PushButtons.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"
#include "strips/AutoGainLink.h"
#include "strips/GainScale.h"
#include "strips/PlainStrip.h"

#include <QHash>
#include <QMetaEnum>
#include <memory>
#include <optional>

/// A simple strip of one source: gain and mute, and what the source has beside them; neither solo nor mixes. Members add their
/// controls, in tab order, and then call declare(). GUI thread.
class OriginBase : public quillon::PlainStrip
{
    Q_OBJECT
public:
    // Set-up, by the page builder.
    /// The gain of a fresh workspace and of a double click, in dB.
    OriginBase& setGainDefault(float gainDb);
    /// The ladder of the gain; a control in whole dB takes its ends.
    OriginBase& setGainRange(const quillon::GainScale& scale);
    /// On: moving the gain of a muted strip releases the mute.
    OriginBase& setUnmuteOnGain(bool on);
    /// A muted or hidden strip sends this as its gain, in dB, for a channel whose mute the device does not know.
    OriginBase& setMuteGain(float gainDb);

    // Values of the device: shown and stored, not sent back. A strip without the control ignores them.
    void setMIC(const QString& input) { take(u"MIC", input); }
    void set48V(bool on) { take(u"48V", on); }
    void setGAIN(float gainDb) { take(u"GAIN", gainDb); }
    void setMUTE(bool on) { take(u"MUTE", on); }
    void setEQ(bool on);
    void setDUCKING(bool on);
    /// Tenths of a dB, 1 for clip; the single bar or one side of a stereo meter.
    void setVolumeMeter(int tenthsOfDb) { mMeter.pass(mMeter.feed, tenthsOfDb); }
    void setVolumeMeterLeft(int tenthsOfDb) { mMeter.pass(mMeter.feedLeft, tenthsOfDb); }
    void setVolumeMeterRight(int tenthsOfDb) { mMeter.pass(mMeter.feedRight, tenthsOfDb); }

    quillon::DeviceSetter deviceSetter(QStringView attribute) override;

protected:
    OriginBase(QSize minimum, const QString& objectName, QWidget* parent);

    /// A control of a level in dB, a fader or a dial.
    template<class Gain> Gain* addGain(Gain* gain, const char* childName, const quillon::Place& place);
    /// One bar, or a bar for each side in one meter.
    template<class Meter> Meter* addMeter(Meter* meter, const char* childName, const quillon::Place& place);
    /// A meter of one side. One with a second bar shows the level behind the gain on it.
    template<class Meter> Meter* addSide(bool right, Meter* meter, const char* childName, const quillon::Place& place);
    /// A fader in whole height between the meters of both sides, and the mute below them.
    template<class Fader> void addFaderColumn();
    template<class Panel> Panel* addPanel(Panel* panel, const char* childName, const quillon::Place& place);
    /// Declares the rows of what was added. gains: the attributes of the gain; without one, gain and mute are only kept, and the
    /// member declares behind this call what it sends of them.
    void declare(const QStringList& gains = {QStringLiteral("GAIN")});

    bool isMuted() const;
    float gainDb() const { return mGain.get(); }

private:
    using RowId = quillon::StripEngine::RowId;

    void declareInput();
    void declareLevel(const QStringList& gains);
    void gainChanged(float gainDb);
    void panelChanged(const QString& button, const QString& state);
    void runAutoGain();
    void take(QStringView attribute, const QVariant& value);
    float wantedGain() const;
    const quillon::PanelPort* panelOf(const QString& button) const;

    quillon::ValuePort mGain;
    quillon::MeterPort mMeter;
    struct Panel {
        quillon::PanelPort port;
        QStringList buttons;
    };
    std::vector<std::unique_ptr<Panel>> mPanels; // rows refer to their ports
    std::unique_ptr<quillon::AutoGainLink> mAutoGain;
    // Nothing on a strip without a gain.
    std::function<void(float)> mSetGainDefault = [](float) {};
    std::function<void(const quillon::GainScale&)> mSetGainRange = [](const quillon::GainScale&) {};
    QHash<QString, RowId> mRows; // by button
    RowId mGainRow = -1;
    float mGainDefault = 0;
    std::optional<float> mMuteGain;
    bool mWholeGain = false;
    bool mUnmuteOnGain = false;
};

template<class Gain> Gain* OriginBase::addGain(Gain* gain, const char* childName, const quillon::Place& place)
{
    using Value = decltype(gain->value());
    mGain = {.widget = gain,
             .get = [gain] { return static_cast<float>(gain->value()); },
             .set = [gain](float gainDb) { gain->setValue(static_cast<Value>(gainDb)); },
             .setFont = [gain](const QFont& font) { gain->setFont(font); }};
    mSetGainDefault = [gain](float gainDb) { gain->setDefault(static_cast<Value>(gainDb)); };
    if constexpr (requires { gain->setLadder(0, 0, 0, 0); }) {
        mSetGainRange = [gain](const quillon::GainScale& scale) {
            gain->setLadder(scale.maximum, scale.knee, scale.lowKnee, scale.minimum);
        };
    } else {
        mWholeGain = true;
        mSetGainRange = [gain](const quillon::GainScale& scale) { gain->setRange(scale.minimum, scale.maximum); };
    }
    if constexpr (requires { gain->setArcVisible(false); }) {
        gain->setArcVisible(false);
    }
    connect(gain, &Gain::valueChanged, this, [this](auto value) { gainChanged(static_cast<float>(value)); });
    body().adopt(mGain, childName, place, {"Gain", "增益"});
    return gain;
}

template<class Meter> Meter* OriginBase::addMeter(Meter* meter, const char* childName, const quillon::Place& place)
{
    mMeter = quillon::meterPort(meter);
    body().adopt(mMeter, childName, place);
    return meter;
}

template<class Meter> Meter* OriginBase::addSide(bool right, Meter* meter, const char* childName, const quillon::Place& place)
{
    const quillon::MeterPort port{.widget = meter, .setFont = [meter](const QFont& font) { meter->setFont(font); }};
    quillon::MeterPort::Feed& feed = right ? mMeter.feedRight : mMeter.feedLeft;
    if constexpr (requires { meter->setVolumeMeter(0, 0); }) {
        feed = [this, meter](int level) { meter->setVolumeMeter(level, isMuted() ? -90 : static_cast<int>(gainDb())); };
    } else {
        feed = [meter](int level) { meter->setVolumeMeter(level); };
    }
    mMeter.widget = meter;
    body().adopt(port, childName, place,
                 right ? quillon::StripText{"Level right", "右电平"} : quillon::StripText{"Level left", "左电平"});
    return meter;
}

template<class Fader> void OriginBase::addFaderColumn()
{
    const auto upright = [](float x, float width) { return quillon::Place{x, 3.0F, width, 72.0F, quillon::From::NameRow}; };
    addSide(false, new VolumeMeterS1M4(this), "widgetMeterLeft", upright(4.0F, 29.0F))->setWidthRatio(43, 8, 20, 15, 14);
    addGain(new Fader(this), "widgetVSlider", upright(34.0F, 32.0F))->setMinusInfinity(true);
    addSide(true, new VolumeMeterS1M5(this), "widgetMeterRight", upright(67.0F, 29.0F))->setWidthRatio(43, 8, 20, 15, 14);
    addPanel(new PushButtonS1M7(this), "widgetPushButton", {30.0F, 87.0F, 40.0F, 0.0F});
}

template<class PanelType> PanelType* OriginBase::addPanel(PanelType* panel, const char* childName, const quillon::Place& place)
{
    auto added = std::make_unique<Panel>();
    added->port = quillon::panelPort(panel);
    if constexpr (requires { &PanelType::buttonStateChanged; }) {
        const auto name = [](typename PanelType::ButtonID button) {
            QString text = QString::fromLatin1(QMetaEnum::fromType<typename PanelType::ButtonID>().valueToKey(button));
            return text.startsWith(u'_') ? text.sliced(1) : text; // "_48V"
        };
        connect(panel, &PanelType::buttonStateChanged, this, [this, name](typename PanelType::ButtonID button, bool on) {
            panelChanged(name(button), on ? QStringLiteral("1") : QStringLiteral("0"));
        });
    } else {
        connect(panel, &PanelType::stateChanged, this, &OriginBase::panelChanged);
        if constexpr (requires { &PanelType::mouseClickEvent; }) {
            connect(panel, &PanelType::mouseClickEvent, this, &OriginBase::panelChanged);
        }
    }
    for (const QObject* button : panel->template findChildren<QWidget*>()) {
        if (const QString name = button->objectName(); name.startsWith(QLatin1String("PushButton"))) {
            added->buttons += name.sliced(10);
        } else if (name.startsWith(QLatin1String("button"))) {
            added->buttons += name.sliced(6);
        }
    }
    body().adopt(added->port, childName, place);
    mPanels.push_back(std::move(added));
    return panel;
}
