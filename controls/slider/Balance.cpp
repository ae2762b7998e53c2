#include "controls/slider/Balance.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quillon
{

QString balanceText(float value, float min, float max)
{
    const float centre = min + (max - min) / 2;
    if (value == centre)
        return u"C"_s;
    if (value < centre)
        return value == min ? u"L"_s : u"L%1"_s.arg(QString::number(double(centre - value), 'g', 6));
    return value == max ? u"R"_s : u"R%1"_s.arg(QString::number(double(value - centre), 'g', 6));
}

float balanceFromText(const QString& text, float min, float max)
{
    const float centre = min + (max - min) / 2;
    if (text == "C"_L1)
        return centre;
    float value = std::numeric_limits<float>::max();
    if (text.startsWith(u'L') || text.startsWith(u'R')) {
        const bool left = text.startsWith(u'L');
        bool isNumber = false;
        const float distance = text.mid(1).toFloat(&isNumber);
        if (text.size() == 1)
            value = left ? min : max;
        else if (isNumber)
            value = left ? centre - distance : centre + distance;
    }
    return std::min(std::max(value, min), max);
}

} // namespace quillon
