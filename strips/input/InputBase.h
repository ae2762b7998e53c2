#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/AutoGainLink.h"
#include "strips/ControlPorts.h"
#include "strips/FieldMember.h"
#include "strips/Solo.h"
#include "strips/StripBody.h"
#include "strips/StripEndpoint.h"
#include "strips/StripEngine.h"
#include "strips/StripSetup.h"
#include "workspace/WorkspaceObserver.h"

#include <memory>

namespace quillon
{

/// An input strip as data: its smallest size, and where its controls stand.
struct InputShape {
    QSize minimum;
    Place meter;
    Place groups[3];
    Place dial;
    Place slider;
    bool wholeGain = false; // the device takes whole dB only: a fraction out of a file is rounded
};

} // namespace quillon

/// The console column of one source. Members add their controls, in tab order, and then call declare(). GUI thread.
class InputBase : public Solo,
                  public quillon::StripEndpoint,
                  public quillon::FieldMember,
                  public WorkspaceObserver,
                  public AppSettingsObserver,
                  public quillon::StripSetup<InputBase>
{
    Q_OBJECT
public:
    using quillon::StripSetup<InputBase>::setFont;
    // More set-up, by the page builder.
    /// The gain of a fresh workspace and of a double click, in dB.
    InputBase& setGainDefault(float gainDb);
    /// On: turning the gain of a muted strip releases the mute.
    InputBase& setUnmuteOnGain(bool on);

    // Values of the device: shown and stored, not sent back. A strip without the control ignores them.
    void setMIC(const QString& input);
    void set48V(bool on);
    void setGAIN(float gainDb);
    void setMUTE(bool on);
    void setANTI(bool on);
    void setEQ(bool on);
    void setDUCKING(bool on);
    /// Tenths of a dB, 1 for clip; the single bar or one side of a stereo meter.
    void setVolumeMeter(int tenthsOfDb) { mMeter.pass(mMeter.feed, tenthsOfDb); }
    void setVolumeMeterLeft(int tenthsOfDb) { mMeter.pass(mMeter.feedLeft, tenthsOfDb); }
    void setVolumeMeterRight(int tenthsOfDb) { mMeter.pass(mMeter.feedRight, tenthsOfDb); }

    /// Sends each value that differs from what was sent last, while the strip is loaded.
    virtual void updateAttribute() { mEngine.updateAttribute(); }
    /// Until its workspace is loaded again the strip sends nothing and takes no part in the field's solo count.
    void suspend() { mEngine.suspend(); }

    QString channelName() const override { return mBody.head().channelName(); }
    void setStripEnabled(bool enabled) override;
    bool isStripEnabled() const override { return mEngine.isStripEnabled(); }
    quillon::DeviceSetter deviceSetter(QStringView attribute) override;
    void loadSettings() override { mEngine.load(); }
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

    void loadSolo(bool on) override;
    void loadSoloLeft(bool) override {}
    void loadSoloRight(bool) override {}
    void loadMute(bool on) override;
    void loadMuteLeft(bool) override {}
    void loadMuteRight(bool) override {}
    void setSolo(bool on) override;
    void setSoloLeft(bool) override {}
    void setSoloRight(bool) override {}
    void setMute(bool on) override;
    void setMuteLeft(bool) override {}
    void setMuteRight(bool) override {}
    bool getSolo() const override;
    bool getSoloLeft() const override { return false; }
    bool getSoloRight() const override { return false; }
    bool getMute() const override;
    bool getMuteLeft() const override { return false; }
    bool getMuteRight() const override { return false; }

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    /// objectName: who the strip is to the device, and its group in the workspace.
    InputBase(const quillon::InputShape& shape, const QString& objectName, QWidget* parent);

    template<class Meter> Meter* addMeter(Meter* meter);
    template<class Dial> Dial* addDial(Dial* dial);
    template<class Slider> Slider* addBalance(Slider* slider);
    /// A group at place number 1 to 3 of the shape: the input selector, the switches that open or feed something, solo and
    /// mute, with the polarity where the group has it.
    template<class Group> void addSelector(int number, Group* group) { mSelector = adoptGroup(number, group); }
    template<class Group> void addSwitches(int number, Group* group) { mSwitches = adoptGroup(number, group); }
    template<class Group> void addSoloMute(int number, Group* group);
    /// Declares the rows of what was added. The last call of a member's constructor.
    void declare();

    void resizeEvent(QResizeEvent* event) override;

protected slots:
    void in_widgetDial_valueChanged(float value);
    void in_widgetHSlider_valueChanged(float value);
    void in_widgetPushButtonGroup1_stateChanged(const QString& button, const QString& state) { groupChanged(button, state); }
    void in_widgetPushButtonGroup2_stateChanged(const QString& button, const QString& state) { groupChanged(button, state); }
    void in_widgetPushButtonGroup3_stateChanged(const QString& button, const QString& state) { groupChanged(button, state); }
    void in_widgetBase_soloStateChanged(const QString& objectName, bool state);

private:
    friend class quillon::StripSetup<InputBase>;

    using RowId = quillon::StripEngine::RowId;

    template<class Group> quillon::PanelPort adoptGroup(int number, Group* group);
    void declareInput();
    void declareLevel();
    void declareBalance();
    void groupChanged(const QString& button, const QString& state);
    void showWindow(const QString& attribute, const QString& state);
    void runAutoGain();
    float wantedGain() const;
    void emitAttribute(const QString& attribute, const QString& value) { emit attributeChanged(objectName(), attribute, value); }

    const quillon::InputShape& mShape;
    quillon::StripBody mBody;
    quillon::StripEngine mEngine;
    quillon::MeterPort mMeter;
    quillon::ValuePort mDial;
    quillon::ValuePort mSlider;
    quillon::PanelPort mSelector;
    quillon::PanelPort mSwitches;
    quillon::PanelPort mSoloMute;
    std::unique_ptr<quillon::AutoGainLink> mAutoGain; // strips with an AUTO button only
    std::function<void(float)> mSetDialDefault;
    RowId mMicRow = -1;
    RowId m48VRow = -1;
    RowId mSoloRow = -1;
    RowId mMuteRow = -1;
    RowId mAntiRow = -1;
    RowId mGainRow = -1;
    RowId mBalanceRow = -1;
    float mGainDefault = 0;
    int mBalanceDefault = 100;
    float mMuteGain = -88.0F; // what a muted strip would send as its gain; nothing switches that on
    bool mMuteByGain = false;
    bool mUnmuteOnGain = false;
    bool mHasAnti = false;
};

template<class Meter> Meter* InputBase::addMeter(Meter* meter)
{
    mMeter = quillon::meterPort(meter);
    quillon::standBeside(meter);
    mBody.adopt(mMeter, "widgetVolumeMeter", mShape.meter);
    return meter;
}

template<class Dial> Dial* InputBase::addDial(Dial* dial)
{
    mDial = {.widget = dial,
             .get = [dial] { return dial->value(); },
             .set = [dial](float value) { dial->setValue(value); },
             .setFont = [dial](const QFont& font) { dial->setFont(font); }};
    mSetDialDefault = [dial](float value) { dial->setDefault(value); };
    dial->setArcVisible(false);
    connect(dial, &Dial::valueChanged, this, &InputBase::in_widgetDial_valueChanged);
    mBody.adopt(mDial, "widgetDial", mShape.dial, {"Gain", "增益"});
    return dial;
}

template<class Slider> Slider* InputBase::addBalance(Slider* slider)
{
    mSlider = {.widget = slider,
               .get = [slider] { return slider->value(); },
               .set = [slider](float value) { slider->setValue(value, false); },
               .setFont = [slider](const QFont& font) { slider->setFont(font); }};
    connect(slider, &Slider::valueChanged, this, &InputBase::in_widgetHSlider_valueChanged);
    mBody.adopt(mSlider, "widgetHSlider", mShape.slider, {"Balance", "声像"});
    return slider;
}

template<class Group> void InputBase::addSoloMute(int number, Group* group)
{
    mSoloMute = adoptGroup(number, group);
    mHasAnti = requires
    {
        group->setStateANTI(true);
    };
}

template<class Group> quillon::PanelPort InputBase::adoptGroup(int number, Group* group)
{
    struct Slot {
        const char* objectName;
        void (InputBase::*changed)(const QString&, const QString&);
    };
    static constexpr Slot kSlots[]{
        {"widgetPushButtonGroup1", &InputBase::in_widgetPushButtonGroup1_stateChanged},
        {"widgetPushButtonGroup2", &InputBase::in_widgetPushButtonGroup2_stateChanged},
        {"widgetPushButtonGroup3", &InputBase::in_widgetPushButtonGroup3_stateChanged},
    };
    const Slot& slot = kSlots[number - 1];
    connect(group, &Group::stateChanged, this, slot.changed);
    if constexpr (requires { &Group::mouseClickEvent; }) {
        connect(group, &Group::mouseClickEvent, this, slot.changed);
    }
    quillon::PanelPort port = quillon::panelPort(group);
    mBody.adopt(port, slot.objectName, mShape.groups[number - 1]);
    return port;
}
