#pragma once

#include <QBasicTimer>
#include <QDateTime>
#include <QElapsedTimer>
#include <QSettings>
#include <memory>

namespace quillon
{

/// A workspace as an INI store that collects changes: it goes to the disk 300 ms after the last one, 2 s after the first at the
/// latest. A plain store writes the whole file, with a wait for the disk, in every pass of the event loop in which a fader moved.
///
/// Qt 6.4 puts a cut-off file in the place of the old one when the disk runs full in the last 16 KB of a write, and any settings
/// object on a file writes what another one on it has pending. So nothing is written before there is room, a store that could not
/// be written lives on until it can, and there is never a second object on its file. GUI thread.
class WorkspaceSettings : public QSettings
{
    Q_OBJECT
public:
    /// The store of a file: the one that waits to be written, where there is one, else a new one.
    static WorkspaceSettings* open(const QString& path);
    /// The store that lives on a file, open or waiting; null where there is none.
    static WorkspaceSettings* find(const QString& path);
    /// Writes what waits for a file, before another file takes its place. False when that failed.
    static bool settle(const QString& path);

    ~WorkspaceSettings() override;

    /// Lets go of a store, which writes what is pending. Gives the object to who has better to do first: the end of one that was
    /// read takes as long as a fifth of the reading. Null while it can't be written; it then ends by itself as soon as it can.
    /// dropped: its file is not wanted any more, and goes.
    std::unique_ptr<WorkspaceSettings> release(bool dropped);
    /// Tells that a value was just set: the base class announces only the first change after a write.
    void noteChange();
    /// Whether there was a change since the last forgetEdits().
    bool isEdited() const { return mEdited; }
    void forgetEdits() { mEdited = false; }
    /// Whether the last write failed: changes wait for the disk.
    bool isFailed() const { return mFailed; }
    /// Writes at once, everything when another program has removed the file or put something in its place that is no workspace;
    /// that is kept aside. False, and one warning until a write succeeds again, when the file could not be written; nothing is lost
    /// from memory then, the old file is as it was, and the write is tried again every two seconds.
    bool writeNow();

signals:
    /// isEdited() has become true.
    void edited();
    /// isFailed() says something else now.
    void failedChanged();

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    static constexpr int QuietMs = 300;
    static constexpr int LongestMs = 2000;
    static constexpr int RetryMs = 2000;

    enum class Life { Open, Waiting, Dropped };

    explicit WorkspaceSettings(const QString& path);
    bool isWritten();
    void noteFile();
    bool saveFromOthers();
    void setFailed(bool failed);
    void writeSoon();
    std::unique_ptr<WorkspaceSettings> leave();

    QBasicTimer mTimer;
    QDateTime mWrittenAt; // of the file after the last reading or writing, as its size
    qint64 mWrittenSize = 0;
    QElapsedTimer mFirstChange;
    QElapsedTimer mLastChange;
    Life mLife = Life::Open;
    bool mChanged = false;
    bool mEdited = false;
    bool mFailed = false;
};

} // namespace quillon
