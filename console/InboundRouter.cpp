#include "console/InboundRouter.h"

#include "device/InboundTable.h"

#include <algorithm>

namespace quillon
{

namespace
{

bool concernsAllPages(const InboundRow& row)
{
    return row.form == InboundForm::Absent;
}

QStringView view(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

/// What is not plugged in is marked on the Mobile and the Live page, and at the inputs of the Pro page.
bool marksPlug(PageId page, QStringView objectName)
{
    return page != PageTyro && (page != PageProf || objectName.startsWith(u"Input_"));
}

bool call(const std::vector<DeviceSetter>& setters, const QVariant& value)
{
    for (const DeviceSetter& setter : setters) {
        setter(value);
    }
    return !setters.empty();
}

} // namespace

InboundRouter::InboundRouter()
{
    for (auto& page : mSetters) {
        page.resize(inboundRows().size());
    }
}

void InboundRouter::bind(PageId page, const QString& objectName, StripEndpoint& strip)
{
    const auto rows = inboundRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (view(rows[i].object) == objectName && (!concernsAllPages(rows[i]) || marksPlug(page, objectName))) {
            add(page, i, strip.deviceSetter(view(rows[i].attribute)));
        }
    }
}

void InboundRouter::bind(PageId page, QStringView objectName, QStringView attribute, const DeviceSetter& setter)
{
    const auto rows = inboundRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (view(rows[i].object) == objectName && view(rows[i].attribute) == attribute) {
            add(page, i, setter);
        }
    }
}

void InboundRouter::add(PageId page, std::size_t row, const DeviceSetter& setter)
{
    if (setter) {
        mSetters[page][row].push_back(setter);
    }
}

bool InboundRouter::route(int page, const Frame& frame) const
{
    const auto code = static_cast<std::uint16_t>(frame.code & 0xFFFF);
    const int index = inboundIndex(code);
    if (index < 0) {
        return routeBand(code, frame.value);
    }
    if (page < 0 || page >= PageCount) {
        return false;
    }
    const auto place = static_cast<std::size_t>(index);
    const InboundRow& row = inboundRows()[place];
    const QVariant value = inboundValue(row.form, frame.value);
    if (!value.isValid()) {
        return false;
    }
    if (!concernsAllPages(row)) {
        return call(mSetters[static_cast<std::size_t>(page)][place], value);
    }
    bool taken = false;
    for (const auto& setters : mSetters) {
        taken = call(setters[place], value) || taken;
    }
    return taken;
}

bool InboundRouter::routeBand(std::uint16_t code, std::int32_t value) const
{
    const InboundBand band = inboundBand(code);
    const auto found = std::find_if(mBands.begin(), mBands.end(),
                                    [&band](const auto& window) { return QStringView(window.first) == view(band.equalizer); });
    if (found == mBands.end()) {
        return false;
    }
    found->second(QString::number(band.band), view(band.attribute).toString(), inboundBandText(band.attribute, value));
    return true;
}

} // namespace quillon
