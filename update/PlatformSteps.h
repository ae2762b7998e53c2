#pragma once

#include <QString>

namespace quillon
{

// What each platform does in its own way.

/// Looks a host's name up, so that the system's resolver has tried it once; blocks. Any thread.
void lookUpHost(const char* name);

/// Starts the setup program inside an archive, on its own. Returns why it could not, empty on success.
QString startSetup(const QString& archive);

/// Puts the image that a firmware archive holds in its place beside the archive. False when the archive is not accepted as a whole.
bool unpackImage(const QString& archive, const QString& image);

} // namespace quillon
