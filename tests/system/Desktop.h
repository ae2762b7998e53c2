#pragma once
// A desktop of the test's own: a screen without a window manager, a session's bus, and a panel that takes icons. All end with it.

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <memory>
#include <vector>
#include <xcb/xcb.h>

class Desktop
{
public:
    Desktop();
    ~Desktop();

    bool stands() const { return mScreen != nullptr && mBus.isConnected(); }
    QDBusConnection& bus() { return mBus; }
    /// What a program needs to find it.
    void enter(QProcess& program) const;
    /// The windows on the screen, those of programs that have not hidden them.
    std::vector<xcb_window_t> windows();
    /// As the button of a title bar does.
    void close(xcb_window_t window);

private:
    struct Free {
        void operator()(xcb_connection_t* screen) const { xcb_disconnect(screen); }
    };
    xcb_atom_t atom(const char* name);

    QProcess mServer;
    QProcess mDaemon;
    QByteArray mDisplay;
    QString mAddress;
    std::unique_ptr<xcb_connection_t, Free> mScreen;
    QDBusConnection mBus{QString()};
};

/// The panel's side of an icon: it is registered here, and its menu is read and used.
class Panel : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER mHost)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems MEMBER mItems)
    Q_PROPERTY(int ProtocolVersion MEMBER mVersion)
public:
    explicit Panel(Desktop& desktop);
    ~Panel() override;

    const QStringList& items() const { return mItems; }
    /// A click on the icon that came last.
    bool activate();
    /// Its menu from top to bottom, "-" for a separator.
    QStringList menu();
    bool choose(const QString& entry);

public slots:
    void RegisterStatusNotifierItem(const QString& item);

signals:
    void StatusNotifierHostRegistered();

private:
    struct Entry {
        int id;
        QString text;
    };
    QDBusMessage call(const QString& path, const QString& interface, const QString& member, const QVariantList& arguments);
    std::vector<Entry> entries();

    QDBusConnection mBus;
    QStringList mItems;
    bool mHost = true;
    int mVersion = 0;
};
