// What the leak check has to be told.
//
// A thread of Qt's is still on its way out when QThread::wait() has returned, and a leak check that meets it there takes what it
// holds for lost. So the check comes when the process has one thread left, or when those that are left don't end.

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

namespace
{

constexpr auto kMostWait = std::chrono::seconds(2);
constexpr auto kLook = std::chrono::milliseconds(1);

bool isAlone()
{
    int threads = 0;
    std::error_code error;
    for (std::filesystem::directory_iterator i("/proc/self/task", error); !error && i != std::filesystem::directory_iterator();
         i.increment(error)) {
        ++threads;
    }
    return threads <= 1;
}

// The check is made when the sanitizer's library is finished, the program itself before all libraries.
[[gnu::destructor]] void waitForThreads()
{
    const auto end = std::chrono::steady_clock::now() + kMostWait;
    while (!isAlone() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kLook);
    }
}

} // namespace

extern "C" const char* __asan_default_options();

// For the thread storage of a library that is loaded later, as those behind the chart, the check reads a header that this system's
// loader does not write. It sees by the address that there is none, except where the storage begins 16 bytes into a page, once in
// a hundred runs: there it follows what it finds, and crashes.
const char* __asan_default_options()
{
    return "intercept_tls_get_addr=0";
}
