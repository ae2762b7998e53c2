#include "app/TrayPlace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QtGui/qguiapplication_platform.h>

#include <cstdlib>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

const QString kService = u"org.kde.StatusNotifierWatcher"_s;
const QString kPath = u"/StatusNotifierWatcher"_s;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

template<typename T> std::unique_ptr<T, Free> owned(T* reply)
{
    return std::unique_ptr<T, Free>(reply);
}

// The older kind: a window of the panel into which the icon's own is put.
bool embeds()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    constexpr char name[] = "_NET_SYSTEM_TRAY_S0";
    // A platform without a screen has the interface, but no connection.
    xcb_connection_t* connection = x11 != nullptr ? x11->connection() : nullptr;
    if (connection == nullptr) {
        return false;
    }
    const auto atom = owned(xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 1, sizeof name - 1, name), nullptr));
    if (atom == nullptr || atom->atom == XCB_ATOM_NONE) {
        return false;
    }
    const auto owner = owned(xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner != nullptr && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

// The toolkit looks for a tray on the bus once in its life and waits for the answer; so it is not asked before there is one.
struct TrayPlace::Watch : QObject {
    Q_OBJECT
public:
    explicit Watch(TrayPlace& owner) : place(owner), service(kService, bus, QDBusServiceWatcher::WatchForOwnerChange)
    {
        connect(&service, &QDBusServiceWatcher::serviceOwnerChanged, this, &Watch::ask);
        for (const QString& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
            bus.connect(kService, kPath, kService, signal, this, SLOT(ask()));
        }
        ask();
    }

    TrayPlace& place;
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusServiceWatcher service;
    bool hosted = false;

public slots:
    void ask()
    {
        QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
        question << kService << u"IsStatusNotifierHostRegistered"_s;
        question.setAutoStartService(false);
        auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
            const QDBusPendingReply<QDBusVariant> reply = *answer;
            answer->deleteLater();
            hosted = reply.isValid() && reply.value().variant().toBool();
            emit place.changed();
        });
    }
};

TrayPlace::TrayPlace(QObject* parent) : QObject(parent), mWatch(std::make_unique<Watch>(*this)) {}

TrayPlace::~TrayPlace() = default;

bool TrayPlace::isThere() const
{
    return mWatch->hosted || embeds();
}

} // namespace quillon

#include "TrayPlace_unix.moc"
