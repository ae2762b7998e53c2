#pragma once
// What the builders of the pages have in common.

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "console/ConsolePage.h"
#include "console/InboundRouter.h"
#include "device/DeviceR47.h"

#include <array>
#include <functional>
#include <vector>

namespace quillon
{

/// What pages and the console's own windows say to each other without the device.
struct ConsoleLinks {
    enum Channel : std::uint8_t { In1, In2, Headphones, ChannelCount };
    using Lamps = std::vector<std::function<void(bool)>>;

    // Into the windows: "Show", "On" or "Off".
    std::function<void(const QString&)> ducking = [](const QString&) {};
    std::array<std::function<void(const QString&)>, ChannelCount> equalizer{[](const QString&) {}, [](const QString&) {},
                                                                            [](const QString&) {}};
    std::function<void(PageId)> showPage = [](PageId) {};
    // The windows' switches on the strips of all pages.
    Lamps duckingLamps;
    std::array<Lamps, ChannelCount> equalizerLamps;

    static void show(const Lamps& lamps, bool on)
    {
        for (const auto& lamp : lamps) {
            lamp(on);
        }
    }
};

/// Builds one page: strips and fields get their place, their audience, and their ways to and from the device. Each strip is
/// connected to its slot of the device, a field is not, so that an event reaches the device once.
class PageKit
{
public:
    using DeviceSlot = void (DeviceR47::*)(QString, QString, QString);

    PageKit(ConsolePage& page, DeviceR47& device, InboundRouter& router, ConsoleLinks& links)
        : mPage(page), mDevice(device), mRouter(router), mLinks(links)
    {
    }

    DeviceR47& device() { return mDevice; }
    ConsoleLinks& links() { return mLinks; }

    /// A field before its strips, in the order of loading.
    template<class Field> Field* addField(ConsolePage::Pane pane, Field* field)
    {
        mPage.addField(pane, field);
        observe(field);
        field->setFont(GlobalFont::instance().font());
        return field;
    }
    /// A strip, or what stands for one. receivers: of the device, that take its events. It takes the reports of its object.
    template<class Strip> Strip* add(Strip* strip, std::initializer_list<DeviceSlot> receivers)
    {
        mRouter.bind(mPage.row().id, strip->objectName(), *strip);
        return addDeaf(strip, receivers);
    }
    /// One that the device does not speak to.
    template<class Strip> Strip* addDeaf(Strip* strip, std::initializer_list<DeviceSlot> receivers)
    {
        for (const DeviceSlot receiver : receivers) {
            QObject::connect(strip, &Strip::attributeChanged, &mDevice, receiver, Qt::UniqueConnection);
        }
        observe(strip);
        strip->setFont(GlobalFont::instance().font());
        return strip;
    }
    /// The work mode's menu at the foot of the page.
    template<class Menu> void addMenu(Menu* menu)
    {
        QObject::connect(menu, &Menu::attributeChanged, &mDevice, &DeviceR47::in_Others_attributeChanged, Qt::UniqueConnection);
        observe(menu);
        menu->setFont(GlobalFont::instance().font());
        mPage.setMenu(menu);
    }
    /// Binds the reports of an object whose name the strip does not bear.
    void bind(const QString& object, StripEndpoint& strip) { mRouter.bind(mPage.row().id, object, strip); }
    /// Loads with the page and hears of language and scale, where it does either.
    template<class Observer> void observe(Observer* observer)
    {
        if constexpr (std::is_base_of_v<WorkspaceObserver, Observer>) {
            mPage.addObserver(observer);
        }
        if constexpr (std::is_base_of_v<AppSettingsObserver, Observer>) {
            AppSettingsSubject::instance().addObserver(observer);
        }
    }
    /// Calls a function with the value of each such event of a strip.
    template<class Strip, class Take> void link(Strip* strip, const QString& attribute, Take take)
    {
        QObject::connect(strip, &Strip::attributeChanged, &mDevice,
                         [attribute, take](const QString&, const QString& raised, const QString& value) {
                             if (raised == attribute) {
                                 take(value);
                             }
                         });
    }
    /// Tells an object's reports of the device to a setter too, while this page is shown.
    void report(QStringView object, QStringView attribute, const DeviceSetter& setter)
    {
        mRouter.bind(mPage.row().id, object, attribute, setter);
    }
    /// The way of a strip to its equalizer, and back.
    template<class Strip> void addEqualizer(Strip* strip, ConsoleLinks::Channel channel)
    {
        link(strip, QStringLiteral("EQ"), [&links = mLinks, channel](const QString& value) { links.equalizer[channel](value); });
        mLinks.equalizerLamps[channel].push_back([strip](bool on) { strip->setEQ(on); });
    }
    /// The way of a microphone strip to the ducking panel, and back.
    template<class Strip> void addDucking(Strip* strip)
    {
        link(strip, QStringLiteral("DUCKING"), [&links = mLinks](const QString& value) { links.ducking(value); });
        mLinks.duckingLamps.push_back([strip](bool on) { strip->setDUCKING(on); });
    }

private:
    ConsolePage& mPage;
    DeviceR47& mDevice;
    InboundRouter& mRouter;
    ConsoleLinks& mLinks;
};

} // namespace quillon
