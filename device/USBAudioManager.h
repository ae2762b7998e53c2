#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

/// Watches three values of the active device, twice a second, and reports what changed. GUI thread.
class USBAudioManager : public QObject
{
    Q_OBJECT
public:
    static USBAudioManager& instance();

    /// Reports what differs from the last known values at once, then watches.
    void startMonitoring();
    /// Forgets rate and safe mode, so that the next start reports them again; the buffer size is reported only if it changed.
    void stopMonitoring();

signals:
    /// "SampleRate" in Hz, "BufferSize" in samples, "SafeMode" 0 or 1.
    void attributeChanged(QString attribute, QString value);

private slots:
    void in_mTimer_timeout();

private:
    USBAudioManager();
    void report(int& known, int current, const QString& attribute);

    QTimer mTimer;
    int mSampleRate = -1;
    int mBufferSize = -1;
    int mSafeMode = -1;
};
