#include "RouteBench.h"
#include "controls/ToolButtonS1M1.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/slider/Fader.h"

#include <QPushButton>

using namespace Qt::StringLiterals;
using bench::kMembers;
using bench::Member;
using quillon::RouteStrip;

namespace
{

/// The sides of the equalizer's window that the strip knows.
class Equalizer : public QObject
{
    Q_OBJECT
public:
    void setStateTarget(bool on) { told += on; }
    void setStateSource(bool on) { told += on; }
    void setStateEachFilter(bool on) { told += on; }
    void setStateCombined(bool on) { told += on; }
    void setStateFiltered(bool on) { told += on; }
    void setFilteredType(bool on) { told += on; }
    void importTargetFile(const QString&) {}
    void importSourceFile(const QString&) {}
    QList<bool> told;
signals:
    void attributeChanged(QString objectName, QString attribute, QString value);
};

QStringList gains(const QString& left, const QString& right)
{
    return {u"GAINLeft="_s + left, u"GAINRight="_s + right};
}

/// One strip of a member, shown, in its linked form, loaded twice; nothing recorded yet.
struct OneStrip {
    explicit OneStrip(const Member& member) : strip(member.make(u"Strip"_s))
    {
        workspace.attach(*strip);
        record.listen(strip.get());
        strip->setStripEnabled(true);
        strip->resize(strip->minimumSize() * 3);
        strip->show();
        strip->loadSettings();
        fresh = record.take();
        workspace.file().setValue(u"Strip/Link"_s, true);
        strip->loadSettings();
        linked = record.take();
    }
    QWidget* child(const QString& name) const { return strip->findChild<QWidget*>(name); }
    QVariant stored(const QString& key) const { return workspace.value(u"Strip"_s, key); }
    void step(const QString& fader, Qt::Key key) const { QTest::keyClick(child(fader)->findChild<quillon::Fader*>(), key); }
    void mute(int group) const
    {
        auto* button = child(u"widgetPushButtonGroup%1"_s.arg(group))->findChild<QPushButton*>();
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void choose(const QString& source) const { bench::choose(*strip, source); }

    bench::OpenWorkspace workspace;
    bench::Record record;
    std::unique_ptr<RouteStrip> strip;
    QStringList fresh;
    QStringList linked;
};

} // namespace

class tst_outputs : public QObject
{
    Q_OBJECT
private slots:
    void members_data()
    {
        QTest::addColumn<const Member*>("row");
        for (const Member& member : kMembers) {
            QTest::newRow(member.name) << &member;
        }
    }
    void members()
    {
        QFETCH(const Member* const, row);
        OneStrip one(*row);
        const QString gain = row->text("-38", "0");
        const QStringList routed = QStringList{u"AudioSource=Mix B"_s} + gains(gain, gain);
        QCOMPARE(one.linked, routed + QStringList{u"MUTE=0"_s});
        QCOMPARE(one.fresh,
                 (row->equalizer ? QStringList{u"EQ=Off"_s} : QStringList{}) + routed +
                     (row->pair && row->loopback ? QStringList{u"MUTELeft=0"_s, u"MUTERight=0"_s} : QStringList{u"MUTE=0"_s}));

        // A step of the fader: kept, then sent for both sides. Of a muted strip it also releases the mute.
        one.step(u"widgetLinkedVSlider"_s, Qt::Key_Down);
        const QString lower = row->text("-39", "-1");
        QCOMPARE(one.record.take(), gains(lower, lower));
        QCOMPARE(one.stored(u"GAIN"_s).toString(), lower);
        one.mute(1);
        const QStringList muted = row->loopback ? gains(u"-90"_s, u"-90"_s) : QStringList{};
        QCOMPARE(one.record.take(), muted + QStringList{u"MUTE=1"_s});
        QCOMPARE(one.stored(u"MUTE"_s).toBool(), true);
        one.step(u"widgetLinkedVSlider"_s, Qt::Key_Up);
        QCOMPARE(one.record.take(), gains(gain, gain) + QStringList{u"MUTE=0"_s});

        one.choose(u"IN 1"_s);
        QCOMPARE(one.record.take(), QStringList{u"AudioSource=IN 1"_s});
        QCOMPARE(one.stored(u"AudioSource"_s).toString(), u"IN 1"_s);

        // Hidden: silent on the device, once; the source is not touched.
        one.strip->setStripEnabled(false);
        one.strip->updateAttribute();
        QCOMPARE(one.record.take(), muted + QStringList{u"MUTE=1"_s});
        one.choose(u"Mix A"_s);
        QVERIFY(one.record.lines.isEmpty());
        one.strip->setStripEnabled(true);
        QCOMPARE(one.record.take(), QStringList{u"AudioSource=Mix A"_s} + (row->loopback ? gains(u"0"_s, u"0"_s) : QStringList{}) +
                                        QStringList{u"MUTE=0"_s});
    }

    void deviceValuesAreSilent_data() { members_data(); }
    void deviceValuesAreSilent()
    {
        QFETCH(const Member* const, row);
        for (const bool link : {true, false}) {
            OneStrip one(*row);
            if (!link && row->pair) {
                QTest::mouseClick(one.strip->findChild<QPushButton*>(u"pushButtonLink"_s), Qt::LeftButton);
                one.record.take();
            }
            const auto take = [&](QStringView attribute, const QVariant& value) {
                const quillon::DeviceSetter setter = one.strip->deviceSetter(attribute);
                return setter && (setter(value), true);
            };
            QVERIFY(take(u"GAIN", -20.0F) && take(u"AudioSource", u"Mix A"_s));
            QVERIFY(take(u"Plug", true) && take(u"MeterLeft", -100) && take(u"MeterRight", 2147483647));
            QCOMPARE(take(u"EQ", true), row->equalizer);
            for (const QString& foreign : {u"Link"_s, u"ChannelName"_s, u"SOLO"_s, u""_s}) {
                QVERIFY2(!take(foreign, 1), qPrintable(foreign));
            }
            one.strip->updateAttribute();
            if (!row->loopback) {
                QVERIFY(take(u"MUTE", true));
                one.strip->updateAttribute();
                QVERIFY(one.stored(!link && row->pair ? u"MUTERight"_s : u"MUTE"_s).toBool());
            }
            QVERIFY2(one.record.lines.isEmpty(), qPrintable(one.record.lines.join(u' ')));
            QCOMPARE(one.stored(!link && row->pair ? u"GAINLeft"_s : u"GAIN"_s).toFloat(), -20.0F);
            QCOMPARE(one.stored(u"AudioSource"_s).toString(), u"Mix A"_s);
        }
    }

    void garbageInAFile()
    {
        for (const Member& member : kMembers) {
            OneStrip one(member);
            QSettings& file = one.workspace.file();
            file.setValue(u"Strip/GAIN"_s, u"loud"_s);
            file.setValue(u"Strip/MUTE"_s, 17);
            file.setValue(u"Strip/Foreign"_s, u"x"_s);
            one.strip->loadSettings();
            const QString sent = member.text("0", "-90");
            QCOMPARE(one.record.take(), QStringList{u"AudioSource=Mix B"_s} + gains(sent, sent) + QStringList{u"MUTE=1"_s});
            file.setValue(u"Strip/GAIN"_s, 4000);
            file.setValue(u"Strip/MUTE"_s, 0);
            one.strip->loadSettings();
            const QString most = member.text("9", "0");
            QCOMPARE(one.record.take().mid(1), gains(most, most) + QStringList{u"MUTE=0"_s});
        }
    }

    void layout()
    {
        for (const Member& member : kMembers) {
            const OneStrip one(member);
            QCOMPARE(bench::misplaced(*one.strip), QString());
            if (member.pair) {
                one.strip->findChild<QPushButton*>(u"pushButtonLink"_s)->click();
                QCOMPARE(bench::misplaced(*one.strip), QString());
            }
        }
    }

    // The form that goes keeps no level for the day on which it comes back.
    void metersRunDownWithTheirForm()
    {
        for (const Member& member : kMembers) {
            if (!member.pair) {
                continue;
            }
            OneStrip one(member);
            auto* meter = dynamic_cast<quillon::MeterFace*>(one.child(u"widgetLinkedMeterLeft"_s));
            QVERIFY(meter);
            one.strip->deviceSetter(u"MeterLeft")(-100);
            const double level = meter->valueControl().accessibleValue();
            one.strip->findChild<QPushButton*>(u"pushButtonLink"_s)->click();
            QTRY_VERIFY(meter->valueControl().accessibleValue() < level);
        }
    }

    void menuFollowsTheLanguage()
    {
        OneStrip one(kMembers[0]);
        const auto sections = [&] {
            QStringList texts;
            for (const QMenu* menu : one.strip->findChildren<QMenu*>()) {
                if (!menu->title().isEmpty()) {
                    texts += menu->title();
                }
            }
            texts.sort();
            return texts;
        };
        QCOMPARE(sections(), QStringList({u"Input"_s, u"Mix"_s}));
        one.strip->onAppSettingsChanged({}, u"Language"_s, u"Chinese"_s);
        QCOMPARE(sections(), QStringList({u"混音"_s, u"输入"_s}));
        QCOMPARE(one.child(u"widgetToolButton"_s)->accessibleName(), u"Strip 音源"_s);
    }

    // The level of the source before must not stand on the meter of the next one.
    void aNewSourceLetsTheLevelFall()
    {
        for (const Member& member : kMembers) {
            OneStrip one(member);
            auto* meter = one.strip->findChild<VolumeMeterS1M4*>();
            one.strip->setVolumeMeterLeft(-60);
            const double before = meter->valueControl().accessibleValue();
            one.choose(u"IN 1"_s);
            QTest::qWait(200);
            QCOMPARE(meter->valueControl().accessibleValue() < before, member.loopback);
        }
    }

    void equalizer()
    {
        OneStrip one(kMembers[3]);
        Equalizer window;
        static_cast<OutputS1M4*>(one.strip.get())->setEqualizer(&window);
        one.strip->loadSettings();
        QCOMPARE(window.told, QList<bool>({false, false, false, true, false, false}));
        emit window.attributeChanged(u"EQ_HP"_s, u"StateTarget"_s, u"1"_s);
        emit window.attributeChanged(u"EQ_HP"_s, u"GainInputLeft"_s, u"1"_s);
        QCOMPARE(one.stored(u"EQStateTarget"_s).toInt(), 1);
        window.told.clear();
        one.strip->loadSettings();
        QCOMPARE(window.told.value(0), true);
        one.record.take();
        QTest::mouseClick(one.child(u"widgetPushButtonGroup2"_s)->findChild<QPushButton*>(), Qt::RightButton);
        QTRY_COMPARE(one.record.lines, QStringList{u"EQ=Show"_s});
    }

    void fields()
    {
        bench::OpenWorkspace workspace;
        LoopbackS1M1 first(u"Loopback_LB12"_s);
        LoopbackS1M1 second(u"Loopback_LB34"_s);
        first.setChannelName(u"Loopback 1/2"_s);
        second.setChannelName(u"Loopback 3/4"_s);
        FieldLoopbackS1M1 field(u"FieldLoopback"_s);
        workspace.attach(field);
        workspace.attach(first);
        workspace.attach(second);
        field.setWidgetList({&first, &second});
        bench::Record record;
        record.listen(&field);
        field.loadSettings();
        QVERIFY2(record.lines.isEmpty(), qPrintable(record.lines.join(u' ')));
        QVERIFY(first.isStripEnabled() && second.isStripEnabled());
        first.loadSettings();
        second.loadSettings();
        record.take();
        emit first.attributeChanged(u"Loopback 1/2"_s, u"Hide"_s, u"1"_s);
        QCOMPARE(record.take(), QStringList({u"GAINLeft=-90"_s, u"GAINRight=-90"_s, u"MUTE=1"_s, u"Visible=0"_s}));
        QCOMPARE(workspace.value(u"FieldLoopback"_s, u"Visible"_s).toStringList(), QStringList{u"Loopback 3/4"_s});
        field.onAppSettingsChanged({}, u"Language"_s, u"Chinese"_s);
        QCOMPARE(field.accessibleName(), u"回录"_s);
        field.loadSettings();
        QVERIFY(!first.isStripEnabled() && second.isStripEnabled());
        first.setParent(nullptr);
        second.setParent(nullptr);
    }
};

QTEST_MAIN(tst_outputs)
#include "tst_outputs.moc"
