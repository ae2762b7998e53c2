#pragma once
// What the tests of strips share: an open workspace without a subject, and a record of events.

#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <memory>

#include "workspace/WorkspaceObserver.h"

namespace bench
{

/// A workspace file of its own. Observers keep writing to whatever is open now.
class OpenWorkspace
{
public:
    OpenWorkspace() { reopen(QStringLiteral("first")); }

    void attach(WorkspaceObserver& observer) { observer.setSettingsHolder(&mHolder); }
    /// Opens another file, empty when it is new.
    void reopen(const QString& name)
    {
        mSettings = std::make_unique<QSettings>(mFolder.filePath(name + QStringLiteral(".ini")), QSettings::IniFormat);
        mHolder = mSettings.get();
    }
    QSettings& file() { return *mSettings; }
    QVariant value(const QString& group, const QString& key) const { return mSettings->value(group + u'/' + key); }

private:
    QTemporaryDir mFolder;
    std::unique_ptr<QSettings> mSettings;
    QSettings* mHolder = nullptr;
};

/// Events of a strip as "attribute=value".
struct Record {
    QStringList lines;

    QStringList take() { return std::exchange(lines, {}); }
    QStringList attributes() const
    {
        QStringList names;
        for (const QString& line : lines) {
            names += line.section(u'=', 0, 0);
        }
        return names;
    }
    template<class Sender> void listen(Sender* sender)
    {
        QObject::connect(
            sender, &Sender::attributeChanged, sender,
            [this](const QString&, const QString& attribute, const QString& value) { lines += attribute + u'=' + value; });
    }
};

/// A strip's close button, and the box of its field that brings it back.
template<class Strip> void hide(Strip* strip)
{
    emit strip->attributeChanged(strip->channelName(), QStringLiteral("Hide"), QStringLiteral("1"));
}
inline void add(QWidget* field, const QString& name)
{
    QMetaObject::invokeMethod(field, "in_mWidgetAddition_attributeChanged", Q_ARG(QString, name),
                              Q_ARG(QString, QStringLiteral("Visible")), Q_ARG(QString, QStringLiteral("1")));
}

} // namespace bench
