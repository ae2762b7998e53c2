#pragma once
// The controls of a strip as it handles them, whichever member of their family stands there.

#include "strips/StripEndpoint.h"

#include <QFont>
#include <QString>
#include <QWidget>
#include <functional>

namespace quillon
{

/// A group of buttons. Text states, as the groups have them.
struct PanelPort {
    QWidget* widget = nullptr;
    std::function<void(const QString& button, const QString& state, bool emitSignal)> setState = {};
    std::function<QString(const QString& button)> getState = {};
    std::function<void(const QString&)> setLanguage = {};
    std::function<void(const QFont&)> setFont = {};
    std::function<void(const QString&)> setAccessibleName = {};

    explicit operator bool() const { return widget != nullptr; }
    bool isOn(const QString& button) const { return getState(button) == QLatin1String("1"); }
    void set(const QString& button, bool on, bool emitSignal) const
    {
        setState(button, on ? QStringLiteral("1") : QStringLiteral("0"), emitSignal);
    }
};

template<class Group> PanelPort panelPort(Group* group)
{
    return {.widget = group,
            .setState = [group](const QString& button, const QString& state,
                                bool emitSignal) { group->setState(button, state, emitSignal); },
            .getState = [group](const QString& button) { return group->getState(button); },
            .setLanguage = [group](const QString& language) { group->setLanguage(language); },
            .setFont = [group](const QFont& font) { group->setFont(font); },
            .setAccessibleName = [group](const QString& name) { group->setAccessibleName(name); }};
}

/// A dial, slider or fader of a float value. set() is silent.
struct ValuePort {
    QWidget* widget = nullptr;
    std::function<float()> get = {};
    std::function<void(float)> set = {};
    std::function<void(const QFont&)> setFont = {};

    explicit operator bool() const { return widget != nullptr; }
};

/// A level meter: one feed for a single bar, two for a stereo one. Tenths of a dB.
struct MeterPort {
    using Feed = std::function<void(int)>;

    QWidget* widget = nullptr;
    Feed feed = {};
    Feed feedLeft = {};
    Feed feedRight = {};
    std::function<void(const QFont&)> setFont = {};

    explicit operator bool() const { return widget != nullptr; }
    /// A bar that is not there takes nothing.
    static void pass(const Feed& feed, int tenthsOfDb)
    {
        if (feed) {
            feed(tenthsOfDb);
        }
    }
    /// Of "Meter", "MeterLeft" or "MeterRight"; empty for all else and without that bar. Lives no longer than the port.
    DeviceSetter setter(QStringView attribute) const;
};

/// The look of a meter that stands beside the control of its strip: no tick lines, and the bar all but as high as the meter.
template<class Meter> void standBeside(Meter* meter)
{
    meter->setScaleLinesHidden(true);
    meter->setHeightRatio(8, 3, 2, 2, 85, 0);
    if constexpr (requires { meter->setWidthRatio(0, 0, 0, 0); }) { // one with fewer columns keeps its own
        constexpr bool kMono = requires
        {
            meter->setVolumeMeter(0);
        };
        kMono ? meter->setWidthRatio(23, 30, 6, 35) : meter->setWidthRatio(5, 10, 20, 26);
    }
}

template<class Meter> MeterPort meterPort(Meter* meter)
{
    MeterPort port{.widget = meter, .setFont = [meter](const QFont& font) { meter->setFont(font); }};
    if constexpr (requires { meter->setVolumeMeter(0); }) {
        port.feed = [meter](int level) { meter->setVolumeMeter(level); };
    } else {
        port.feedLeft = [meter](int level) { meter->setVolumeMeterLeft(level); };
        port.feedRight = [meter](int level) { meter->setVolumeMeterRight(level); };
    }
    return port;
}

} // namespace quillon
