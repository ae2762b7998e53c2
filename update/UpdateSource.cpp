#include "update/UpdateSource.h"

using namespace Qt::StringLiterals;

namespace quillon
{

UpdateSource UpdateSource::ofBuild()
{
    UpdateSource source;
    if (const QString host = QStringLiteral(QUILLON_UPDATE_HOST); !host.isEmpty()) {
        source.manifest = QUrl(u"https://"_s + host + u"/Jsons/UpdaterVantor.json"_s);
    }
    return source;
}

} // namespace quillon
