// Mixers, outputs and loopbacks of whole pages on a real link: what a workspace says is what the device has, for every mix. And a
// measured gain, against a level that is known.

#include "PageOnWire.h"

#include "device/DeviceR47.h"
#include "device/USBAudioAPI.h"
#include "device/USBHIDAPI.h"
#include "resources/Resources.h"
#include "strips/field/FieldOriginS1M1.h"
#include "strips/origin/OriginS1M12.h"
#include "strips/origin/OriginS1M13.h"
#include "tests/strips/MixerBench.h"
#include "tests/strips/RouteBench.h"

#include <QDir>
#include <QTimer>

using namespace Qt::StringLiterals;
using bench::MixerModel;
using bench::RouteModel;
using bench::Values;
using wire::frames;
using wire::kSources;

namespace
{

/// The device, its link, and what the console does between them and the strips of a page.
class Link
{
public:
    Link()
    {
        QVERIFY(USBHIDAPI::instance().open(0x152A, 0x875C));
        mDevice.startDevice();
    }
    ~Link()
    {
        mDevice.stopDevice();
        USBHIDAPI::instance().close();
    }
    DeviceR47& device() { return mDevice; }
    RunningR47& unit() { return mUnit; }
    QJsonObject parameters()
    {
        mUnit.ask("clear");
        mDevice.in_Others_attributeChanged("Workspace", "LoadSettings", "77");
        mUnit.ask("wait 1120 77");
        return QJsonDocument::fromJson(mUnit.ask("state")).object()["parameters"].toObject();
    }

private:
    RunningR47 mUnit;
    DeviceR47 mDevice;
};

/// Strips of one page in their fields, as the console builds them, and the same as values.
class Page
{
public:
    explicit Page(const QString& name, DeviceR47& device, quint32 seed) : mDevice(device), mRandom(seed)
    {
        quillon::initResources();
        if (name != u"Mobile"_s) {
            buildMixers(name == u"Live"_s);
            buildRoutes(name == u"Live"_s);
        } else {
            buildMobile();
        }
    }
    ~Page()
    {
        for (const auto& strip : mStrips) {
            strip->setParent(nullptr);
        }
    }
    /// Another workspace with a value in every key.
    void load(const QString& name)
    {
        for (MixerModel::Mix& mix : mMixers.mixes) {
            for (qsizetype i = 0; i < mix.strips.size(); ++i) {
                MixerModel::Strip& strip = mix.strips[i];
                const bool linkable = mMixers.kinds[i].isLinkable();
                strip.shown = below(5);
                strip.link = !linkable || below(2);
                for (bench::Pair& pair : strip.pairs) {
                    pair = {!below(8), !below(4), linkable && below(2), double(below(103) - 90)};
                }
                for (const int side : {0, 1}) {
                    strip.balances[0][side] = below(101);
                    strip.balances[1][side] = below(101);
                }
            }
        }
        mMixers.current = mMixers.mixes.isEmpty() ? 0 : below(int(mMixers.mixes.size()));
        for (qsizetype i = 0; i < mRoutes.strips.size(); ++i) {
            RouteModel::Strip& strip = mRoutes.strips[i];
            strip.shown = below(5);
            strip.link = !mRoutes.kinds[i].pair || below(2);
            strip.source = kSources[1 + below(3)];
            for (bench::Pair& pair : strip.pairs) {
                pair = {false, !below(4), false, double(below(89) - 88)};
            }
        }
        if (mBoth) {
            const int left = below(201);
            const int right = below(201);
            mMixers.places[mBoth->objectName()] = {left, right};
            mBoth->setBalanceLeft(left, false);
            mBoth->setBalanceRight(right, false);
        }
        mWorkspace.reopen(name);
        Values values = mRoutes.stored();
        if (!mMixers.mixes.isEmpty()) {
            values.insert(mMixers.stored());
        }
        for (const auto& [key, value] : values.asKeyValueRange()) {
            if (!value.isNull()) {
                mWorkspace.file().setValue(key, key.endsWith(u"Visible"_s) ? QVariant(value.split(u',')) : QVariant(value));
            }
        }
        for (WorkspaceObserver* observer : std::as_const(mObservers)) {
            mWorkspace.file().setValue(observer->workspaceGroup() + u'/' + observer->workspaceGroup(), true);
        }
        for (WorkspaceObserver* observer : std::as_const(mObservers)) {
            observer->loadSettings();
        }
    }
    Values device() const
    {
        Values values = mRoutes.device();
        values.insert(mMixers.device());
        return values;
    }
    void select(const QString& mix) { emit mField->attributeChanged(u"Mixer_All"_s, u"Mixer"_s, mix); }
    const MixerModel& mixers() const { return mMixers; }

private:
    int below(int end) { return mRandom.bounded(end); }
    template<class Strip> void take(Strip* strip, const QString& channel, void (DeviceR47::*slot)(QString, QString, QString))
    {
        mStrips.emplace_back(strip);
        strip->setChannelName(channel);
        if (slot) {
            QObject::connect(strip, &Strip::attributeChanged, &mDevice, slot);
        }
    }
    template<class Field, class Strip> void place(Field* field, const QList<Strip*>& strips)
    {
        mFields.emplace_back(field);
        field->setWidgetList(strips);
        observe(field);
        for (Strip* strip : strips) {
            observe(strip);
        }
    }
    void observe(WorkspaceObserver* observer)
    {
        mWorkspace.attach(*observer);
        mObservers += observer;
    }
    void buildMixers(bool live)
    {
        QList<MixerBase*> strips;
        for (const QString& source : QStringList{"IN12", "AUX", "BT", "OTGIN", "FX", "PB12", "PB34", "PB56", "PB78", "PB910"}) {
            if (source == u"FX"_s && !live) {
                continue;
            }
            const QString object = u"Mixer_"_s + source;
            const QString member = !live ? u"S1M4"_s : source == u"IN12"_s ? u"S1M3"_s : u"S1M2"_s;
            strips += bench::makeMixer(member, object).release();
            take(strips.last(), source, &DeviceR47::in_fieldMixer_attributeChanged);
            mMixers.kinds.push_back({object, source, member});
        }
        mBoth = qobject_cast<MixerS1M3*>(strips.first());
        quillon::Mixes mixes;
        for (const char letter : live ? QByteArray("ABCDE") : QByteArray("ABC")) {
            const QString key = u"Mix"_s + QLatin1Char(letter);
            mMixers.mixes.push_back({key, QList<MixerModel::Strip>(strips.size())});
            mixes.push_back({key, key, Qt::green, {}});
        }
        mField = new FieldMixerS1M1(u"FieldMixer"_s);
        mField->setMixTable(mixes);
        place(mField, strips);
    }
    template<class Strip, class Base>
    void addRoute(QList<Base*>& strips, const QString& object, bool pair, const QString& field,
                  void (DeviceR47::*slot)(QString, QString, QString))
    {
        auto* strip = new Strip(object);
        if constexpr (std::is_base_of_v<OutputBase, Strip>) {
            strip->setGainRange(object == u"Output_HP"_s ? quillon::scaleAux : quillon::scaleLine);
        }
        strip->setAudioSourceList(u"Mix"_s, kSources.mid(1, 5));
        take(strip, object, slot);
        strips += strip;
        mRoutes.kinds.push_back({object, object, field, pair, field == u"FieldLoopback"_s});
        mRoutes.strips.emplace_back();
    }
    void buildRoutes(bool live)
    {
        QList<LoopbackBase*> loopbacks;
        for (const QString& object : QStringList{"Loopback_LB12", "Loopback_LB34", "Loopback_LB56", "Loopback_LB78"}) {
            const auto slot = &DeviceR47::in_fieldLoopback_attributeChanged;
            live ? addRoute<LoopbackS1M1>(loopbacks, object, false, u"FieldLoopback"_s, slot)
                 : addRoute<LoopbackS1M2>(loopbacks, object, true, u"FieldLoopback"_s, slot);
        }
        place(new FieldLoopbackS1M1(u"FieldLoopback"_s), loopbacks);
        QList<OutputBase*> outputs;
        const auto slot = &DeviceR47::in_fieldOutput_attributeChanged;
        live ? addRoute<OutputS1M1>(outputs, u"Output_HP"_s, false, u"FieldOutput"_s, slot)
             : addRoute<OutputS1M4>(outputs, u"Output_HP"_s, false, u"FieldOutput"_s, slot);
        live ? addRoute<OutputS1M1>(outputs, u"Output_OTGOUT"_s, false, u"FieldOutput"_s, slot)
             : addRoute<OutputS1M3>(outputs, u"Output_OTGOUT"_s, false, u"FieldOutput"_s, slot);
        place(new FieldOutputS1M1(u"FieldOutput"_s), outputs);
    }
    /// A strip that stands for both gains of a loopback.
    template<class Strip> void standIn(Strip* strip, const QString& loopback)
    {
        strip->setMuteGain(-90);
        QObject::connect(strip, &Strip::attributeChanged, &mDevice,
                         [this, loopback](const QString&, const QString& attribute, const QString& value) {
                             if (attribute.startsWith(u"GAIN"_s)) {
                                 mDevice.in_fieldLoopback_attributeChanged(loopback, u"GAINLeft"_s, value);
                                 mDevice.in_fieldLoopback_attributeChanged(loopback, u"GAINRight"_s, value);
                             }
                         });
    }
    void buildMobile()
    {
        QList<quillon::PlainStrip*> outputs;
        for (const auto& [object, scale] : {std::pair{u"Output_HP"_s, quillon::scaleAux},
                                            {u"Output_OTGOUT"_s, quillon::scaleLine},
                                            {u"Output_LB12"_s, quillon::scaleRecord},
                                            {u"Input_PB12"_s, quillon::scalePlayback}}) {
            const bool recording = object == u"Output_LB12"_s;
            const bool playback = object == u"Input_PB12"_s;
            if (playback) {
                auto* strip = new OriginS1M12(object);
                strip->setGainRange(scale);
                standIn(strip, u"Loopback_LB34"_s);
                take(strip, object, nullptr);
                outputs += strip;
            } else {
                auto* strip = new OriginS1M13(object);
                strip->setAudioSourceVisible(false).setGainRange(scale);
                if (recording) {
                    standIn(strip, u"Loopback_LB12"_s);
                }
                take(strip, object, &DeviceR47::in_fieldOutput_attributeChanged);
                outputs += strip;
            }
            mRoutes.kinds.push_back({object, object, u"FieldOutput"_s, false, recording || playback, false});
            mRoutes.strips.emplace_back();
        }
        place(new FieldOriginS1M1(u"FieldOutput"_s, {"Output", "输出"}), outputs);
    }

    DeviceR47& mDevice;
    QRandomGenerator mRandom;
    bench::OpenWorkspace mWorkspace;
    MixerModel mMixers;
    RouteModel mRoutes;
    std::vector<std::unique_ptr<QWidget>> mStrips;
    std::vector<std::unique_ptr<QWidget>> mFields;
    FieldMixerS1M1* mField = nullptr;
    MixerS1M3* mBoth = nullptr; // both microphones
    QList<WorkspaceObserver*> mObservers;
};

} // namespace

class tst_pages_on_device : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void workspaceIsTheDevice_data();
    void workspaceIsTheDevice();
    void autoGain_data();
    void autoGain();

private:
    QTemporaryDir mFolder;
};

void tst_pages_on_device::initTestCase()
{
    loadLibraries();
    QVERIFY(QDir::setCurrent(mFolder.path()));
}

void tst_pages_on_device::workspaceIsTheDevice_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("values");
    // Crosspoints of each mix; of a loopback a source and two gains; of an output two mutes as well.
    QTest::newRow("Live") << "Live" << 5 * 10 * 4 + 4 * 3 + 2 * 5;
    QTest::newRow("Pro") << "Pro" << 3 * 9 * 4 + 4 * 3 + 2 * 5;
    QTest::newRow("Mobile") << "Mobile" << 2 * 4 + 2 * 2;
}

void tst_pages_on_device::workspaceIsTheDevice()
{
    QFETCH(const QString, page);
    QFETCH(const int, values);
    Link link;
    Page strips(page, link.device(), 47);
    QSet<QString> codes;
    for (int round = 0; round < 8; ++round) {
        strips.load(QString::number(round));
        // What is shown is no matter of the device's.
        if (!strips.mixers().mixes.isEmpty()) {
            strips.select(strips.mixers().mixes[round % 3].key);
        }
        const QJsonObject parameters = link.parameters();
        for (const auto& [key, value] : strips.device().asKeyValueRange()) {
            for (const QString& frame : frames(key, value)) {
                const QString code = frame.section(u' ', 0, 0);
                codes += code;
                const QString there = QString::number(parameters[code].toInteger(-99));
                QVERIFY2(there == frame.section(u' ', 1),
                         qPrintable(u"workspace %1: %2 is %3 (%4), the device has %5"_s.arg(round).arg(key, value, frame, there)));
            }
        }
    }
    QCOMPARE(codes.size(), values);
}

void tst_pages_on_device::autoGain_data()
{
    QTest::addColumn<QString>("strip");
    QTest::addColumn<QString>("level"); // at the socket
    QTest::newRow("IN 1, a voice") << "Input_IN1"
                                   << "-30";
    QTest::newRow("IN 2, louder, no whole dB") << "Input_IN2"
                                               << "-14.4";
    QTest::newRow("IN 1, a whisper") << "Input_IN1"
                                     << "-43.7";
}

// The seconds of the measurement are counted here, the readings are the device's.
void tst_pages_on_device::autoGain()
{
    QFETCH(const QString, strip);
    QFETCH(const QString, level);
    const QString channel = strip.section(u'_', 1);
    const QString block = channel == u"IN1"_s ? u"21"_s : u"22"_s;
    Console console;
    console.unit().ask(u"level %1 %2"_s.arg(channel, level));
    console.unit().ask("rate 100");
    QTimer user;
    int waited = 0;
    connect(&user, &QTimer::timeout, this, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        const auto press = [dialog](const char* name) {
            for (auto* button : dialog->findChildren<QPushButton*>(QLatin1StringView(name))) {
                if (button->isVisible()) {
                    button->click();
                    return true;
                }
            }
            return false;
        };
        if (!dialog || press("pushButtonStart") || press("pushButtonApply")) {
            return;
        }
        if (++waited == 20) {
            for (int second = 0; second < 15; ++second) {
                QMetaObject::invokeMethod(dialog, "in_mTimer_timeout");
            }
        } else if (waited == 200) {
            dialog->close();
        }
    });
    user.start(20);
    move(console.part(strip, "PushButtonAUTO"), Hand::Click, 0);
    QTRY_VERIFY(waited >= 20 && !QApplication::activeModalWidget());
    user.stop();
    console.sent();
    const auto source = level.toDouble();
    const int gain = console.parameters()[block + u"04"_s].toInt();
    const double lifted = source + gain - 26; // the law of the unit
    QVERIFY2(lifted > -6 && lifted <= -5 + 0.05, qPrintable(u"gain %1, level %2"_s.arg(gain).arg(lifted)));
    // And so does the meter of the console say.
    auto* meter = dynamic_cast<quillon::ValueControlHost*>(console.part(strip, "widgetVolumeMeter"));
    QTRY_VERIFY(std::abs(meter->valueControl().accessibleValue() - lifted) < 1); // it tells whole dB
    QCOMPARE(dynamic_cast<quillon::ValueControlHost*>(console.part(strip, "widgetDial"))->valueControl().accessibleValue(), gain);
}

QTEST_MAIN(tst_pages_on_device)
#include "tst_pages_on_device.moc"
