#include "console/effect/R47_PrivateWidget3.h"
#include "console/menu/R47_PrivateWidget2.h"
#include "console/menu/R47_PrivateWidget5.h"
#include "device/InboundTable.h"
#include "device/ParameterTable.h"
#include "resources/Resources.h"
#include "tests/strips/StripBench.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace
{

const QString kGroup = u"Effect_Integration"_s;

struct Panel {
    Panel()
    {
        quillon::initResources();
        workspace.attach(widget);
        record.listen(&widget);
        widget.setChannelName(kGroup);
        widget.setStripEnabled(true);
        widget.resize(widget.minimumSize() * 2);
        widget.show();
        widget.loadSettings();
    }
    QWidget* child(const QString& name) const { return widget.findChild<QWidget*>(name); }
    QString stored(const char* key) const { return workspace.value(kGroup, QLatin1StringView(key)).toString(); }
    QStringList click(const char* panel, const QString& button)
    {
        record.take();
        QTest::mouseClick(child(QLatin1StringView(panel))->findChild<QWidget*>(u"PushButton"_s + button), Qt::LeftButton);
        return record.take();
    }
    QStringList key(const char* control, Qt::Key key)
    {
        record.take();
        QWidget* at = child(QLatin1StringView(control));
        QTest::keyClick(at->focusProxy() ? at->focusProxy() : at, key);
        return record.take();
    }

    bench::OpenWorkspace workspace;
    bench::Record record;
    R47_PrivateWidget3 widget{kGroup};
};

/// A processor with its levels of a fresh workspace.
struct Processor {
    const char* types;
    const char* dial;
    QString typeKey;
    QString levelKey;
    QString names;
    QString keys;
    QString levels;
    QString disabled;
};
const Processor kProcessors[]{
    {"widgetNoiseTypes", "dialNoiseReduction", u"NoiseReductionType"_s, u"NoiseReduction"_s, u"Bypass NC1 NC2 NC3"_s,
     u"NoiseReductionBypass NoiseReductionNC1 NoiseReductionNC2 NoiseReductionNC3"_s, u"1 15 30 45"_s, u"dialNoiseReduction"_s},
    {"widgetReverbTypes", "dialRoom", u"ReverbType"_s, u"Room"_s, u"Bypass STUDIO LIVE HALL"_s,
     u"ReverbBypass ReverbStudio ReverbLive ReverbHall"_s, u"1 1 1 1"_s, u"dialDryWet dialRoom dialDecay"_s},
};

} // namespace

class TestEffectPanel : public QObject
{
    Q_OBJECT
private slots:
    void everyValueGoesOutAndComesBack()
    {
        Panel panel;
        const QStringList fresh = panel.record.take();
        QCOMPARE(fresh, u"Input1Level=0 Input2Level=0 AuxLevel=0 BluetoothLevel=0 OtgLevel=0 NoiseReductionType=Bypass "
                        "NoiseReduction=1 DryWet=30 ReverbType=Bypass Room=1 Decay=0 MuteFX=0"_s.split(u' '));
        for (const QString& line : fresh) { // the device knows each of them
            QVERIFY(quillon::findParameter(quillon::Family::Effect, kGroup, line.section(u'=', 0, 0)));
        }
        panel.widget.loadSettings();
        QCOMPARE(panel.record.take(), fresh);
        for (const char* fader : {"Input1Level", "Input2Level", "AuxLevel", "BluetoothLevel", "OtgLevel"}) {
            const QString name = QString::fromLatin1(fader);
            auto* slider = panel.child(name)->findChild<QSlider*>();
            QCOMPARE(panel.key(fader, Qt::Key_Up), QStringList{name + u"=1"_s});
            slider->setValue(100);
            slider->setValue(-100);
            QCOMPARE(panel.record.take(), QStringList({name + u"=12"_s, name + u"=-90"_s}));
            QCOMPARE(panel.stored(fader), u"-90"_s);
        }
        QCOMPARE(panel.click("widgetMute", u"MUTE"_s), QStringList{u"MuteFX=1"_s});
        panel.click("widgetReverbTypes", u"HALL"_s);
        for (int decay = 1; decay <= 11; ++decay) {
            QCOMPARE(panel.key("dialDecay", Qt::Key_Up), decay <= 10 ? QStringList{u"Decay=%1"_s.arg(decay)} : QStringList());
        }
        QCOMPARE(panel.key("dialDryWet", Qt::Key_Down), QStringList{u"DryWet=29"_s});
        panel.widget.loadSettings();
        QCOMPARE(panel.record.take(), u"Input1Level=-90 Input2Level=-90 AuxLevel=-90 BluetoothLevel=-90 OtgLevel=-90 "
                                      "NoiseReductionType=Bypass NoiseReduction=1 DryWet=29 ReverbType=HALL Room=1 Decay=10 "
                                      "MuteFX=1"_s.split(u' '));
        panel.workspace.reopen(u"second"_s); // the next workspace takes nothing over
        panel.widget.loadSettings();
        QCOMPARE(panel.record.take(), fresh);
        panel.widget.setStripEnabled(false);
        QCOMPARE(panel.click("widgetMute", u"MUTE"_s), QStringList());
        QCOMPARE(panel.stored("MUTE"), u"true"_s);
    }

    void eachTypeKeepsItsLevel()
    {
        for (const Processor& row : kProcessors) {
            Panel panel;
            const auto dialEnabled = [&](const QString& name) { return panel.child(name)->isEnabled(); };
            const QStringList names = row.names.split(u' ');
            const QStringList keys = row.keys.split(u' ');
            const QStringList dials = row.disabled.split(u' ');
            QVERIFY(std::ranges::none_of(dials, dialEnabled));
            QList<int> levels;
            for (const QString& level : row.levels.split(u' ')) {
                levels += level.toInt();
            }
            int sent = levels[0];
            for (const int type : {1, 3, 2, 1, 0, 3}) {
                QStringList expected{row.typeKey + u'=' + names[type]};
                if (levels[type] != sent) { // one level in the device
                    expected += row.levelKey + u'=' + QString::number(levels[type]);
                }
                QCOMPARE(panel.click(row.types, names[type]), expected);
                QCOMPARE(panel.click(row.types, names[type]), QStringList());
                sent = levels[type];
                QCOMPARE(std::ranges::all_of(dials, dialEnabled), type != 0);
                if (type != 0) {
                    sent = levels[type] += 1;
                    QCOMPARE(panel.key(row.dial, Qt::Key_Up), QStringList{row.levelKey + u'=' + QString::number(sent)});
                }
                QCOMPARE(panel.stored(row.levelKey.toLatin1()).toInt(), sent);
                for (int i = 0; i < 4; ++i) {
                    QCOMPARE(panel.stored(keys[i].toLatin1()).toInt(), levels[i]);
                }
            }
        }
    }

    void controlsHaveNamesOfTheirOwn()
    {
        Panel panel;
        for (const QString& language : {u"English"_s, u"Chinese"_s}) {
            panel.widget.onAppSettingsChanged({}, u"Language"_s, language);
            QSet<QString> names;
            for (const QWidget* control : panel.widget.findChildren<QWidget*>()) {
                if ((control->focusPolicy() & Qt::TabFocus) && !control->inherits("QLineEdit")) {
                    const QString name =
                        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control))->text(QAccessible::Name);
                    QVERIFY2(!name.isEmpty() && !names.contains(name), qPrintable(name));
                    names += name;
                }
            }
            QCOMPARE(names.size(), 19); // with the close button
            QCOMPARE(panel.widget.findChild<QLineEdit*>(u"lineEdit"_s)->text(),
                     language == "English"_L1 ? u"Effects"_s : u"效果器"_s);
        }
    }

    void reportsAreSilent()
    {
        Panel panel;
        panel.record.take();
        panel.widget.setNoiseReductionType(u"NC2"_s);
        panel.widget.setReverbType(u"LIVE"_s);
        panel.widget.setDryWet(55.0F);
        panel.widget.setFxInMeter(-200);
        panel.widget.setFxOutMeter(1);
        QCOMPARE(panel.record.take(), QStringList());
        QCOMPARE(panel.stored("NoiseReductionType") + panel.stored("ReverbType") + panel.stored("DryWet"), u"NC2LIVE55"_s);
        QVERIFY(panel.child(u"dialNoiseReduction"_s)->isEnabled() && panel.child(u"dialRoom"_s)->isEnabled());
        // The level that came with the type is the console's: the device hears of it with the next change.
        QCOMPARE(panel.click("widgetMute", u"MUTE"_s), QStringList({u"NoiseReduction=30"_s, u"MuteFX=1"_s}));
        for (const quillon::InboundRow& row : quillon::inboundRows()) {
            if (row.object == u"Effect") {
                QVERIFY(panel.widget.deviceSetter(QString::fromStdU16String(std::u16string(row.attribute))));
            }
        }
        QVERIFY(!panel.widget.deviceSetter(u"ChannelName"));
        panel.workspace.file().setValue(kGroup + u"/ReverbType"_s, u"CAVE"_s);
        panel.workspace.file().setValue(kGroup + u"/NoiseReductionNC2"_s, u"loud"_s);
        panel.workspace.file().setValue(kGroup + u"/AuxLevel"_s, 4000);
        panel.widget.loadSettings();
        const QStringList sent = panel.record.take();
        QVERIFY(sent.contains(u"ReverbType=Bypass"_s) && sent.contains(u"NoiseReduction=1"_s) && sent.contains(u"AuxLevel=12"_s));
    }

    void menus()
    {
        using quillon::WorkModeMenu;
        const QStringList presets{u"Load preset1"_s, u"Load preset2"_s, u"Save preset1"_s, u"Save preset2"_s};
        const QStringList scenes{u"Chat"_s, u"Vocal"_s};
        R47_PrivateWidget2 mobile(u"ConfigMenuMble"_s);
        R47_PrivateWidget2 live(u"ConfigMenuLive"_s);
        R47_PrivateWidget5 pro(u"ConfigMenuProf"_s);
        for (const auto& [menu, keys] :
             {std::pair<WorkModeMenu&, QStringList>(mobile, scenes + presets), {live, scenes + presets}, {pro, presets}}) {
            QStringList told;
            connect(&menu, &WorkModeMenu::attributeChanged, this,
                    [&](const QString& object, const QString& key, const QString& value) {
                        QVERIFY(quillon::findParameter(quillon::Family::Others, object, key));
                        told += key + u'=' + value;
                    });
            menu.show();
            for (const QString& language : {u"English"_s, u"Chinese"_s}) {
                menu.onAppSettingsChanged({}, u"Language"_s, language);
                QStringList expected;
                for (const QString& key : keys) {
                    auto* button = menu.findChild<QPushButton*>(u"PushButton"_s + key);
                    QCOMPARE(button->text() == key, language == "English"_L1);
                    QVERIFY(button->accessibleName().endsWith(u' ' + button->text()));
                    QTest::mouseClick(button, Qt::LeftButton);
                    QTest::keyClick(button, Qt::Key_Space);
                    QVERIFY(!button->isChecked());
                    expected += {key + u"=1"_s, key + u"=1"_s};
                }
                QCOMPARE(std::exchange(told, {}), expected);
            }
            for (const QSize size : {QSize(720, 33), QSize(700, 90), QSize(1100, 33)}) { // nothing reaches out
                menu.resize(size);
                for (const QWidget* child : menu.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                    QVERIFY(menu.rect().contains(child->geometry()));
                }
            }
        }
    }
};

QTEST_MAIN(TestEffectPanel)
#include "tst_effectpanel.moc"
