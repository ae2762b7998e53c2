#include "workspace/WorkspaceFolder.h"

#include "workspace/WorkspaceFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quillon
{

WorkspaceFolder::WorkspaceFolder(const QString& deviceName, const QString& folder, const QString& prefix)
    : mDeviceName(deviceName), mFolder(folder), mPrefix(prefix)
{
    if (!folder.isEmpty() && !QDir().mkpath(folder)) {
        qWarning("WorkspaceSubject::setWorkspaceInfo //failed to create folder");
        mFolder = QDir::temp().filePath("Quillon/"_L1 + QFileInfo(folder).fileName());
        QDir().mkpath(mFolder);
    }
}

QString WorkspaceFolder::filePath(const QString& name) const
{
    return mFolder + QDir::separator() + mPrefix + name + ".ini"_L1;
}

QStringList WorkspaceFolder::names() const
{
    if (mFolder.isEmpty() || mPrefix.isEmpty()) {
        return {};
    }
    // Dates are read once per file.
    std::vector<std::pair<qint64, QString>> dated;
    const QFileInfoList files = QDir(mFolder).entryInfoList({mPrefix + "*.ini"_L1}, QDir::Files);
    dated.reserve(static_cast<size_t>(files.size()));
    for (const QFileInfo& file : files) {
        const QString name = file.completeBaseName().mid(mPrefix.size());
        // The filter does not look at case: what could not be opened by its name is not offered.
        if (isWorkspaceName(name) && QFileInfo::exists(filePath(name))) {
            const QDateTime date = creationDate(file.filePath());
            dated.emplace_back(date.isValid() ? date.toMSecsSinceEpoch() : std::numeric_limits<qint64>::min(), name);
        }
    }
    std::stable_sort(dated.begin(), dated.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList names;
    std::transform(dated.begin(), dated.end(), std::back_inserter(names), [](const auto& entry) { return entry.second; });
    return names;
}

bool WorkspaceFolder::isValid(const QString& name) const
{
    return isComplete() && headerValue(filePath(name), u"DeviceName"_s) == mDeviceName;
}

QString WorkspaceFolder::rememberKey() const
{
    return mDeviceName + u'/' + mPrefix + "Workspace"_L1;
}

} // namespace quillon
