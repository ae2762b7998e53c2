// 40 meters in one window, each fed at a rate, beside the same picture painted whole for each value.

#include "app/GlobalFont.h"
#include "bench/Harness.h"
#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M2.h"
#include "controls/meter/MeterChannel.h"
#include "controls/meter/MeterPaint.h"

#include <QPainter>
#include <QRandomGenerator>
#include <array>

namespace bench
{

namespace
{

constexpr int kMeters = 40;
constexpr int kColumns = 20;
constexpr QSize kSize{45, 220};

using Feed = std::function<void(int tenthsOfDb)>;

class NaiveMeter : public QWidget
{
public:
    NaiveMeter(const quillon::MeterShape& shape, QWidget* parent) : QWidget(parent), mShape(shape)
    {
        for (const quillon::MeterColumn& column : shape.columns) {
            if (column.kind == quillon::MeterColumn::Bar) {
                mChannels.emplace_back(shape.floorDb, shape.holdFollows);
            }
        }
    }
    void feed(int tenthsOfDb)
    {
        const auto reading = quillon::decodeMeter(tenthsOfDb, mShape.floorDb);
        for (quillon::MeterChannel& channel : mChannels) {
            channel.feed(*reading, false);
        }
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        quillon::MeterMoments moments;
        for (const quillon::MeterChannel& channel : mChannels) {
            moments.append({channel.level(), channel.hold(), channel.clip()});
        }
        QPainter painter(this);
        quillon::paintMeter(painter, {&mShape, mShape.ratios, size(), mFont}, mLayout, moments);
    }
    void resizeEvent(QResizeEvent*) override
    {
        mLayout = quillon::layoutMeter(size(), mShape, mShape.ratios);
        mFont = quillon::meterFont(GlobalFont::instance().font(), mShape, mLayout);
    }

private:
    const quillon::MeterShape& mShape;
    quillon::MeterLayout mLayout;
    QFont mFont;
    std::vector<quillon::MeterChannel> mChannels;
};

/// Every other meter is a stereo one.
Feed makeMeter(const QString& kind, int index, QWidget& window)
{
    const QRect place(QPoint(index % kColumns * kSize.width(), index / kColumns * kSize.height()), kSize);
    const bool stereo = index % 2;
    if (kind == "naive") {
        auto* meter = new NaiveMeter(stereo ? quillon::kMeterS1M2 : quillon::kMeterS1M1, &window);
        meter->setGeometry(place);
        return [meter](int level) { meter->feed(level); };
    }
    if (stereo) {
        auto* meter = new VolumeMeterS1M2(&window);
        meter->setGeometry(place);
        return [meter](int level) {
            meter->setVolumeMeterLeft(level);
            meter->setVolumeMeterRight(level);
        };
    }
    auto* meter = new VolumeMeterS1M1(&window);
    meter->setGeometry(place);
    return [meter](int level) { meter->setVolumeMeter(level); };
}

/// A level that wanders as speech does, the same in each run.
class Walk
{
public:
    explicit Walk(quint32 seed) : mRandom(seed) {}
    int next()
    {
        mLevel = mRandom.bounded(8) == 0 ? -mRandom.bounded(300) : mLevel + mRandom.bounded(61) - 32;
        return mLevel = std::clamp(mLevel, -599, -1);
    }

private:
    QRandomGenerator mRandom;
    int mLevel = -300;
};

/// What all meters are fed at one tick.
using Levels = std::array<short, kMeters>;

std::vector<Levels> walkLevels()
{
    constexpr int kTicks = 1000;
    std::vector<Levels> ticks(kTicks);
    for (int i = 0; i < kMeters; ++i) {
        Walk walk{quint32(i + 1)};
        for (Levels& levels : ticks) {
            levels[std::size_t(i)] = short(walk.next());
        }
    }
    return ticks;
}

} // namespace

QJsonObject runMeters(const QStringList& arguments)
{
    const Home home;
    const QString& kind = arguments[0];
    QWidget window;
    window.resize(kColumns * kSize.width(), kMeters / kColumns * kSize.height());
    std::vector<Feed> feeds;
    for (int i = 0; i < kMeters && kind != "empty"; ++i) {
        feeds.push_back(makeMeter(kind, i, window));
    }
    const std::vector<Levels> levels = walkLevels(); // made before, since a generator is larger than what a meter touches
    window.show();
    int ticks = 0;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    const auto feedAll = [&] {
        for (std::size_t i = 0; i < feeds.size(); ++i) {
            feeds[i](levels[std::size_t(ticks) % levels.size()][i]);
        }
        ++ticks;
    };
    const double hz = arguments[1].toDouble();
    const std::int64_t begin = nowNs();
    QObject::connect(&timer, &QTimer::timeout, &window, [&] {
        // Whole milliseconds are too coarse a step for 60 Hz.
        if (double(nowNs() - begin) / 1e9 * hz >= ticks) {
            feedAll();
        }
    });
    if (kind != "empty") {
        timer.start(std::chrono::milliseconds(int(1000 / hz)));
    }
    runFor(1000); // what is made once is made now
    const int before = ticks;
    const CpuShare cpu;
    const int seconds = arguments[2].toInt();
    runFor(seconds * 1000);
    return {{"percent", cpu.percent()}, {"hz", double(ticks - before) / seconds}};
}

} // namespace bench
