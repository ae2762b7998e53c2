#pragma once
// The strips of the pages without mixes, from the tables of each.

#include "console/pages/PageKit.h"
#include "strips/GainScale.h"
#include "strips/origin/OriginBase.h"

#include <span>

namespace quillon
{

struct SimpleRow {
    const char* object;
    const char* channelName;
    const char* chineseName; // null for one that is the same
    OriginBase* (*make)(const QString& objectName);
    PageKit::DeviceSlot receiver;
    const GainScale& scale;
    float gainDefaultDb;
    const char16_t* levelObject; // reports its levels beside itself; null where nothing does
};

QList<PlainStrip*> addSimpleStrips(PageKit& kit, std::span<const SimpleRow> rows);

template<class Strip> OriginBase* makeSimple(const QString& objectName)
{
    return new Strip(objectName);
}

} // namespace quillon
