#include "MixerBench.h"

#include "controls/meter/MeterView.h"

#include <QLineEdit>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using Page = bench::MixerPage;

namespace
{

constexpr int kUnity = 33554432;

void addMembers()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<QList<int>>("unity");
    QTest::newRow("S1M1") << u"S1M1"_s << QList{kUnity, 0, 0, kUnity};
    QTest::newRow("S1M2") << u"S1M2"_s << QList{kUnity, 0, 0, kUnity};
    QTest::newRow("S1M3") << u"S1M3"_s << QList{kUnity, kUnity, kUnity, kUnity};
    QTest::newRow("S1M4") << u"S1M4"_s << QList{kUnity, 0, 0, kUnity};
}

} // namespace

class tst_mixers : public QObject
{
    Q_OBJECT
private slots:
    void gainLaws()
    {
        using namespace quillon;
        for (const auto& [db, linear] : {std::pair{0, 33554432}, {12, 133582599}, {-90, 0}, {-120, 0}, {-89, 1190}}) {
            QCOMPARE(linearGain(db), linear);
            QCOMPARE(straightGains({.gainDb = db}), (MixGains{linear, 0, 0, linear}));
        }
        const auto side = [](float balance, bool inverted = false, bool mute = false) {
            return MixChannel{.gainDb = 0, .mute = mute, .inverted = inverted, .balance = balance};
        };
        QCOMPARE(balancedGains({side(50), side(100)}), (MixGains{kUnity / 2, 0, kUnity / 2, kUnity}));
        QCOMPARE(balancedGains({side(0, true), side(50, true)}), (MixGains{-kUnity, -kUnity / 2, 0, -kUnity / 2}));
        QCOMPARE(balancedGains({side(50, true, true), side(50)}), (MixGains{0, kUnity / 2, 0, kUnity / 2}));
        QCOMPARE(sharedGains({}, {100, 100}), (MixGains{kUnity, kUnity, kUnity, kUnity}));
        QCOMPARE(sharedGains({}, {0, 150}), (MixGains{kUnity, kUnity / 2, 0, kUnity}));
        QCOMPARE(sharedGains({.mute = true}, {0, 200}), MixGains{});
    }

    // Every mix is told on a load, the shown one last.
    void load_data() { addMembers(); }
    void load()
    {
        QFETCH(const QString, member);
        QFETCH(const QList<int>, unity);
        Page page(member);
        QCOMPARE(page.sent.size(), 3 * 2 * 4);
        QCOMPARE(page.sent.mid(0, 5).join(u' ').count(u"MixB_"_s), 4);
        QCOMPARE(page.gains(0, u"MixA"_s), unity);
        QCOMPARE(page.gains(1, u"MixB"_s), unity);
        page.select(u"nobody"_s);
        QCOMPARE(page.field.mix(), u"MixA"_s);
    }

    void link()
    {
        Page page(u"S1M4"_s);
        page.child<QPushButton>(0, u"pushButtonLink"_s)->click();
        QVERIFY(page.child(0, u"widgetUnlinkMeter"_s)->isVisible() && page.child(0, u"widgetLinkedVSlider"_s)->isHidden());
        auto* face = dynamic_cast<quillon::MeterFace*>(page.child(0, u"widgetUnlinkMeter"_s));
        QVERIFY(face);
        const quillon::ValueControl& meter = face->valueControl();
        page.list[0]->setVolumeMeterLeft(1);
        QVERIFY(meter.accessibleText().contains(u"clip"_s));
        page.select(u"MixB"_s); // of the other form: what stands on the meters is old
        QTRY_COMPARE(meter.accessibleValue(), -90.0);
        page.select(u"MixA"_s);
        QCOMPARE(meter.accessibleValue(), -90.0);
        page.select(u"MixB"_s);
        QVERIFY(page.child<QPushButton>(0, u"pushButtonLink"_s)->isChecked());
        QTest::keyClick(page.child(0, u"widgetDialLeft"_s), Qt::Key_Up);
        QCOMPARE(page.workspace.value(u"Mixer_AUX"_s, u"MixB_BalanceLinkedLeft"_s).toInt(), 1);
        QCOMPARE(page.workspace.value(u"Mixer_AUX"_s, u"MixA_BalanceLinkedLeft"_s).toInt(), 0);
    }

    void garbageInTheFile_data() { addMembers(); }
    void garbageInTheFile()
    {
        QFETCH(const QString, member);
        Page page(member);
        QSettings& file = page.workspace.file();
        for (const char* key : {"GAIN", "GAINLeft", "BalanceLinkedLeft", "BalanceLinkedRight", "SOLO", "Link"}) {
            file.setValue(u"Mixer_AUX/MixA_"_s + QLatin1StringView(key), u"9999999"_s);
            file.setValue(u"Mixer_AUX/MixB_"_s + QLatin1StringView(key), u"9999999"_s);
        }
        file.setValue(u"FieldMixer/Mixer"_s, u"MixZ"_s);
        file.setValue(u"FieldMixer/MixB_SoloState"_s, u"-7"_s);
        file.setValue(u"FieldMixer/MixA_Visible"_s, QStringList({u"nobody"_s, u"AUX"_s}));
        page.load();
        QCOMPARE(page.field.visibleList(), QStringList{u"AUX"_s});
        QCOMPARE(page.gains(0, u"MixA"_s), page.gains(0, u"MixB"_s)); // a control and the file are held to the same range
        page.button(0, 1, "SOLO")->click();
        QCOMPARE(page.field.soloCount(), 0);
    }

    void layout_data() { addMembers(); }
    void layout()
    {
        QFETCH(const QString, member);
        Page page(member);
        QCOMPARE(bench::misplaced(*page.list[0]), QString());
        if (auto* link = page.child<QPushButton>(0, u"pushButtonLink"_s)) {
            link->click();
            QCOMPARE(bench::misplaced(*page.list[0]), QString());
        }
        if (const QString folder = qEnvironmentVariable("QUILLON_PICTURES"); !folder.isEmpty()) {
            for (MixerBase* each : page.list) {
                each->setVolumeMeterLeft(-180);
                each->setVolumeMeterRight(-90);
            }
            page.field.resize(900, 495);
            page.field.grab().save(folder + u'/' + member + u".png"_s);
        }
    }
};

QTEST_MAIN(tst_mixers)
#include "tst_mixers.moc"
