#pragma once
// What user and device have of strips, in plain words: one workspace of a field as values, and what follows from them.

#include <QList>
#include <QMap>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>
#include <array>
#include <cmath>

namespace bench
{

using namespace Qt::StringLiterals;

using Values = QMap<QString, QString>; // by "object/key"

inline const QString kSides[]{QString(), u"Left"_s, u"Right"_s};

inline QString flag(bool on)
{
    return QString::number(int(on));
}
inline QString word(bool on)
{
    return on ? u"true"_s : u"false"_s;
}
inline QString number(double value)
{
    return QString::number(value, 'g', 6);
}
template<class T> T pick(QRandomGenerator& random, std::initializer_list<T> list)
{
    return list.begin()[random.bounded(static_cast<int>(list.size()))];
}

/// SOLO and MUTE of a strip or a side, with the gain. Solo is done by muting; a press on MUTE while the field is soloed joins or
/// leaves.
struct Pair {
    bool solo = false;
    bool mute = false; // the user's own
    bool anti = false;
    double gain = 0;

    bool muted(int solos) const { return solos ? !solo : mute; }
    void pressMute(int solos)
    {
        mute = !muted(solos);
        solo = solos ? !solo : solo;
    }
};

/// Mixer strips of one field.
struct MixerModel {
    struct Kind {
        QString object;
        QString channel;
        QString member; // "S1M4"

        bool isLinkable() const { return member == u"S1M1" || member == u"S1M4"; }
    };
    struct Strip {
        bool shown = true;
        bool link = true;
        std::array<Pair, 3> pairs;              // both sides, left, right
        int balances[2][2]{{50, 50}, {0, 100}}; // unlinked, linked
    };
    struct Mix {
        QString key;
        QList<Strip> strips;
    };

    QList<Kind> kinds;
    QList<Mix> mixes;
    qsizetype current = 0;
    QMap<QString, std::array<int, 2>> places; // of the two microphones, by object; not kept

    static int solos(const Mix& mix)
    {
        int count = 0;
        for (const Strip& strip : mix.strips) {
            const auto& pairs = strip.pairs;
            count += !strip.shown ? 0 : strip.link ? pairs[0].solo : pairs[1].solo + pairs[2].solo;
        }
        return count;
    }
    /// What of a channel goes to a side of the mix.
    int crosspoint(const Mix& mix, qsizetype i, int to, int from) const
    {
        const Strip& strip = mix.strips[i];
        const Pair& pair = strip.pairs[strip.link ? 0 : std::size_t(1 + from)];
        if (!strip.shown || pair.muted(solos(mix))) {
            return 0;
        }
        const qint64 linear = pair.gain <= -90 ? 0 : qint64(std::pow(10, pair.gain / 20) * 33554432);
        if (kinds[i].member == u"S1M2") {
            return to == from ? int(linear) : 0;
        }
        if (kinds[i].member == u"S1M3") { // 0 to 200: the far side is turned down
            const int right = places.value(kinds[i].object, {100, 100})[std::size_t(from)];
            return int(linear * std::min(100, to ? right : 200 - right) / 100);
        }
        const float right = float(strip.balances[strip.link][from]);
        const int gain = int(float(linear) * (to ? right : 100 - right) / 100);
        return pair.anti ? -gain : gain;
    }
    Values device() const
    {
        Values wanted;
        for (const Mix& mix : mixes) {
            for (qsizetype i = 0; i < kinds.size(); ++i) {
                for (const auto& [name, to, from] :
                     {std::tuple{u"MLCL", 0, 0}, {u"MLCR", 0, 1}, {u"MRCL", 1, 0}, {u"MRCR", 1, 1}}) {
                    wanted[kinds[i].object + u'/' + mix.key + u"_Gain"_s + QString::fromUtf16(name)] =
                        QString::number(crosspoint(mix, i, to, from));
                }
            }
        }
        return wanted;
    }
    Values stored() const
    {
        Values values{{u"FieldMixer/Mixer"_s, mixes[current].key}};
        for (const Mix& mix : mixes) {
            values[u"FieldMixer/"_s + mix.key + u"_SoloState"_s] = QString::number(solos(mix));
            QStringList visible;
            for (qsizetype i = 0; i < kinds.size(); ++i) {
                const Strip& strip = mix.strips[i];
                const auto keep = [&](const QString& name, const QString& value, bool has) {
                    values[kinds[i].object + u'/' + mix.key + u'_' + name] = has ? value : QString();
                };
                const bool linkable = kinds[i].isLinkable();
                keep(u"Link"_s, word(strip.link), linkable);
                for (std::size_t side = 0; side < 3; ++side) {
                    const Pair& pair = strip.pairs[side];
                    const bool has = side == 0 || linkable;
                    keep(u"GAIN"_s + kSides[side], number(pair.gain), has);
                    keep(u"SOLO"_s + kSides[side], word(pair.solo), has);
                    keep(u"MUTE"_s + kSides[side], word(pair.mute), has);
                    keep(u"ANTI"_s + kSides[side], word(pair.anti), kinds[i].member == u"S1M4");
                }
                for (const int side : {0, 1}) {
                    keep(u"BalanceLinked"_s + kSides[1 + side], QString::number(strip.balances[1][side]), linkable);
                    keep(u"BalanceUnlink"_s + kSides[1 + side], QString::number(strip.balances[0][side]), linkable);
                }
                if (strip.shown) {
                    visible += kinds[i].channel;
                }
            }
            values[u"FieldMixer/"_s + mix.key + u"_Visible"_s] = visible.join(u',');
        }
        return values;
    }
};

/// Outputs, loopbacks, and what else takes a source to a pair of gains.
struct RouteModel {
    struct Kind {
        QString object;
        QString channel;
        QString field;
        bool pair = false;       // has a form with two sides
        bool muteByGain = false; // as -90 dB
        bool routed = true;      // has a source to choose
    };
    struct Strip {
        bool shown = true;
        bool link = true;
        QString source = u"Mix B"_s;
        std::array<Pair, 3> pairs; // both sides, left, right
    };

    QList<Kind> kinds;
    QList<Strip> strips;

    Values device() const
    {
        Values wanted;
        for (qsizetype i = 0; i < kinds.size(); ++i) {
            const Strip& strip = strips[i];
            const QString object = kinds[i].object + u'/';
            if (strip.shown && kinds[i].routed) {
                wanted[object + u"AudioSource"_s] = strip.source;
            }
            for (const std::size_t side : {1U, 2U}) {
                const Pair& pair = strip.pairs[strip.link ? 0 : side];
                const bool silent = !strip.shown || pair.mute;
                wanted[object + u"GAIN"_s + kSides[side]] = number(kinds[i].muteByGain && silent ? -90 : pair.gain);
                wanted[object + u"MUTE"_s + (strip.link ? QString() : kSides[side])] = flag(silent);
            }
        }
        return wanted;
    }
    Values stored() const
    {
        Values values;
        QMap<QString, QStringList> visible;
        for (qsizetype i = 0; i < kinds.size(); ++i) {
            const Strip& strip = strips[i];
            const QString object = kinds[i].object + u'/';
            visible[kinds[i].field] += strip.shown ? QStringList{kinds[i].channel} : QStringList{};
            if (kinds[i].routed) {
                values[object + u"AudioSource"_s] = strip.source;
            }
            values[object + u"Link"_s] = kinds[i].pair ? word(strip.link) : QString();
            for (std::size_t side = 0; side < (kinds[i].pair ? 3 : 1); ++side) {
                values[object + u"GAIN"_s + kSides[side]] = number(strip.pairs[side].gain);
                values[object + u"MUTE"_s + kSides[side]] = word(strip.pairs[side].mute);
            }
        }
        for (const auto& [field, names] : visible.asKeyValueRange()) {
            values[field + u"/Visible"_s] = names.join(u',');
        }
        return values;
    }
};

} // namespace bench
