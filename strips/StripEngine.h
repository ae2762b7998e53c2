#pragma once

#include "strips/StripEndpoint.h"
#include "strips/StripRow.h"

#include <vector>

class WorkspaceObserver;

namespace quillon
{

/// What every strip does with its rows: defaults, load, save, the last-sent cache, and the way to the device. Held by the strip,
/// GUI thread. Beyond its rows and hooks it touches nothing.
class StripEngine
{
public:
    /// Names a row of this engine.
    using RowId = int;
    /// Raises one event of the strip: attribute and value.
    using Raise = std::function<void(const QString& attribute, const QString& value)>;

    /// What only the strip knows, at the fixed points of a load. Each may be empty.
    struct Hooks {
        std::function<void()> fresh = {}; // after the defaults of a fresh group were written
        std::function<void()> shown = {}; // after all rows were shown, still silent
        /// The values of another prefix are sent next, from StripRow::elsewhere: does the strip stand in its field there? Empty
        /// where only the current one is ever sent.
        std::function<bool(const QString& prefix)> visit = {};
    };

    StripEngine(WorkspaceObserver& store, Raise raise);
    StripEngine(const StripEngine&) = delete;
    StripEngine& operator=(const StripEngine&) = delete;

    /// Declares the next row. All rows are declared while the strip is built.
    RowId add(StripRow row);
    void setHooks(Hooks hooks) { mHooks = std::move(hooks); }
    /// The prefixes of all mixes ("MixA_"), in order; the first becomes the current one. A fresh group gets defaults for each.
    void setPrefixes(const QStringList& prefixes);
    const QString& prefix() const { return mPrefix; }
    /// Makes a prefix current, under which the strip stands in its field or not, and shows its values; the device hears of what
    /// differs from what it was sent under this prefix. Before a load it is only made current. Unknown prefixes are ignored.
    void selectPrefix(const QString& prefix, bool enabled);

    /// Reads the whole group, writes defaults first where it is fresh, and sends every row: those of the other prefixes first.
    void load();
    /// Until the next load nothing is sent, and the strip counts as not loaded.
    void suspend() { mUpdateEnabled = false; }
    bool isLoaded() const { return mUpdateEnabled; }

    /// The user moved the row's control: settle, store, send what differs.
    void changed(RowId row);
    /// The same for a row whose value no control holds.
    void changed(RowId row, const StripValue& value);
    /// Stores a value without showing or sending it.
    void store(RowId row, const StripValue& value);
    /// The stored value of a row, 0 or empty where there is none.
    StripValue stored(RowId row) const;
    /// The same under another prefix.
    StripValue stored(RowId row, const QString& prefix) const;
    /// The device has this value now: shown, cached and stored; the row itself is not sent.
    void take(RowId row, const QVariant& value);
    /// Sends each row whose value differs from what was sent last.
    void updateAttribute();
    /// Moves several rows as one change: what the strip says while it is halfway is not sent.
    void changeTogether(const std::function<void()>& change);
    /// The same for the other prefixes as well, these first.
    void updateAllPrefixes();

    /// The strip stands in its field. Off: rows fall to what they owe while hidden.
    void setStripEnabled(bool enabled);
    bool isStripEnabled() const { return mStripEnabled; }
    /// On: each stored value is also raised as a "Save_" event.
    void setSaveEvents(bool on) { mSaveEvents = on; }
    bool saveEvents() const { return mSaveEvents; }

    /// The way in for a report on a row that is both kept under this name and sent; empty for any other name.
    DeviceSetter deviceSetter(QStringView attribute);

private:
    struct Row {
        StripRow declared;
        QString key;                  // with the current prefix
        QStringList names;            // with the current prefix
        std::vector<StripValue> sent; // one for each prefix; a row that is not per mix has one
    };

    void applyPrefix(Row& row) const;
    void setPrefix(qsizetype index);
    void resetCache(Row& row) const;
    void writeDefaults();
    void show();
    void echoAll();
    void save(const Row& row, const StripValue& value);
    void updateElsewhere(qsizetype prefix);
    void send(const QStringList& names, ValueForm form, StripValue& sent, std::optional<StripValue> value);
    StripValue& sent(Row& row) { return row.sent[row.declared.perMix ? mPrefixIndex : 0]; }
    static std::optional<StripValue> wanted(const StripRow& row, bool enabled, const std::function<StripValue()>& value);
    Row& at(RowId row) { return mRows[static_cast<std::size_t>(row)]; }
    const Row& at(RowId row) const { return mRows[static_cast<std::size_t>(row)]; }

    WorkspaceObserver& mStore;
    Raise mRaise;
    Hooks mHooks;
    std::vector<Row> mRows;
    std::vector<RowId> mSendOrder; // rows with attributes, as they are sent
    QStringList mPrefixes;
    QString mPrefix;
    std::size_t mPrefixIndex = 0;
    bool mStripEnabled = false;
    bool mUpdateEnabled = false;
    bool mSaveEvents = false;
};

} // namespace quillon
