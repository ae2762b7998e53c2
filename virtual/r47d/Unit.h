#pragma once
// The device on its bus: plugged or not, its model, its meters, and what a script does to it. Runs on the loop's thread.

#include "virtual/core/DeviceModel.h"
#include "virtual/core/Names.h"
#include "virtual/core/Performance.h"
#include "virtual/core/Recorder.h"
#include "virtual/r47d/AudioDriver.h"
#include "virtual/r47d/HidServer.h"
#include "virtual/r47d/Loop.h"
#include "virtual/r47d/Traffic.h"

#include <functional>
#include <list>
#include <random>
#include <string>

namespace r47
{

class Unit
{
public:
    struct Options {
        std::string folder;
        int workMode = 2;
        double meterHz = 30.0;
        std::uint64_t seed = 1;
    };
    /// Called once, with whether it came to pass.
    using OnDone = std::function<void(bool)>;

    Unit(Loop& loop, const Options& options);
    ~Unit();

    // The bus. A device that comes back has forgotten its hello, so its meters rest until the next one; its parameters stay.
    /// Plugs in `devices` (0 to 2) units, of which the first has HID. False when the socket can not be made.
    bool plug(int devices);
    void unplug();
    /// Unplugs, and plugs in again after 300 ms. Unplugging before that calls back with false.
    void reenumerate(OnDone onDone);
    /// The same in another work mode; at once when nothing is plugged in.
    void changeMode(int workMode, OnDone onDone);
    /// Whether there is a HID interface while plugged in and not in update mode.
    bool setHid(bool on);
    int devices() const { return mDevices; }
    /// Changes with each plugging, so that old driver handles can be told.
    std::uint32_t epoch() const { return mEpoch; }
    bool isUpdating() const { return mUpdating; }
    /// The driver has ended a download: a complete one brings the device back to work.
    void endDownload();

    // What it sends.
    void turn(std::uint16_t code, std::int32_t value);
    void report(std::uint16_t code, std::int32_t value);
    void setMeterRate(double hz);
    void flood(std::uint64_t count, double perSecond, OnDone onDone);
    void sendGarbage(int count, bool isShort);
    void setSilent(bool on) { mSilent = on; }
    void setStalled(bool on);
    void setAnswerDelay(std::uint64_t ms) { mAnswerDelayNs = ms * 1'000'000u; }

    // What it received.
    /// Calls back as soon as that code (with that value) has come since the last clear, or with false after the time.
    void waitFor(std::uint16_t code, std::optional<std::int32_t> value, std::uint64_t timeoutMs, OnDone onDone);

    bool startRecord(const std::string& path);
    bool endRecord() { return mRecorder.close(); }
    bool flushRecord() { return mRecorder.flush(); }

    /// Everything about it, as one line of JSON.
    std::string state() const;

    Traffic& traffic() { return mTraffic; }
    HidServer& hid() { return mHid; }
    const Names& names() const { return mNames; }
    Performance& performance() { return mPerformance; }
    AudioDriver& driver() { return mDriver; }
    Download& download() { return mDownload; }

private:
    struct Waiter {
        std::uint16_t code;
        std::optional<std::int32_t> value;
        Loop::TimerId timer;
        OnDone onDone;
    };

    bool updateHid();
    void cancelReturn();
    void takeReport(std::span<const std::uint8_t> bytes, std::uint64_t timeNs);
    void answer(std::vector<Frame> frames);
    void send(const Frame& frame, ReportKind kind);
    void record(std::uint64_t timeNs, Direction direction, const Frame& frame);
    void notify(std::uint16_t code, std::int32_t value);
    void scheduleMeters();
    void sendMeters(double seconds);
    void floodStep(std::uint64_t startNs, std::uint64_t sent, std::uint64_t count, double perSecond, const OnDone& onDone);
    Levels levels() const;

    Loop& mLoop;
    DeviceModel mModel;
    Names mNames;
    Performance mPerformance;
    Recorder mRecorder;
    Traffic mTraffic;
    AudioDriver mDriver;
    Download mDownload;
    HidServer mHid;
    std::mt19937_64 mRandom;
    std::list<Waiter> mWaiters;

    int mDevices = 0;
    std::uint32_t mEpoch = 0;
    bool mHidOn = true;
    bool mUpdating = false;
    bool mGreeted = false; // heard a hello since it was plugged in
    bool mSilent = false;
    bool mStalled = false;
    std::uint64_t mAnswerDelayNs = 0;
    double mMeterHz;
    std::uint64_t mStartNs;
    Loop::TimerId mMeterTimer = 0;
    Loop::TimerId mReturnTimer = 0;
    Loop::TimerId mFlushTimer = 0;
    OnDone mOnReturn;
};

} // namespace r47
