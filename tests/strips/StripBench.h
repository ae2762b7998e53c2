#pragma once
// What the tests of strips share: an open workspace without a subject, and a record of events.

#include <QRegularExpression>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <algorithm>
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

/// What of a strip does not lie within it and beside the others, at some size; empty where all is well.
inline QString misplaced(QWidget& strip)
{
    static const QRegularExpression kPlaced(
        QStringLiteral("^(lineEdit|widget(?!Overlay)|pushButtonLink|[A-Z]|label|volume|slider)"));
    for (const double scale : {1.0, 1.33, 1.5, 2.67, 5.4}) {
        strip.resize((strip.minimumSize().toSizeF() * scale).toSize());
        QList<QWidget*> placed;
        for (QWidget* child : strip.findChildren<QWidget*>(kPlaced, Qt::FindDirectChildrenOnly)) {
            const QRect place = child->geometry();
            if (child->isHidden()) {
                continue;
            }
            const bool apart = std::ranges::none_of(placed, [&](QWidget* other) { return place.intersects(other->geometry()); });
            if (!apart || !strip.rect().contains(place) || std::min(place.width(), place.height()) <= 8) {
                return child->objectName() + QStringLiteral(" at %1").arg(scale);
            }
            placed += child;
        }
        if (placed.size() < 4) {
            return QStringLiteral("nearly nothing is there");
        }
    }
    return {};
}

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
