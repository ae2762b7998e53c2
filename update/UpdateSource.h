#pragma once

#include <QUrl>

namespace quillon
{

/// Where updates come from, and how long and how much a server may keep the program busy.
struct UpdateSource {
    QUrl manifest; // empty: there is no host, and nothing is ever fetched
    int fetchSilenceMs = 2000;
    int downloadSilenceMs = 5000;
    qint64 mostManifestBytes = 64 * 1024;
    qint64 mostFileBytes = 256 * 1024 * 1024;

    /// That of this build.
    static UpdateSource ofBuild();
};

} // namespace quillon
