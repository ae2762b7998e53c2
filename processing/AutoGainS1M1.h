#pragma once

#include "controls/FramelessWindow.h"
#include "processing/PeakEstimate.h"

#include <QMap>
#include <QPointer>
#include <QTimer>
#include <limits>

class AutoGainS1M1_WidgetBase;
class QStackedWidget;

/// The modal dialog behind the AUTO button of an input strip: it measures the level for 15 seconds while the user performs.
///
/// The strip feeds the meter in by setLevel(), sets the gain to 0 on the event "Start" and applies the result. GUI thread.
///
/// exec() runs an event loop in which the device may vanish. The dialog then closes with Cancelled, as soon as the console
/// window hides, closes or goes, or the dialog itself is deleted; a caller that may be gone by then must hold a QPointer to itself
/// and look at it before it touches anything of its own.
class AutoGainS1M1 : public FramelessWindow
{
    Q_OBJECT
public:
    /// Result of a dialog that was cancelled, abandoned, closed, or whose owner went. Every other result is the measured level
    /// in tenths of dB, truncated toward zero.
    static constexpr int Cancelled = std::numeric_limits<int>::min();

    explicit AutoGainS1M1(QWidget* parent = nullptr);
    ~AutoGainS1M1() override;

    /// Runs from page 0 at the base size times the setting "ScaleFactor", centred on the console window (without one: on the
    /// window of the parent, else on the screen). Cancelled at once when it is running already.
    int exec() override;
    /// As exec(), at a given place in global pixels, which is kept; a side below 150 pixels becomes 150.
    int execAt(const QRect& geometry);
    /// The place over a window: a square of a third of its height round its centre, in global pixels.
    static QRect squareOver(const QWidget* window);

    /// A meter reading in dB. Counts only while the seconds run.
    void setLevel(float levelDb);
    /// Display name of the channel by language ("English", "Chinese").
    void setChannelNames(const QMap<QString, QString>& names);
    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);
    /// Font of all pages, fitted to their boxes.
    void setFont(const QFont& font);

    void done(int code) override;
    /// Ends a run as its Cancel button does; nothing when none goes on.
    void cancel();

signals:
    /// To the strip: only ever "Start", "1".
    void attributeChanged(QString attribute, QString value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void in_mTimer_timeout();
    void in_mTimerPage_timeout();
    void in_widgetPageAll_attributeChanged(QString objectName, QString attribute, QString value);

private:
    enum Page { Ready, Measuring, Completed, Failed, PageCount };

    void start(const QString& value);
    void goToPage(qint32 page);
    float measuredLevel();
    QRect defaultGeometry() const;
    QWidget* console() const;
    AutoGainS1M1_WidgetBase* page(qint32 number) const { return mPages.value(number); }

    QStackedWidget* mStack = nullptr;
    QMap<qint32, AutoGainS1M1_WidgetBase*> mPages;
    qint32 mCurrentPage = -1;
    qint32 mNextPage = -1;
    QTimer mTimer;
    QTimer mTimerPage; // the last second stays readable for a moment before its page goes
    qint32 mSecondsLeft = 15;
    quillon::PeakEstimate mSamples;
    float mResultDb = 0;
    bool mResultValid = false;
    bool mRunning = false;
    const QObject* mWatched = nullptr; // the console while running: compared, never followed
    float mLevelMin = -70.0F;
    float mLevelMax = -6.0F;
    QMap<QString, QString> mChannelNames;
    QString mLanguage;
};
