#pragma once
// A folder of workspaces of its own for one test, and an observer like a strip.

#include "workspace/WorkspaceObserver.h"
#include "workspace/WorkspaceSubject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// Loads like a strip: defaults where the group has no marker, then everything back.
class Strip : public WorkspaceObserver
{
public:
    explicit Strip(const QString& group) : WorkspaceObserver(group) {}
    void loadSettings() override
    {
        if (!hasValue(workspaceGroup())) {
            saveValue(workspaceGroup(), true);
            saveValue("GAIN", 0);
        }
        gain = loadValue("GAIN").toInt();
        ++loads;
    }

    int gain = -1;
    int loads = 0;
};

/// Announces a warning of the store, which would fail the test otherwise.
inline void expect(const char* warning)
{
    QTest::ignoreMessage(QtWarningMsg, QByteArray("WorkspaceSubject::") + warning);
}

struct StoreFixture {
    StoreFixture()
    {
        // The private copies of tests that run side by side have the same names.
        QDir().mkpath(dir.filePath(QStringLiteral("tmp")));
        qputenv("TMPDIR", QFile::encodeName(dir.filePath(QStringLiteral("tmp"))));
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QCoreApplication::setApplicationName(QStringLiteral("store"));
        subject().setWorkspaceInfo(QStringLiteral("R47"), folder, QStringLiteral("R47_Live_"));
        subject().addObserver(&strip);
    }
    ~StoreFixture()
    {
        subject().clearObservers();
        subject().close();
        tempBefore.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", tempBefore);
    }
    static WorkspaceSubject& subject() { return WorkspaceSubject::instance(); }

    QString path(const QString& name) const { return folder + QStringLiteral("/R47_Live_") + name + QStringLiteral(".ini"); }
    QString temp(const QString& name) const
    {
        return QDir::tempPath() + QStringLiteral("/R47_Live_") + name + QStringLiteral(".ini");
    }
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void put(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("the test could not write its file");
        }
    }
    /// A workspace with a creation date, in which the strip has a gain.
    void make(const QString& name, const char* date, int gain) const
    {
        put(path(name), QByteArray("[ConfigFileHeader]\nCreateDate=") + date +
                            "\nCreateUser=me\nDeviceName=R47\n\n[Input_IN1]\nGAIN=" + QByteArray::number(gain) +
                            "\nInput_IN1=true\nNote=" + QByteArray(600, 'n') + "\n");
    }
    /// The strip's gain on the disk, -1 for none.
    int stored(const QString& name) const
    {
        for (const QByteArray& line : content(path(name)).split('\n')) {
            if (line.startsWith("GAIN=")) {
                return line.mid(5).toInt();
            }
        }
        return -1;
    }
    QStringList files() const { return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    const QByteArray tempBefore = qgetenv("TMPDIR");
    QTemporaryDir dir;
    QString folder = dir.filePath(QStringLiteral("Workspace/R47/Live"));
    Strip strip{QStringLiteral("Input_IN1")};
};
