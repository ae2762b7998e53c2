#pragma once
// What the tests of the updates have in common. A recorder keeps what an updater tells, in order, on the thread of the test.

#include "update/UpdaterBase.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
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

/// A warning that begins like this is due.
inline void expect(const QString& start)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1Char('^') + QRegularExpression::escape(start)));
}

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

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
