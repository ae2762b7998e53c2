#include "workspace/WorkspaceSettings.h"

#include "workspace/WorkspaceFile.h"

#include <QEvent>
#include <QFileInfo>
#include <QHash>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace quillon
{

namespace
{

// All stores by their absolute file name. Never destroyed: one that still waits at the end of the process stays where it is.
QHash<QString, WorkspaceSettings*>& stores()
{
    static auto* all = new QHash<QString, WorkspaceSettings*>;
    return *all;
}

} // namespace

WorkspaceSettings* WorkspaceSettings::open(const QString& path)
{
    if (WorkspaceSettings* waiting = find(path)) {
        waiting->mLife = Life::Open;
        return waiting;
    }
    return new WorkspaceSettings(path);
}

WorkspaceSettings* WorkspaceSettings::find(const QString& path)
{
    return stores().value(QFileInfo(path).absoluteFilePath());
}

bool WorkspaceSettings::settle(const QString& path)
{
    WorkspaceSettings* store = find(path);
    if (store == nullptr) {
        return true;
    }
    if (!store->writeNow()) {
        return false;
    }
    if (store->mLife != Life::Open) {
        store->leave();
    }
    return true;
}

WorkspaceSettings::WorkspaceSettings(const QString& path) : QSettings(path, QSettings::IniFormat)
{
    stores().insert(fileName(), this);
    noteFile();
}

WorkspaceSettings::~WorkspaceSettings()
{
    mTimer.stop();
}

std::unique_ptr<WorkspaceSettings> WorkspaceSettings::release(bool dropped)
{
    mLife = dropped ? Life::Dropped : Life::Waiting;
    return writeNow() ? leave() : nullptr;
}

/// Of one that has nothing to write any more: from here on its file may have another store.
std::unique_ptr<WorkspaceSettings> WorkspaceSettings::leave()
{
    stores().remove(fileName());
    if (mLife == Life::Dropped) {
        QFile::remove(fileName());
    }
    return std::unique_ptr<WorkspaceSettings>(this);
}

void WorkspaceSettings::noteChange()
{
    if (!std::exchange(mEdited, true)) {
        emit edited();
    }
    writeSoon();
}

void WorkspaceSettings::writeSoon()
{
    mChanged = true;
    mLastChange.start();
    if (!mFirstChange.isValid()) {
        mFirstChange.start();
        mTimer.start(QuietMs, this);
    }
}

bool WorkspaceSettings::writeNow()
{
    mTimer.stop();
    mFirstChange.invalidate();
    if ((!mChanged || hasRoomBeside(fileName())) && saveFromOthers()) {
        sync();
        if (isWritten()) {
            noteFile();
            mChanged = false;
            setFailed(false);
            return true;
        }
    }
    if (!mFailed) {
        setFailed(true);
        qWarning("WorkspaceSubject::flush //failed to write file");
    }
    mTimer.start(RetryMs, this);
    return false;
}

void WorkspaceSettings::noteFile()
{
    const QFileInfo file(fileName());
    mWrittenAt = file.lastModified();
    mWrittenSize = file.size();
}

/// The base class reads a file that has changed again, and forgets all values that it does not wait to write. From a file that is
/// gone or is no workspace it would keep next to nothing. A workspace that another program has edited is taken as it is.
bool WorkspaceSettings::saveFromOthers()
{
    const QFileInfo file(fileName());
    const bool unchanged = file.exists() && file.lastModified() == mWrittenAt && file.size() == mWrittenSize;
    const bool hasNews = mChanged || mEdited; // without any, a file that was deleted stays so
    if (mLife == Life::Dropped || !hasNews || !mWrittenAt.isValid() || unchanged) {
        return true;
    }
    const bool damaged = file.exists() && (isDamaged(fileName()) || !hasHeader(fileName()));
    if (file.exists() && !damaged) {
        return true;
    }
    QHash<QString, QVariant> values;
    const QStringList keys = allKeys();
    for (const QString& key : keys) {
        values.insert(key, value(key));
    }
    if (damaged) {
        const QString aside = keepAside(fileName());
        if (aside.isEmpty() || !QFile::remove(fileName())) {
            return false;
        }
        qWarning("WorkspaceSubject::flush //foreign file was copied to %ls", qUtf16Printable(aside));
    }
    for (auto entry = values.cbegin(); entry != values.cend(); ++entry) {
        setValue(entry.key(), entry.value());
    }
    return true;
}

void WorkspaceSettings::setFailed(bool failed)
{
    if (std::exchange(mFailed, failed) != failed) {
        emit failedChanged();
    }
}

bool WorkspaceSettings::isWritten()
{
    // An error stays with its object for good. A new object on the same file shares the pending changes and tries anew.
    return status() == QSettings::NoError || QSettings(fileName(), QSettings::IniFormat).status() == QSettings::NoError;
}

bool WorkspaceSettings::event(QEvent* event)
{
    if (event->type() != QEvent::UpdateRequest) {
        return QSettings::event(event);
    }
    if (!mFirstChange.isValid()) {
        writeSoon();
    }
    return true;
}

void WorkspaceSettings::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != mTimer.timerId()) {
        QSettings::timerEvent(event);
        return;
    }
    if (mFirstChange.isValid()) {
        const qint64 wait = std::min(QuietMs - mLastChange.elapsed(), LongestMs - mFirstChange.elapsed());
        if (wait > 0) {
            mTimer.start(static_cast<int>(wait), this);
            return;
        }
    }
    if (writeNow() && mLife != Life::Open) {
        leave();
    }
}

} // namespace quillon
