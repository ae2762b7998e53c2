#include "StripBench.h"
#include "resources/Resources.h"
#include "strips/effect/EffectS1M1.h"
#include "strips/effect/EffectS1M2.h"
#include "strips/effect/EffectS1M3.h"
#include "strips/effect/EffectS1M4.h"
#include "strips/field/FieldEffectS1M1.h"
#include "strips/field/FieldOriginS1M1.h"
#include "strips/field/FieldOriginS1M2.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{

template<class Strip> struct OneEffect {
    OneEffect()
    {
        quillon::initResources();
        workspace.attach(strip);
        record.listen(&strip);
        strip.setChannelName(u"FX"_s);
        strip.setStripEnabled(true);
        strip.resize(strip.minimumSize() * 2);
        strip.show();
        strip.loadSettings();
    }
    QWidget* child(const char* name) const { return strip.template findChild<QWidget*>(QLatin1StringView(name)); }
    QString stored(const char* key) const { return workspace.value(u"Effect"_s, QLatin1StringView(key)).toString(); }
    QString lit() const
    {
        QStringList names;
        for (const QPushButton* button : strip.template findChildren<QPushButton*>(QRegularExpression(u"^pushButton(?!Close)"_s))) {
            if (button->isChecked()) {
                names += button->objectName();
            }
        }
        return names.join(u' ');
    }
    QStringList click(const char* button)
    {
        record.take();
        QTest::mouseClick(child(button), Qt::LeftButton);
        return record.take();
    }
    QStringList key(const char* dial, Qt::Key key)
    {
        record.take();
        QTest::keyClick(child(dial), key);
        return record.take();
    }

    bench::OpenWorkspace workspace;
    bench::Record record;
    Strip strip{u"Effect"_s};
};

} // namespace

class tst_effects : public QObject
{
    Q_OBJECT
private slots:
    void noise()
    {
        OneEffect<EffectS1M3> one;
        const QStringList fresh{u"NoiseReductionType=Bypass"_s, u"NoiseReduction=1"_s, u"NoiseReduction=1"_s};
        QCOMPARE(one.record.take(), fresh);
        QVERIFY(!one.child("dialNoiseReduction")->isEnabled());
        QCOMPARE(one.lit(), u"pushButtonBypassNoise"_s);
        QCOMPARE(one.click("pushButtonNC1"),
                 QStringList({u"NoiseReductionType=NC1"_s, u"NoiseReduction=15"_s, u"NoiseReduction=15"_s}));
        QCOMPARE(one.click("pushButtonNC1"), QStringList());
        QCOMPARE(one.lit(), u"pushButtonNC1"_s);
        QCOMPARE(one.key("dialNoiseReduction", Qt::Key_Up), QStringList{u"NoiseReduction=16"_s});
        one.click("pushButtonBypassNoise");
        QCOMPARE(one.stored("NoiseReductionBypass"), u"16"_s); // the setting that it covers
        QCOMPARE(one.click("pushButtonBypassNoise"), QStringList({u"NoiseReductionType=NC1"_s, u"NoiseReduction=16"_s}));
        QCOMPARE(one.stored("NoiseReductionNC2"), u"30"_s);
        one.strip.setStripEnabled(false);
        QCOMPARE(one.click("pushButtonNC2"), QStringList());
        QCOMPARE(one.stored("NoiseReductionType"), u"NC2"_s);
        one.strip.setStripEnabled(true);
        QCOMPARE(one.record.take(), QStringList({u"NoiseReductionType=NC2"_s, u"NoiseReduction=30"_s, u"NoiseReduction=30"_s}));
        one.strip.setSaveEvents(true);
        one.strip.loadSettings();
        QCOMPARE(one.record.lines.count(u"Save_NoiseReduction=30"_s), 1);
        QCOMPARE(one.record.lines.filter(u"Save_NoiseReduction="_s).size(), 1);
    }

    void reverb()
    {
        OneEffect<EffectS1M4> one;
        const QStringList fresh{u"DryWet=30"_s, u"ReverbType=Bypass"_s, u"Room=1"_s, u"Decay=0"_s};
        QCOMPARE(one.record.take(), fresh);
        one.strip.loadSettings();
        QCOMPARE(one.record.take(), fresh);
        QVERIFY(!one.child("dialDryWet")->isEnabled() && !one.child("dialRoom")->isEnabled() &&
                !one.child("dialDecay")->isEnabled());
        QCOMPARE(one.click("pushButtonReverbLive"), QStringList{u"ReverbType=LIVE"_s});
        QCOMPARE(one.key("dialRoom", Qt::Key_Up), QStringList{u"Room=2"_s});
        QCOMPARE(one.stored("ReverbLive") + one.stored("ReverbHall"), u"21"_s);
        QCOMPARE(one.click("pushButtonReverbHall"), QStringList({u"ReverbType=HALL"_s, u"Room=1"_s})); // one room in the device
        QCOMPARE(one.key("dialDecay", Qt::Key_Up), QStringList{u"Decay=1"_s});
        QCOMPARE(one.key("dialDryWet", Qt::Key_Down), QStringList{u"DryWet=29"_s});
        QCOMPARE(one.click("pushButtonBypassReverb"), QStringList{u"ReverbType=Bypass"_s});
        QCOMPARE(one.click("pushButtonBypassReverb"), QStringList{u"ReverbType=HALL"_s});
    }

private:
    // The effects of a channel: each keeps its sets of buttons exclusive over one panel.
    template<class Strip>
    void channelEffect(const QStringList& fresh, const char* type, const QString& told, const char* key, const QString& prefix)
    {
        OneEffect<Strip> one;
        QCOMPARE(one.record.take(), fresh);
        one.strip.loadSettings();
        QCOMPARE(one.record.take(), fresh);
        QCOMPARE(one.click(type), QStringList{told});
        QCOMPARE(one.click(type), QStringList()); // one is always lit
        QCOMPARE(one.click("PushButtonIN12"), QStringList{prefix + u"Channel=IN12"_s});
        QCOMPARE(one.click("PushButtonMUTE"), QStringList{u"MUTE=1"_s});
        QCOMPARE(one.key("widgetDial", Qt::Key_Down), QStringList{u"GAIN=-1"_s});
        QCOMPARE(one.stored(key), told.section(u'=', 1));
        one.workspace.file().setValue(u"Effect/"_s + QLatin1StringView(key), u"CAVE"_s);
        one.record.take();
        one.strip.loadSettings();
        QVERIFY(one.record.lines.contains(told)); // what is lit stays lit
        one.strip.setStripEnabled(false);
        one.record.take();
        QCOMPARE(one.click("PushButtonOFF"), QStringList());
        QCOMPARE(one.stored(key) + one.stored("Enable"), u"OFFfalse"_s);
    }

private slots:
    void channelEffects()
    {
        const QStringList level{u"GAIN=0"_s, u"MUTE=0"_s};
        channelEffect<EffectS1M1>(QStringList{u"NCChannel=IN1"_s, u"NCType=OFF"_s} + level, "PushButtonNC2", u"NCType=NC2"_s,
                                  "NCType", u"NC"_s);
        channelEffect<EffectS1M2>(
            QStringList{u"NC=0"_s, u"ReverbChannel=IN1"_s, u"ReverbType=OFF"_s, u"DryWet=30"_s, u"Decay=0"_s} + level,
            "PushButtonSTU", u"ReverbType=STUDIO"_s, "ReverbType", u"Reverb"_s);
        OneEffect<EffectS1M2> one;
        one.record.take();
        const int large = one.strip.minimumWidth();
        one.strip.setNavigationDisplayMode(u"Small"_s);
        one.strip.setNavigationDisplayMode(u"huge"_s);
        QCOMPARE(one.record.take(), QStringList{u"Resize=1"_s});
        QVERIFY(one.strip.minimumWidth() < large && one.child("dialDecay")->isHidden());
        QCOMPARE(one.stored("NavigationDisplayMode"), u"Small"_s);
    }

    void deviceAndGarbage()
    {
        OneEffect<EffectS1M4> one;
        one.record.take();
        one.strip.setReverbType(u"STUDIO"_s);
        one.strip.setDryWet(55.0F);
        one.strip.updateAttribute();
        QCOMPARE(one.record.take(), QStringList());
        QCOMPARE(one.lit() + one.stored("ReverbType") + one.stored("DryWet"), u"pushButtonReverbStudioSTUDIO55"_s);
        QVERIFY(one.child("dialRoom")->isEnabled());
        QVERIFY(!one.strip.deviceSetter(u"Room") && !one.strip.deviceSetter(u"ChannelName"));
        one.workspace.file().setValue(u"Effect/ReverbType"_s, u"CAVE"_s);
        one.workspace.file().setValue(u"Effect/DryWet"_s, u"soggy"_s);
        one.strip.loadSettings();
        QCOMPARE(one.record.take(), QStringList({u"DryWet=0"_s, u"ReverbType=CAVE"_s, u"Room=0"_s, u"Decay=0"_s}));
        QCOMPARE(one.lit(), u"pushButtonReverbStudio"_s); // what was shown before
        one.strip.setReverbType(u"Bypass"_s);
        one.strip.setReverbType(u"CAVE"_s);
        QCOMPARE(one.lit(), QString());  // which is no bypass
        one.key("dialRoom", Qt::Key_Up); // no mode, no level to keep
        QVERIFY(!one.workspace.file().allKeys().contains(u"Effect/"_s));
    }

    void fields()
    {
        OneEffect<EffectS1M3> noise;
        OneEffect<EffectS1M4> reverb;
        noise.strip.setChannelName(u"NC"_s);
        bench::OpenWorkspace workspace;
        FieldEffectS1M1 effects(u"FieldEffect"_s);
        FieldOriginS1M1 bottom(u"FieldBottom"_s, {"Tools", "工具"});
        workspace.attach(effects);
        effects.setWidgetList({&noise.strip, &reverb.strip});
        bottom.setWidgetList({});
        effects.loadSettings();
        QCOMPARE(effects.visibleList(), QStringList({u"NC"_s, u"FX"_s}));
        emit noise.strip.attributeChanged(u"NC"_s, u"Hide"_s, u"1"_s);
        QCOMPARE(workspace.value(u"FieldEffect"_s, u"Visible"_s).toStringList(), QStringList{u"FX"_s});
        QVERIFY(!noise.strip.isStripEnabled());
        for (auto [field, title] : {std::pair<quillon::PlainField*, QString>{&effects, u"效果"_s}, {&bottom, u"工具"_s}}) {
            field->onAppSettingsChanged({}, u"Language"_s, u"Chinese"_s);
            QCOMPARE(field->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly)->text(), title);
        }
        FieldOriginS1M2 named(u"FieldNamed"_s, {"Tools", "工具"});
        workspace.attach(named);
        const auto titleOf = [&] {
            named.loadSettings();
            return named.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly)->text();
        };
        QCOMPARE(titleOf(), u"Tools"_s);
        workspace.file().setValue(u"FieldNamed/FieldTitle"_s, u"Desk"_s);
        QCOMPARE(titleOf(), u"Desk"_s);
        workspace.reopen(u"second"_s);
        QCOMPARE(titleOf(), u"Tools"_s);
        noise.strip.setParent(nullptr);
        reverb.strip.setParent(nullptr);
    }

    void titles()
    {
        OneEffect<EffectS1M3> one;
        QCOMPARE(one.strip.findChild<QLineEdit*>(u"lineEditNoiseReduction"_s)->text(), u"Noise Reduction"_s);
        one.strip.onAppSettingsChanged({}, u"Language"_s, u"Chinese"_s);
        QCOMPARE(one.strip.findChild<QLineEdit*>()->text(), u"降噪"_s);
        QCOMPARE(one.strip.findChild<QLabel*>(u"labelNoiseClass"_s)->text(), u"降噪量"_s);
        QCOMPARE(one.stored("ChannelName"), u"FX"_s);
    }
};

QTEST_MAIN(tst_effects)
#include "tst_effects.moc"
