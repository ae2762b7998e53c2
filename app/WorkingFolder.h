#pragma once

#include <QString>

namespace quillon
{

/// Makes the program's folder the current directory, or, where that cannot be written, the user's data directory (created).
/// All relative paths hang on it. Returns what was chosen. Once, in main.
QString enterWorkingFolder();

/// The same with given folders. Where the second cannot be had either, the first is taken after a warning.
QString enterWorkingFolder(const QString& program, const QString& userData);

} // namespace quillon
