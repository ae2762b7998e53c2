#include "StripBench.h"
#include "controls/ToolButtonS1M1.h"
#include "resources/Resources.h"
#include "strips/input/InputS2M1.h"
#include "strips/input/InputS2M2.h"
#include "strips/origin/OriginS1M1.h"
#include "strips/origin/OriginS1M10.h"
#include "strips/origin/OriginS1M11.h"
#include "strips/origin/OriginS1M12.h"
#include "strips/origin/OriginS1M13.h"
#include "strips/origin/OriginS1M2.h"
#include "strips/origin/OriginS1M3.h"
#include "strips/origin/OriginS1M4.h"
#include "strips/origin/OriginS1M6.h"
#include "strips/origin/OriginS1M7.h"
#include "strips/origin/OriginS1M8.h"
#include "strips/origin/OriginS1M9.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace
{

/// A member, and what it tells: of a fresh workspace, of a mute, and while hidden.
struct Member {
    const char* name;
    std::unique_ptr<OriginBase> (*make)();
    QStringList fresh;
    QStringList muted;
    QStringList hidden;
};

template<class Strip> std::unique_ptr<OriginBase> make()
{
    return std::make_unique<Strip>(u"Strip"_s);
}

QStringList matrix(const QString& straight)
{
    QStringList lines;
    for (const char* side : {"GainMLCL", "GainMLCR", "GainMRCL", "GainMRCR"}) {
        for (const char* mix : {"", "MixA_", "MixB_", "MixC_"}) {
            const bool isStraight = side[5] == side[7];
            if (isStraight || straight == u"33554432") {
                lines += QLatin1StringView(mix) + QLatin1StringView(side) + u'=' + (isStraight ? straight : u"0"_s);
            }
        }
    }
    return lines;
}

/// What the effect panel tells of a type, and of the routing that follows.
QStringList effects(const QStringList& types, const QString& microphones, const QString& effect)
{
    QStringList lines = types;
    for (const char* mix : {"MixA_", "MixB_", "MixC_"}) {
        for (const char* side : {"GainMLCL", "GainMLCR", "GainMRCL", "GainMRCR"}) {
            lines += QLatin1StringView(mix) + QLatin1StringView(side) + u'=' + microphones;
        }
    }
    for (const char* mix : {"MixA_", "MixB_", "MixC_"}) {
        lines += {QLatin1StringView(mix) + u"GainMLCL="_s + effect, QLatin1StringView(mix) + u"GainMRCR="_s + effect};
    }
    return lines;
}

const QStringList kMute{u"MUTE=1"_s};
const QStringList kLowest{u"GAIN=-90"_s, u"GAINLeft=-90"_s, u"GAINRight=-90"_s, u"MUTE=1"_s};

std::vector<Member> members()
{
    const QStringList plain{u"GAIN=0"_s, u"MUTE=0"_s};
    const QStringList phantom = QStringList{u"48V=0"_s} + plain;
    const QStringList microphone = QStringList{u"MIC=Mic1"_s} + phantom;
    const QStringList eq{u"EQ=Off"_s};
    return {
        {"S1M1", make<OriginS1M1>, microphone, kMute, kMute},
        {"S1M2", make<OriginS1M2>, phantom, kMute, kMute},
        {"S1M3", make<OriginS1M3>, {u"DuckingSwitch=0"_s}, {}, {}},
        {"S1M4",
         make<OriginS1M4>,
         effects({u"DryWet=30"_s, u"NCType=OFF"_s, u"NoiseReductionType=Bypass"_s, u"ReverbType=Bypass"_s}, u"16777216"_s, u"0"_s),
         {},
         {}},
        {"S1M6", make<OriginS1M6>, plain, kMute, kMute},
        {"S1M7", make<OriginS1M7>, {u"GAIN=0"_s, u"GAINLeft=0"_s, u"GAINRight=0"_s, u"MUTE=0"_s}, kLowest, kLowest},
        {"S1M8", make<OriginS1M8>, matrix(u"33554432"_s), matrix(u"0"_s), matrix(u"0"_s)},
        {"S1M9", make<OriginS1M9>, plain, kMute, kMute},
        {"S1M10", make<OriginS1M10>, eq + microphone, kMute, kMute},
        {"S1M11", make<OriginS1M11>, eq + phantom, kMute, kMute},
        {"S1M12", make<OriginS1M12>, plain, kMute, kMute},
        {"S2M1", make<InputS2M1>, microphone, kMute, kMute},
        {"S2M2", make<InputS2M2>, plain, kMute, kMute},
        {"S1M13", make<OriginS1M13>, {u"AudioSource=Mix B"_s, u"GAINLeft=0"_s, u"GAINRight=0"_s, u"MUTE=0"_s}, kMute, kMute}};
}

struct OneOrigin {
    explicit OneOrigin(const Member& member) : strip(member.make())
    {
        quillon::initResources();
        workspace.attach(*strip);
        record.listen(strip.get());
        if (auto* output = dynamic_cast<OriginS1M13*>(strip.get())) {
            output->setAudioSourceDefault(u"Mix B"_s);
        }
        strip->setChannelName(u"IN 1"_s);
        strip->setUnmuteOnGain(true);
        strip->setStripEnabled(true);
        strip->resize(strip->minimumSize() * 3);
        strip->show();
        strip->loadSettings();
    }
    QPushButton* button(const char* name) const
    {
        const QRegularExpression named(u"^(PushB|b)utton%1$"_s.arg(QLatin1StringView(name)),
                                       QRegularExpression::CaseInsensitiveOption);
        return strip->findChildren<QPushButton*>(named).value(0);
    }
    QString stored(const char* key) const { return workspace.value(u"Strip"_s, QLatin1StringView(key)).toString(); }

    bench::OpenWorkspace workspace;
    bench::Record record;
    std::unique_ptr<OriginBase> strip;
};

} // namespace

class tst_origins : public QObject
{
    Q_OBJECT
private slots:
    void contract()
    {
        for (const Member& member : members()) {
            OneOrigin one(member);
            const auto tells = [&](const QStringList& expected) {
                const QStringList told = one.record.take();
                if (told != expected) {
                    qWarning() << member.name << told << expected;
                }
                return told == expected;
            };
            QVERIFY(tells(member.fresh));
            one.strip->loadSettings();
            QStringList again = member.fresh;
            again.removeAll(u"EQ=Off"_s);
            QVERIFY(tells(again));
            if (one.button("MUTE")) {
                QTest::mouseClick(one.button("MUTE"), Qt::LeftButton);
                QVERIFY(tells(member.muted));
                QCOMPARE(one.stored("MUTE"), u"true"_s);
                QTest::mouseClick(one.button("MUTE"), Qt::LeftButton);
                one.record.take();
            }
            one.strip->setStripEnabled(false);
            one.strip->updateAttribute();
            QVERIFY(tells(member.hidden));
            one.strip->setStripEnabled(true);
            one.record.take();
            one.strip->setGAIN(-7);
            one.strip->setMUTE(true);
            one.strip->setMIC(u"MicHP"_s);
            one.strip->set48V(true);
            QVERIFY(tells({}));
            if (member.muted.size() < 2) { // the others tell of a mute by their gains
                one.strip->updateAttribute();
                QVERIFY(tells({}));
            }
            QCOMPARE(one.stored("MIC"), one.button("Mic1") ? u"MicHP"_s : QString());
            QCOMPARE(one.stored("48V"), one.button("48V") ? u"true"_s : QString());
            for (const char* key : {"GAIN", "MUTE", "MIC", "48V", "DuckingSwitch", "NCType", "DryWet", "Nonsense"}) {
                one.workspace.file().setValue(u"Strip/"_s + QLatin1StringView(key), u"\u0001garbage"_s);
            }
            one.strip->loadSettings();
            QVERIFY(!one.record.take().join(u' ').contains(u"nan"_s));
        }
    }

    void gainReleasesTheMute()
    {
        for (const Member& member : members()) {
            OneOrigin one(member);
            if (!one.button("MUTE")) {
                continue;
            }
            QTest::mouseClick(one.button("MUTE"), Qt::LeftButton);
            auto* gain = one.strip->findChildren<QWidget*>(QRegularExpression(u"^(widget(VSlider|Dial)|slider)$"_s)).first();
            QWidget* hand = gain->findChild<QSlider*>() ? gain->findChild<QSlider*>() : gain;
            const QString before = one.stored("GAIN");
            QTest::keyClick(hand, member.fresh.contains(u"48V=0"_s) ? Qt::Key_Up : Qt::Key_Down);
            QVERIFY2(one.stored("GAIN") != before, member.name);
            QCOMPARE(one.stored("MUTE"), u"false"_s);
        }
    }

    void menu()
    {
        OneOrigin one({"S1M3", make<OriginS1M3>, {}, {}, {}});
        one.record.take();
        for (const char* button : {"DuckingSwitch", "Load", "User2", "Load", "Save", "Professional", "RouterManuals"}) {
            QTest::keyClick(one.button(button), Qt::Key_Space);
        }
        QTest::keyClick(one.button("RouterManuals"), Qt::Key_Space);
        QCOMPARE(one.record.take(),
                 QStringList({u"DuckingSwitch=1"_s, u"Load preset1=1"_s, u"Load preset2=1"_s, u"Save preset2=1"_s,
                              u"Professional=1"_s, u"RouterManuals=ON"_s, u"RouterManuals=OFF"_s}));
        QCOMPARE(one.stored("DuckingSwitch"), u"true"_s);
        dynamic_cast<OriginS1M3&>(*one.strip).setDuckingSwitch(false);
        QCOMPARE(one.record.take(), QStringList());
        QVERIFY(!one.button("DuckingSwitch")->isChecked());
    }

    void effectPanel()
    {
        OneOrigin one({"S1M4", make<OriginS1M4>, {}, {}, {}});
        QStringList speakers;
        connect(one.strip.get(), &OriginBase::attributeChanged, one.strip.get(),
                [&](const QString& speaker) { speakers += speaker; });
        const auto choose = [&](const char* panel, const char* button) {
            one.record.take();
            auto* at = one.strip->findChild<QWidget*>(QLatin1StringView(panel));
            QTest::mouseClick(at->findChild<QPushButton*>(u"PushButton"_s + QLatin1StringView(button)), Qt::LeftButton);
            return one.record.take();
        };
        const auto on = [](const QStringList& types) { return effects(types, u"0"_s, u"33554432"_s); };
        QCOMPARE(choose("NCType", "NC2"), on({u"NCType=NC2"_s, u"NoiseReductionType=NC2"_s}));
        QCOMPARE(speakers.mid(0, 3) + speakers.last(2),
                 QStringList({u"Effect_NC"_s, u"Effect_NC"_s, u"Mixer_IN12"_s, u"Mixer_FX"_s, u"Mixer_FX"_s}));
        QCOMPARE(choose("ReverbType", "HALL"), on({u"ReverbType=HALL"_s}));
        QCOMPARE(choose("NCType", "OFF"), on({u"NCType=OFF"_s, u"NoiseReductionType=Bypass"_s}));
        QCOMPARE(one.stored("NCType") + one.stored("ReverbType"), u"OFFHALL"_s);
        QCOMPARE(choose("ReverbType", "OFF"), effects({u"ReverbType=Bypass"_s}, u"16777216"_s, u"0"_s));
        QTest::keyClick(one.strip->findChild<QWidget*>(u"DialReverb"_s), Qt::Key_Up);
        QCOMPARE(one.record.take(), QStringList{u"DryWet=31"_s});
        QCOMPARE(speakers.last(), u"Effect_Reverb"_s);
    }

    void fixedRouting()
    {
        OneOrigin one({"S1M13", make<OriginS1M13>, {}, {}, {}});
        auto& output = dynamic_cast<OriginS1M13&>(*one.strip);
        output.setAudioSourceVisible(false).setMuteGain(-90);
        one.record.take();
        output.loadSettings();
        QCOMPARE(one.record.take(), QStringList({u"GAINLeft=0"_s, u"GAINRight=0"_s, u"MUTE=0"_s}));
        QVERIFY(output.findChild<ToolButtonS1M1*>()->isHidden());
        output.setStripEnabled(false);
        QCOMPARE(one.record.take(), QStringList({u"GAINLeft=-90"_s, u"GAINRight=-90"_s, u"MUTE=1"_s}));
    }

    void layout()
    {
        for (const Member& member : members()) {
            OneOrigin one(member);
            QVERIFY2(bench::misplaced(*one.strip).isEmpty(), member.name);
        }
    }
};

QTEST_MAIN(tst_origins)
#include "tst_origins.moc"
