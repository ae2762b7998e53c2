#pragma once

#include <QString>

namespace quillon
{

// What a platform does with an archive that was downloaded or chosen. Worker thread.

/// Starts the setup program inside an archive, on its own. Returns why it could not, empty on success.
QString startSetup(const QString& archive);

/// Puts the image that a firmware archive holds in its place beside the archive. False when the archive is not accepted as a whole.
bool unpackImage(const QString& archive, const QString& image);

} // namespace quillon
