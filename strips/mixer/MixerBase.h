#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/FieldMember.h"
#include "strips/Solo.h"
#include "strips/StripBody.h"
#include "strips/StripEndpoint.h"
#include "strips/StripEngine.h"
#include "strips/StripSetup.h"
#include "strips/mixer/Mix.h"
#include "strips/mixer/MixGain.h"
#include "workspace/WorkspaceObserver.h"

#include <array>
#include <functional>
#include <vector>

class VSliderS1M1;

namespace quillon
{

class LinkButton;

/// A mixer strip as data: its smallest size, where its controls stand, and the ratios of its meters.
struct MixerShape {
    QSize minimum;
    Place linkedMeters[2]; // left, right
    Place faders[3];       // linked, left, right
    Place groups[3];
    std::array<int, 5> linkedWidths; // from the scale to the middle
    std::array<int, 4> heights;
    // Of a strip that can be unlinked.
    Place unlinkMeter = {};
    Place dials[2] = {};
    Place link = {};
    std::array<int, 5> unlinkWidths = {}; // from the edge to the scale
};

} // namespace quillon

/// How much of one stereo source goes into each mix, over the four numbers of the device's matrix. The controls show one mix;
/// all values exist once per mix. Members add their controls, in tab order, and then call declare(). GUI thread.
class MixerBase : public Solo,
                  public quillon::StripEndpoint,
                  public quillon::FieldMember,
                  public WorkspaceObserver,
                  public AppSettingsObserver,
                  public quillon::StripSetup<MixerBase>
{
    Q_OBJECT
public:
    using quillon::StripSetup<MixerBase>::setFont;
    // More set-up, by the page builder.
    /// The form of a new workspace. Strips with one form only ignore it.
    MixerBase& setLinkDefault(bool linked);
    /// The mixes of the field, which must outlive the strip and keep their place; the first becomes the one shown.
    MixerBase& setMixes(quillon::Mixes& mixes);

    /// Shows the values of a mix and sends what differs from what was last sent to it. Unknown ones are ignored.
    virtual void setMix(QString mix);
    /// Sends each gain of the shown mix that differs from what was sent last, while the strip is loaded.
    virtual void updateAttribute() { mEngine.updateAttribute(); }
    /// Until its workspace is loaded again the strip sends nothing and takes no part in a solo count.
    void suspend() { mEngine.suspend(); }

    /// Tenths of a dB, 1 for clip. The meters add the fader's gain.
    void setVolumeMeterLeft(int tenthsOfDb) { feedMeter(0, tenthsOfDb); }
    void setVolumeMeterRight(int tenthsOfDb) { feedMeter(1, tenthsOfDb); }

    /// Solo buttons that are on in the form shown: what the strip adds to the solo count while it stands in the field.
    int solosTaken() const;
    QString channelName() const override { return mBody.head().channelName(); }
    void setStripEnabled(bool enabled) override;
    bool isStripEnabled() const override { return mEngine.isStripEnabled(); }
    quillon::DeviceSetter deviceSetter(QStringView attribute) override;
    void loadSettings() override { mEngine.load(); }
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

    void loadSolo(bool on) override { setButton(Both, QStringLiteral("SOLO"), on, false); }
    void loadSoloLeft(bool on) override { setButton(Left, QStringLiteral("SOLO"), on, false); }
    void loadSoloRight(bool on) override { setButton(Right, QStringLiteral("SOLO"), on, false); }
    void loadMute(bool on) override { setButton(Both, QStringLiteral("MUTE"), on, false); }
    void loadMuteLeft(bool on) override { setButton(Left, QStringLiteral("MUTE"), on, false); }
    void loadMuteRight(bool on) override { setButton(Right, QStringLiteral("MUTE"), on, false); }
    void setSolo(bool on) override { setButton(Both, QStringLiteral("SOLO"), on, true); }
    void setSoloLeft(bool on) override { setButton(Left, QStringLiteral("SOLO"), on, true); }
    void setSoloRight(bool on) override { setButton(Right, QStringLiteral("SOLO"), on, true); }
    void setMute(bool on) override { setButton(Both, QStringLiteral("MUTE"), on, true); }
    void setMuteLeft(bool on) override { setButton(Left, QStringLiteral("MUTE"), on, true); }
    void setMuteRight(bool on) override { setButton(Right, QStringLiteral("MUTE"), on, true); }
    bool getSolo() const override { return isOn(Both, QStringLiteral("SOLO")); }
    bool getSoloLeft() const override { return isOn(Left, QStringLiteral("SOLO")); }
    bool getSoloRight() const override { return isOn(Right, QStringLiteral("SOLO")); }
    bool getMute() const override { return isOn(Both, QStringLiteral("MUTE")); }
    bool getMuteLeft() const override { return isOn(Left, QStringLiteral("MUTE")); }
    bool getMuteRight() const override { return isOn(Right, QStringLiteral("MUTE")); }

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    /// Fader and buttons: those of both channels together, and of each.
    enum Side : quint8 { Both, Left, Right };

    /// objectName: who the strip is to the device, and its group in the workspace.
    MixerBase(const quillon::MixerShape& shape, const QString& objectName, QWidget* parent);

    /// The dials, and the button that changes the form.
    template<class Dial> void addDials();
    void addLinkButton();
    /// Fader and meters of the linked form, and then of the other one.
    void addLinkedFader();
    void addUnlinkFaders();
    /// The buttons of one side.
    template<class Group> void addButtons(Side side, Group* group);
    /// The same from a port; one panel may serve two sides. Its member passes clicks on to buttonChanged().
    void adoptButtons(Side side, const quillon::PanelPort& port, const char* objectName);
    void buttonChanged(Side side, const QString& button);
    /// Declares the rows of what was added. The last call of a member's constructor.
    void declare();

    /// The law of the member.
    virtual quillon::MixGains gains(const quillon::MixPair& channels) const = 0;
    /// Sends to every mix what differs from what was last sent to it.
    void updateAllMixes() { mEngine.updateAllPrefixes(); }

    void resizeEvent(QResizeEvent* event) override;

protected slots:
    void on_pushButtonLink_clicked();
    void in_widgetDialLeft_valueChanged(float value) { balanceChanged(0, value); }
    void in_widgetDialRight_valueChanged(float value) { balanceChanged(1, value); }
    void in_widgetLinkedVSlider_valueChanged(int) { mEngine.changed(mSides[Both].gainRow); }
    void in_widgetUnlinkVSliderLeft_valueChanged(int) { mEngine.changed(mSides[Left].gainRow); }
    void in_widgetUnlinkVSliderRight_valueChanged(int) { mEngine.changed(mSides[Right].gainRow); }
    void in_widgetPushButtonGroup1_stateChanged(const QString& button, const QString&) { buttonChanged(Both, button); }
    void in_widgetPushButtonGroup2_stateChanged(const QString& button, const QString&) { buttonChanged(Left, button); }
    void in_widgetPushButtonGroup3_stateChanged(const QString& button, const QString&) { buttonChanged(Right, button); }
    void in_widgetBase_soloStateChanged(const QString& objectName, bool state);

private:
    friend class quillon::StripSetup<MixerBase>;

    using RowId = quillon::StripEngine::RowId;
    struct Controls {
        VSliderS1M1* fader = nullptr;
        quillon::PanelPort buttons = {};
        RowId gainRow = -1;
        RowId soloRow = -1;
        RowId muteRow = -1;
        RowId antiRow = -1;
    };
    struct Balance {
        quillon::ValuePort dial = {};
        std::function<void(float)> setDefault = {};
        RowId rows[2] = {-1, -1}; // unlinked, linked
    };
    using Feed = std::function<void(int tenthsOfDb, int gainDb)>;

    bool isLinkable() const { return mLink != nullptr; }
    static Side sideOf(std::size_t channel, bool linked) { return linked ? Both : channel == 0 ? Left : Right; }
    void adoptDial(std::size_t channel, const quillon::ValuePort& port, std::function<void(float)> setDefault);
    void addFader(Side side, const char* objectName, const quillon::StripText& meaning, void (MixerBase::*changed)(int));
    template<class Meter> void addLinkedMeter(std::size_t channel, Meter* meter, const char* objectName);
    RowId addFlag(Side side, const QString& button, std::function<bool()> settle);
    void declareLink();
    void declareGains();
    quillon::MixPair shownPair() const;
    quillon::MixPair storedPair(const quillon::Mix& mix) const;
    float storedBalance(RowId row, const QString& prefix) const;
    bool visit(const QString& prefix);
    void showForm();
    void balanceChanged(std::size_t channel, float value);
    void setButton(Side side, const QString& button, bool on, bool emitSignal);
    bool isOn(Side side, const QString& button) const;
    void feedMeter(std::size_t channel, int tenthsOfDb);
    void emitAttribute(const QString& attribute, const QString& value) { emit attributeChanged(objectName(), attribute, value); }

    const quillon::MixerShape& mShape;
    quillon::StripBody mBody;
    quillon::StripEngine mEngine;
    quillon::Mixes* mMixes = nullptr;
    quillon::MixPair mVisited; // of the mix that is sent to without being shown
    std::array<Controls, 3> mSides;
    std::array<Balance, 2> mBalances;
    std::array<Feed, 2> mLinkedFeeds;
    std::array<Feed, 2> mUnlinkFeeds;
    std::vector<std::function<void()>> mDecays; // of all meters
    QList<QWidget*> mForms[2];                  // widgets of the unlinked and of the linked form
    quillon::LinkButton* mLink = nullptr;
    RowId mLinkRow = -1;
    bool mHasAnti = false;
    bool mShownLinked = true;
    bool mMeteredLinked = true; // the form at the last showForm()
    bool mLinkDefault = true;
};

template<class Dial> void MixerBase::addDials()
{
    constexpr void (MixerBase::*kChanged[])(float){&MixerBase::in_widgetDialLeft_valueChanged,
                                                   &MixerBase::in_widgetDialRight_valueChanged};
    for (std::size_t channel = 0; channel < std::size(kChanged); ++channel) {
        auto* dial = new Dial(this);
        dial->setRange(0, 100);
        dial->setCentreArc(true);
        dial->setTextVisible(false);
        connect(dial, &Dial::valueChanged, this, kChanged[channel]);
        adoptDial(channel,
                  {.widget = dial,
                   .get = [dial] { return dial->value(); },
                   .set = [dial](float value) { dial->setValue(value); },
                   .setFont = [dial](const QFont& font) { dial->setFont(font); }},
                  [dial](float value) { dial->setDefault(value); });
    }
}

template<class Group> void MixerBase::addButtons(Side side, Group* group)
{
    struct Slot {
        const char* objectName;
        void (MixerBase::*changed)(const QString&, const QString&);
    };
    static constexpr Slot kSlots[]{{"widgetPushButtonGroup1", &MixerBase::in_widgetPushButtonGroup1_stateChanged},
                                   {"widgetPushButtonGroup2", &MixerBase::in_widgetPushButtonGroup2_stateChanged},
                                   {"widgetPushButtonGroup3", &MixerBase::in_widgetPushButtonGroup3_stateChanged}};
    connect(group, &Group::stateChanged, this, kSlots[side].changed);
    mHasAnti = requires
    {
        group->setStateANTI(true);
    };
    adoptButtons(side, quillon::panelPort(group), kSlots[side].objectName);
}
