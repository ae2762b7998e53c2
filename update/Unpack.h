#pragma once

#include <QString>

namespace quillon
{

struct UnpackLimits {
    qint64 bytes = 1024LL * 1024 * 1024; // of all files together, unpacked
    int entries = 4096;
};

/// Unpacks a zip archive of regular files and folders into a folder that is empty and the user's own; `only` names the one file
/// that is wanted, if one is. Returns why the archive is not accepted, empty on success. After a refusal what the folder holds is
/// of no use. An entry that would lie outside the folder, exists twice, or is a link or a device refuses the whole archive. Ends
/// when the updates' thread is stopped.
QString unpack(const QString& archive, const QString& folder, const QString& only = {}, const UnpackLimits& limits = {});

} // namespace quillon
