#pragma once

#include "strips/ControlPorts.h"
#include "strips/StripEngine.h"
#include "strips/effect/EffectBase.h"

#include <QList>
#include <QObject>
#include <span>
#include <vector>

class DialS1M5;

namespace quillon
{
class ButtonPanel;

/// A processor as data. One of its types is the bypass.
struct TypedLevelShape {
    const char* typeKey;  // of the type, to the workspace and to the device
    const char* levelKey; // of the level, to both
    std::span<const EffectMode> types;
};

/// The type of a processor and its level, of which each type has its own: one set of buttons, one dial. The device has one level
/// for all types, so a type that brings another one sends it. Held by the panel, which owns the controls. GUI thread.
class TypedLevel : public QObject
{
    Q_OBJECT
public:
    /// Adds the rows: the type, the level, and what is kept for each type. dials: all that are off in bypass.
    TypedLevel(const TypedLevelShape& shape, StripEngine& engine, ButtonPanel* types, DialS1M5* level, QList<QWidget*> dials);

private:
    void choose(const QString& type);
    void show(const QString& type);
    void levelChanged(int level);
    const EffectMode& type() const { return mShape.types[mType]; }

    const TypedLevelShape& mShape;
    StripEngine& mEngine;
    const PanelPort mTypes;
    DialS1M5* mLevel;
    const QList<QWidget*> mDials;
    std::size_t mType = 0;
    StripEngine::RowId mTypeRow = -1;
    StripEngine::RowId mLevelRow = -1;
    std::vector<StripEngine::RowId> mKept; // level of each type
};

} // namespace quillon
