// The way of one value through the program, out and in, and many values a second.

#include "bench/Harness.h"
#include "controls/DialS1M6.h"
#include "device/USBHIDAPI.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QThread>
#include <atomic>
#include <hidapi.h>
#include <thread>

namespace bench
{

namespace
{

constexpr unsigned short kVendorId = 0x152A;
constexpr unsigned short kProductId = 0x875C;
constexpr auto kPace = std::chrono::milliseconds(2);
constexpr auto kGainCode = "2304"; // of Input_AUX

DialS1M6& gainDial(const QWidget& console)
{
    const auto* page = console.findChild<QWidget*>("PageLive");
    const auto* strip = page ? page->findChild<QWidget*>("Input_AUX") : nullptr;
    auto* dial = strip ? strip->findChild<DialS1M6*>() : nullptr;
    if (!dial) {
        fail("the console has no gain dial");
    }
    return *dial;
}

/// Calls `act` from an idle event loop, once in 2 ms, and keeps the time at which each call began.
std::vector<std::int64_t> paced(int count, const std::function<void(int)>& act)
{
    std::vector<std::int64_t> begins;
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(kPace);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        begins.push_back(nowNs());
        act(int(begins.size()));
        if (int(begins.size()) == count) {
            loop.quit();
        }
    });
    timer.start();
    loop.exec();
    return begins;
}

/// Frames keep their order, so the n-th stamp belongs to the n-th change.
std::vector<std::int64_t> delays(Unit& unit, const std::vector<std::int64_t>& begins)
{
    runFor(100);
    std::vector<std::int64_t> stamps = unit.stamps(kGainCode);
    if (stamps.size() != begins.size()) {
        fail(QString("%1 frames for %2 changes").arg(stamps.size()).arg(begins.size()));
    }
    std::transform(stamps.begin(), stamps.end(), begins.begin(), stamps.begin(), std::minus());
    return stamps;
}

std::vector<std::int64_t> measureChange(Unit& unit, int count, std::vector<std::int64_t>& handled)
{
    MainWindow_R47 console;
    connectConsole(console, unit);
    DialS1M6& dial = gainDial(console);
    unit.ask("clear");
    return delays(unit, paced(count, [&](int n) {
                      QKeyEvent press(QEvent::KeyPress, n % 2 ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
                      const std::int64_t begin = nowNs();
                      QCoreApplication::sendEvent(&dial, &press);
                      handled.push_back(nowNs() - begin);
                  }));
}

std::vector<std::int64_t> measureBareWrite(Unit& unit, int count)
{
    hid_device* device = hid_open(kVendorId, kProductId, nullptr);
    if (!device) {
        fail("no HID channel");
    }
    unit.ask("clear");
    const auto begins = paced(count, [device](int n) {
        const quillon::Report report = quillon::encodeOutput({.code = 0x2304, .value = n});
        hid_write(device, report.data(), report.size());
    });
    hid_close(device);
    return delays(unit, begins);
}

/// When r47d sent each report of the gain, from its record.
std::vector<std::int64_t> sentTimes(Unit& unit, const QString& file)
{
    unit.ask("record off");
    std::vector<std::int64_t> times;
    QFile record(file);
    if (!record.open(QIODevice::ReadOnly)) {
        fail("no record");
    }
    for (const QByteArray& line : record.readAll().split('\n')) {
        const auto words = line.split(' ');
        if (words.size() > 3 && words[1] == "out" && words[2] == kGainCode) {
            times.push_back(words[0].toLongLong() * 1000);
        }
    }
    return times;
}

/// Lets r47d report the gain `count` times, in turn two values that differ, and gives the delays until `seen` has that many times.
std::vector<std::int64_t> measureInbound(Unit& unit, int count, const std::vector<std::int64_t>& seen)
{
    const QTemporaryDir folder;
    unit.ask("record " + folder.filePath("record"));
    std::thread teller([count] {
        Unit own;
        for (int i = 0; i < count; ++i) {
            own.ask(QString("frame %1 %2").arg(kGainCode).arg(i % 2 ? 80 : 85));
            std::this_thread::sleep_for(kPace);
        }
    });
    runUntil([&] { return int(seen.size()) >= count; }, count * 20 + 2000, "report at the control");
    teller.join();
    const auto sent = sentTimes(unit, folder.filePath("record"));
    if (sent.size() != seen.size()) {
        fail(QString("%1 changes for %2 reports").arg(seen.size()).arg(sent.size()));
    }
    std::vector<std::int64_t> result;
    std::transform(seen.begin(), seen.end(), sent.begin(), std::back_inserter(result), std::minus());
    return result;
}

/// The least that a program can do: a loop that reads, and a queued call for each report.
class BareReader
{
public:
    explicit BareReader(std::function<void(const quillon::Report&)> onReport) : mDevice(hid_open(kVendorId, kProductId, nullptr))
    {
        if (!mDevice) {
            fail("no HID channel");
        }
        mThread = std::thread([this, onReport = std::move(onReport)] {
            while (!mStop) {
                quillon::Report report{};
                if (hid_read_timeout(mDevice, report.data(), report.size(), 100) == int(report.size())) {
                    onReport(report);
                }
            }
        });
        runFor(200);
    }
    ~BareReader()
    {
        mStop = true;
        mThread.join();
        hid_close(mDevice);
    }
    Q_DISABLE_COPY_MOVE(BareReader)

private:
    hid_device* mDevice;
    std::atomic<bool> mStop = false;
    std::thread mThread;
};

/// Follows the numbers of a flood, from whichever thread reads.
class Numbers
{
public:
    void take(const unsigned char* report)
    {
        if (report[5] != 0x21 || report[6] != 0x01) {
            return;
        }
        const auto number = std::uint16_t(report[11] << 8 | report[12]);
        mLost += std::uint16_t(number - std::uint16_t(mTaken + mLost));
        ++mTaken;
    }
    qint64 taken() const { return mTaken; }
    qint64 lost() const { return mLost; }

private:
    std::atomic<qint64> mTaken = 0;
    std::atomic<qint64> mLost = 0;
};

Numbers& numbers()
{
    static Numbers all;
    return all;
}

/// Lets r47d flood this process, and tells its share of a core and what `taken` has not seen.
QJsonObject flood(const QStringList& arguments, const std::function<qint64()>& taken)
{
    Unit unit;
    unit.ask("rate 0");
    runFor(500);
    const qint64 count = arguments[0].toLongLong();
    std::atomic<bool> done = false;
    std::string answer;
    const CpuShare cpu;
    std::thread teller([&] {
        answer = Unit().ask("flood " + arguments.join(' '), 120000);
        done = true;
    });
    runUntil([&] { return done && taken() + numbers().lost() >= count; }, 120000, "end of the flood");
    const double percent = cpu.percent();
    teller.join();
    return {{"percent", percent},
            {"taken", taken()},
            {"lost", numbers().lost()},
            {"dropped", QString::fromStdString(answer).section(' ', 1).toInt()}};
}

int readNumbered(hid_device_* device, unsigned char* buffer, std::size_t length, int ms)
{
    const int got = hid_read_timeout(device, buffer, length, ms);
    if (got == int(quillon::kReportSize)) {
        numbers().take(buffer);
    }
    return got;
}

} // namespace

QJsonObject changeToFrame(const QStringList& arguments)
{
    const Home home;
    Unit unit;
    unit.ask("rate 0");
    QJsonObject figures;
    std::vector<std::int64_t> handled;
    addPercentiles(figures, "change", measureChange(unit, arguments[0].toInt(), handled));
    addPercentiles(figures, "handled", handled); // what the GUI thread does for it in all
    addPercentiles(figures, "bare", measureBareWrite(unit, arguments[0].toInt()));
    return figures;
}

QJsonObject inboundToControl(const QStringList& arguments)
{
    const Home home;
    const int count = arguments[0].toInt();
    Unit unit;
    unit.ask("rate 0");
    QJsonObject figures;
    {
        ToldConsole console;
        connectConsole(console, unit);
        const DialS1M6& dial = gainDial(console);
        std::vector<std::int64_t> seen;
        console.told = [&, last = dial.value()]() mutable {
            if (dial.value() != last) {
                last = dial.value();
                seen.push_back(nowNs());
            }
        };
        addPercentiles(figures, "inbound", measureInbound(unit, count, seen));
    }
    std::vector<std::int64_t> seen;
    QObject receiver;
    const BareReader reader([&](const quillon::Report& report) {
        QMetaObject::invokeMethod(
            &receiver,
            [&seen, code = report[6]] {
                if (code == 0x04) {
                    seen.push_back(nowNs());
                }
            },
            Qt::QueuedConnection);
    });
    addPercentiles(figures, "bare", measureInbound(unit, count, seen));
    return figures;
}

QJsonObject floodConsole(const QStringList& arguments)
{
    const Home home;
    quillon::HidFunctions functions = quillon::linkedHidFunctions();
    functions.readTimeout = readNumbered;
    USBHIDAPI::setFunctions(functions);
    Unit unit;
    unit.ask("rate 0"); // other levels would be counted as the flood's own
    ToldConsole console;
    connectConsole(console, unit);
    qint64 told = 0;
    console.told = [&told] { ++told; };
    return flood(arguments, [&told] { return told; });
}

QJsonObject floodReader(const QStringList& arguments)
{
    const BareReader reader([](const quillon::Report& report) { numbers().take(report.data()); });
    return flood(arguments, [] { return numbers().taken(); });
}

} // namespace bench
