#pragma once

#include "console/PageTable.h"
#include "device/Frame.h"
#include "strips/StripEndpoint.h"

#include <QString>
#include <array>
#include <vector>

namespace quillon
{

/// Takes a report to the strips that show it: those of the current page, in constant time. GUI thread.
class InboundRouter
{
public:
    InboundRouter();

    /// Binds every row of the inbound table that names this object to the strip's setters, on one page.
    void bind(PageId page, const QString& objectName, StripEndpoint& strip);

    /// Binds one attribute of an object to a setter beside those that it has: a report that concerns more than its own strip.
    void bind(PageId page, QStringView objectName, QStringView attribute, const DeviceSetter& setter);

    /// Takes the fields of an equalizer's bands ("EQ_IN1"): band number, attribute and value as their window takes them. Once each.
    using BandSetter = std::function<void(const QString& band, const QString& attribute, const QString& value)>;
    void bindBands(QStringView equalizer, const BandSetter& setter) { mBands.emplace_back(equalizer.toString(), setter); }

    /// Calls the setters of a report on the given page; bands go to their window whichever page is shown, and a plug state goes to
    /// the strips of all pages. False when nothing on the page takes it.
    bool route(int page, const Frame& frame) const;

private:
    using Setters = std::vector<DeviceSetter>;
    void add(PageId page, std::size_t row, const DeviceSetter& setter);

    bool routeBand(std::uint16_t code, std::int32_t value) const;

    std::vector<std::pair<QString, BandSetter>> mBands;
    std::array<std::vector<Setters>, PageCount> mSetters; // by page, then by row of the inbound table
};

} // namespace quillon
