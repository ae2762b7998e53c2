#include "console/effect/TypedLevel.h"

#include "controls/DialS1M5.h"
#include "strips/ButtonPanel.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr QLatin1StringView kBypass = "Bypass"_L1;

/// The bypass for a name that is no type.
std::size_t indexOf(std::span<const EffectMode> types, const QString& name)
{
    const auto named = [&](QAnyStringView wanted) {
        return std::ranges::find_if(types, [&](const EffectMode& type) { return QLatin1StringView(type.name) == wanted; });
    };
    const auto at = named(name);
    return static_cast<std::size_t>((at == types.end() ? named(kBypass) : at) - types.begin());
}

} // namespace

TypedLevel::TypedLevel(const TypedLevelShape& shape, StripEngine& engine, ButtonPanel* types, DialS1M5* level,
                       QList<QWidget*> dials)
    : mShape(shape), mEngine(engine), mTypes(panelPort(types)), mLevel(level), mDials(std::move(dials)),
      mType(indexOf(shape.types, kBypass))
{
    mTypeRow = mEngine.add({.key = QString::fromLatin1(shape.typeKey),
                            .form = ValueForm::Text,
                            .initial = [] { return QString(kBypass); },
                            .read = [this] { return QString::fromLatin1(type().name); },
                            .show = [this](const StripValue& value) { show(std::get<QString>(value)); },
                            .sends = {QString::fromLatin1(shape.typeKey)}});
    mLevelRow = mEngine.add({.key = QString::fromLatin1(shape.levelKey),
                             .form = ValueForm::Integer,
                             .initial = [this] { return mShape.types[indexOf(mShape.types, kBypass)].initial; },
                             .read = [this] { return static_cast<int>(mLevel->value()); },
                             .sends = {QString::fromLatin1(shape.levelKey)}});
    for (const EffectMode& kept : shape.types) {
        mKept.push_back(mEngine.add({.key = QString::fromLatin1(kept.key),
                                     .form = ValueForm::Integer,
                                     .initial = [initial = kept.initial] { return initial; }}));
    }
    connect(types, &ButtonPanel::stateChanged, this, &TypedLevel::choose);
    connect(level, &DialS1M5::valueChanged, this, [this](float value) { levelChanged(static_cast<int>(value)); });
    mTypes.set(QString::fromLatin1(type().name), true, false);
    for (QWidget* dial : mDials) {
        dial->setEnabled(false);
    }
}

void TypedLevel::choose(const QString& type)
{
    mEngine.store(mKept[mType], static_cast<int>(mLevel->value()));
    show(type);
    mEngine.changed(mTypeRow);
}

void TypedLevel::show(const QString& name)
{
    mType = indexOf(mShape.types, name);
    const bool bypassed = QLatin1StringView(type().name) == kBypass;
    mTypes.set(QString::fromLatin1(type().name), true, false);
    for (QWidget* dial : mDials) {
        dial->setEnabled(!bypassed);
    }
    mLevel->setDefault(static_cast<float>(type().initial));
    mLevel->setValue(static_cast<float>(std::get<int>(mEngine.stored(mKept[mType]))));
    if (mEngine.isLoaded()) { // a load changes nothing of what it reads
        mEngine.store(mLevelRow, static_cast<int>(mLevel->value()));
    }
}

void TypedLevel::levelChanged(int level)
{
    mEngine.store(mKept[mType], level);
    mEngine.changed(mLevelRow);
}

} // namespace quillon
