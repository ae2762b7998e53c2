#include "strips/AutoGainLink.h"

#include "app/AppSettingsSubject.h"
#include "processing/AutoGainS1M1.h"
#include "strips/StripHead.h"

using namespace Qt::StringLiterals;

namespace quillon
{

float autoGainFor(int peakTenthsOfDb)
{
    const int gainDb = -5 - peakTenthsOfDb / 10; // whole dB, cut toward zero
    return static_cast<float>(gainDb);
}

AutoGainLink::AutoGainLink(QWidget* strip, Host host) : mStrip(strip), mHost(std::move(host)) {}

bool AutoGainLink::run(const StripHead& head)
{
    const QWidget* console = AppSettingsSubject::instance().mainWindow();
    AutoGainS1M1* shown = dialog();
    shown->setChannelNames({{u"English"_s, head.nameIn(false)}, {u"Chinese"_s, head.nameIn(true)}});
    const QPointer<AutoGainLink> self(this);
    const int result = shown->execAt(AutoGainS1M1::squareOver(console ? console : mStrip->window()));
    if (!self) {
        return false;
    }
    const std::optional<float> stored = mHost.storedGain();
    if (!stored) {
        return true; // its next load tells the device what the workspace has
    }
    mHost.dial.set(result == AutoGainS1M1::Cancelled ? *stored : autoGainFor(result));
    mHost.gainChanged(mHost.dial.get());
    return true;
}

void AutoGainLink::listenTo(MeterPort& meter)
{
    meter.feed = [this, bar = meter.feed](int level) {
        MeterPort::pass(bar, level);
        setLevel(level);
    };
}

void AutoGainLink::setLevel(int tenthsOfDb)
{
    if (mAutoGain && tenthsOfDb <= 1) {
        mAutoGain->setLevel(static_cast<float>(tenthsOfDb) / 10.0F);
    }
}

void AutoGainLink::setFont(const QFont& font)
{
    mFont = font;
    if (mAutoGain) {
        mAutoGain->setFont(font);
    }
}

void AutoGainLink::setLanguage(const QString& language)
{
    mLanguage = language;
    if (mAutoGain) {
        mAutoGain->setLanguage(language);
    }
}

void AutoGainLink::in_mAutoGain_attributeChanged(const QString& attribute, const QString& value)
{
    Q_UNUSED(value)
    if (attribute != "Start"_L1) {
        return;
    }
    // The workspace keeps the gain from before the measurement: cancelling brings it back, also after a crash.
    const float kept = mHost.dial.get();
    mHost.dial.set(0);
    mHost.gainChanged(0);
    mHost.storeGain(kept);
}

AutoGainS1M1* AutoGainLink::dialog()
{
    if (!mAutoGain) {
        mAutoGain = new AutoGainS1M1(mStrip);
        mAutoGain->setFont(mFont);
        mAutoGain->setLanguage(mLanguage);
        connect(mAutoGain, &AutoGainS1M1::attributeChanged, this, &AutoGainLink::in_mAutoGain_attributeChanged);
    }
    return mAutoGain;
}

} // namespace quillon
