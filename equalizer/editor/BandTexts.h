#pragma once

#include <QString>

namespace quillon
{

/// A text of the band editor in both languages.
struct BandText {
    const char* english;
    const char* chinese;

    QString in(bool isChinese) const { return QString::fromUtf8(isChinese ? chinese : english); }
};

/// The rows of a column, from the top, as labels and assistive technology name them.
constexpr BandText kBandRows[]{{"Type", "类型"}, {"Gain", "增益"}, {"Freq", "频率"}, {"Q", "Q值"}, {"Switch", "开关"}};
constexpr BandText kBandName{"Band %1", "频段 %1"};

/// Order of the types' numbers.
constexpr BandText kBandTypes[]{
    {"peaking", "峰值"}, {"lowpass", "低通"}, {"highpass", "高通"}, {"lowshelf", "低架"}, {"highshelf", "高架"}};

} // namespace quillon
