#pragma once

#include <QLabel>
#include <QObject>
#include <QString>

class QStatusBar;

namespace quillon
{

/// What the console's status bar tells: the work mode and workspace on the left, firmware, sample rate and buffer on the right.
class StatusLine : public QObject
{
    Q_OBJECT
public:
    explicit StatusLine(QStatusBar& bar);

    void setLanguage(const QString& language);
    void setMode(const QString& english, const QString& chinese);
    void setWorkspace(const QString& name);
    void setFirmware(const QString& version);
    /// Hz and samples; 0 hides the figure.
    void setSampleRate(int hertz);
    void setBufferSize(int samples);
    /// Fits the font into the bar and fixes the bar's height to its share of the window's.
    void fit(int windowHeight);

private:
    void show();

    QStatusBar& mBar;
    QLabel* mLeft;
    QLabel* mRight;
    bool mChinese = false;
    QString mModeEnglish;
    QString mModeChinese;
    QString mWorkspace;
    QString mFirmware;
    int mSampleRate = 0;
    int mBufferSize = 0;
};

} // namespace quillon
