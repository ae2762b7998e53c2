#include "workspace/WorkspaceObserver.h"

#include "workspace/WorkspaceSettings.h"

#include <QVarLengthArray>

namespace
{

/// A key with its group in front, without a detour over the store's current group: half of what a value costs, else.
class FullKey
{
public:
    FullKey(const QString& group, QAnyStringView key)
    {
        mText.append(group.constData(), group.size());
        if (!group.isEmpty()) {
            mText.append(u'/');
        }
        key.visit([this](auto text) {
            for (const auto c : text) {
                mText.append(QChar(c));
            }
        });
    }
    operator QAnyStringView() const { return QStringView(mText.constData(), mText.size()); } // NOLINT(*-explicit-*)

private:
    QVarLengthArray<QChar, 64> mText;
};

} // namespace

void WorkspaceObserver::saveValue(QAnyStringView key, QVariant value)
{
    QSettings* settings = store();
    if (settings == nullptr) {
        return;
    }
    settings->setValue(FullKey(mGroup, key), value);
    if (auto* collecting = qobject_cast<quillon::WorkspaceSettings*>(settings)) {
        collecting->noteChange();
    }
}

QVariant WorkspaceObserver::loadValue(QAnyStringView key)
{
    QSettings* settings = store();
    if (settings == nullptr) {
        return {};
    }
    return settings->value(FullKey(mGroup, key));
}

bool WorkspaceObserver::hasValue(const QString& key) const
{
    QSettings* settings = store();
    if (settings == nullptr) {
        return false;
    }
    return settings->contains(FullKey(mGroup, key));
}
