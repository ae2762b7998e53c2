#pragma once

#include <QString>

namespace quillon
{

/// A text of the band editor in both languages.
struct BandText {
    const char16_t* english;
    const char16_t* chinese;

    QString in(bool isChinese) const { return QString(isChinese ? chinese : english); }
};

/// The rows of a column, from the top, as labels and assistive technology name them.
constexpr BandText kBandRows[]{{u"Type", u"类型"}, {u"Gain", u"增益"}, {u"Freq", u"频率"}, {u"Q", u"Q值"}, {u"Switch", u"开关"}};
constexpr BandText kBandName{u"Band %1", u"频段 %1"};

/// Order of the types' numbers.
constexpr BandText kBandTypes[]{
    {u"peaking", u"峰值"}, {u"lowpass", u"低通"}, {u"highpass", u"高通"}, {u"lowshelf", u"低架"}, {u"highshelf", u"高架"}};

} // namespace quillon
