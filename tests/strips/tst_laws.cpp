// Fields in the hands of a random user and a random device, against plain models: what the device was told last and what the file
// holds are functions of what was done, and nothing is told twice.

#include "InputBench.h"
#include "MixerBench.h"
#include "RouteBench.h"
#include "StripModels.h"

#include "controls/DialS1M3.h"
#include "controls/DialS1M5.h"
#include "controls/DialS1M6.h"
#include "controls/VSliderS1M2.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;
using bench::flag;
using bench::kSides;
using bench::number;
using bench::Pair;
using bench::Values;
using bench::word;

namespace
{

/// What was told last, by strips and by the device itself.
class Told
{
public:
    template<class Strip> void listen(Strip* strip)
    {
        QObject::connect(strip, &Strip::attributeChanged, strip,
                         [this](const QString& object, const QString& attribute, const QString& value) {
                             static const QRegularExpression kDevice(u"^(MIC|48V|GAIN|MUTE|ANTI|AudioSource|Mix._Gain)"_s);
                             if (kDevice.match(attribute).hasMatch()) {
                                 take(object + u'/' + attribute, value);
                             }
                         });
    }
    void begin(bool load)
    {
        mLoad = load;
        if (load) {
            mLast.clear(); // nobody knows what the device has
        }
        mStep.clear();
        mExcess.clear();
    }
    void report(const QString& key, const QString& value) { mLast[key] = value; }
    void forget(const QString& key) { mLast.remove(key); }
    /// Empty where all is as it must be. A load tells all of it, once.
    QString fault(const Values& wanted) const
    {
        QString text = mExcess.isEmpty() ? QString() : u"told without need: "_s + mExcess.join(u' ');
        for (const auto& [key, value] : wanted.asKeyValueRange()) {
            if (mLast.value(key) != value) {
                text += u" %1 is %2 at the device, not %3"_s.arg(key, mLast.value(key), value);
            }
        }
        for (const QString& key : mStep) {
            text += wanted.contains(key) ? QString() : u" %1 is %2, which nobody wants"_s.arg(key, mLast[key]);
        }
        if (mLoad && mStep.size() != wanted.size()) {
            text += u" the load told %1 values, not %2"_s.arg(mStep.size()).arg(wanted.size());
        }
        return text;
    }

private:
    void take(const QString& key, const QString& value)
    {
        if (mStep.contains(key) || mLast.value(key) == value) {
            mExcess += key + u'=' + value;
        }
        mStep += key;
        mLast[key] = value;
    }

    Values mLast;
    QSet<QString> mStep;
    QStringList mExcess;
    bool mLoad = false;
};

template<class... Control> bool turnOneOf(QWidget* widget, double value)
{
    const auto turn = [value](auto* control) {
        if (control) {
            control->setValue(static_cast<decltype(control->value())>(value));
            emit control->valueChanged(control->value());
        }
        return control != nullptr;
    };
    return (turn(qobject_cast<Control*>(widget)) || ...);
}

void turn(QWidget* widget, double value)
{
    if (!turnOneOf<DialS1M3, DialS1M5, DialS1M6, VSliderS1M1, VSliderS1M2>(widget, value)) {
        qFatal("nothing to turn");
    }
}

/// The hands, and what each page has of them.
struct Hands {
    explicit Hands(quint32 seed) : random(seed) {}
    int below(int end) { return random.bounded(end); }
    bool rarely() { return below(12) == 0; }
    /// Mostly the same workspace again: changing it waits for the disk.
    std::size_t otherWorld(std::size_t world) { return below(4) ? world : 1 - world; }
    template<class T> T pick(std::initializer_list<T> list) { return bench::pick(random, list); }

    QRandomGenerator random;
    Told told;
};

class Inputs : public Hands
{
public:
    Inputs(const QString& member, quint32 seed)
        : Hands(seed), mMembers(member == u"Live" ? QStringList{u"S1M1"_s, u"S1M2"_s, u"S1M3"_s, u"S1M3"_s, u"S1M3"_s}
                                                  : QStringList{u"S1M4"_s, u"S1M5"_s, u"S1M6"_s, u"S1M6"_s, u"S1M6"_s}),
          mPage(mMembers)
    {
        for (qsizetype i = 0; i < 5; ++i) {
            told.listen(mPage.list[i]);
            for (World& world : mWorlds) {
                world[std::size_t(i)].pair.gain = isMic(i) ? 26 : -6;
            }
        }
    }
    QSettings& file() { return mPage.workspace.file(); }
    QString load()
    {
        mWorld = otherWorld(mWorld);
        if (const QString name = QString::number(mWorld); !file().fileName().endsWith(name + u".ini"_s)) {
            mPage.workspace.reopen(name);
        }
        mPage.load();
        return u"load "_s + QString::number(mWorld);
    }
    QString act()
    {
        const auto i = qsizetype(below(5));
        Strip& strip = at(i);
        const int what = below(strip.shown ? 9 : 3);
        QString did = u"%1 on %2"_s.arg(what).arg(mPage.list[i]->channelName());
        switch (what) {
        case 0:
            strip.shown ? mPage.hide(i) : mPage.add(mPage.list[i]->channelName());
            strip.shown = !strip.shown;
            break;
        case 1:
            strip.pair.gain = gain(i);
            report(i, u"GAIN"_s, strip.pair.gain, number(strip.pair.gain));
            break;
        case 2:
            if (isMic(i)) {
                strip.phantom = below(2);
                report(i, u"48V"_s, strip.phantom, flag(strip.phantom));
            }
            break;
        case 3: {
            const bool on = below(2);
            if (on != strip.pair.muted(solos())) {
                strip.pair.pressMute(solos());
            }
            report(i, u"MUTE"_s, on, flag(on));
            break;
        }
        case 4:
            if (const double db = gain(i); db != strip.pair.gain) {
                strip.pair.gain = db;
                if (strip.pair.muted(solos())) { // a turn releases the mute
                    strip.pair.pressMute(solos());
                }
                turn(mPage.list[i]->findChild<QWidget*>(u"widgetDial"_s), db);
            }
            break;
        case 5:
            strip.microphone = hasSelector(i) ? pick({"Mic1", "Mic35", "MicHP"}) : strip.microphone;
            press(i, strip.microphone);
            break;
        case 6:
            strip.phantom ^= press(i, "48V");
            strip.pair.anti ^= press(i, "ANTI");
            break;
        case 7:
            strip.pair.solo = !strip.pair.solo;
            press(i, "SOLO");
            break;
        default:
            strip.pair.pressMute(solos());
            press(i, "MUTE");
            break;
        }
        return did;
    }
    Values device() const
    {
        Values wanted;
        for (qsizetype i = 0; i < 5; ++i) {
            const Strip& strip = at(i);
            const auto want = [&](const QString& attribute, const QString& value) { wanted[key(i, attribute)] = value; };
            want(u"GAIN"_s, number(strip.pair.gain));
            want(u"MUTE"_s, flag(!strip.shown || strip.pair.muted(solos())));
            if (hasPolarity()) {
                want(u"ANTI"_s, flag(strip.shown && strip.pair.anti));
            }
            if (strip.shown && isMic(i)) {
                want(u"48V"_s, flag(strip.phantom));
            }
            if (strip.shown && hasSelector(i)) {
                want(u"MIC"_s, QLatin1StringView(strip.microphone));
            }
        }
        return wanted;
    }
    Values stored() const
    {
        Values values{{u"FieldInput/SoloState"_s, QString::number(solos())}};
        QStringList visible;
        for (qsizetype i = 0; i < 5; ++i) {
            const Strip& strip = at(i);
            values[key(i, u"GAIN"_s)] = number(strip.pair.gain);
            values[key(i, u"SOLO"_s)] = word(strip.pair.solo);
            values[key(i, u"MUTE"_s)] = word(strip.pair.mute);
            values[key(i, u"ANTI"_s)] = hasPolarity() ? word(strip.pair.anti) : QString();
            values[key(i, u"48V"_s)] = isMic(i) ? word(strip.phantom) : QString();
            values[key(i, u"MIC"_s)] = hasSelector(i) ? QString::fromLatin1(strip.microphone) : QString();
            if (strip.shown) {
                visible += mPage.list[i]->channelName();
            }
        }
        values[u"FieldInput/Visible"_s] = visible.join(u',');
        return values;
    }

private:
    struct Strip {
        Pair pair;
        bool shown = true;
        bool phantom = false;
        const char* microphone = "Mic1";
    };
    using World = std::array<Strip, 5>; // one a workspace

    static bool isMic(qsizetype i) { return i < 2; }
    static bool hasSelector(qsizetype i) { return i == 0; }
    bool hasPolarity() const { return mMembers[0] == u"S1M4"; }
    Strip& at(qsizetype i) { return mWorlds[mWorld][std::size_t(i)]; }
    const Strip& at(qsizetype i) const { return mWorlds[mWorld][std::size_t(i)]; }
    QString key(qsizetype i, const QString& attribute) const { return mPage.list[i]->objectName() + u'/' + attribute; }
    int solos() const
    {
        return int(std::ranges::count_if(mWorlds[mWorld], [](const Strip& strip) { return strip.shown && strip.pair.solo; }));
    }
    double gain(qsizetype i) { return isMic(i) ? pick({0.0, 13.0, 26.0, 88.0}) : pick({-90.0, -52.0, -6.5, -6.0, 9.0}); }
    bool press(qsizetype i, const char* name)
    {
        QPushButton* button = bench::button(*mPage.list[i], name);
        if (button) {
            button->click();
        }
        return button != nullptr;
    }
    void report(qsizetype i, const QString& attribute, const QVariant& value, const QString& text)
    {
        told.report(key(i, attribute), text);
        mPage.list[i]->deviceSetter(attribute)(value);
    }

    QStringList mMembers;
    bench::LiveInputs mPage;
    std::array<World, 2> mWorlds;
    std::size_t mWorld = 0;
};

class Mixers : public Hands
{
public:
    Mixers(const QString& member, quint32 seed) : Hands(seed), mPage(member)
    {
        bench::MixerModel world;
        for (MixerBase* strip : mPage.list) {
            told.listen(strip);
            world.kinds.push_back({strip->objectName(), strip->channelName(), member});
        }
        world.mixes = {{u"MixA"_s, QList<Strip>(3)}, {u"MixB"_s, QList<Strip>(3)}};
        world.mixes[1].strips[2].shown = false;
        mWorlds.fill(world);
    }
    QSettings& file() { return mPage.workspace.file(); }
    QString load()
    {
        mWorld = otherWorld(mWorld);
        if (const QString name = QString::number(mWorld); !file().fileName().endsWith(name + u".ini"_s)) {
            mPage.workspace.reopen(name);
        }
        place(below(3), false); // the load behind it sends it
        mPage.load();
        return u"load "_s + QString::number(mWorld);
    }
    QString act()
    {
        bench::MixerModel& world = mWorlds[mWorld];
        const auto i = qsizetype(below(3));
        bench::MixerModel::Mix& mix = world.mixes[world.current];
        Strip& strip = mix.strips[i];
        const bool linkable = world.kinds[i].isLinkable();
        const int side = strip.link ? 0 : 1 + below(2);
        Pair& pair = strip.pairs[std::size_t(side)];
        const int what = below(strip.shown ? 8 : 2);
        QString did = u"%1 on strip %2, side %3 of %4"_s.arg(what).arg(i).arg(side).arg(mix.key);
        switch (what) {
        case 0:
            world.current = below(2);
            mPage.select(world.mixes[world.current].key);
            break;
        case 1:
            strip.shown ? bench::hide(mPage.list[i]) : bench::add(&mPage.field, mPage.list[i]->channelName());
            strip.shown = !strip.shown;
            break;
        case 2:
            if (linkable) {
                strip.link = !strip.link;
                mPage.child<QPushButton>(i, u"pushButtonLink"_s)->click();
            }
            break;
        case 3:
            if (linkable) {
                const int which = below(2);
                const int balance = strip.balances[strip.link][which] = pick({0, 37, 50, 99, 100});
                turn(mPage.child(i, u"widgetDial"_s + kSides[1 + which]), balance);
            } else {
                place(i, true);
            }
            break;
        case 4:
            pair.gain = pick({-90, -89, -6, 0, 12});
            turn(mPage.child(i, side == 0 ? u"widgetLinkedVSlider"_s : u"widgetUnlinkVSlider"_s + kSides[side]), pair.gain);
            break;
        case 5:
            pair.solo = !pair.solo;
            press(i, side, "SOLO");
            break;
        case 6:
            pair.pressMute(bench::MixerModel::solos(mix));
            press(i, side, "MUTE");
            break;
        default:
            pair.anti ^= press(i, side, "ANTI");
            break;
        }
        return did;
    }
    Values device() const { return mWorlds[mWorld].device(); }
    Values stored() const { return mWorlds[mWorld].stored(); }

private:
    using Strip = bench::MixerModel::Strip;

    void place(qsizetype i, bool resend)
    {
        if (auto* strip = qobject_cast<MixerS1M3*>(mPage.list[i])) {
            const int which = below(2);
            const int balance = pick({0, 33, 100, 150, 200});
            for (bench::MixerModel& world : mWorlds) {
                auto both = world.places.value(strip->objectName(), {100, 100});
                both[std::size_t(which)] = balance;
                world.places[strip->objectName()] = both;
            }
            which ? strip->setBalanceRight(balance, resend) : strip->setBalanceLeft(balance, resend);
        }
    }
    bool press(qsizetype i, int side, const char* name)
    {
        // One panel may have the buttons of both sides.
        QPushButton* button = mPage.button(i, side + 1, name);
        button = button || side == 0 ? button : mPage.button(i, 2, qPrintable(QLatin1StringView(name) + kSides[side]));
        if (button) {
            button->click();
        }
        return button != nullptr;
    }

    bench::MixerPage mPage;
    std::array<bench::MixerModel, 2> mWorlds;
    std::size_t mWorld = 0;
};

class Routes : public Hands
{
public:
    Routes(const QString&, quint32 seed) : Hands(seed)
    {
        QList<OutputBase*> outputs;
        QList<LoopbackBase*> loopbacks;
        bench::RouteModel world;
        for (const bench::Member& member : bench::kMembers) {
            const QString name = QString::fromLatin1(member.name);
            mStrips.push_back(member.make(name));
            quillon::RouteStrip* strip = mStrips.back().get();
            mWorkspace.attach(*strip);
            told.listen(strip);
            member.loopback ? void(loopbacks += qobject_cast<LoopbackBase*>(strip))
                            : void(outputs += qobject_cast<OutputBase*>(strip));
            world.kinds.push_back(
                {name, name, member.loopback ? u"FieldLoopback"_s : u"FieldOutput"_s, member.pair, member.loopback});
            world.strips.push_back({});
            world.strips.back().link = !member.pair || !member.loopback;
            for (Pair& pair : world.strips.back().pairs) {
                pair.gain = member.loopback ? 0 : -38;
            }
        }
        mOutputs.setWidgetList(outputs);
        mLoopbacks.setWidgetList(loopbacks);
        mWorkspace.attach(mOutputs);
        mWorkspace.attach(mLoopbacks);
        mWorlds.fill(world);
    }
    ~Routes()
    {
        for (const auto& strip : mStrips) {
            strip->setParent(nullptr);
        }
    }
    QSettings& file() { return mWorkspace.file(); }
    QString load()
    {
        mWorld = otherWorld(mWorld);
        if (const QString name = QString::number(mWorld); !file().fileName().endsWith(name + u".ini"_s)) {
            mWorkspace.reopen(name);
        }
        mOutputs.loadSettings();
        mLoopbacks.loadSettings();
        for (const auto& strip : mStrips) {
            strip->loadSettings();
        }
        return u"load "_s + QString::number(mWorld);
    }
    QString act()
    {
        const auto i = qsizetype(below(int(mStrips.size())));
        const bench::RouteModel::Kind& kind = mWorlds[mWorld].kinds[i];
        bench::RouteModel::Strip& strip = mWorlds[mWorld].strips[i];
        quillon::RouteStrip& real = *mStrips[std::size_t(i)];
        const int side = strip.link ? 0 : 1 + below(2);
        Pair& pair = strip.pairs[std::size_t(side)];
        const int what = below(strip.shown ? 7 : 1);
        QString did = u"%1 on %2, side %3"_s.arg(what).arg(kind.object).arg(side);
        switch (what) {
        case 0:
            strip.shown ? bench::hide(&real)
                        : bench::add(kind.muteByGain ? static_cast<QWidget*>(&mLoopbacks) : &mOutputs, kind.channel);
            strip.shown = !strip.shown;
            break;
        case 1:
            strip.source = QString::fromLatin1(pick({"Mix A", "Mix B", "IN 1"}));
            bench::choose(real, strip.source);
            break;
        case 2:
            if (const double db = kind.muteByGain ? pick({-90, -41, -3, 0}) : pick({-90.0, -38.0, -6.5, 9.0}); db != pair.gain) {
                pair.gain = db;
                pair.mute = false; // a move releases the mute
                turn(real.findChild<QWidget*>(side == 0 ? u"widgetLinkedVSlider"_s : u"widgetUnlinkVSlider"_s + kSides[side]), db);
            }
            break;
        case 3:
            pair.mute = !pair.mute;
            real.findChild<QWidget*>(u"widgetPushButtonGroup%1"_s.arg(side + 1))->findChild<QPushButton*>()->click();
            break;
        case 4:
            if (kind.pair) { // the device hears the mutes of the new form anew
                for (const QString& each : kSides) {
                    told.forget(kind.object + u"/MUTE"_s + each);
                }
                strip.link = !strip.link;
                real.findChild<QPushButton*>(u"pushButtonLink"_s)->click();
            }
            break;
        case 5:
            strip.source = QString::fromLatin1(pick({"Mix A", "IN 1"}));
            told.report(kind.object + u"/AudioSource"_s, strip.source);
            real.setAudioSource(strip.source);
            break;
        default:
            if (!kind.muteByGain) { // of a loopback the device tells neither gain nor mute
                const bool mute = below(2);
                const double db = pick({-52.0, 3.5});
                for (int each = strip.link ? 0 : 1; each < (strip.link ? 1 : 3); ++each) {
                    strip.pairs[std::size_t(each)] = {false, mute, false, db};
                    told.report(kind.object + u"/MUTE"_s + kSides[each], flag(mute));
                }
                told.report(kind.object + u"/GAINLeft"_s, number(db));
                told.report(kind.object + u"/GAINRight"_s, number(db));
                real.setGAIN(float(db));
                real.setMUTE(mute);
            }
            break;
        }
        return did;
    }
    Values device() const { return mWorlds[mWorld].device(); }
    Values stored() const { return mWorlds[mWorld].stored(); }

private:
    bench::OpenWorkspace mWorkspace;
    std::vector<std::unique_ptr<quillon::RouteStrip>> mStrips;
    FieldOutputS1M1 mOutputs{u"FieldOutput"_s};
    FieldLoopbackS1M1 mLoopbacks{u"FieldLoopback"_s};
    std::array<bench::RouteModel, 2> mWorlds;
    std::size_t mWorld = 0;
};

template<class Page> void run(const QString& member, quint32 seed, int steps)
{
    Page page(member, seed);
    for (int step = 0; step < steps; ++step) {
        const bool load = step == 0 || page.rarely();
        page.told.begin(load);
        const QString did = load ? page.load() : page.act();
        QString fault = page.told.fault(page.device());
        for (const auto& [key, value] : page.stored().asKeyValueRange()) {
            const QVariant kept = page.file().value(key);
            const bool list = kept.typeId() == QMetaType::QStringList;
            if (const QString text = list ? kept.toStringList().join(u',') : kept.toString(); text != value) {
                fault += u" %1 is %2 in the file, not %3"_s.arg(key, text, value);
            }
        }
        QVERIFY2(fault.isEmpty(), qPrintable(u"step %1, %2: %3"_s.arg(step).arg(did, fault)));
    }
}

} // namespace

class tst_laws : public QObject
{
    Q_OBJECT
private slots:
    void laws_data()
    {
        QTest::addColumn<void (*)(const QString&, quint32, int)>("run");
        QTest::addColumn<QString>("member");
        QTest::addColumn<quint32>("seed");
        const std::tuple<const char*, void (*)(const QString&, quint32, int)> pages[]{
            {"Live", run<Inputs>}, {"Pro", run<Inputs>},  {"S1M1", run<Mixers>},  {"S1M2", run<Mixers>},
            {"S1M3", run<Mixers>}, {"S1M4", run<Mixers>}, {"routes", run<Routes>}};
        for (const auto& [member, run] : pages) {
            for (const quint32 seed : {1U, 6U}) {
                QTest::addRow("%s, seed %u", member, seed) << run << QString::fromLatin1(member) << seed;
            }
        }
    }
    void laws()
    {
        using Run = void (*)(const QString&, quint32, int);
        QFETCH(const Run, run);
        QFETCH(const QString, member);
        QFETCH(const quint32, seed);
        run(member, seed, 300);
    }
};

QTEST_MAIN(tst_laws)
#include "tst_laws.moc"
