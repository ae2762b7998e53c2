#pragma once

#include "controls/FramelessWindow.h"
#include "equalizer/EqualizerTool.h"
#include "equalizer/editor/BandTexts.h"
#include "strips/StripEndpoint.h"

#include <array>
#include <functional>
#include <vector>

class EqualizerPanelS1M1;
class QLabel;

namespace quillon
{
class PictureButton;
class TitleButton;
} // namespace quillon

/// An equalizer's window: the panel with its curves and bands, and a pane with meter and fader at each side. Hidden until it is
/// asked for, it keeps what it is told; it is laid out and drawn only while it is seen. What comes from outside is shown and told
/// to nobody. GUI thread.
///
/// Its name is the equalizer's ("EQ_HP"). A band's events carry the band's number behind it ("EQ_HP@3").
class EqualizerBase : public FramelessWindow, public quillon::StripEndpoint
{
    Q_OBJECT
public:
    /// sendEvent: as the user would, so that "Switch" is raised. The curves are brought up to date.
    virtual void setSwitch(bool on, bool sendEvent);
    // What is seen of the curves; see EqualizerPanelS1M1.
    virtual void setStateTarget(bool on);
    virtual void setStateSource(bool on);
    virtual void setStateEachFilter(bool on);
    virtual void setStateCombined(bool on);
    virtual void setStateFiltered(bool on);
    /// Not 0: compensated, 0: raw.
    virtual void setFilteredType(int type);
    /// Returns the path, or an empty string when nothing was imported.
    virtual QString importTargetFile(const QString& path);
    virtual QString importSourceFile(const QString& path);
    // In dB, brought into the fader's range; what is no number is ignored.
    virtual void setGainInputLeft(float gainDb) = 0;
    virtual void setGainInputRight(float gainDb) = 0;
    virtual void setGainOutputLeft(float gainDb) = 0;
    virtual void setGainOutputRight(float gainDb) = 0;
    // Tenths of a dB, 1 for clip.
    virtual void setVolumeMeterInputLeft(int tenthsOfDb) = 0;
    virtual void setVolumeMeterInputRight(int tenthsOfDb) = 0;
    virtual void setVolumeMeterOutputLeft(int tenthsOfDb) = 0;
    virtual void setVolumeMeterOutputRight(int tenthsOfDb) = 0;

    /// How many bands there are, 0 to 32.
    virtual void setItemCount(qint32 count);
    /// A field of a band, from 1; the curves follow with the next setSwitch().
    void setItemAttribute(const QString& number, const QString& attribute, const QString& value);
    void setFont(const QFont& font);
    void setObjectName(const QString& name);
    /// Size of the window: a factor of its base size, which is also its least. Ignored unless above 0 and at most 16.
    void setScaleFactor(double factor);
    /// Who asks the user for a file, in place of a file dialog.
    void setFileChooser(EqualizerTool::FileChooser chooser);

    /// "Switch"; "MeterLeft", "MeterRight" (before the equalizer), "Meter", "OutputLeft", "OutputRight" (behind it); "GainInput",
    /// "GainOutput".
    quillon::DeviceSetter deviceSetter(QStringView attribute) override;

signals:
    /// By the user. objectName: of the window, or of a band.
    void attributeChanged(const QString& objectName, const QString& attribute, const QString& value);

protected:
    enum Side : std::uint8_t { Input, Output, SideCount };

    /// background: a drawing out of the resources, under all.
    EqualizerBase(const QString& background, QWidget* parent);

    EqualizerPanelS1M1& panel() { return *mPanel; }
    /// Makes the meter or the fader of a side.
    template<class Meter> Meter* addMeter(Side side, const char* objectName);
    template<class Fader> Fader* addFader(Side side, const char* objectName);
    void raise(const QString& attribute, const QString& value) { emit attributeChanged(objectName(), attribute, value); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Ground;
    class Pane;
    struct SideParts {
        QWidget* pane = nullptr;
        QLabel* label = nullptr;
        QWidget* meter = nullptr;
        QWidget* fader = nullptr;
    };

    void buildTitle();
    void buildSides();
    void setLanguage(const QString& language);
    void nameParts();
    void layoutParts();
    void layoutTitle(const QRect& title);
    void layoutSide(const SideParts& side) const;
    void fitTexts();
    QWidget* adopt(QWidget* control, const char* objectName);

    QWidget* mGround;
    QWidget* mTop = nullptr;
    quillon::PictureButton* mSwitch = nullptr;
    QLabel* mTitle = nullptr;
    quillon::TitleButton* mClose = nullptr;
    QWidget* mMiddle = nullptr;
    EqualizerPanelS1M1* mPanel = nullptr;
    std::array<SideParts, SideCount> mSides;
    std::vector<std::function<void(const QFont&)>> mFontSetters;
    QFont mFace;
    bool mChinese = false;
};

template<class Meter> Meter* EqualizerBase::addMeter(Side side, const char* objectName)
{
    auto* meter = new Meter(mSides[side].pane);
    mSides[side].meter = adopt(meter, objectName);
    mFontSetters.push_back([meter](const QFont& font) { meter->setFont(font); });
    return meter;
}

template<class Fader> Fader* EqualizerBase::addFader(Side side, const char* objectName)
{
    auto* fader = new Fader(mSides[side].pane);
    mSides[side].fader = adopt(fader, objectName);
    mFontSetters.push_back([fader](const QFont& font) { fader->setFont(font); });
    return fader;
}
