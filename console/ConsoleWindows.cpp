#include "console/ConsoleWindows.h"

#include "console/ducking/R47_PrivateWidget1.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr std::array kPages{PageMble, PageLive, PageTyro, PageProf};

void present(QWidget& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

ConsoleWindows::ConsoleWindows(QWidget& owner, DeviceR47& device, InboundRouter& router, ConsoleLinks& links)
    : QObject(&owner), mDevice(device), mRouter(router), mLinks(links), mDucking(new R47_PrivateWidget1(&owner))
{
}

void ConsoleWindows::join(const std::vector<ConsolePage*>& pages)
{
    joinDucking(pages);
    joinLamps(pages);
}

void ConsoleWindows::joinDucking(const std::vector<ConsolePage*>& pages)
{
    mDucking->setFont(GlobalFont::instance().font());
    AppSettingsSubject::instance().addObserver(mDucking);
    connect(mDucking, &R47_PrivateWidget1::attributeChanged, &mDevice, &DeviceR47::in_Others_attributeChanged,
            Qt::UniqueConnection);
    connect(mDucking, &R47_PrivateWidget1::attributeChanged, this,
            [this](const QString&, const QString& attribute, const QString& value) {
                if (attribute == u"DuckingSwitch"_s) {
                    ConsoleLinks::show(mLinks.duckingLamps, value.toInt() != 0);
                }
            });
    mLinks.ducking = [this](const QString& value) {
        if (value == u"Show"_s) {
            present(*mDucking);
        } else {
            mDucking->setDuckingSwitch(value == u"On"_s, true, true);
        }
    };
    for (const PageId id : {PageMble, PageLive}) {
        pages[id]->addObserver(mDucking);
    }
    for (const PageId id : kPages) {
        mRouter.bind(id, u"Ducking"_s, *mDucking);
        mRouter.bind(id, u"Input_IN1", u"Meter", mDucking->deviceSetter(u"MeterIN1"));
        mRouter.bind(id, u"Input_IN2", u"Meter", mDucking->deviceSetter(u"MeterIN2"));
    }
}

/// What the device says of a window's switch is a lamp on the strips of all pages.
void ConsoleWindows::joinLamps(const std::vector<ConsolePage*>& pages)
{
    struct Switch {
        const char16_t* object;
        const char16_t* attribute;
        const ConsoleLinks::Lamps& lamps;
    };
    const Switch switches[]{{u"Ducking", u"DuckingSwitch", mLinks.duckingLamps},
                            {u"EQ_IN1", u"Switch", mLinks.equalizerLamps[ConsoleLinks::In1]},
                            {u"EQ_IN2", u"Switch", mLinks.equalizerLamps[ConsoleLinks::In2]},
                            {u"EQ_HP", u"Switch", mLinks.equalizerLamps[ConsoleLinks::Headphones]}};
    for (const ConsolePage* page : pages) {
        if (page == nullptr) {
            continue;
        }
        for (const Switch& row : switches) {
            mRouter.bind(page->row().id, row.object, row.attribute,
                         [&lamps = row.lamps](const QVariant& value) { ConsoleLinks::show(lamps, value.toBool()); });
        }
    }
}

void ConsoleWindows::setPage(PageId page)
{
    mDucking->setLayoutForMobile(page != PageMble);
}

void ConsoleWindows::setScaleFactor(double factor)
{
    mDucking->setScaleFactor(factor);
}

void ConsoleWindows::hide()
{
    mDucking->hide();
}

} // namespace quillon
