#pragma once

#include "strips/ControlPorts.h"
#include "strips/PlainStrip.h"
#include "strips/output/RouteShape.h"

#include <QStringList>
#include <array>
#include <vector>

class QColor;
class ToolButtonS1M1;
class VolumeMeterS1M3;
class VolumeMeterS1M4;
class VolumeMeterS1M5;

namespace quillon
{

class LinkButton;

/// What outputs and loopbacks are: a source out of a menu, a level, a mute, and a stereo meter; with a link button also a level and
/// a mute for each side. No solo. GUI thread.
class RouteStrip : public PlainStrip
{
    Q_OBJECT
public:
    // Set-up, by the page builder.
    /// The gain of a fresh workspace and of a double click, in dB.
    RouteStrip& setGainDefault(float gainDb);
    /// The source of a fresh workspace.
    RouteStrip& setAudioSourceDefault(const QString& source);
    /// Adds a section with its sources to the menu, by its English name.
    RouteStrip& setAudioSourceList(const QString& section, const QStringList& sources);
    /// On: moving the fader of a muted strip releases the mute.
    RouteStrip& setUnmuteOnGain(bool on);
    /// The colour of the source's name; an invalid one gives the ordinary grey.
    RouteStrip& setAccentColour(const QColor& colour);

    // Values of the device: shown and stored, not sent back. In the form with two sides both take them.
    void setAudioSource(const QString& source);
    void setGAIN(float gainDb);
    void setMUTE(bool on);
    /// Tenths of a dB, 1 for clip; the meter adds the fader's gain.
    void setVolumeMeterLeft(int tenthsOfDb);
    void setVolumeMeterRight(int tenthsOfDb);

    /// The source shown, empty before one was.
    const QString& audioSource() const;
    bool isLinked() const { return mLinked; }

    DeviceSetter deviceSetter(QStringView attribute) override;

protected:
    /// objectName: who the strip is to the device, and its group in the workspace.
    RouteStrip(const RouteKind& kind, const RouteShape& shape, const QString& objectName, QWidget* parent);

    /// Makes the controls of the shape, with faders of that class, and declares their rows. Calls setUp for each fader. The first
    /// call of a family's constructor.
    template<class Fader, class SetUp> void build(SetUp setUp);

protected slots:
    void in_widgetLinkedVSlider_valueChanged() { faderMoved(Linked); }
    void in_widgetUnlinkVSliderLeft_valueChanged() { faderMoved(Left); }
    void in_widgetUnlinkVSliderRight_valueChanged() { faderMoved(Right); }
    void in_widgetPushButtonGroup1_stateChanged(const QString& button) { muteMoved(Linked, button); }
    void in_widgetPushButtonGroup2_stateChanged(const QString& button) { muteMoved(Left, button); }
    void in_widgetPushButtonGroup3_stateChanged(const QString& button) { muteMoved(Right, button); }
    void in_widgetToolButton_actionChanged(const QString& source);
    void on_pushButtonLink_clicked();

private:
    using RowId = StripEngine::RowId;
    using Slot = void (RouteStrip::*)();
    using GroupSlot = void (RouteStrip::*)(const QString&);

    enum Side : std::uint8_t { Linked, Left, Right, SideCount };
    /// A level and its mute.
    struct Part {
        ValuePort fader;
        PanelPort mute;
        RowId gainRow = -1; // kept
        RowId muteRow = -1; // kept
        RowId sentMute = -1;
    };
    struct SideNames;
    static const std::array<SideNames, SideCount> kSides;

    template<class Fader, class SetUp> void addFader(Side side, const Place& place, SetUp setUp);
    void addSource();
    void addMute(Side side, const Place& place);
    void addMeters();
    void addLink();
    void declare();
    void declarePart(Side side);
    RowId declareSentGain(const QStringList& names, Side side);
    void fillMenu();
    void faderMoved(Side side);
    void muteMoved(Side side, const QString& button);
    void startDecay();
    void showForm(bool linked);
    bool isShown(Side side) const { return (side == Linked) == mLinked; }
    Part& part(Side side) { return mParts[side]; }
    /// The part that is in charge of a side.
    const Part& partOf(Side side) const { return mParts[mLinked ? Linked : side]; }
    bool isMuted(const Part& part) const { return part.mute.isOn(QStringLiteral("MUTE")); }
    StripValue gainValue(float gainDb) const;
    StripValue wantedGain(Side side) const;
    StripValue wantedMute(Side side) const;
    int meterGain(Side side) const;

    struct Section {
        QString name;
        QStringList sources;
    };

    const RouteKind& mKind;
    const RouteShape& mShape;
    ToolButtonS1M1* mSource = nullptr;
    VolumeMeterS1M4* mMeterLeft = nullptr;
    VolumeMeterS1M5* mMeterRight = nullptr;
    VolumeMeterS1M3* mMeterPair = nullptr; // both sides in one
    LinkButton* mLink = nullptr;
    std::array<Part, SideCount> mParts;
    std::vector<RowId> mSentGains;
    std::vector<std::function<void(float)>> mSetFaderDefaults;
    RowId mSourceRow = -1;
    RowId mLinkRow = -1;
    std::vector<Section> mSections;
    QString mSourceDefault;
    float mGainDefault = 0;
    bool mLinked = true;
    bool mUnmuteOnGain = false;
};

struct RouteStrip::SideNames {
    const char* fader;
    const char* mute;
    const char* suffix; // of keys and attributes
    StripText meaning;
    Slot faderMoved;
    GroupSlot muteMoved;
};

template<class Fader, class SetUp> void RouteStrip::addFader(Side side, const Place& place, SetUp setUp)
{
    using Value = typename Fader::Value;
    auto* fader = new Fader(this);
    setUp(fader);
    ValuePort& port = part(side).fader;
    port = {.widget = fader,
            .get = [fader] { return static_cast<float>(fader->value()); },
            .set = [fader](float gainDb) { fader->setValue(static_cast<Value>(gainDb)); },
            .setFont = [fader](const QFont& font) { fader->setFont(font); }};
    mSetFaderDefaults.push_back([fader](float gainDb) { fader->setDefault(static_cast<Value>(gainDb)); });
    connect(fader, &Fader::valueChanged, this, kSides[side].faderMoved);
    body().adopt(port, kSides[side].fader, place, kSides[side].meaning);
}

template<class Fader, class SetUp> void RouteStrip::build(SetUp setUp)
{
    // In tab order: down the strip.
    addSource();
    addFader<Fader>(Linked, mShape.fader, setUp);
    if (mShape.hasPair()) {
        addFader<Fader>(Left, mShape.faderLeft, setUp);
        addFader<Fader>(Right, mShape.faderRight, setUp);
    }
    addMeters();
    if (mShape.hasPair()) {
        addLink();
    }
    addMute(Linked, mShape.mute);
    if (mShape.hasPair()) {
        addMute(Left, mShape.muteLeft);
        addMute(Right, mShape.muteRight);
    }
    declare();
    showForm(true);
}

} // namespace quillon
