#include "InputBench.h"

#include <QRandomGenerator>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

/// The rules in the words of the user: what is soloed, what the user muted, what is on the screen.
struct Model {
    struct Strip {
        bool solo = false;
        bool userMute = false;
        bool shown = true;
    };
    std::array<Strip, 5> strips;

    int count() const
    {
        return static_cast<int>(std::ranges::count_if(strips, [](const Strip& s) { return s.solo && s.shown; }));
    }
    bool muted(std::size_t i) const { return count() ? !strips[i].solo : strips[i].userMute; }
    void clickMute(std::size_t i)
    {
        Strip& strip = strips[i];
        strip.userMute = !muted(i);
        if (count()) {
            strip.solo = !strip.solo; // joins or leaves
        }
    }
};

/// A strip with buttons for both channels, whose signals come back at once.
class PairStrip : public Solo
{
public:
    explicit PairStrip(int* count)
    {
        setSoloCount(count);
        connect(this, &Solo::soloStateChanged, this, [this, count](const QString&, bool on) {
            const bool was = *count != 0;
            *count += on ? 1 : -1;
            if (was != (*count != 0)) {
                soloCountChanged();
            }
        });
    }
    void loadSolo(bool on) override { solo[0] = on; }
    void loadSoloLeft(bool on) override { solo[1] = on; }
    void loadSoloRight(bool on) override { solo[2] = on; }
    void loadMute(bool on) override { mute[0] = on; }
    void loadMuteLeft(bool on) override { mute[1] = on; }
    void loadMuteRight(bool on) override { mute[2] = on; }
    void setSolo(bool on) override { solo[0] = on, doSolo(); }
    void setSoloLeft(bool on) override { solo[1] = on, doSoloLeft(); }
    void setSoloRight(bool on) override { solo[2] = on, doSoloRight(); }
    void setMute(bool on) override { mute[0] = on, doMute(); }
    void setMuteLeft(bool on) override { mute[1] = on, doMuteLeft(); }
    void setMuteRight(bool on) override { mute[2] = on, doMuteRight(); }
    bool getSolo() const override { return solo[0]; }
    bool getSoloLeft() const override { return solo[1]; }
    bool getSoloRight() const override { return solo[2]; }
    bool getMute() const override { return mute[0]; }
    bool getMuteLeft() const override { return mute[1]; }
    bool getMuteRight() const override { return mute[2]; }
    using Solo::initSoloState;

    bool solo[3]{};
    bool mute[3]{};
};

} // namespace

class tst_solo : public QObject
{
    Q_OBJECT
private slots:
    void randomClicks()
    {
        QRandomGenerator random(11);
        bench::LiveInputs page;
        page.load();
        Model model;
        QMap<QString, QString> device; // the mute that each strip has on the device
        for (InputBase* strip : page.list) {
            connect(strip, &InputBase::attributeChanged, this,
                    [&](const QString& name, const QString& attribute, const QString& value) {
                        if (attribute == "MUTE"_L1) {
                            device[name] = value;
                        }
                    });
        }
        page.load();
        for (int step = 0; step < 1600; ++step) {
            const auto i = random.bounded(5);
            Model::Strip& strip = model.strips[static_cast<std::size_t>(i)];
            switch (random.bounded(5)) {
            case 0:
                strip.shown ? page.hide(i) : page.add(page.list[i]->channelName());
                strip.shown = !strip.shown;
                break;
            case 1:
                if (random.bounded(8) == 0) {
                    page.load(); // the workspace holds all of it
                    break;
                }
                [[fallthrough]];
            case 2:
                if (strip.shown) {
                    bench::button(*page.list[i], "SOLO")->click();
                    strip.solo = !strip.solo;
                }
                break;
            default:
                if (strip.shown) {
                    bench::button(*page.list[i], "MUTE")->click();
                    model.clickMute(static_cast<std::size_t>(i));
                }
                break;
            }
            QCOMPARE(page.field.soloCount(), model.count());
            QCOMPARE(page.workspace.value(u"FieldInput"_s, u"SoloState"_s).toInt(), model.count());
            for (qsizetype j = 0; j < 5; ++j) {
                const auto k = static_cast<std::size_t>(j);
                const bool muted = model.muted(k);
                QCOMPARE(page.list[j]->getSolo(), model.strips[k].solo);
                QCOMPARE(page.list[j]->getMute(), muted);
                QCOMPARE(device[page.list[j]->objectName()], muted || !model.strips[k].shown ? u"1"_s : u"0"_s);
            }
        }
    }

    void countFollowsTheLink()
    {
        int count = 0;
        PairStrip strip(&count);
        strip.initSoloState(false, false, false, false, false, true, false);
        strip.setSoloLeft(true);
        QCOMPARE(count, 1);
        QVERIFY(!strip.mute[1] && strip.mute[2]);
        strip.setLinked(true); // no linked solo: the pair's solos leave
        QCOMPARE(count, 0);
        QVERIFY(strip.mute[1] && !strip.mute[2]); // the user's own mutes are back
        strip.setSolo(true);
        strip.solo[1] = false;
        strip.setLinked(false);
        QCOMPARE(count, 0);
        QVERIFY(!strip.isLinked());
    }

    void withoutAField()
    {
        auto strip = bench::makeInput(u"S1M3", u"Input_AUX"_s, u"AUX"_s);
        bench::button(*strip, "MUTE")->click();
        bench::button(*strip, "SOLO")->click();
        QVERIFY(strip->getMute() && strip->getSolo());
    }
};

QTEST_MAIN(tst_solo)
#include "tst_solo.moc"
