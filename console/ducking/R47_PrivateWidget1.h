#pragma once

#include "app/AppSettingsSubject.h"
#include "controls/FramelessWindow.h"
#include "controls/SvgPixmap.h"
#include "strips/StripEndpoint.h"
#include "strips/StripEngine.h"
#include "workspace/WorkspaceObserver.h"

#include <array>

class DialS1M5;
class QLabel;
class R47_PrivateWidget1_1;

namespace quillon
{
class DuckingMap;
class PlateButton;
} // namespace quillon

/// The window in which ducking is set: chosen sources grow quiet while a microphone speaks. The effect itself runs in the device;
/// this holds its parameters and is hidden until it is asked for. GUI thread.
class R47_PrivateWidget1 final : public FramelessWindow,
                                 public quillon::StripEndpoint,
                                 public WorkspaceObserver,
                                 public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit R47_PrivateWidget1(QWidget* parent = nullptr);

    /// Shows and keeps the master switch. persist: as the user would, so that the device hears of it; without it the device is
    /// taken to know. notify: the work states are told, changed or not.
    void setDuckingSwitch(bool on, bool persist, bool notify);
    /// On: all playback pairs are shown; off: only the first one, which is all that the Mobile mode has.
    void setLayoutForMobile(bool flag);
    /// Tenths of a dB, 1 for clip.
    void setMeterIN1(int tenthsOfDb);
    void setMeterIN2(int tenthsOfDb);
    /// Size of the window: a factor of its base size. Ignored unless above 0.
    void setScaleFactor(double factor);
    void setFont(const QFont& font);
    /// On: each stored value is also raised as a "Save_" event.
    void setSaveEvents(bool on) { mEngine.setSaveEvents(on); }

    /// The sources that a microphone lowers, a bit for each: column 0 is IN 1, 1 is IN 2.
    int mapOf(int column);

    /// "DuckingSwitch"; "MeterIN1" and "MeterIN2" for the levels of the inputs.
    quillon::DeviceSetter deviceSetter(QStringView attribute) override;
    void loadSettings() override;
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Ground;

    void buildControls();
    void declareRows();
    void raise(const QString& attribute, const QString& value);
    void raiseSaved(const QString& attribute, const QString& value);
    void changed(quillon::StripEngine::RowId row);
    void tellWorkStates();
    void showSwitch(bool on);
    void setChinese(bool chinese);
    void layoutBody();
    void fitTexts();

    struct Dial {
        DialS1M5* dial = nullptr;
        QLabel* caption = nullptr;
        QLabel* unit = nullptr;
    };

    quillon::StripEngine mEngine;
    quillon::StripEngine::RowId mSwitchRow = -1;
    QWidget* mGround;
    quillon::PlateButton* mSwitch = nullptr;
    std::array<Dial, 4> mDials;
    QLabel* mMapCaption = nullptr;
    quillon::DuckingMap* mMap = nullptr;
    std::array<R47_PrivateWidget1_1*, 2> mInputs{};
    QFont mFace;
    bool mWorkStale = false; // the switch or a map has changed since the work states were told
    bool mLoading = false;
};
