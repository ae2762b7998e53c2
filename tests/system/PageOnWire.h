#pragma once
// What a page's workspace file means to the device: every value that it has to hold, by its address on the wire.

#include "RandomHands.h"

#include "console/PageTable.h"
#include "tests/strips/StripModels.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

namespace wire
{

using namespace Qt::StringLiterals;

/// By code, "2104".
using Values = QMap<QString, qint64>;

inline const QStringList kSources{u""_s,
                                  u"Mix A"_s,
                                  u"Mix B"_s,
                                  u"Mix C"_s,
                                  u"Mix D"_s,
                                  u"Mix E"_s,
                                  u"IN 1"_s,
                                  u"IN 2"_s,
                                  u"IN 1+2"_s,
                                  u"AUX"_s,
                                  u"BT"_s,
                                  u"OTG IN"_s,
                                  u"Playback 1/2"_s,
                                  u"Playback 3/4"_s,
                                  u"Playback 5/6"_s,
                                  u"Playback 7/8"_s,
                                  u"Playback 9/10"_s,
                                  u"FX"_s};

inline qint64 linear(double db)
{
    return db <= -90 ? 0 : qint64(std::pow(10, db / 20) * 33554432);
}

/// The device's own address and number of a strip's value, "3109 33554432"; two of them for a mute of both sides.
inline QStringList frames(const QString& key, const QString& value)
{
    static const QMap<QString, std::pair<const char*, const char*>> kBlocks{
        {"MixA", {"31", "32"}},          {"MixB", {"33", "34"}},          {"MixC", {"35", "36"}},
        {"MixD", {"37", "38"}},          {"MixE", {"3b", "3c"}},          {"Loopback_LB12", {"51", "52"}},
        {"Loopback_LB34", {"53", "54"}}, {"Loopback_LB56", {"55", "56"}}, {"Loopback_LB78", {"57", "58"}},
        {"Output_OTGOUT", {"61", "62"}}, {"Output_HP", {"63", "64"}},     {"Output_LB12", {"51", "52"}},
        {"Input_PB12", {"53", "54"}}};
    static const QStringList kChannels{"PB12", "PB34", "PB56", "PB78", "IN12", "AUX", "OTGIN", "BT", "PB910", "FX"};
    const QString object = key.section(u'/', 0, 0);
    const QString attribute = key.section(u'/', 1);
    if (object.startsWith(u"Mixer_"_s)) {
        const auto [left, right] = kBlocks[attribute.section(u'_', 0, 0)];
        const auto channel = 2 * kChannels.indexOf(object.section(u'_', 1)) + (attribute.endsWith(u"CL"_s) ? 1 : 2);
        return {u"%1%2 %3"_s.arg(QLatin1StringView(attribute.contains(u"GainML"_s) ? left : right))
                    .arg(channel, 2, 16, QChar(u'0'))
                    .arg(value)};
    }
    const auto [left, right] = kBlocks[object];
    const bool output = object == u"Output_HP"_s || object == u"Output_OTGOUT"_s;
    if (attribute == u"AudioSource"_s) {
        return {QLatin1StringView(output ? right : left) + u"02 %1"_s.arg(kSources.indexOf(value))};
    }
    const QString side = QLatin1StringView(attribute.endsWith(u"Right"_s) ? right : left);
    if (attribute.startsWith(u"GAIN"_s)) {
        const double db = value.toDouble();
        return {side +
                u"03 %1"_s.arg(output ? wireGain(object == u"Output_HP"_s ? u"Input_AUX"_s : u"Input_BT"_s, db) : linear(db))};
    }
    if (!output) {
        return {}; // of the others the device knows no mute
    }
    const QString mute = u"04 "_s + value;
    return attribute == u"MUTE"_s ? QStringList{QLatin1StringView(left) + mute, QLatin1StringView(right) + mute}
                                  : QStringList{side + mute};
}

/// One page's file, read as a user would.
class Page
{
public:
    Page(quillon::PageId page, const QString& path) : mPage(page), mFile(path, QSettings::IniFormat) {}

    Values device()
    {
        addInputs();
        if (mPage == quillon::PageLive || mPage == quillon::PageProf) {
            addMixers();
            addRoutes();
        } else {
            addPlain();
        }
        addEffects();
        if (mPage == quillon::PageLive || mPage == quillon::PageMble) {
            addDucking();
        } else if (mPage == quillon::PageTyro) {
            mValues["4307"] = flag(u"ConfigMenuTyro"_s, u"DuckingSwitch"_s);
        }
        dropHidden();
        return mValues;
    }
    /// Keys that the file ought to have and has not.
    QStringList missing() const { return mMissing; }

private:
    QVariant at(const QString& object, const QString& key)
    {
        const QString path = object + u'/' + key;
        if (!mFile.contains(path)) {
            mMissing += path;
        }
        return mFile.value(path);
    }
    bool flag(const QString& object, const QString& key) { return at(object, key).toBool(); }
    double number(const QString& object, const QString& key) { return at(object, key).toDouble(); }
    void put(const QString& key, const QString& value)
    {
        for (const QString& frame : frames(key, value)) {
            mValues[frame.section(u' ', 0, 0)] = frame.section(u' ', 1).toLongLong();
        }
    }
    /// What the page calls the channel of a strip.
    QString channel(const QString& object) const
    {
        const bool studio = mPage == quillon::PageLive || mPage == quillon::PageProf;
        const QString name = object.section(u'_', 1);
        if (name.startsWith(u"PB"_s) || name.startsWith(u"LB"_s)) {
            const int first = name.mid(2, 1).toInt();
            const QString pair = u" %1/%2"_s.arg(first).arg(first + 1);
            return object == u"Output_LB12"_s ? u"Recording"_s : (name.startsWith(u"PB"_s) ? u"Playback"_s : u"Loopback"_s) + pair;
        }
        const QMap<QString, QString> names{{"IN1", studio ? "IN 1" : "IN1"},
                                           {"IN2", studio ? "IN 2" : "IN2"},
                                           {"IN12", "IN 1+2"},
                                           {"OTGIN", "OTG IN"},
                                           {"OTGOUT", "OTG OUT"},
                                           {"Integration", "Effect_Integration"},
                                           {"", object == u"ConfigMenuTyro"_s ? u"ConfigMenu"_s : object},
                                           {"HP", mPage == quillon::PageTyro ? "HP" : "HP OUT"}};
        return names.value(name, name);
    }
    bool isShown(const QString& object, const QString& field)
    {
        return at(field, u"Visible"_s).toStringList().contains(channel(object));
    }

    void addInputs()
    {
        const bool studio = mPage == quillon::PageLive || mPage == quillon::PageProf;
        const QString field = mPage == quillon::PageTyro ? u"FieldTop"_s : u"FieldInput"_s;
        const bool solo = studio && std::any_of(std::begin(kStrips), std::end(kStrips),
                                                [this](const char* s) { return flag(QLatin1StringView(s), u"SOLO"_s); });
        const char* blocks[] = {"21", "22", "23", "25", "27"};
        for (int i = 0; i < 5; ++i) {
            const QString strip = QLatin1StringView(kStrips[i]);
            const QString block = QLatin1StringView(blocks[i]);
            // One that is put away is told no more than that it is silent.
            const bool shown = isShown(strip, field);
            if (shown && i == 0) {
                mValues[block + u"02"_s] = QStringList{"", "Mic1", "Mic35", "MicHP"}.indexOf(at(strip, u"MIC"_s).toString());
            }
            if (shown && i < 2) {
                mValues[block + u"03"_s] = flag(strip, u"48V"_s);
            }
            if (mPage == quillon::PageProf) {
                mValues[block + u"0a"_s] = flag(strip, u"ANTI"_s);
            }
            const bool mute = flag(strip, u"MUTE"_s);
            mValues[block + u"04"_s] = wireGain(strip, number(strip, u"GAIN"_s));
            mValues[block + u"05"_s] = !shown || (solo ? !flag(strip, u"SOLO"_s) : mute);
        }
    }
    void addMixers()
    {
        const bool live = mPage == quillon::PageLive;
        bench::MixerModel model;
        for (const char* source : {"IN12", "AUX", "BT", "OTGIN", "FX", "PB12", "PB34", "PB56", "PB78", "PB910"}) {
            const QString object = u"Mixer_"_s + QLatin1StringView(source);
            if (live || object != u"Mixer_FX"_s) {
                model.kinds.push_back({object, channel(object),
                                       !live                       ? u"S1M4"_s
                                       : object == u"Mixer_IN12"_s ? u"S1M3"_s
                                                                   : u"S1M2"_s});
            }
        }
        for (const char letter : live ? QByteArray("ABCDE") : QByteArray("ABC")) {
            const QString key = u"Mix"_s + QLatin1Char(letter);
            bench::MixerModel::Mix mix{key, QList<bench::MixerModel::Strip>(model.kinds.size())};
            const QStringList visible = at(u"FieldMixer"_s, key + u"_Visible"_s).toStringList();
            for (qsizetype i = 0; i < model.kinds.size(); ++i) {
                readMixer(model.kinds[i], key + u'_', mix.strips[i]);
                mix.strips[i].shown = visible.contains(model.kinds[i].channel);
            }
            model.mixes.push_back(mix);
        }
        if (live) {
            model.places[u"Mixer_IN12"_s] = {int(number(u"Input_IN1"_s, u"Balance"_s)), int(number(u"Input_IN2"_s, u"Balance"_s))};
        }
        putAll(model.device());
    }
    void readMixer(const bench::MixerModel::Kind& kind, const QString& mix, bench::MixerModel::Strip& strip)
    {
        strip.link = !kind.isLinkable() || flag(kind.object, mix + u"Link"_s);
        for (std::size_t side = 0; side < (kind.isLinkable() ? 3 : 1); ++side) {
            bench::Pair& pair = strip.pairs[side];
            pair.solo = flag(kind.object, mix + u"SOLO"_s + bench::kSides[side]);
            pair.mute = flag(kind.object, mix + u"MUTE"_s + bench::kSides[side]);
            pair.anti = kind.isLinkable() && flag(kind.object, mix + u"ANTI"_s + bench::kSides[side]);
            pair.gain = number(kind.object, mix + u"GAIN"_s + bench::kSides[side]);
        }
        for (const int side : {0, 1}) {
            if (kind.isLinkable()) {
                strip.balances[0][side] = int(number(kind.object, mix + u"BalanceUnlink"_s + bench::kSides[1 + side]));
                strip.balances[1][side] = int(number(kind.object, mix + u"BalanceLinked"_s + bench::kSides[1 + side]));
            }
        }
    }
    void addRoutes()
    {
        bench::RouteModel model;
        for (const char* name :
             {"Loopback_LB12", "Loopback_LB34", "Loopback_LB56", "Loopback_LB78", "Output_HP", "Output_OTGOUT"}) {
            const QString object = QLatin1StringView(name);
            const bool loopback = object.startsWith(u"Loopback"_s);
            const bool pair = loopback && mPage == quillon::PageProf;
            const QString field = loopback ? u"FieldLoopback"_s : u"FieldOutput"_s;
            model.kinds.push_back({object, channel(object), field, pair, loopback});
            bench::RouteModel::Strip strip;
            strip.shown = isShown(object, field);
            strip.link = !pair || flag(object, u"Link"_s);
            strip.source = at(object, u"AudioSource"_s).toString();
            for (std::size_t side = 0; side < (pair ? 3 : 1); ++side) {
                strip.pairs[side].mute = flag(object, u"MUTE"_s + bench::kSides[side]);
                strip.pairs[side].gain = number(object, u"GAIN"_s + bench::kSides[side]);
            }
            model.strips.push_back(strip);
        }
        putAll(model.device());
    }
    /// Outputs and what stands for loopbacks and mixes on the pages without mixes.
    void addPlain()
    {
        const bool easy = mPage == quillon::PageTyro;
        const QString outputs = easy ? u"FieldBottom"_s : u"FieldOutput"_s;
        const auto gain = [&](const QString& object, const QString& field) {
            return isShown(object, field) && !flag(object, u"MUTE"_s) ? number(object, u"GAIN"_s) : -90.0;
        };
        for (const QString& object : {u"Output_HP"_s, u"Output_OTGOUT"_s}) {
            for (const char16_t* side : {u"GAINLeft", u"GAINRight"}) {
                put(object + u'/' + QString::fromUtf16(side), QString::number(number(object, u"GAIN"_s)));
            }
            put(object + u"/MUTE"_s, QString::number(int(flag(object, u"MUTE"_s) || !isShown(object, outputs))));
        }
        const auto pair = [&](const char* left, const char* right, double db) { mValues[left] = mValues[right] = linear(db); };
        pair("5103", "5203", gain(easy ? u"Loopback_LB12"_s : u"Output_LB12"_s, outputs));
        if (!easy) {
            pair("5303", "5403", gain(u"Input_PB12"_s, u"FieldInput"_s));
            return;
        }
        for (const QString& object : {u"Mixer_PB12"_s, u"Mixer_PB34"_s}) {
            putMixes(object, linear(gain(object, u"FieldTop"_s)), 0);
        }
        const bool off = at(u"Effect"_s, u"NCType"_s) == u"OFF"_s && at(u"Effect"_s, u"ReverbType"_s) == u"OFF"_s;
        putMixes(u"Mixer_IN12"_s, off ? 16777216 : 0, off ? 16777216 : 0);
        for (const char* gainName : {"GainMLCL", "GainMRCR"}) {
            for (const char* mix : {"MixA_", "MixB_", "MixC_"}) {
                put(u"Mixer_FX/"_s + QLatin1StringView(mix) + QLatin1StringView(gainName), off ? u"0"_s : u"33554432"_s);
            }
        }
    }
    void putMixes(const QString& object, qint64 straight, qint64 across)
    {
        for (const char* mix : {"MixA_", "MixB_", "MixC_"}) {
            for (const auto& [name, value] :
                 {std::pair{"GainMLCL", straight}, {"GainMRCR", straight}, {"GainMLCR", across}, {"GainMRCL", across}}) {
                put(object + u'/' + QLatin1StringView(mix) + QLatin1StringView(name), QString::number(value));
            }
        }
    }
    void addEffects()
    {
        const auto noise = [](const QString& type) {
            return QMap<QString, int>{{"NC1", 15}, {"NC2", 30}, {"NC3", 45}}.value(type, 0);
        };
        const auto reverb = [](const QString& type) {
            return QMap<QString, int>{{"STUDIO", 2}, {"LIVE", 3}, {"HALL", 4}}.value(type, 1);
        };
        const auto integer = [this](const QString& object, const QString& key) { return int(number(object, key)); };
        if (mPage == quillon::PageTyro) {
            mValues["4407"] = noise(at(u"Effect"_s, u"NCType"_s).toString());
            mValues["440b"] = reverb(at(u"Effect"_s, u"ReverbType"_s).toString());
            mValues["4408"] = integer(u"Effect"_s, u"DryWet"_s);
        } else if (mPage != quillon::PageProf) {
            const bool live = mPage == quillon::PageLive;
            const QString first = live ? u"Effect_Integration"_s : u"Effect_NC"_s;
            const QString second = live ? u"Effect_Integration"_s : u"Effect_Reverb"_s;
            const QString noiseType = at(first, u"NoiseReductionType"_s).toString();
            const QString reverbType = at(second, u"ReverbType"_s).toString();
            const QMap<QString, QString> rooms{{"STUDIO", "ReverbStudio"}, {"LIVE", "ReverbLive"}, {"HALL", "ReverbHall"}};
            mValues["4407"] = noise(noiseType);
            mValues["4406"] = integer(first, live ? u"NoiseReduction"_s : u"NoiseReduction"_s + noiseType);
            mValues["440b"] = reverb(reverbType);
            mValues["4409"] = integer(second, live ? u"Room"_s : rooms.value(reverbType, u"ReverbBypass"_s));
            mValues["4408"] = integer(second, u"DryWet"_s);
            mValues["440a"] = integer(second, u"Decay"_s);
            if (live) {
                int code = 0x4401;
                for (const char16_t* send : {u"Input1Level", u"Input2Level", u"AuxLevel", u"BluetoothLevel", u"OtgLevel"}) {
                    mValues[QString::number(code++, 16)] = linear(number(first, QString::fromUtf16(send)));
                }
                mValues["440c"] = flag(first, u"MUTE"_s);
            }
        }
    }
    void addDucking()
    {
        const QString object = u"Ducking"_s;
        int code = 0x4301;
        for (const char16_t* dial : {u"Threshold", u"Attack", u"Reduction", u"Release"}) {
            mValues[QString::number(code++, 16)] = int(number(object, QString::fromUtf16(dial)));
        }
        for (const char16_t* microphone : {u"IN1", u"IN2"}) {
            int bits = 0;
            int bit = 1;
            for (const char16_t* source :
                 {u"AUX", u"BT", u"OTGIN", u"Playback1_2", u"Playback3_4", u"Playback5_6", u"Playback7_8", u"Playback9_10"}) {
                bits += flag(object, QString::fromUtf16(microphone) + QString::fromUtf16(source)) ? bit : 0;
                bit *= 2;
            }
            mValues[QString::number(code++, 16)] = bits;
        }
        mValues["4307"] = flag(object, u"DuckingSwitch"_s);
    }
    /// An effect that is put away is not told, neither off nor on.
    void dropHidden()
    {
        const auto drop = [this](const char* object, const char* field, const char* codes) {
            if (!isShown(QLatin1StringView(object), QLatin1StringView(field))) {
                const QRegularExpression gone(QRegularExpression::anchoredPattern(QLatin1StringView(codes)));
                mValues.removeIf([&gone](const auto& value) { return gone.match(value.key()).hasMatch(); });
            }
        };
        if (mPage == quillon::PageTyro) {
            drop("Effect", "FieldBottom", "440.|3[1-6](09|0a|13|14)");
            drop("ConfigMenuTyro", "FieldBottom", "4307");
        } else if (mPage == quillon::PageMble) {
            drop("Effect_NC", "FieldEffect", "440[67]");
            drop("Effect_Reverb", "FieldEffect", "440[89ab]");
        } else if (mPage == quillon::PageLive) {
            drop("Effect_Integration", "FieldEffect", "440.");
        }
    }
    void putAll(const bench::Values& values)
    {
        for (const auto& [key, value] : values.asKeyValueRange()) {
            put(key, value);
        }
    }

    quillon::PageId mPage;
    QSettings mFile;
    Values mValues;
    QStringList mMissing;
};

/// Where a file that is saved thousands of times has no disk to wait for.
inline QString quickFolder()
{
    const QString memory = u"/dev/shm"_s;
    const QString folder = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    qputenv("TMPDIR", folder.toLocal8Bit()); // of the private copy, too
    return folder + u"/quillon-XXXXXX"_s;
}

/// Begins a test on fresh settings, in a folder of its own below root, which it takes for the running one. From here on a warning
/// fails it, but for what the platform without a screen says of every window, and one that begins as harmless tells.
inline void beginTest(const QTemporaryDir& root, const QString& harmless = u"This plugin does not support"_s)
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support|%1).?"_s.arg(harmless)));
    WorkspaceSubject::instance().close();
    QSettings().clear();
    AppSettingsSubject::instance().init();
    const QString name = QLatin1StringView(QTest::currentTestFunction()) + u'/' + QLatin1StringView(QTest::currentDataTag());
    const QString folder = root.filePath(name);
    QDir(folder).removeRecursively();
    QVERIFY(QDir().mkpath(folder) && QDir::setCurrent(folder));
}

/// The open workspace of a page, saved and read.
inline Values workspaceSays(quillon::PageId page, QStringList* missing = nullptr)
{
    WorkspaceSubject::instance().saveWorkspace();
    const quillon::PageRow& row = *quillon::pageRow(page);
    const QString name = row.fixedWorkspace ? QLatin1StringView(row.fixedWorkspace).toString()
                                            : QSettings().value(WorkspaceSubject::instance().rememberKey()).toString();
    Page file(page, QLatin1StringView(row.folder) + u'/' + QLatin1StringView(row.prefix) + name + u".ini"_s);
    const Values values = file.device();
    if (missing) {
        *missing = file.missing();
    }
    return values;
}

/// What the device has of these codes; -999 for one that it was never told.
inline Values deviceSays(Console& console, const Values& like)
{
    const QJsonObject parameters = console.parameters();
    Values values;
    for (const QString& code : like.keys()) {
        values[code] = parameters[code].toInteger(-999);
    }
    return values;
}

/// "2104: 26, not 27", for each that differs.
inline QStringList differences(const Values& has, const Values& wanted)
{
    QStringList lines;
    for (const auto& [code, value] : wanted.asKeyValueRange()) {
        if (has.value(code, -999) != value) {
            lines += u"%1: %2, not %3"_s.arg(code).arg(has.value(code, -999)).arg(value);
        }
    }
    return lines;
}

} // namespace wire
