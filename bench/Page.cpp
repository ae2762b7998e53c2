// A page of the console takes another workspace, or gives way to another page: until the device has all of it.

#include "bench/Harness.h"
#include "workspace/WorkspaceSubject.h"

#include <QEvent>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench
{

namespace
{

constexpr auto kBracketCode = "1120"; // the device hears that a load begins, and that it has ended

/// Counts the passes in which the console repaints.
class Repaints : public QObject
{
public:
    explicit Repaints(QWidget& window) { window.installEventFilter(this); }
    int take() { return std::exchange(mCount, 0); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        mCount += event->type() == QEvent::UpdateRequest;
        return QObject::eventFilter(watched, event);
    }

private:
    int mCount = 0;
};

int framesTaken(Unit& unit)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(unit.ask("state")))["in"].toInt();
}

struct Load {
    std::int64_t ns;
    int frames;
    int repaints;
};

Load measured(Unit& unit, Repaints& repaints, const std::function<void()>& load)
{
    runFor(300);
    unit.ask("clear");
    const int before = framesTaken(unit);
    repaints.take();
    const std::int64_t begin = nowNs();
    load();
    runFor(300);
    const std::vector<std::int64_t> brackets = unit.stamps(kBracketCode);
    if (brackets.size() != 2) {
        fail(u"%1 frames of a load's bracket"_s.arg(brackets.size()));
    }
    return {brackets.back() - begin, framesTaken(unit) - before, repaints.take()};
}

void addLoads(QJsonObject& figures, const QString& name, const std::vector<Load>& loads)
{
    std::vector<std::int64_t> times(loads.size());
    std::ranges::transform(loads, times.begin(), &Load::ns);
    addPercentiles(figures, name, times);
    figures[name + u"_frames"_s] = loads.back().frames;
    figures[name + u"_repaints"_s] = std::ranges::max(loads, {}, &Load::repaints).repaints;
}

} // namespace

QJsonObject loadPage(const QStringList& arguments)
{
    const Home home;
    Unit unit;
    unit.ask("rate 0"); // meters repaint as well
    MainWindow_R47 console;
    connectConsole(console, unit);
    Repaints repaints(console);
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    subject.createWorkspace(u"A"_s);
    subject.createWorkspace(u"B"_s);
    std::vector<Load> loads;
    std::vector<Load> switches;
    for (int round = 0; round < arguments[0].toInt(); ++round) {
        loads.push_back(measured(unit, repaints, [&] { subject.modifyWorkspace(round % 2 ? u"B"_s : u"A"_s, 0); }));
        console.setPage(quillon::PageTyro);
        switches.push_back(measured(unit, repaints, [&] { console.setPage(quillon::PageLive); }));
    }
    QJsonObject figures;
    addLoads(figures, u"load"_s, loads);
    addLoads(figures, u"switch"_s, switches);
    return figures;
}

} // namespace bench
