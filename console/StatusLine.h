#pragma once

#include <QLabel>
#include <QObject>
#include <QPushButton>
#include <QString>

class QStatusBar;

namespace quillon
{

/// What the console's status bar tells: the work mode and workspace on the left, firmware, sample rate and buffer on the right.
/// Beside the mode stands the way into the simple console, where there is one.
class StatusLine : public QObject
{
    Q_OBJECT
public:
    explicit StatusLine(QStatusBar& bar);

    void setLanguage(const QString& language);
    void setMode(const QString& english, const QString& chinese);
    /// Whether the simple console can be reached from the mode shown.
    void setEasyOffered(bool offered) { mEasy->setVisible(offered); }
    void setWorkspace(const QString& name);
    void setFirmware(const QString& version);
    /// Hz and samples; 0 hides the figure.
    void setSampleRate(int hertz);
    void setBufferSize(int samples);
    /// Fits the font into the bar and fixes the bar's height to its share of the window's.
    void fit(int windowHeight);

signals:
    void easyRequested();

private:
    void show();

    QStatusBar& mBar;
    QLabel* mLeft;
    QLabel* mRight;
    QPushButton* mEasy;
    bool mChinese = false;
    QString mModeEnglish;
    QString mModeChinese;
    QString mWorkspace;
    QString mFirmware;
    int mSampleRate = 0;
    int mBufferSize = 0;
};

} // namespace quillon
