#include "virtual/r47d/Unit.h"

#include <algorithm>
#include <utility>

namespace r47
{

namespace
{

constexpr std::uint64_t kReturnNs = 300'000'000;      // how long a device that starts anew is away
constexpr std::uint64_t kRecordFlushNs = 200'000'000; // how old a recorded line becomes before it is written
constexpr std::uint64_t kFloodStepNs = 1'000'000;
constexpr std::size_t kFloodBacklog = 256; // unpaced, a flood goes as fast as its slowest reader
constexpr std::uint64_t kFloodBurst = 256;
constexpr std::uint16_t kFloodCode = 0x2101;

} // namespace

Unit::Unit(Loop& loop, const Options& options)
    : mLoop(loop), mModel(options.workMode), mPerformance(options.seed),
      mHid(loop, options.folder, [this](std::span<const std::uint8_t> bytes, std::uint64_t timeNs) { takeReport(bytes, timeNs); }),
      mRandom(options.seed), mMeterHz(options.meterHz), mStartNs(nowNs())
{
}

Unit::~Unit()
{
    unplug();
}

bool Unit::updateHid()
{
    if (mDevices > 0 && mHidOn && !mUpdating)
        return mHid.open();
    mHid.close();
    return true;
}

void Unit::cancelReturn()
{
    mLoop.cancel(std::exchange(mReturnTimer, 0));
    if (const OnDone onReturn = std::exchange(mOnReturn, nullptr))
        onReturn(false);
}

bool Unit::plug(int devices)
{
    if (devices == 0) {
        unplug();
        return true;
    }
    cancelReturn();
    if (mDevices == 0) {
        ++mEpoch;
        mUpdating = false;
    }
    mDevices = devices;
    return updateHid();
}

void Unit::unplug()
{
    cancelReturn();
    mDevices = 0;
    mGreeted = false;
    mLoop.cancel(std::exchange(mMeterTimer, 0));
    updateHid();
}

void Unit::reenumerate(OnDone onDone)
{
    const int devices = std::max(mDevices, 1);
    const bool updating = mUpdating;
    unplug();
    mOnReturn = std::move(onDone);
    mReturnTimer = mLoop.at(nowNs() + kReturnNs, [this, devices, updating] {
        mReturnTimer = 0;
        ++mEpoch;
        mDevices = devices;
        mUpdating = updating;
        const bool shown = updateHid();
        if (const OnDone onReturn = std::exchange(mOnReturn, nullptr))
            onReturn(shown);
    });
}

void Unit::changeMode(int workMode, OnDone onDone)
{
    mModel.setWorkMode(workMode);
    mUpdating = false;
    if (mDevices == 0 && !mReturnTimer)
        onDone(true);
    else
        reenumerate(std::move(onDone));
}

bool Unit::setHid(bool on)
{
    mHidOn = on;
    if (!on)
        mGreeted = false;
    return updateHid();
}

void Unit::endDownload()
{
    if (mDownload.end(nowNs()) && mDevices > 0) {
        mUpdating = false;
        reenumerate([](bool) {});
    }
}

void Unit::setStalled(bool on)
{
    mStalled = on;
    mHid.setStalled(on);
}

void Unit::takeReport(std::span<const std::uint8_t> bytes, std::uint64_t timeNs)
{
    const auto frame = quillon::decodeOutput(bytes);
    if (!frame) {
        mTraffic.receivedBad();
        return;
    }
    const auto code = std::uint16_t(frame->code);
    mTraffic.received(code, frame->value, timeNs);
    record(timeNs, Direction::In, *frame);
    Reaction reaction = mModel.receive(*frame);
    if (code == 0x1101 && !mSilent && !mGreeted) {
        mGreeted = true;
        scheduleMeters();
    }
    answer(std::move(reaction.answers));
    if (reaction.changeMode)
        changeMode(*reaction.changeMode, [](bool) {});
    if (reaction.enterUpdate) {
        mUpdating = true;
        reenumerate([](bool) {});
    }
    notify(code, frame->value);
}

void Unit::answer(std::vector<Frame> frames)
{
    if (mSilent || frames.empty())
        return;
    auto sendAll = [this, frames = std::move(frames), epoch = mEpoch] {
        if (epoch == mEpoch && !mSilent)
            for (const Frame& frame : frames)
                send(frame, ReportKind::Parameter);
    };
    if (mAnswerDelayNs == 0)
        sendAll();
    else
        mLoop.at(nowNs() + mAnswerDelayNs, std::move(sendAll));
}

void Unit::send(const Frame& frame, ReportKind kind)
{
    const auto bytes = quillon::encodeInput(frame);
    if (mHid.send(bytes, kind) == 0)
        return;
    mTraffic.sent(1);
    record(nowNs(), Direction::Out, frame);
}

void Unit::record(std::uint64_t timeNs, Direction direction, const Frame& frame)
{
    if (!mRecorder.isOpen())
        return;
    const auto code = std::uint16_t(frame.code);
    mRecorder.add(timeNs, direction, code, frame.value, mNames.of(code));
    if (!mFlushTimer)
        mFlushTimer = mLoop.at(nowNs() + kRecordFlushNs, [this] {
            mFlushTimer = 0;
            mRecorder.flush();
        });
}

bool Unit::startRecord(const std::string& path)
{
    return mRecorder.open(path);
}

void Unit::turn(std::uint16_t code, std::int32_t value)
{
    send(mModel.turn(code, value), ReportKind::Parameter);
}

void Unit::report(std::uint16_t code, std::int32_t value)
{
    send(mModel.report(code, value), ReportKind::Parameter);
}

void Unit::waitFor(std::uint16_t code, std::optional<std::int32_t> value, std::uint64_t timeoutMs, OnDone onDone)
{
    if (mTraffic.countOf(code) && (!value || mTraffic.lastOf(code) == *value)) {
        onDone(true);
        return;
    }
    mWaiters.push_back({code, value, 0, std::move(onDone)});
    const auto waiter = std::prev(mWaiters.end());
    waiter->timer = mLoop.at(nowNs() + timeoutMs * 1'000'000u, [this, waiter] {
        const OnDone late = std::move(waiter->onDone);
        mWaiters.erase(waiter);
        late(false);
    });
}

void Unit::notify(std::uint16_t code, std::int32_t value)
{
    for (auto waiter = mWaiters.begin(); waiter != mWaiters.end();) {
        if (waiter->code != code || (waiter->value && *waiter->value != value)) {
            ++waiter;
            continue;
        }
        mLoop.cancel(waiter->timer);
        const OnDone onDone = std::move(waiter->onDone);
        waiter = mWaiters.erase(waiter);
        onDone(true);
    }
}

Levels Unit::levels() const
{
    return computeLevels(mModel.parameters(), mModel.workMode(), mPerformance.powersAt(double(nowNs() - mStartNs) / 1e9));
}

void Unit::setMeterRate(double hz)
{
    mMeterHz = hz;
    scheduleMeters();
}

void Unit::scheduleMeters()
{
    mLoop.cancel(std::exchange(mMeterTimer, 0));
    if (!mGreeted || mMeterHz <= 0.0 || mDevices == 0)
        return;
    // Ticks lie on a grid from the start on: late ones are left out, and the played levels depend on the grid alone.
    const auto period = std::uint64_t(1e9 / mMeterHz);
    const std::uint64_t tick = (nowNs() - mStartNs) / period + 1;
    mMeterTimer = mLoop.at(mStartNs + tick * period, [this, seconds = double(tick) / mMeterHz] {
        mMeterTimer = 0;
        sendMeters(seconds);
        scheduleMeters();
    });
}

void Unit::sendMeters(double seconds)
{
    if (mSilent || mHid.readerCount() == 0)
        return;
    const Levels now = computeLevels(mModel.parameters(), mModel.workMode(), mPerformance.powersAt(seconds));
    std::array<quillon::Report, kMeterCount> reports;
    std::array<Frame, kMeterCount> frames;
    const auto meters = readMeters(now, mModel.workMode());
    for (std::size_t i = 0; i < kMeterCount; ++i) {
        frames[i].code = meters[i].code;
        frames[i].value = meters[i].tenths;
        reports[i] = quillon::encodeInput(frames[i]);
    }
    mHid.sendBurst(reports, ReportKind::Meter);
    mTraffic.sent(kMeterCount);
    const std::uint64_t time = nowNs();
    for (const Frame& frame : frames)
        record(time, Direction::Out, frame);
}

void Unit::flood(std::uint64_t count, double perSecond, OnDone onDone)
{
    floodStep(nowNs(), 0, count, perSecond, onDone);
}

void Unit::floodStep(std::uint64_t startNs, std::uint64_t sent, std::uint64_t count, double perSecond, const OnDone& onDone)
{
    if (!mHid.isOpen()) {
        onDone(false);
        return;
    }
    std::uint64_t due = perSecond > 0 ? std::uint64_t(double(nowNs() - startNs) / 1e9 * perSecond) + 1 : sent + kFloodBurst;
    if (perSecond <= 0 && mHid.backlog() >= kFloodBacklog)
        due = sent;
    due = std::min(due, count);
    std::vector<quillon::Report> reports;
    for (; sent < due; ++sent) {
        Frame frame;
        frame.code = kFloodCode;
        frame.value = -std::int32_t(sent);
        auto report = quillon::encodeInput(frame);
        report[11] = std::uint8_t(sent >> 8);
        report[12] = std::uint8_t(sent);
        reports.push_back(report);
        record(nowNs(), Direction::Out, frame);
    }
    if (mHid.sendBurst(reports, ReportKind::Meter) > 0)
        mTraffic.sent(reports.size());
    if (sent == count && mHid.backlog() == 0) {
        onDone(true);
        return;
    }
    const bool busy = perSecond <= 0 && !reports.empty();
    mLoop.at(nowNs() + (busy ? 0 : kFloodStepNs), [=, this] { floodStep(startNs, sent, count, perSecond, onDone); });
}

void Unit::sendGarbage(int count, bool isShort)
{
    const auto valid = quillon::encodeInput(Frame{.code = kFloodCode, .value = -100});
    for (int i = 0; i < count; ++i) {
        std::array<std::uint8_t, 64> bytes;
        for (auto& byte : bytes)
            byte = std::uint8_t(mRandom());
        if (isShort)
            std::copy(valid.begin(), valid.end(), bytes.begin());
        const std::size_t length = 1 + mRandom() % (isShort ? quillon::kReportSize - 1 : bytes.size());
        if (mHid.send(std::span(bytes).first(length), ReportKind::Parameter) > 0)
            mTraffic.sent(1);
    }
}

} // namespace r47
