#include "InputBench.h"

using namespace Qt::StringLiterals;

namespace
{

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
