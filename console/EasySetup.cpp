#include "console/EasySetup.h"

#include "device/DeviceR47.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct MixerRow {
    const char* object;
    const char* openMixes;   // letters of the mixes that get unity
    const char* closedMixes; // and of those that get silence
};

constexpr std::array kMixerRows{
    MixerRow{"Mixer_AUX", "ABC", ""},  MixerRow{"Mixer_BT", "ABC", ""},   MixerRow{"Mixer_OTGIN", "AB", "C"},
    MixerRow{"Mixer_PB56", "", "ABC"}, MixerRow{"Mixer_PB78", "", "ABC"},
};

using Slot = void (DeviceR47::*)(QString, QString, QString);

struct PlainRow {
    Slot slot;
    const char* object;
    const char* attribute;
    const char* value;
};

// The rows that name no parameter of the device make no frame; they are part of the sequence all the same.
constexpr std::array kPlainRows{
    PlainRow{&DeviceR47::in_fieldEffect_attributeChanged, "Effect_Integration", "GAIN", "0"},
    PlainRow{&DeviceR47::in_fieldEffect_attributeChanged, "Effect_Integration", "MUTE", "0"},
    PlainRow{&DeviceR47::in_fieldEffect_attributeChanged, "Effect_Integration", "MUTE", "0"},
    PlainRow{&DeviceR47::in_fieldLoopback_attributeChanged, "Loopback_LB12", "AudioSource", "Mix A"},
    PlainRow{&DeviceR47::in_fieldLoopback_attributeChanged, "Loopback_LB34", "GAIN", "-90"},
    PlainRow{&DeviceR47::in_fieldLoopback_attributeChanged, "Loopback_LB56", "GAIN", "-90"},
    PlainRow{&DeviceR47::in_fieldOutput_attributeChanged, "Output_HP", "AudioSource", "Mix B"},
    PlainRow{&DeviceR47::in_fieldOutput_attributeChanged, "Output_OTGOUT", "AudioSource", "Mix C"},
};

void sendStraight(DeviceR47& device, const char* object, const char* mixes, const QString& gain)
{
    for (const char* mix = mixes; *mix != '\0'; ++mix) {
        for (const char* crosspoint : {"GainMLCL", "GainMRCR"}) {
            device.in_fieldMixer_attributeChanged(QString::fromLatin1(object),
                                                  u"Mix%1_%2"_s.arg(QLatin1Char(*mix)).arg(QLatin1StringView(crosspoint)), gain);
        }
    }
}

} // namespace

void sendEasySetup(DeviceR47& device)
{
    for (const MixerRow& row : kMixerRows) {
        sendStraight(device, row.object, row.openMixes, u"33554432"_s);
        sendStraight(device, row.object, row.closedMixes, u"0"_s);
    }
    for (const PlainRow& row : kPlainRows) {
        (device.*row.slot)(QString::fromLatin1(row.object), QString::fromLatin1(row.attribute), QString::fromLatin1(row.value));
    }
}

} // namespace quillon
