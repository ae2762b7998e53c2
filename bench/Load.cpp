// From the switch to another workspace of 250 strips until the last of their 500 parameters has reached the device.

#include "bench/Harness.h"
#include "device/USBHIDAPI.h"
#include "strips/input/InputS1M3.h"
#include "workspace/WorkspaceSubject.h"

#include <QDir>
#include <QSettings>
#include <memory>

using namespace Qt::StringLiterals;

namespace bench
{

namespace
{

constexpr int kStrips = 250;
constexpr int kColumns = 50;
constexpr int kFrames = 2 * kStrips;

QString groupOf(int strip)
{
    return u"Strip%1"_s.arg(strip, 3, 10, QChar('0'));
}

/// All strips are AUX to the device, and each has a group of its own in the workspace.
class Strips
{
public:
    explicit Strips(DeviceR47& device)
    {
        WorkspaceSubject& subject = WorkspaceSubject::instance();
        QObject::connect(&subject, &WorkspaceSubject::attributeChanged, &device, &DeviceR47::in_Others_attributeChanged);
        for (int i = 0; i < kStrips; ++i) {
            auto* strip = new InputS1M3(u"Input_AUX"_s, &mWindow);
            strip->setChannelName(u"AUX"_s);
            strip->setWorkspaceGroup(groupOf(i));
            strip->setStripEnabled(true);
            strip->setGeometry(i % kColumns * 51, i / kColumns * 220, 51, 220);
            QObject::connect(strip, &InputBase::attributeChanged, &device, &DeviceR47::in_fieldInput_attributeChanged);
            subject.addObserver(strip);
        }
        mWindow.resize(kColumns * 51, kStrips / kColumns * 220);
        mWindow.show();
    }
    ~Strips() { WorkspaceSubject::instance().clearObservers(); }
    Q_DISABLE_COPY_MOVE(Strips)

private:
    QWidget mWindow;
};

/// From `begin` to the last of the frames, once all are there.
std::int64_t untilLast(Unit& unit, std::int64_t begin)
{
    const auto arrived = [&] { return std::stoi(unit.ask("count 2304")) + std::stoi(unit.ask("count 2305")); };
    runUntil([&] { return arrived() >= kFrames; }, 5000, "last frame");
    if (arrived() != kFrames) {
        fail(QString("%1 frames for %2 parameters").arg(arrived()).arg(kFrames));
    }
    const auto gains = unit.stamps("2304");
    const auto mutes = unit.stamps("2305");
    return std::max(gains.back(), mutes.back()) - begin;
}

/// Each round opens a file that this process has not read before. A workspace as strips write it, copied.
std::vector<std::int64_t> measureLoads(Unit& unit, int rounds)
{
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    subject.setWorkspaceInfo(u"R47"_s, u"./Workspace/Bench"_s, u"Bench_"_s);
    subject.createWorkspace(u"0"_s);
    subject.modifyWorkspace(u"0"_s, 0);
    subject.saveWorkspace();
    for (int round = 1; round <= rounds; ++round) {
        subject.workspaceSaveAs(QString::number(round));
    }
    runFor(1000);
    std::vector<std::int64_t> times;
    for (int round = 1; round <= rounds; ++round) {
        unit.ask("clear");
        const std::int64_t begin = nowNs();
        subject.modifyWorkspace(QString::number(round), 0);
        times.push_back(untilLast(unit, begin));
        runFor(50);
    }
    return times;
}

std::vector<std::int64_t> measureBareSends(Unit& unit, int rounds)
{
    Sender sender;
    sender.begin();
    std::vector<std::int64_t> times;
    for (int round = 0; round < rounds; ++round) {
        unit.ask("clear");
        const std::int64_t begin = nowNs();
        for (int i = 0; i < kFrames; ++i) {
            const quillon::Report report = quillon::encodeOutput({.code = i % 2 ? 0x2305 : 0x2304, .value = i});
            sender.enqueue(QByteArray(reinterpret_cast<const char*>(report.data()), qsizetype(report.size())));
        }
        times.push_back(untilLast(unit, begin));
    }
    return times;
}

std::vector<std::int64_t> measureBareReads(int rounds)
{
    std::vector<std::int64_t> times;
    for (int round = 1; round <= rounds; ++round) {
        // A copy, since the library remembers the files that it has read.
        const QString copy = QDir::current().filePath(u"read%1.ini"_s.arg(round));
        QFile::copy(u"./Workspace/Bench/Bench_1.ini"_s, copy);
        const std::int64_t begin = nowNs();
        QSettings settings(copy, QSettings::IniFormat);
        double sum = 0;
        for (int i = 0; i < kStrips; ++i) {
            settings.beginGroup(groupOf(i));
            sum += settings.value(u"GAIN"_s).toDouble() + settings.value(u"MUTE"_s).toInt();
            settings.endGroup();
        }
        times.push_back(nowNs() - begin);
        if (sum != sum || !settings.contains(groupOf(kStrips - 1) + u"/GAIN"_s)) {
            fail("the workspace does not hold what was written");
        }
    }
    return times;
}

} // namespace

QJsonObject loadWorkspace(const QStringList& arguments)
{
    const Home home;
    const int rounds = arguments[0].toInt();
    Unit unit;
    unit.ask("rate 0");
    QJsonObject figures;
    if (!USBHIDAPI::instance().open(0x152A, 0x875C)) {
        fail("no HID channel");
    }
    {
        DeviceR47 device;
        device.startDevice();
        const Strips strips(device);
        addPercentiles(figures, "load", measureLoads(unit, rounds));
    }
    USBHIDAPI::instance().open(0x152A, 0x875C);
    addPercentiles(figures, "sends", measureBareSends(unit, rounds));
    addPercentiles(figures, "reads", measureBareReads(rounds));
    return figures;
}

} // namespace bench
