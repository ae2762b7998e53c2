#include "console/ducking/TextFit.h"

#include "app/GlobalFont.h"

#include <algorithm>

namespace quillon
{

void fitTogether(const QFont& face, std::span<const FitText> texts)
{
    int size = FontMeasures::LargestSize;
    for (const FitText& text : texts) {
        size = std::min(size, GlobalFont::instance().pointSizeForRect(face, text.text, QRect(QPoint(), text.space)));
    }
    QFont font = face;
    font.setPointSize(size);
    for (const FitText& text : texts) {
        text.widget->setFont(font);
    }
}

} // namespace quillon
