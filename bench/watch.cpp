// Sees windows as the X server does: one line for the first pixels of each application window after it was mapped,
//   painted NANOSECONDS WINDOW WIDTH HEIGHT PID
// A line "close WINDOW" on standard input asks that window to close, as its title bar's button does.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <memory>
#include <poll.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace
{

template<typename T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

template<typename T> Reply<T> take(T* reply)
{
    return {reply, &std::free};
}

long long nowNs()
{
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

class Watch
{
public:
    Watch() : mConnection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(mConnection)) {
            std::fputs("quillon-watch: no display\n", stderr);
            std::exit(1);
        }
        const auto* extension = xcb_get_extension_data(mConnection, &xcb_damage_id);
        if (!extension || !extension->present) {
            std::fputs("quillon-watch: the display has no damage extension\n", stderr);
            std::exit(1);
        }
        mDamageEvent = std::uint8_t(extension->first_event + XCB_DAMAGE_NOTIFY);
        take(xcb_damage_query_version_reply(mConnection, xcb_damage_query_version(mConnection, 1, 1), nullptr));
        mRoot = xcb_setup_roots_iterator(xcb_get_setup(mConnection)).data->root;
        mPidAtom = atom("_NET_WM_PID");
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(mConnection, mRoot, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(mConnection);
        std::puts("ready");
        std::fflush(stdout);
    }
    ~Watch() { xcb_disconnect(mConnection); }

    int run()
    {
        pollfd sources[2]{{xcb_get_file_descriptor(mConnection), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
        while (!xcb_connection_has_error(mConnection)) {
            while (auto event = take(xcb_poll_for_event(mConnection))) {
                handle(*event);
            }
            xcb_flush(mConnection);
            ::poll(sources, 2, -1);
            if (sources[1].revents) {
                char line[64];
                const auto length = ::read(STDIN_FILENO, line, sizeof line - 1);
                if (length <= 0) {
                    return 0;
                }
                line[length] = '\0';
                if (std::strncmp(line, "close ", 6) == 0) {
                    close(std::uint32_t(std::strtoul(line + 6, nullptr, 0)));
                }
            }
        }
        return 1;
    }

private:
    xcb_atom_t atom(const char* name)
    {
        const auto cookie = xcb_intern_atom(mConnection, 0, std::uint16_t(std::strlen(name)), name);
        const auto reply = take(xcb_intern_atom_reply(mConnection, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    void handle(const xcb_generic_event_t& event)
    {
        const auto type = std::uint8_t(event.response_type & 0x7F);
        if (type == XCB_CREATE_NOTIFY) {
            // Before it is mapped, and before a window manager puts it into a frame.
            const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
            const xcb_damage_damage_t damage = xcb_generate_id(mConnection);
            xcb_damage_create(mConnection, damage, created.window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
            const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
            xcb_change_window_attributes(mConnection, created.window, XCB_CW_EVENT_MASK, &mask);
            mDamages[created.window] = damage;
        } else if (type == XCB_UNMAP_NOTIFY || type == XCB_MAP_NOTIFY) {
            const auto window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
            if (const auto found = mDamages.find(window); found != mDamages.end()) {
                xcb_damage_subtract(mConnection, found->second, XCB_NONE, XCB_NONE); // the next pixels are news again
            }
        } else if (type == XCB_DESTROY_NOTIFY) {
            mDamages.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        } else if (type == mDamageEvent) {
            const long long time = nowNs();
            report(reinterpret_cast<const xcb_damage_notify_event_t&>(event), time);
        }
    }

    void report(const xcb_damage_notify_event_t& damage, long long time)
    {
        const auto cookie = xcb_get_property(mConnection, 0, damage.drawable, mPidAtom, XCB_ATOM_CARDINAL, 0, 1);
        const auto reply = take(xcb_get_property_reply(mConnection, cookie, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) != 4) {
            return; // a frame, or a window of no program
        }
        std::uint32_t pid = 0;
        std::memcpy(&pid, xcb_get_property_value(reply.get()), sizeof pid);
        std::printf("painted %lld %#x %d %d %u\n", time, damage.drawable, damage.geometry.width, damage.geometry.height, pid);
        std::fflush(stdout);
    }

    void close(xcb_window_t window)
    {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("WM_PROTOCOLS");
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(mConnection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    }

    xcb_connection_t* mConnection;
    xcb_window_t mRoot = 0;
    xcb_atom_t mPidAtom = 0;
    std::uint8_t mDamageEvent = 0;
    std::map<xcb_window_t, xcb_damage_damage_t> mDamages;
};

} // namespace

int main()
{
    return Watch().run();
}
