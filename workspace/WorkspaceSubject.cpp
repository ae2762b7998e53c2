#include "workspace/WorkspaceSubject.h"

#include "workspace/WorkspaceFile.h"
#include "workspace/WorkspaceSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;
using quillon::WorkspaceFolder;
using quillon::WorkspaceSettings;

namespace
{

constexpr qint32 TempMode = 1;

void warn(const char* operation, const char* reason)
{
    qWarning("WorkspaceSubject::%s //%s", operation, reason);
}

bool isSameFile(const QString& a, const QString& b)
{
    const QFileInfo first(a);
    const QFileInfo second(b);
    return first.absoluteFilePath() == second.absoluteFilePath() || (first.exists() && first == second);
}

// The bare file name: one copy of the program runs at a time.
QString tempPath(const QString& path)
{
    return QDir::tempPath() + QDir::separator() + QFileInfo(path).fileName();
}

} // namespace

WorkspaceSubject& WorkspaceSubject::instance()
{
    static WorkspaceSubject subject;
    return subject;
}

WorkspaceSubject::~WorkspaceSubject()
{
    close();
}

void WorkspaceSubject::addObserver(WorkspaceObserver* observer)
{
    observer->setSettingsHolder(&mSettings);
    mObservers.append(observer);
}

void WorkspaceSubject::addObservers(const QList<WorkspaceObserver*>& observers)
{
    std::for_each(observers.begin(), observers.end(), [this](WorkspaceObserver* observer) { addObserver(observer); });
}

void WorkspaceSubject::clearObservers()
{
    // Who leaves the audience must not write into the next page's workspace: a switch of the device reaches widgets of all pages.
    for (WorkspaceObserver* observer : std::as_const(mObservers)) {
        observer->setSettingsHolder(nullptr);
    }
    mObservers.clear();
}

void WorkspaceSubject::setWorkspaceInfo(const QString& deviceName, const QString& folder, const QString& prefix)
{
    mPlace = WorkspaceFolder(deviceName, folder, prefix);
}

bool WorkspaceSubject::hasInfo(const char* operation) const
{
    if (!mPlace.isComplete()) {
        warn(operation, "workspace info is empty");
        return false;
    }
    return true;
}

bool WorkspaceSubject::isNamed(const QString& name, const char* operation) const
{
    if (!quillon::isWorkspaceName(name)) {
        warn(operation, "invalid name");
        return false;
    }
    return true;
}

bool WorkspaceSubject::isOpenFile(const QString& path) const
{
    return mSettings != nullptr && isSameFile(path, mFilePath);
}

bool WorkspaceSubject::createWorkspace(const QString& name)
{
    return hasInfo("createWorkspace") && isNamed(name, "createWorkspace") && createFile(mPlace.filePath(name), mPlace.deviceName());
}

bool WorkspaceSubject::createFile(const QString& path, const QString& deviceName)
{
    if (path.isEmpty()) {
        warn("createFile", "file is empty");
        return false;
    }
    // In place of the open file: pending values go with the old content, and the store reads the new one.
    const bool underStore = isOpenFile(path) && mMode != TempMode;
    if (underStore) {
        flush();
    }
    const bool written = quillon::writeEmptyWorkspace(path, deviceName);
    if (!written) {
        warn("createFile", "failed to create file");
    }
    if (underStore) {
        flush();
    }
    return written;
}

void WorkspaceSubject::removeWorkspace(const QString& name)
{
    if (hasInfo("removeWorkspace") && isNamed(name, "removeWorkspace")) {
        removeFile(mPlace.filePath(name));
    }
}

void WorkspaceSubject::removeFile(const QString& path)
{
    if (path.isEmpty()) {
        warn("removeFile", "file is empty");
        return;
    }
    WorkspaceSettings* waiting = WorkspaceSettings::find(path);
    if (waiting != nullptr && waiting != mSettings) { // its values would bring the file back
        waiting->release(true);
    }
    if (QFileInfo::exists(path) && !QFile::remove(path)) {
        warn("removeFile", "failed to remove file");
    }
}

bool WorkspaceSubject::workspaceSaveAs(const QString& name)
{
    return hasInfo("workspaceSaveAs") && isNamed(name, "workspaceSaveAs") && fileSaveAs(mPlace.filePath(name));
}

bool WorkspaceSubject::fileSaveAs(const QString& path)
{
    if (mSettings == nullptr) {
        return false;
    }
    const bool current = flush();
    if (path.isEmpty()) {
        warn("fileSaveAs", "file is empty");
        return false;
    }
    if (isOpenFile(path)) {
        saveFile();
        return true;
    }
    if (!current || !quillon::writeCopiedWorkspace(mWorkPath, path)) {
        warn("fileSaveAs", "failed to copy file to target folder");
        return false;
    }
    return true;
}

void WorkspaceSubject::modifyWorkspace(const QString& name, int mode)
{
    if (hasInfo("modifyWorkspace") && isNamed(name, "modifyWorkspace")) {
        // Each write of the settings waits for the disk, and most page switches open the same one again.
        QSettings settings;
        if (settings.value(rememberKey()) != name) {
            settings.setValue(rememberKey(), name);
        }
        modifyFile(mPlace.filePath(name), mode);
    }
}

void WorkspaceSubject::modifyFile(const QString& path, int mode)
{
    if (!QFileInfo(path).isFile()) {
        warn("modifyFile", "file does not exist");
        return;
    }
    if (!quillon::releaseStaleLock(mode == TempMode ? tempPath(path) : path)) {
        warn("modifyFile", "file is locked");
        return;
    }
    if (!repair(path)) {
        return;
    }
    const QString workPath = mode == TempMode ? tempPath(path) : path;
    // Behind the load, unless it would be a second store on the file.
    std::unique_ptr<WorkspaceSettings> former = leaveStore();
    if (former != nullptr && isSameFile(former->fileName(), workPath)) {
        former.reset();
    }
    mFilePath = path;
    mMode = mode;
    mWorkPath = workPath;
    if (mode == TempMode) {
        if (!copyToTemp(path)) {
            warn("modifyFile", "failed to copy file to temp folder");
            return;
        }
    }
    open(mWorkPath);
    loadObservers();
    countAsSaved();
}

// A file that cannot be read back is kept under another name; an empty workspace takes its place.
bool WorkspaceSubject::repair(const QString& path)
{
    if (!quillon::isDamaged(path)) {
        return true;
    }
    const QString aside = quillon::keepAside(path);
    if (aside.isEmpty()) {
        warn("modifyFile", "failed to copy damaged file");
        return false;
    }
    if (!quillon::writeEmptyWorkspace(path, mPlace.deviceName())) {
        QFile::remove(aside);
        warn("modifyFile", "failed to replace damaged file");
        return false;
    }
    qWarning("WorkspaceSubject::modifyFile //damaged file was copied to %ls", qUtf16Printable(aside));
    return true;
}

bool WorkspaceSubject::copyToTemp(const QString& path)
{
    const QString temp = tempPath(path);
    if (isSameFile(temp, path)) {
        return false;
    }
    // A stale copy goes first, so that nobody else's link under this name is written through. Changes that still wait for the
    // workspace file belong into the copy.
    QFile::remove(temp);
    return WorkspaceSettings::settle(path) && quillon::replaceFile(path, temp);
}

void WorkspaceSubject::open(const QString& workPath)
{
    // The last change must reach the disk while the application's services still work.
    static std::once_flag once;
    std::call_once(once, [] { qAddPostRoutine([] { WorkspaceSubject::instance().close(); }); });
    mSettings = WorkspaceSettings::open(workPath);
    connect(store(), &WorkspaceSettings::edited, this, &WorkspaceSubject::unsavedChanged, Qt::UniqueConnection);
    connect(store(), &WorkspaceSettings::failedChanged, this, &WorkspaceSubject::unsavedChanged, Qt::UniqueConnection);
    countAsSaved();
}

bool WorkspaceSubject::hasUnsavedChanges() const
{
    return mSettings != nullptr && (store()->isFailed() || (mMode == TempMode && store()->isEdited()));
}

void WorkspaceSubject::countAsSaved()
{
    if (mSettings != nullptr) { // an observer may have closed it
        store()->forgetEdits();
    }
    emit unsavedChanged();
}

void WorkspaceSubject::close()
{
    leaveStore();
}

std::unique_ptr<WorkspaceSettings> WorkspaceSubject::leaveStore()
{
    if (mSettings == nullptr) {
        return nullptr;
    }
    auto former = store()->release(mMode == TempMode);
    mSettings = nullptr;
    emit unsavedChanged();
    return former;
}

WorkspaceSettings* WorkspaceSubject::store() const
{
    return static_cast<WorkspaceSettings*>(mSettings);
}

bool WorkspaceSubject::flush()
{
    return store()->writeNow();
}

void WorkspaceSubject::loadObservers()
{
    const QString source = u"Workspace"_s;
    emit attributeChanged(source, u"ModifyFile"_s, mWorkPath);
    emit attributeChanged(source, u"LoadSettings"_s, u"1"_s);
    const QList<WorkspaceObserver*> audience = mObservers;
    for (WorkspaceObserver* observer : audience) {
        if (mObservers.contains(observer)) {
            observer->loadSettings();
        }
    }
    emit attributeChanged(source, u"LoadSettings"_s, u"0"_s);
}

void WorkspaceSubject::modifyWorkspacePreprocessing(int mode)
{
    if (hasInfo("modifyWorkspacePreprocessing")) {
        modifyFilePreprocessing(mode);
    }
}

void WorkspaceSubject::modifyFilePreprocessing(int mode)
{
    if (mSettings == nullptr || mode == mMode) {
        return;
    }
    const bool current = flush();
    if (mMode == TempMode && (!current || !quillon::replaceFile(mWorkPath, mFilePath))) {
        warn("modifyFilePreprocessing", "failed to copy file from temp folder");
        return;
    }
    // The new copy is made before the store is closed: when it fails, the open workspace still takes every change.
    if (mode == TempMode && (!current || !quillon::releaseStaleLock(tempPath(mFilePath)) || !copyToTemp(mFilePath))) {
        warn("modifyFilePreprocessing", "failed to copy file to temp folder");
        return;
    }
    close();
    mMode = mode;
    mWorkPath = mode == TempMode ? tempPath(mFilePath) : mFilePath;
    open(mWorkPath);
}

void WorkspaceSubject::saveWorkspace()
{
    if (hasInfo("saveWorkspace")) {
        saveFile();
    }
}

void WorkspaceSubject::saveFile()
{
    if (mSettings == nullptr) {
        return;
    }
    const bool current = flush();
    if (mMode == TempMode && (!current || !quillon::replaceFile(mWorkPath, mFilePath))) {
        warn("saveFile", "failed to copy file from temp folder");
    } else if (current) {
        countAsSaved();
    }
}

void WorkspaceSubject::clearWorkspace()
{
    if (hasInfo("clearWorkspace")) {
        clearFile();
    }
}

void WorkspaceSubject::clearFile()
{
    if (mSettings == nullptr) {
        return;
    }
    QMap<QString, QVariant> header;
    for (const char* key : {"ConfigFileHeader/DeviceName", "ConfigFileHeader/CreateUser", "ConfigFileHeader/CreateDate"}) {
        header.insert(QLatin1String(key), mSettings->value(key));
    }
    mSettings->clear();
    for (auto entry = header.cbegin(); entry != header.cend(); ++entry) {
        mSettings->setValue(entry.key(), entry.value());
    }
    store()->noteChange();
    saveFile();
}

bool WorkspaceSubject::isCurrent(const QString& name) const
{
    return quillon::isWorkspaceName(name) && isOpenFile(mPlace.filePath(name));
}

bool WorkspaceSubject::isWorkspaceValid(const QString& name) const
{
    return isNamed(name, "isWorkspaceValid") && mPlace.isValid(name);
}
