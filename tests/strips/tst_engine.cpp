#include "StripBench.h"
#include "strips/StripEngine.h"

#include <QMap>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using quillon::AsShown;
using quillon::StripEngine;
using quillon::StripValue;
using quillon::ValueForm;

namespace
{

/// A strip without a window: controls are plain values. Level goes out twice, the matrix gain is computed from two controls,
/// the source is read back from the workspace, the send is kept per mix.
class PlainStrip : public WorkspaceObserver
{
public:
    PlainStrip()
        : WorkspaceObserver(u"Strip"_s), engine(*this, [this](const QString& attribute, const QString& value) {
              record.lines += attribute + u'=' + value;
              device[attribute] = value;
          })
    {
        nameRow = engine.add({.key = u"ChannelName"_s,
                              .form = ValueForm::Text,
                              .initial = [] { return u"Default"_s; },
                              .read = [this] { return name; },
                              .show = [this](const StripValue& v) { name = std::get<QString>(v); }});
        sourceRow = engine.add({.key = u"AudioSource"_s,
                                .form = ValueForm::Text,
                                .initial = [] { return u"Mix A"_s; },
                                .read = [this] { return engine.stored(sourceRow); },
                                .sends = {u"AudioSource"_s}});
        muteRow = engine.add({.key = u"MUTE"_s,
                              .initial = [] { return 0; },
                              .read = [this] { return mute; },
                              .show = [this](const StripValue& v) { mute = std::get<int>(v); },
                              .sends = {u"MUTE"_s},
                              .sendOrder = 1,
                              .whileHidden = StripValue{1}});
        levelRow = engine.add({.key = u"GAIN"_s,
                               .form = ValueForm::Decimal,
                               .initial = [this] { return configuredLevel; },
                               .read = [this] { return level; },
                               .show = [this](const StripValue& v) { level = std::clamp(std::get<float>(v), -90.0F, 12.0F); },
                               .sends = {u"GAINLeft"_s, u"GAINRight"_s},
                               .whileHidden = AsShown{}});
        sendRow = engine.add({.key = u"Send"_s,
                              .form = ValueForm::Integer,
                              .initial = [] { return 7; },
                              .read = [this] { return send; },
                              .show = [this](const StripValue& v) { send = std::get<int>(v); },
                              .sends = {u"Send"_s},
                              .sendOrder = 2,
                              .perMix = true});
        engine.add({.form = ValueForm::Integer,
                    .read = [this] { return matrix(); },
                    .sends = {u"Matrix"_s},
                    .sendOrder = 3,
                    .whileHidden = StripValue{0},
                    .perMix = true});
        engine.setPrefixes({u"MixA_"_s, u"MixB_"_s});
    }

    void loadSettings() override { engine.load(); }
    int matrix() const { return mute ? 0 : static_cast<int>(level * 1000); }

    /// What the device ought to have in the current mix.
    QMap<QString, QString> wanted(const QString& prefix) const
    {
        const bool shown = engine.isStripEnabled();
        QMap<QString, QString> all{{u"GAINLeft"_s, QString::number(double(level), 'g', 6)},
                                   {u"GAINRight"_s, QString::number(double(level), 'g', 6)},
                                   {u"MUTE"_s, shown ? QString::number(mute) : u"1"_s},
                                   {prefix + u"Matrix"_s, shown ? QString::number(matrix()) : u"0"_s}};
        if (shown) {
            all.insert(u"AudioSource"_s, std::get<QString>(engine.stored(sourceRow)));
            all.insert(prefix + u"Send"_s, QString::number(send));
        }
        return all;
    }

    bench::Record record;
    StripEngine engine;
    QMap<QString, QString> device; // what the device has, as far as it was told
    float configuredLevel = -6.5F;
    QString name;
    int mute = 0;
    float level = 0;
    int send = 0;
    StripEngine::RowId nameRow, sourceRow = -1, muteRow, levelRow, sendRow;
};

} // namespace

class tst_engine : public QObject
{
    Q_OBJECT
private slots:
    void freshGroup()
    {
        bench::OpenWorkspace workspace;
        PlainStrip strip;
        workspace.attach(strip);
        strip.configuredLevel = -12.5F;
        strip.loadSettings();
        QCOMPARE(strip.level, -12.5F);
        for (const auto& [key, text] : {std::pair{u"Strip"_s, u"true"_s},
                                        {u"GAIN"_s, u"-12.5"_s},
                                        {u"MixA_Send"_s, u"7"_s},
                                        {u"MixB_Send"_s, u"7"_s},
                                        {u"ChannelName"_s, u"Default"_s}}) {
            QCOMPARE(workspace.value(u"Strip"_s, key).toString(), text);
        }
        QVERIFY(!workspace.file().contains(u"Strip/Send"_s));
        QVERIFY(!workspace.file().contains(u"Strip/MixA_Matrix"_s));
    }

    void orderOfSendingAndEchoes()
    {
        bench::OpenWorkspace workspace;
        PlainStrip strip;
        workspace.attach(strip);
        strip.engine.setStripEnabled(true);
        strip.engine.setSaveEvents(true);
        strip.loadSettings();
        QCOMPARE(strip.record.attributes(),
                 QStringList({u"Save_ChannelName"_s, u"Save_MixA_Enable"_s, u"Save_AudioSource"_s, u"Save_MUTE"_s, u"Save_GAIN"_s,
                              u"Save_MixA_Send"_s, u"AudioSource"_s, u"GAINLeft"_s, u"GAINRight"_s, u"MUTE"_s, u"MixA_Send"_s,
                              u"MixA_Matrix"_s}));
        strip.record.take();
        strip.mute = 1;
        strip.engine.changed(strip.muteRow);
        QCOMPARE(strip.record.take(), QStringList({u"Save_MUTE=1"_s, u"MUTE=1"_s, u"MixA_Matrix=0"_s}));
    }

    // Whatever happens: a loaded strip and the device agree, and nothing is sent that the device already has.
    void cacheLaws()
    {
        QRandomGenerator random(5);
        bench::OpenWorkspace workspace;
        PlainStrip strip;
        workspace.attach(strip);
        strip.loadSettings();
        QString prefix = u"MixA_"_s;
        for (int step = 0; step < 10000; ++step) {
            const auto before = strip.device;
            strip.record.take();
            bool reloaded = false;
            switch (random.bounded(9)) {
            case 0:
                strip.mute = random.bounded(2);
                strip.engine.changed(strip.muteRow);
                QCOMPARE(workspace.value(u"Strip"_s, u"MUTE"_s).toBool(), strip.mute != 0);
                break;
            case 1:
                strip.level = static_cast<float>(random.bounded(-180, 25)) / 2;
                strip.engine.changed(strip.levelRow);
                QCOMPARE(workspace.value(u"Strip"_s, u"GAIN"_s).toFloat(), strip.level);
                break;
            case 2:
                strip.engine.changed(strip.sourceRow, u"Mix %1"_s.arg(random.bounded(3)));
                break;
            case 3:
                strip.send = random.bounded(5);
                strip.engine.changed(strip.sendRow);
                QCOMPARE(workspace.value(u"Strip"_s, prefix + u"Send"_s).toInt(), strip.send);
                break;
            case 4: { // beyond the range at times: the control has the last word
                const float told = static_cast<float>(random.bounded(-100, 30));
                strip.engine.deviceSetter(u"GAIN")(told);
                QVERIFY(strip.record.lines.isEmpty());
                QCOMPARE(strip.level, std::clamp(told, -90.0F, 12.0F));
                QCOMPARE(workspace.value(u"Strip"_s, u"GAIN"_s).toFloat(), strip.level);
                const QString has = QString::number(double(strip.level), 'g', 6);
                strip.device[u"GAINLeft"_s] = strip.device[u"GAINRight"_s] = has;
                strip.engine.updateAttribute(); // the computed gain follows, the level itself is not sent back
                QVERIFY(!strip.record.attributes().contains(u"GAINLeft"_s));
                break;
            }
            case 5:
                strip.engine.setStripEnabled(random.bounded(2) != 0);
                break;
            case 6:
                prefix = random.bounded(2) ? u"MixA_"_s : u"MixB_"_s;
                strip.engine.selectPrefix(prefix, random.bounded(2) != 0);
                QVERIFY(!strip.engine.isLoaded() || workspace.value(u"Strip"_s, prefix + u"Send"_s).toInt() == strip.send);
                break;
            case 7:
                strip.engine.suspend();
                break;
            default:
                strip.device.clear(); // whatever it has: all of it is told anew
                strip.loadSettings();
                reloaded = true;
                break;
            }
            const QStringList sent = strip.record.attributes();
            if (!strip.engine.isLoaded()) {
                QVERIFY(sent.isEmpty());
                continue;
            }
            const auto wanted = strip.wanted(prefix);
            QCOMPARE(QSet(sent.begin(), sent.end()).size(), sent.size()); // each at most once
            if (reloaded) {
                QStringList all = sent;
                all.sort();
                QCOMPARE(all, wanted.keys());
            } else {
                for (const QString& name : sent) {
                    QVERIFY2(before[name] != strip.device[name], qPrintable(name));
                }
            }
            for (const auto& [name, value] : wanted.asKeyValueRange()) {
                QCOMPARE(strip.device[name], value);
            }
        }
    }

    // The device unmutes: what is computed from the mute has to follow, the mute itself must not go back.
    void computedValueFollowsTheDevice()
    {
        bench::OpenWorkspace workspace;
        PlainStrip strip;
        workspace.attach(strip);
        strip.engine.setStripEnabled(true);
        strip.loadSettings();
        strip.level = 3;
        strip.mute = 1;
        strip.engine.changed(strip.muteRow);
        strip.record.take();
        strip.engine.take(strip.muteRow, 0);
        strip.engine.updateAttribute();
        QCOMPARE(strip.record.take(), QStringList({u"MixA_Matrix=3000"_s}));
    }

    void garbageInTheFile()
    {
        bench::OpenWorkspace workspace;
        QSettings& file = workspace.file();
        file.setValue(u"Strip/Strip"_s, true);
        file.setValue(u"Strip/GAIN"_s, u"nan"_s);
        file.setValue(u"Strip/MUTE"_s, u"\u0001banana"_s);
        file.setValue(u"Strip/MixA_Send"_s, QString(100000, u'9'));
        file.setValue(u"Strip/Stranger"_s, u"kept"_s);
        PlainStrip strip;
        workspace.attach(strip);
        strip.engine.setStripEnabled(true);
        strip.loadSettings();
        QCOMPARE(strip.level, 0.0F);
        QCOMPARE(strip.send, 0);
        QCOMPARE(strip.name, QString());
        QVERIFY(strip.record.lines.contains(u"GAINLeft=0"_s));
        QCOMPARE(workspace.value(u"Strip"_s, u"Stranger"_s).toString(), u"kept"_s);
    }

    void namesThatNobodyTakes()
    {
        PlainStrip strip; // no workspace is open either
        for (const QString& name : {u"ChannelName"_s, u"Matrix"_s, u""_s, u"Nothing"_s}) {
            QVERIFY(!strip.engine.deviceSetter(name));
        }
        strip.engine.selectPrefix(u"MixZ_"_s, true);
        QVERIFY(!strip.engine.isLoaded());
        strip.loadSettings();
        QCOMPARE(strip.level, 0.0F);
    }
};

QTEST_GUILESS_MAIN(tst_engine)
#include "tst_engine.moc"
