#pragma once
// Workspace files on the disk, without any state: names, header, damage, and replacing a file without ever leaving half of it.

#include <QDateTime>
#include <QString>

namespace quillon
{

/// Whether a name stays inside its folder: 1 to 128 characters, no separator, no NUL, neither "." nor "..".
bool isWorkspaceName(const QString& name);

/// A value of the file's header group; empty where the file or the key is missing, or where the file is too large to be one of
/// ours.
QString headerValue(const QString& path, const QString& key);

/// Creation date from the header, invalid where there is none.
QDateTime creationDate(const QString& path);

/// Whether a file is no workspace that could be read back: not INI, a NUL byte in it, or more than 8 MB.
bool isDamaged(const QString& path);

/// Whether a file that is not damaged has our header group. Looked at in the file itself, whatever a store of it knows.
bool hasHeader(const QString& path);

/// Keeps a file under a free name "<complete base name>.damaged-<n>" beside it. Returns that name, empty on failure.
QString keepAside(const QString& path);

/// Whether a little more than the file's present size can be written in its folder (made where it is missing). Some 0.1 ms.
bool hasRoomBeside(const QString& path);

/// Copies source to target: written under another name in the target's folder, brought to the disk, then renamed over it.
/// On failure false, and the target is as it was.
bool replaceFile(const QString& source, const QString& target);

/// Puts a file with nothing but a header in the place of path. On failure false, and the old file is as it was.
bool writeEmptyWorkspace(const QString& path, const QString& deviceName);

/// Puts a copy of source with a new creation user and date in the place of path. On failure false, and the old file is as it was.
bool writeCopiedWorkspace(const QString& source, const QString& path);

/// Frees a file of the lock that a run which ended in the middle of a write left beside it: a settings object would wait for it for
/// ever. False when the lock cannot be had: the file must not be opened then.
bool releaseStaleLock(const QString& path);

} // namespace quillon
