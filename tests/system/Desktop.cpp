#include "Desktop.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QTest>
#include <cstdlib>
#include <cstring>

namespace
{

const QString kWatcher = "org.kde.StatusNotifierWatcher";
const QString kWatcherPath = "/StatusNotifierWatcher";
const QString kMenu = "com.canonical.dbusmenu";
const QString kMenuPath = "/MenuBar";
constexpr int kAnswerMs = 5000;
constexpr int kStartMs = 10000;

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

template<typename T> std::unique_ptr<T, FreeReply> owned(T* reply)
{
    return std::unique_ptr<T, FreeReply>(reply);
}

QByteArray firstLine(QProcess& process)
{
    while (!process.canReadLine() && process.waitForReadyRead(kStartMs)) {
    }
    return process.readLine().trimmed();
}

} // namespace

Desktop::Desktop()
{
    mServer.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1920x1200x24", "-nolisten", "tcp"});
    mDaemon.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address=1"});
    mDisplay = ':' + firstLine(mServer);
    mAddress = QString::fromLatin1(firstLine(mDaemon));
    mScreen.reset(xcb_connect(mDisplay.constData(), nullptr));
    if (xcb_connection_has_error(mScreen.get()) != 0)
        mScreen.reset();
    mBus = QDBusConnection::connectToBus(mAddress, mAddress);
}

Desktop::~Desktop()
{
    QDBusConnection::disconnectFromBus(mAddress);
    mScreen.reset();
    for (QProcess* process : {&mDaemon, &mServer}) {
        process->terminate();
        process->waitForFinished(5000);
    }
}

void Desktop::enter(QProcess& program) const
{
    QProcessEnvironment environment = program.processEnvironment();
    environment.insert("DISPLAY", QString::fromLatin1(mDisplay));
    environment.insert("DBUS_SESSION_BUS_ADDRESS", mAddress);
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.remove("WAYLAND_DISPLAY");
    program.setProcessEnvironment(environment);
}

xcb_atom_t Desktop::atom(const char* name)
{
    const auto cookie = xcb_intern_atom(mScreen.get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(mScreen.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<xcb_window_t> Desktop::windows()
{
    std::vector<xcb_window_t> shown;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(mScreen.get())).data->root;
    const auto tree = owned(xcb_query_tree_reply(mScreen.get(), xcb_query_tree(mScreen.get(), root), nullptr));
    const xcb_window_t* children = tree ? xcb_query_tree_children(tree.get()) : nullptr;
    for (int i = 0; children != nullptr && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const auto cookie = xcb_get_window_attributes(mScreen.get(), children[i]);
        const auto attributes = owned(xcb_get_window_attributes_reply(mScreen.get(), cookie, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            shown.push_back(children[i]);
    }
    return shown;
}

void Desktop::close(xcb_window_t window)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(mScreen.get(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    xcb_flush(mScreen.get());
}

Panel::Panel(Desktop& desktop) : mBus(desktop.bus())
{
    mBus.registerObject(kWatcherPath, this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals | QDBusConnection::ExportAllProperties);
    mBus.registerService(kWatcher);
    emit StatusNotifierHostRegistered();
}

Panel::~Panel()
{
    mBus.unregisterService(kWatcher);
    mBus.unregisterObject(kWatcherPath);
}

void Panel::RegisterStatusNotifierItem(const QString& item)
{
    mItems += item;
}

QDBusMessage Panel::call(const QString& path, const QString& interface, const QString& member, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(mItems.value(mItems.size() - 1), path, interface, member);
    message.setArguments(arguments);
    return mBus.call(message, QDBus::Block, kAnswerMs);
}

bool Panel::activate()
{
    return call("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", {0, 0}).type() == QDBusMessage::ReplyMessage;
}

std::vector<Panel::Entry> Panel::entries()
{
    std::vector<Entry> found;
    const QDBusMessage reply = call(kMenuPath, kMenu, "GetLayout", {0, -1, QStringList()});
    if (reply.arguments().size() != 2)
        return found;
    int id = 0;
    QVariantMap properties;
    QVariantList children;
    const auto read = [&](const QDBusArgument& item) {
        children.clear();
        properties.clear();
        item.beginStructure();
        item >> id >> properties >> children;
        item.endStructure();
    };
    read(reply.arguments()[1].value<QDBusArgument>());
    const QVariantList all = children;
    for (const QVariant& child : all) {
        read(child.value<QDBusVariant>().variant().isValid() ? child.value<QDBusVariant>().variant().value<QDBusArgument>()
                                                             : child.value<QDBusArgument>());
        found.push_back({id, properties["type"] == "separator" ? "-" : properties["label"].toString()});
    }
    return found;
}

QStringList Panel::menu()
{
    QStringList texts;
    for (const Entry& entry : entries())
        texts += entry.text;
    return texts;
}

bool Panel::choose(const QString& entry)
{
    for (const Entry& each : entries()) {
        if (each.text == entry) {
            const QVariantList click{each.id, "clicked", QVariant::fromValue(QDBusVariant(0)), 0U};
            return call(kMenuPath, kMenu, "Event", click).type() == QDBusMessage::ReplyMessage;
        }
    }
    return false;
}
