#include "strips/StripLayout.h"

#include <algorithm>

namespace quillon
{

int titleHeight(QSize strip)
{
    return static_cast<int>(static_cast<float>(strip.height()) / 100.0F * kTitlePercent);
}

QRect placeRect(const Place& place, QSize strip, QSize minimum)
{
    const float wr = static_cast<float>(strip.width()) / 100.0F;
    const float hr = static_cast<float>(strip.height()) / 100.0F;
    const int width = static_cast<int>(wr * place.width);
    int height = static_cast<int>(hr * place.height);
    if (place.height == 0 && minimum.width() > 0) {
        height = minimum.height() * width / minimum.width();
    }
    const float top = place.from == From::NameRow ? static_cast<float>(titleHeight(strip)) : 0.0F;
    return {static_cast<int>(wr * place.x), static_cast<int>(hr * place.y + top), width, height};
}

int namePointSize(int fitted)
{
    int size = fitted - 3;
    if (size >= 8 && size <= 11) {
        size -= 1;
    } else if (size >= 12 && size <= 16) {
        size -= 2;
    } else if (size >= 17 && size <= 21) {
        size -= 3;
    }
    return std::max(size - 1, 1);
}

} // namespace quillon
