#pragma once
// What an updater tells, kept in order on the thread of the test.

#include "update/UpdaterBase.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>

class Recorder : public QObject
{
public:
    explicit Recorder(UpdaterBase& updater)
    {
        connect(&updater, &UpdaterBase::attributeChanged, this,
                [this](const QString& attribute, const QString& value) { events += attribute + QLatin1Char(' ') + value; });
    }

    /// Waits until the last event is a final state, "Update" or "Download", and returns that.
    QString outcome(const QString& kind, int timeoutMs = 10000)
    {
        const QString prefix = kind + QLatin1String("State ");
        const auto isOver = [&] {
            return !events.isEmpty() && events.constLast().startsWith(prefix) &&
                   !events.constLast().endsWith(QLatin1String("Start"));
        };
        return QTest::qWaitFor(isOver, timeoutMs) ? events.constLast().mid(prefix.size()) : QStringLiteral("none");
    }
    QStringList of(const QString& attribute) const
    {
        QStringList values;
        for (const QString& event : events) {
            if (event.startsWith(attribute + QLatin1Char(' '))) {
                values += event.mid(attribute.size() + 1);
            }
        }
        return values;
    }

    QStringList events;
};

/// All files and links below a folder, sorted.
inline QStringList filesBelow(const QString& folder)
{
    QStringList files;
    QDirIterator at(folder, QDir::Files | QDir::System | QDir::Hidden, QDirIterator::Subdirectories);
    while (at.hasNext()) {
        files += at.next();
    }
    files.sort();
    return files;
}
