// The levels as laws: what each parameter does to what is reported, and what the unit makes of names and frames.

#include "virtual/core/DeviceModel.h"
#include "virtual/core/Levels.h"
#include "virtual/core/Names.h"
#include "virtual/core/Performance.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <cmath>

using namespace r47;

namespace
{

constexpr int kUnity = 33554432;
constexpr int kHalf = 16777216; // -6.02 dB

using Settings = QList<std::pair<int, int>>;

Powers onlyAt(std::initializer_list<std::pair<int, double>> decibels)
{
    Powers powers{};
    for (const auto& [channel, db] : decibels)
        powers[std::size_t(channel)] = powerOfDb(db);
    return powers;
}

int meterOf(const Settings& settings, int workMode, const Powers& sources, int code)
{
    ParameterStore store;
    for (const auto& [parameter, value] : settings)
        store.set(std::uint16_t(parameter), value);
    for (const Meter& meter : readMeters(computeLevels(store, workMode, sources), workMode))
        if (meter.code == code)
            return meter.tenths;
    return 999;
}

} // namespace

class tst_Levels : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void meters_data();
    void meters();
    void everyMeterOnce();
    void rounding();
    void performanceRepeatsAndDiffers();
    void performanceHoldsSides();
    void recordingIsPlayed();
    void badRecordings_data();
    void badRecordings();
    void helloIsAnsweredWithMode();
    void modeAndUpdate();
    void presetsReportWhatTheyChange();
    void outputKnobTurnsBothSides();
    void panel_data();
    void panel();
};

void tst_Levels::meters_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("expected");
    // All rows: IN1 -20, IN2 -30, AUX -10 left and -12 right, BT -40, PB12 -15, PB34 -25.
    const Settings mixA = {{0x3109, kUnity}, {0x320A, kUnity}};
    QTest::newRow("microphone at its nominal gain") << Settings{{0x2104, 26}} << 2 << 0x2101 << -200;
    QTest::newRow("microphone gain is dB") << Settings{{0x2104, 16}} << 2 << 0x2101 << -300;
    QTest::newRow("microphone too loud clips") << Settings{{0x2104, 50}} << 2 << 0x2101 << 1;
    QTest::newRow("microphone mute") << Settings{{0x2205, 1}} << 2 << 0x2201 << -900;
    QTest::newRow("AUX gain, +9 dB scale") << Settings{{0x2304, 71}} << 2 << 0x2301 << -150;
    QTest::newRow("AUX gain, both sides") << Settings{{0x2304, 71}} << 2 << 0x2401 << -170;
    QTest::newRow("BT gain, 0 dB scale") << Settings{{0x2504, 79}} << 2 << 0x2601 << -500;
    QTest::newRow("index 0 is silence") << Settings{{0x2504, 0}} << 2 << 0x2501 << -900;
    QTest::newRow("nothing in a mix by itself") << Settings{} << 2 << 0x3115 << -900;
    QTest::newRow("crosspoint left") << mixA << 2 << 0x3115 << -200;
    QTest::newRow("crosspoint right") << mixA << 2 << 0x3215 << -300;
    QTest::newRow("crosspoint gain") << Settings{{0x3109, kHalf}} << 2 << 0x3115 << -260;
    QTest::newRow("right source into left mix") << Settings{{0x330C, kUnity}} << 2 << 0x3315 << -120;
    QTest::newRow("mix E lies apart") << Settings{{0x3C0C, kUnity}} << 3 << 0x3C15 << -120;
    QTest::newRow("mix adds powers") << Settings{{0x3109, kUnity}, {0x3101, kUnity}} << 2 << 0x3115 << -138;
    QTest::newRow("muted source is out of the mix") << mixA + Settings{{0x2105, 1}} << 2 << 0x3115 << -900;
    QTest::newRow("equalizer gain when on") << mixA + Settings{{0x9B0F, 1}, {0x9B0D, kHalf}} << 2 << 0x3115 << -260;
    QTest::newRow("equalizer gain when off") << mixA + Settings{{0x9B0F, 0}, {0x9B0D, kHalf}} << 2 << 0x3115 << -200;
    QTest::newRow("effect send") << Settings{{0x4401, kHalf}, {0x4402, 0}} << 2 << 0x440D << -260;
    QTest::newRow("effect mute") << Settings{{0x440C, 1}} << 2 << 0x440E << -900;
    QTest::newRow("effect wet share") << Settings{{0x4402, 0}, {0x440B, 2}, {0x4408, 50}} << 2 << 0x440E << -260;
    QTest::newRow("headphones hear mix A") << mixA << 2 << 0x6301 << -200;
    QTest::newRow("headphone source IN 1+2, right") << Settings{{0x6402, 8}} << 3 << 0x6401 << -300;
    QTest::newRow("headphone source IN 2, both sides") << Settings{{0x6402, 7}} << 3 << 0x6301 << -300;
    QTest::newRow("headphone source playback 3/4") << Settings{{0x6402, 13}} << 2 << 0x6301 << -250;
    QTest::newRow("unknown source is silence") << Settings{{0x6402, -1}} << 2 << 0x6301 << -900;
    QTest::newRow("headphones before gain and mute") << mixA + Settings{{0x6303, 61}, {0x6304, 1}} << 2 << 0x6301 << -200;
    QTest::newRow("OTG OUT source, before its gain") << Settings{{0x6202, 9}, {0x6103, 79}} << 2 << 0x6101 << -100;
    QTest::newRow("headphone equalizer input") << Settings{{0x6402, 9}, {0xAB0F, 1}, {0xAB14, -6}} << 3 << 0xAB0B << -160;
    QTest::newRow("playback is reported as it is") << Settings{{0x5303, kHalf}} << 2 << 0x3901 << -150;
    QTest::newRow("Mobile: playback fader is loopback 3/4") << Settings{{0x5303, kHalf}} << 1 << 0x3901 << -210;
    QTest::newRow("Mobile: recording is before its fader") << Settings{{0x5103, 0}} << 1 << 0x3903 << -84;
    QTest::newRow("Mobile: routing is fixed") << Settings{{0x6402, 7}} << 1 << 0x6301 << -84;
}

void tst_Levels::meters()
{
    QFETCH(Settings, settings);
    QFETCH(int, mode);
    QFETCH(int, code);
    const Powers in =
        onlyAt({{IN1, -20}, {IN2, -30}, {AuxL, -10}, {AuxL + 1, -12}, {BtL, -40}, {BtL + 1, -40}, {PB12L, -15}, {PB34L, -25}});
    QTEST(meterOf(settings, mode, in, code), "expected");
}

void tst_Levels::everyMeterOnce()
{
    QSet<int> codes;
    for (const Meter& meter : readMeters(Levels{}, 2)) {
        codes << meter.code;
        QCOMPARE(meter.tenths, -900);
    }
    QCOMPARE(codes.size(), qsizetype(kMeterCount));
}

void tst_Levels::rounding()
{
    QCOMPARE(tenthsOfPower(1.0), 0);
    QCOMPARE(tenthsOfPower(powerOfDb(-0.04)), 0);
    QCOMPARE(tenthsOfPower(powerOfDb(0.04)), 0);
    QCOMPARE(tenthsOfPower(powerOfDb(0.06)), 1);
    QCOMPARE(tenthsOfPower(powerOfDb(-89.96)), -900);
    QCOMPARE(tenthsOfPower(0.0), -900);
}

void tst_Levels::performanceRepeatsAndDiffers()
{
    const Performance one(7), same(7), other(8);
    bool differs = false;
    int clips = 0, pauses = 0;
    double lowest = 0.0, highest = -90.0;
    for (double t = 0.0; t < 64.0; t += 0.05) {
        const Powers a = one.powersAt(t);
        QCOMPARE(a, same.powersAt(t));
        differs |= a != other.powersAt(t);
        clips += a[IN1] > 1.0;
        pauses += tenthsOfPower(a[BtL]) == -900;
        QVERIFY(a[IN2] <= 1.0); // one source clips, no other
        const double db = tenthsOfPower(a[PB12L]) / 10.0;
        if (db > -89.0) {
            lowest = std::min(lowest, db);
            highest = std::max(highest, db);
        }
    }
    QVERIFY(differs);
    QVERIFY2(clips >= 1 && clips <= 3, qPrintable(QString::number(clips)));
    QVERIFY(pauses > 0 && pauses < 640);
    QVERIFY(highest - lowest > 10.0); // it moves
}

void tst_Levels::performanceHoldsSides()
{
    Performance performance(1);
    QVERIFY(performance.hold("IN1", -18.5));
    QVERIFY(performance.hold("AUX", -20.0));
    QVERIFY(performance.hold("AUXR", -30.0));
    QVERIFY(!performance.hold("IN1L", -1.0));
    QVERIFY(!performance.hold("FX", -1.0));
    const Powers held = performance.powersAt(3.0);
    QCOMPARE(tenthsOfPower(held[IN1]), -185);
    QCOMPARE(tenthsOfPower(held[AuxL]), -200);
    QCOMPARE(tenthsOfPower(held[AuxL + 1]), -300);
    QVERIFY(performance.hold("AUX", std::nullopt));
    QCOMPARE(performance.powersAt(3.0)[AuxL], Performance(1).powersAt(3.0)[AuxL]);
}

namespace
{

QByteArray wav(quint16 kind, quint16 bits, const QByteArray& samples, quint16 channels = 1)
{
    const auto number = [](auto value) {
        QByteArray bytes(sizeof value, '\0');
        qToLittleEndian(value, bytes.data());
        return bytes;
    };
    const quint32 rate = 1000; // ten samples in each hundredth of a second
    const quint16 frame = quint16(channels * bits / 8);
    const QByteArray format =
        number(kind) + number(channels) + number(rate) + number(quint32(rate * frame)) + number(frame) + number(bits);
    const QByteArray body = "WAVEfmt " + number(quint32(format.size())) + format + "LIST" + number(quint32(3)) + "abc" + '\0' +
                            "data" + number(quint32(samples.size())) + samples;
    return "RIFF" + number(quint32(body.size())) + body;
}

bool loadBytes(WavEnvelope& envelope, const QByteArray& bytes)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.wav"));
    std::string reason;
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    file.close();
    return written && envelope.load(file.fileName().toStdString(), reason);
}

} // namespace

void tst_Levels::recordingIsPlayed()
{
    // A tenth of a second at half of full scale, 24 bit, negative; then silence as long.
    WavEnvelope envelope;
    QVERIFY(loadBytes(envelope, wav(1, 24, QByteArray("\x00\x00\xC0", 3).repeated(100) + QByteArray(300, '\0'))));
    QCOMPARE(tenthsOfPower(envelope.powerAt(0.05)), -60);
    QCOMPARE(tenthsOfPower(envelope.powerAt(0.15)), -900);
    QCOMPARE(tenthsOfPower(envelope.powerAt(0.25)), -60); // from the start again
    const float samples[] = {0.1f, -2.0f, std::numeric_limits<float>::quiet_NaN()};
    QVERIFY(loadBytes(envelope, wav(3, 32, QByteArray(reinterpret_cast<const char*>(samples), sizeof samples))));
    QCOMPARE(tenthsOfPower(envelope.powerAt(0.0)), 1);
}

void tst_Levels::badRecordings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = wav(1, 16, QByteArray(40, 'x'));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no WAV") << QByteArray(200, 'R');
    QTest::newRow("cut before its samples") << good.left(50);
    QTest::newRow("no samples") << wav(1, 16, {});
    QTest::newRow("8 bit") << wav(1, 8, QByteArray(40, 'x'));
    QTest::newRow("no channels") << wav(1, 16, QByteArray(40, 'x'), 0);
    QTest::newRow("endless chunk") << good.left(12) + QByteArray("junk\xFF\xFF\xFF\xFF") + good.mid(12);
}

void tst_Levels::badRecordings()
{
    QFETCH(QByteArray, bytes);
    WavEnvelope envelope;
    QVERIFY(!loadBytes(envelope, bytes));
    QVERIFY(envelope.isEmpty());
}

void tst_Levels::helloIsAnsweredWithMode()
{
    DeviceModel device(3);
    const auto answers = device.receive({.code = 0x1101, .value = 1}).answers;
    QCOMPARE(answers.front().code, 0x1101);
    QCOMPARE(answers.front().value, 3);
    QSet<int> codes;
    for (const Frame& frame : answers)
        codes << frame.code;
    QVERIFY(codes.contains({0x1118, 0x1119, 0x1201, 0x1202, 0x1203, 0x1204, 0x1205, 0x1206, 0x2106, 0x6406}));
    device.report(0x1118, 42);
    const auto again = device.receive({.code = 0x1101, .value = 1}).answers;
    QVERIFY(std::any_of(again.begin(), again.end(), [](const Frame& frame) { return frame.code == 0x1118 && frame.value == 42; }));
}

void tst_Levels::modeAndUpdate()
{
    DeviceModel device(2);
    QCOMPARE(device.receive({.code = 0x111D, .value = 3}).changeMode, std::optional(3));
    QVERIFY(!device.receive({.code = 0x111D, .value = 2}).changeMode);
    QVERIFY(!device.receive({.code = 0x111D, .value = 4}).changeMode);
    QVERIFY(device.receive({.code = 0x111F, .value = 1}).enterUpdate);
    device.receive({.code = 0x2105, .value = 1});
    device.receive({.code = 0x1104, .value = 2});
    device.receive({.code = 0x1121, .value = 1});
    QVERIFY(!device.parameters().knows(0x2105));
    QCOMPARE(device.parameters().value(0x1104), 2);
}

void tst_Levels::presetsReportWhatTheyChange()
{
    DeviceModel device(2);
    QVERIFY(device.receive({.code = 0x110E, .value = 1}).answers.empty());
    device.receive({.code = 0x2104, .value = 30});
    device.receive({.code = 0x5103, .value = 77}); // never reported
    device.receive({.code = 0x2105, .value = 1});
    device.receive({.code = 0x1108, .value = 1});
    device.receive({.code = 0x2104, .value = 31});
    device.receive({.code = 0x5103, .value = 78});
    const auto changed = device.receive({.code = 0x110E, .value = 1}).answers;
    QCOMPARE(changed.size(), std::size_t(1));
    QCOMPARE(changed[0].code, 0x2104);
    QCOMPARE(changed[0].value, 30);
    QCOMPARE(device.parameters().value(0x5103), 77);
}

void tst_Levels::outputKnobTurnsBothSides()
{
    DeviceModel device(2);
    device.turn(0x6403, 50);
    QCOMPARE(device.parameters().value(0x6303), 50);
    device.turn(0x6406, 0);
    QVERIFY(!device.parameters().knows(0x6306));
}

void tst_Levels::panel_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("code"); // 0: refused
    QTest::addColumn<int>("wire");
    QTest::newRow("switch") << "Input_IN1.MUTE"
                            << "1" << 0x2105 << 1;
    QTest::newRow("+9 dB scale") << "Input_AUX.GAIN"
                                 << "-6" << 0x2304 << 69;
    QTest::newRow("0 dB scale") << "Output_OTGOUT.GAIN"
                                << "0" << 0x6203 << 99;
    QTest::newRow("plain number") << "Input_IN2.GAIN"
                                  << "41" << 0x2204 << 41;
    QTest::newRow("text of a list") << "Input_IN1.MIC"
                                    << "Mic35" << 0x2102 << 2;
    QTest::newRow("no such text") << "Input_IN1.MIC"
                                  << "Mic36" << 0 << 0;
    QTest::newRow("effect by its strip") << "Effect_NC.NoiseReductionType"
                                         << "NC3" << 0x4407 << 45;
    QTest::newRow("device setting") << "SettingsDevice.UsbCCharging"
                                    << "Disabled" << 0x111C << 3;
    QTest::newRow("plugged in") << "Input_IN1.Plug"
                                << "1" << 0x2106 << 1;
    QTest::newRow("level") << "Input_IN1.Meter"
                           << "-12.5" << 0x2101 << -125;
    QTest::newRow("clip") << "Input_IN1.Meter"
                          << "clip" << 0x2101 << 1;
    QTest::newRow("band of the right side") << "EQ_IN2@10.Gain"
                                            << "-6.5" << 0x9A08 << -65;
    QTest::newRow("band that is none") << "EQ_IN2@11.Gain"
                                       << "-6.5" << 0 << 0;
    QTest::newRow("never reported") << "Loopback_LB12.GAINLeft"
                                    << "-6" << 0 << 0;
    QTest::newRow("no number") << "Input_AUX.GAIN"
                               << "loud" << 0 << 0;
    QTest::newRow("no finite number") << "Input_IN1.GAIN"
                                      << "inf" << 0 << 0;
}

void tst_Levels::panel()
{
    static const Names names;
    QFETCH(QString, control);
    QFETCH(QString, value);
    QFETCH(int, code);
    const QStringList parts = control.split('.');
    std::string reason;
    const auto report = names.panel(parts[0].toStdString(), parts[1].toStdString(), value.toStdString(), reason);
    QCOMPARE(report.has_value(), code != 0);
    if (!report) {
        QVERIFY(!reason.empty());
        return;
    }
    QCOMPARE(int(report->code), code);
    QTEST(report->value, "wire");
    // What is turned here has a name under which a record shows it and a script finds it again.
    QCOMPARE(names.code(names.of(report->code)), std::optional(report->code));
}

QTEST_GUILESS_MAIN(tst_Levels)
#include "tst_levels.moc"
