#include "strips/StripEngine.h"

#include "workspace/WorkspaceObserver.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

StripEngine::StripEngine(WorkspaceObserver& store, Raise raise) : mStore(store), mRaise(std::move(raise)) {}

StripEngine::RowId StripEngine::add(StripRow row)
{
    const auto id = static_cast<RowId>(mRows.size());
    mRows.push_back({std::move(row), {}, {}, {}});
    Row& added = mRows.back();
    resetCache(added);
    applyPrefix(added);
    if (!added.declared.sends.isEmpty()) {
        const auto place = std::ranges::upper_bound(mSendOrder, added.declared.sendOrder, {},
                                                    [this](RowId r) { return at(r).declared.sendOrder; });
        mSendOrder.insert(place, id);
    }
    return id;
}

void StripEngine::setPrefixes(const QStringList& prefixes)
{
    mPrefixes = prefixes;
    for (Row& row : mRows) {
        resetCache(row);
    }
    setPrefix(0);
}

void StripEngine::setPrefix(qsizetype index)
{
    mPrefix = mPrefixes.value(index);
    mPrefixIndex = static_cast<std::size_t>(index);
    for (Row& row : mRows) {
        applyPrefix(row);
    }
}

void StripEngine::selectPrefix(const QString& prefix, bool enabled)
{
    const qsizetype index = mPrefixes.indexOf(prefix);
    if (index < 0) {
        return;
    }
    setPrefix(index);
    mStripEnabled = enabled;
    if (!mUpdateEnabled) {
        return; // the load shows and sends
    }
    changeTogether([this] { show(); });
}

void StripEngine::load()
{
    for (Row& row : mRows) {
        resetCache(row);
    }
    mUpdateEnabled = false;
    if (!mStore.hasValue(mStore.workspaceGroup())) {
        writeDefaults();
        if (mHooks.fresh) {
            mHooks.fresh();
        }
    }
    show();
    if (mSaveEvents) {
        echoAll();
    }
    mUpdateEnabled = true;
    updateAllPrefixes();
}

void StripEngine::changed(RowId row)
{
    const StripRow& declared = at(row).declared;
    if (!declared.settle || declared.settle()) {
        store(row, declared.read());
    }
    updateAttribute();
}

void StripEngine::changed(RowId row, const StripValue& value)
{
    store(row, value);
    updateAttribute();
}

void StripEngine::store(RowId row, const StripValue& value)
{
    save(at(row), value);
}

StripValue StripEngine::stored(RowId row) const
{
    const Row& kept = at(row);
    return fromVariant(kept.declared.form, mStore.loadValue(kept.key));
}

StripValue StripEngine::stored(RowId row, const QString& prefix) const
{
    const StripRow& kept = at(row).declared;
    return fromVariant(kept.form, mStore.loadValue(kept.perMix ? prefix + kept.key : kept.key));
}

void StripEngine::take(RowId row, const QVariant& value)
{
    Row& taken = at(row);
    const StripValue told = fromVariant(taken.declared.form, value);
    if (taken.declared.show) {
        taken.declared.show(told);
    }
    // The control may have clamped the value or refused it: what it shows now is what must not be sent back.
    const StripValue kept = taken.declared.show ? taken.declared.read() : told;
    sent(taken) = kept;
    if (!taken.declared.settle || taken.declared.settle()) {
        save(taken, kept);
    }
}

void StripEngine::updateAttribute()
{
    if (!mUpdateEnabled) {
        return;
    }
    for (const RowId id : mSendOrder) {
        Row& row = at(id);
        const StripRow& declared = row.declared;
        send(row.names, declared.form, sent(row),
             wanted(declared, mStripEnabled, declared.wanted ? declared.wanted : declared.read));
    }
}

void StripEngine::changeTogether(const std::function<void()>& change)
{
    const bool enabled = std::exchange(mUpdateEnabled, false);
    change();
    mUpdateEnabled = enabled;
    updateAttribute();
}

void StripEngine::updateAllPrefixes()
{
    if (mUpdateEnabled && mHooks.visit) {
        for (qsizetype i = 0; i < mPrefixes.size(); ++i) {
            if (mPrefixes[i] != mPrefix) {
                updateElsewhere(i);
            }
        }
    }
    updateAttribute();
}

void StripEngine::updateElsewhere(qsizetype prefix)
{
    const bool enabled = mHooks.visit(mPrefixes[prefix]);
    for (const RowId id : mSendOrder) {
        Row& row = at(id);
        const StripRow& declared = row.declared;
        if (!declared.perMix || !declared.elsewhere) {
            continue;
        }
        QStringList names = declared.sends;
        for (QString& name : names) {
            name.prepend(mPrefixes[prefix]);
        }
        send(names, declared.form, row.sent[static_cast<std::size_t>(prefix)], wanted(declared, enabled, declared.elsewhere));
    }
}

void StripEngine::setStripEnabled(bool enabled)
{
    mStripEnabled = enabled;
    if (mSaveEvents) {
        mRaise(u"Save_"_s + mPrefix + u"Enable"_s, enabled ? u"1"_s : u"0"_s);
    }
    updateAttribute();
}

DeviceSetter StripEngine::deviceSetter(QStringView attribute)
{
    for (std::size_t i = 0; i < mRows.size(); ++i) {
        if (!attribute.isEmpty() && mRows[i].declared.key == attribute && !mRows[i].declared.sends.isEmpty()) {
            return [this, id = static_cast<RowId>(i)](const QVariant& value) { take(id, value); };
        }
    }
    return {};
}

void StripEngine::applyPrefix(Row& row) const
{
    row.key = row.declared.key;
    row.names = row.declared.sends;
    if (!row.declared.perMix) {
        return;
    }
    if (!row.key.isEmpty()) {
        row.key.prepend(mPrefix);
    }
    for (QString& name : row.names) {
        name.prepend(mPrefix);
    }
}

void StripEngine::resetCache(Row& row) const
{
    const auto prefixes = row.declared.perMix ? std::max<qsizetype>(mPrefixes.size(), 1) : 1;
    row.sent.assign(static_cast<std::size_t>(prefixes), unsent(row.declared.form));
}

void StripEngine::writeDefaults()
{
    mStore.saveValue(mStore.workspaceGroup(), true);
    const auto write = [this](const Row& row, const QString& prefix) {
        mStore.saveValue(prefix + row.declared.key, toVariant(row.declared.form, row.declared.initial()));
    };
    for (const Row& row : mRows) {
        if (row.declared.key.isEmpty()) {
            continue;
        }
        if (!row.declared.perMix) {
            write(row, {});
            continue;
        }
        for (const QString& prefix : mPrefixes) {
            write(row, prefix);
        }
    }
}

void StripEngine::show()
{
    for (const Row& row : mRows) {
        if (!row.key.isEmpty() && row.declared.show) {
            row.declared.show(fromVariant(row.declared.form, mStore.loadValue(row.key)));
        }
    }
    if (mHooks.shown) {
        mHooks.shown();
    }
}

void StripEngine::echoAll()
{
    bool first = true;
    for (const Row& row : mRows) {
        if (row.key.isEmpty()) {
            continue;
        }
        mRaise(u"Save_"_s + row.key, toText(row.declared.form, fromVariant(row.declared.form, mStore.loadValue(row.key))));
        if (first) {
            mRaise(u"Save_"_s + mPrefix + u"Enable"_s, mStripEnabled ? u"1"_s : u"0"_s);
            first = false;
        }
    }
}

void StripEngine::save(const Row& row, const StripValue& value)
{
    mStore.saveValue(row.key, toVariant(row.declared.form, value));
    if (mSaveEvents) {
        mRaise(u"Save_"_s + row.key, toText(row.declared.form, value));
    }
}

void StripEngine::send(const QStringList& names, ValueForm form, StripValue& sent, std::optional<StripValue> value)
{
    if (!value || *value == sent) {
        return;
    }
    sent = std::move(*value);
    // A listener may move the strip again before this returns: later values are sent from within, so this text must not change.
    const QString text = toText(form, sent);
    for (const QString& name : names) {
        mRaise(name, text);
    }
}

std::optional<StripValue> StripEngine::wanted(const StripRow& row, bool enabled, const std::function<StripValue()>& value)
{
    if (!enabled) {
        if (!row.whileHidden) {
            return std::nullopt;
        }
        if (const auto* fixed = std::get_if<StripValue>(&*row.whileHidden)) {
            return *fixed;
        }
    }
    return value();
}

} // namespace quillon
