#include "console/ConsoleWindows.h"

#include "console/SettingsWindow.h"
#include "console/ducking/R47_PrivateWidget1.h"
#include "equalizer/window/EqualizerS1M1.h"
#include "equalizer/window/EqualizerS1M2.h"
#include "strips/output/OutputS1M4.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr std::array kPages{PageMble, PageLive, PageTyro, PageProf};
constexpr std::array kDuckingPages{PageMble, PageLive};

struct EqualizerRow {
    const char16_t* object;
    EqualizerBase* (*make)(QWidget* owner, const QString& object);
};
// The number of bands is told to the class itself: what is shown of the curves at first depends on it.
template<class Window, int Bands> EqualizerBase* makeWindow(QWidget* owner, const QString& object)
{
    auto* window = new Window(owner);
    window->setObjectName(object);
    window->setFont(GlobalFont::instance().font());
    window->setItemCount(Bands);
    return window;
}
// By ConsoleLinks::Channel.
constexpr std::array kEqualizers{EqualizerRow{u"EQ_IN1", makeWindow<EqualizerS1M2, 4>},
                                 EqualizerRow{u"EQ_IN2", makeWindow<EqualizerS1M2, 4>},
                                 EqualizerRow{u"EQ_HP", makeWindow<EqualizerS1M1, 10>}};
static_assert(kEqualizers.size() == ConsoleLinks::ChannelCount);

void present(QWidget& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

ConsoleWindows::ConsoleWindows(QWidget& owner, DeviceR47& device, InboundRouter& router, ConsoleLinks& links)
    : QObject(&owner), mDevice(device), mRouter(router), mLinks(links), mDucking(new R47_PrivateWidget1(&owner)),
      mSettings(new SettingsWindow(owner))
{
    for (std::size_t i = 0; i < kEqualizers.size(); ++i) {
        mEqualizers[i] = kEqualizers[i].make(&owner, QString::fromUtf16(kEqualizers[i].object));
    }
}

void ConsoleWindows::join(const std::vector<ConsolePage*>& pages)
{
    joinDucking(pages);
    joinEqualizers(pages);
    joinLamps(pages);
    mSettings->bind(mRouter);
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
    for (const PageId id : kDuckingPages) {
        pages[id]->addObserver(mDucking);
    }
    for (const PageId id : kPages) {
        mRouter.bind(id, u"Ducking"_s, *mDucking);
        mRouter.bind(id, u"Input_IN1", u"Meter", mDucking->deviceSetter(u"MeterIN1"));
        mRouter.bind(id, u"Input_IN2", u"Meter", mDucking->deviceSetter(u"MeterIN2"));
    }
}

void ConsoleWindows::joinEqualizers(const std::vector<ConsolePage*>& pages)
{
    for (std::size_t i = 0; i < kEqualizers.size(); ++i) {
        EqualizerBase* window = mEqualizers[i];
        connect(window, &EqualizerBase::attributeChanged, &mDevice, &DeviceR47::in_Equalizer_attributeChanged,
                Qt::UniqueConnection);
        connect(window, &EqualizerBase::attributeChanged, this,
                [&lamps = mLinks.equalizerLamps[i]](const QString&, const QString& attribute, const QString& value) {
                    if (attribute == u"Switch"_s) {
                        ConsoleLinks::show(lamps, value.toInt() != 0);
                    }
                });
        mLinks.equalizer[i] = [window](const QString& value) {
            if (value == u"Show"_s) {
                present(*window);
            } else {
                window->setSwitch(value == u"On"_s, true);
            }
        };
        mRouter.bindBands(window->objectName(), [window](const QString& band, const QString& attribute, const QString& value) {
            window->setItemAttribute(band, attribute, value);
        });
        for (const PageId id : kPages) {
            mRouter.bind(id, window->objectName(), *window);
        }
    }
    for (const PageId id : kPages) {
        mRouter.bind(id, u"Input_IN1", u"Meter", mEqualizers[ConsoleLinks::In1]->deviceSetter(u"MeterLeft"));
        mRouter.bind(id, u"Input_IN2", u"Meter", mEqualizers[ConsoleLinks::In2]->deviceSetter(u"MeterLeft"));
    }
    joinHeadphones(*pages[PageProf]);
}

/// The output gain of the window and the fader of the strip are one value, and the strip keeps the window's settings.
void ConsoleWindows::joinHeadphones(ConsolePage& page)
{
    EqualizerBase* window = mEqualizers[ConsoleLinks::Headphones];
    auto* strip = page.findChild<OutputS1M4*>(u"Output_HP"_s);
    strip->setEqualizer(window);
    connect(strip, &OutputS1M4::attributeChanged, window, [window](const QString&, const QString& attribute, const QString& value) {
        if (attribute == u"GAINLeft"_s) {
            window->setGainOutputLeft(value.toFloat());
        }
    });
    connect(window, &EqualizerBase::attributeChanged, strip,
            [set = strip->deviceSetter(u"GAIN")](const QString&, const QString& attribute, const QString& value) {
                if (attribute == u"GainOutputLeft"_s) {
                    set(value.toFloat());
                }
            });
    mRouter.bind(PageProf, u"Output_HP", u"MeterLeft", window->deviceSetter(u"OutputLeft"));
    mRouter.bind(PageProf, u"Output_HP", u"MeterRight", window->deviceSetter(u"OutputRight"));
    mRouter.bind(PageProf, u"Output_HP", u"GAIN", window->deviceSetter(u"GainOutput"));
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
    if (std::ranges::find(kDuckingPages, page) == kDuckingPages.end()) {
        mDucking->hide(); // there is no workspace that would keep its values
    }
    if (page != PageProf) {
        mEqualizers[ConsoleLinks::Headphones]->hide(); // for the same reason
    }
    mSettings->setPage(*pageRow(page));
}

void ConsoleWindows::setScaleFactor(double factor)
{
    mDucking->setScaleFactor(factor);
    mSettings->setScaleFactor(factor);
    for (EqualizerBase* window : mEqualizers) {
        window->setScaleFactor(factor);
    }
}

void ConsoleWindows::hide()
{
    mDucking->hide();
    mSettings->hide();
    for (EqualizerBase* window : mEqualizers) {
        window->hide();
    }
}

} // namespace quillon
