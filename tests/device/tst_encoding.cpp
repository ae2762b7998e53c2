// From an attribute event to the bytes on the wire.

#include "FakeHid.h"
#include "device/DeviceR47.h"
#include "device/USBHIDAPI.h"
#include "device/ValueLaws.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

struct LoggingDevice : DeviceR47 {
    LoggingDevice() { mLogFrames = true; }
};

/// What was written, as "code:value" in hexadecimal; a report that is not framed as it must be shows whole.
QString wire()
{
    QStringList frames;
    for (const QByteArray& report : fakehid::written()) {
        const QString hex = QString::fromLatin1(report.toHex());
        const bool framed = hex.size() == 32 && hex.startsWith(u"002233200101") && hex.endsWith(u"00006677");
        frames += framed ? hex.sliced(12, 4) + u':' + hex.sliced(16, 8) : hex;
    }
    return frames.join(u' ');
}

QString hexValue(long long value)
{
    return QString::number(static_cast<quint32>(value), 16).rightJustified(8, u'0');
}

} // namespace

class TestEncoding : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void event_data();
    void event();
    void bandSweep();
    void crosspointsAreDistinct();
    void loggedFrame();
    void hostileNumbers();
    void dbAndLinearAgree();

private:
    /// Sends events through a slot and gives what the device got.
    static QString sent(const char* slot, const QList<std::array<QString, 3>>& events);
};

void TestEncoding::init()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
}

QString TestEncoding::sent(const char* slot, const QList<std::array<QString, 3>>& events)
{
    fakehid::install();
    DeviceR47 device;
    USBHIDAPI::instance().open(0x152A, 0x875C);
    device.startDevice();
    for (const auto& [object, attribute, value] : events) {
        const QByteArray name = QByteArray("in_") + slot + "_attributeChanged";
        if (!QMetaObject::invokeMethod(&device, name.constData(), Q_ARG(QString, object), Q_ARG(QString, attribute),
                                       Q_ARG(QString, value))) {
            return u"no such slot"_s;
        }
    }
    device.stopDevice();
    return wire();
}

void TestEncoding::event_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("event");
    QTest::addColumn<QString>("frames");
    const auto row = [](const char* slot, const char* object, const char* attribute, const char* value, const QString& frames) {
        QTest::addRow("%s %s %s", object, attribute, value)
            << QByteArray(slot) << QStringList{QLatin1String(object), QLatin1String(attribute), QLatin1String(value)} << frames;
    };
    // Names: of the slot's own family, exact, and no echo of what was saved.
    row("fieldInput", "Input_IN1", "Save_GAIN", "5", {});
    row("fieldMixer", "Mixer_BT", "Save_MixE_GainMRCR", "5", {});
    row("fieldInput", "Output_HP", "MUTE", "1", {});
    row("Others", "Input_IN1", "GAIN", "1", {});
    row("fieldInput", "Input_IN1", "gain", "1", {});
    row("fieldInput", "", "", "", {});
    // Value forms.
    row("fieldInput", "Input_IN1", "GAIN", "12.5", u"2104:00000000"_s);
    row("fieldInput", "Input_IN1", "MIC", "MicHP", u"2102:00000003"_s);
    row("fieldInput", "Input_IN1", "MIC", "mic1", u"2102:00000000"_s);
    row("fieldInput", "Input_AUX", "GAIN", "-10.5", u"2304:0000003c"_s);
    row("fieldInput", "Input_AUX", "GAIN", "-88.5", u"2304:00000000"_s);
    row("fieldInput", "Input_OTGIN", "GAIN", "loud", u"2704:00000063"_s); // no number is 0 dB
    row("fieldLoopback", "Loopback_LB78", "GAINLeft", "-90", u"5703:00000000"_s);
    row("fieldLoopback", "Loopback_LB12", "AudioSource", "Mix F", u"5102:ffffffff"_s);
    row("fieldOutput", "Output_HP", "MUTE", "1", u"6304:00000001 6404:00000001"_s);
    row("fieldEffect", "Effect_NC", "NoiseReductionType", "NC3", u"4407:0000002d"_s);
    row("Others", "ConfigMenuProf", "Chat", "1", {});
    // Crosspoints are searched in the attribute, in the order of the list.
    row("fieldMixer", "Mixer_BT", "MixE_GainMRCR", "33554432", u"3c10:02000000"_s);
    row("fieldMixer", "Mixer_FX", "GainMRCL.MixC.MixA", "1", u"3213:00000001"_s);
    row("fieldMixer", "Mixer_PB12", "MixA_Gain", "1", {});
    row("fieldMixer", "Mixer_XYZ", "MixA_GainMLCL", "1", {});
    // Equalizers.
    row("Equalizer", "EQ_HP@10", "Gain", "-0.3", u"aa03:fffffffd aa08:fffffffd"_s);
    row("Equalizer", "EQ_IN1@1", "Q", "0.707", u"9105:00001b9e"_s);
    row("Equalizer", "EQ_IN2@2", "Type", "3", u"9207:00000004"_s);
    row("Equalizer", "EQ_IN2@3", "Freq", "1000.5", u"9309:00000000"_s);
    row("Equalizer", "EQ_IN1@4@x", "Shape", "9", u"9400:00000009"_s);
    row("Equalizer", "EQ_XX@1", "Gain", "1", {});
    row("Equalizer", "EQ_IN1", "Gain", "-6.5", u"9b0d:%1 9b12:00000000"_s.arg(hexValue(15876321)));
    row("Equalizer", "EQ_HP", "GainOutputLeft", "-88", u"6303:00000001 6403:00000001"_s);
    row("Equalizer", "EQ_IN2", "GainInputLeft", "1", {});
}

void TestEncoding::event()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, event);
    QFETCH(QString, frames);
    QCOMPARE(sent(slot.constData(), {{event[0], event[1], event[2]}}), frames);
}

void TestEncoding::bandSweep()
{
    // Ten bands of one equalizer and parameter count up in bits 11..8 and nowhere else.
    QList<std::array<QString, 3>> events;
    QStringList frames;
    for (int band = 1; band <= 10; ++band) {
        events.append({u"EQ_IN2@%1"_s.arg(band), u"Gain"_s, QString::number(band / 10.0)});
        frames += u"9%1:%2"_s.arg(QString::number(band, 16) + u"08"_s, hexValue(band));
    }
    QCOMPARE(sent("Equalizer", events), frames.join(u' '));
}

void TestEncoding::crosspointsAreDistinct()
{
    QList<std::array<QString, 3>> events;
    for (const char* object : {"PB12", "PB34", "PB56", "PB78", "PB910", "IN12", "AUX", "OTGIN", "BT", "FX"}) {
        for (const QChar mix : u"ABCDE"_s) {
            for (const char* point : {"MLCL", "MLCR", "MRCL", "MRCR"}) {
                events.append({u"Mixer_"_s + QLatin1String(object), u"Mix%1_Gain%2"_s.arg(mix).arg(QLatin1String(point)), u"0"_s});
            }
        }
    }
    const QStringList frames = sent("fieldMixer", events).split(u' ');
    QCOMPARE(frames.size(), 200);
    QCOMPARE(QSet<QString>(frames.begin(), frames.end()).size(), 200);
    QVERIFY2(frames.filter(QRegularExpression(u"^3[9a]"_s)).isEmpty(), "those blocks are no mix");
}

void TestEncoding::loggedFrame()
{
    fakehid::install();
    LoggingDevice device;
    QTest::ignoreMessage(QtDebugMsg, "00  22  33  20  01  01  21  04  FF  FF  FF  FE  00  00  66  77\t-2");
    device.in_fieldInput_attributeChanged(u"Input_IN1"_s, u"GAIN"_s, u"-2"_s);
}

void TestEncoding::hostileNumbers()
{
    // Texts come from files: none may leave the range of a conversion.
    for (const QString& text : {u"nan"_s, u"inf"_s, u"-inf"_s, u"1e300"_s, u"-1e300"_s, u"2147483647"_s, u"99999999999"_s}) {
        const QString frames = sent("Equalizer", {{u"EQ_IN1@1"_s, u"Gain"_s, text},
                                                  {u"EQ_IN1@1"_s, u"Type"_s, text},
                                                  {u"EQ_IN1"_s, u"Gain"_s, text},
                                                  {u"EQ_HP"_s, u"GainOutputLeft"_s, text}});
        QCOMPARE(frames.split(u' ').size(), 6);
    }
    QCOMPARE(sent("fieldLoopback", {{u"Loopback_LB12"_s, u"GAINLeft"_s, u"400"_s}}), u"5103:7fffffff"_s);
}

void TestEncoding::dbAndLinearAgree()
{
    for (double db = -89.5; db <= 12; db += 0.5) {
        QVERIFY(qAbs(linearToDb(dbToLinear(db, -90.0)) - db) < 0.01);
    }
    QCOMPARE(linearToDb(-1), -90.0);
    QCOMPARE(dbToLinear(std::numeric_limits<double>::quiet_NaN(), -90.0), 0LL);
}

QTEST_GUILESS_MAIN(TestEncoding)
#include "tst_encoding.moc"
