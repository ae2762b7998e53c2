#include "app/FontMeasures.h"

#include <QFontMetrics>

namespace quillon
{

namespace
{

constexpr int Unmeasured = -1;
constexpr int SizeCount = FontMeasures::LargestSize + 2 - FontMeasures::SmallestSize;
// One text is a table of some 250 bytes.
constexpr int MostEntries = 2000;

void setSize(QFont& font, FontUnit unit, int size)
{
    unit == FontUnit::Pixel ? font.setPixelSize(size) : font.setPointSize(size);
}

} // namespace

QFont FontMeasures::Ladder::sized(int size) const
{
    QFont font(mFace);
    setSize(font, mUnit, size);
    return font;
}

int FontMeasures::Ladder::height(int size)
{
    int& height = mHeights[static_cast<size_t>(size - SmallestSize)];
    if (height == Unmeasured) {
        height = QFontMetrics(sized(size)).height();
    }
    return height;
}

int FontMeasures::Ladder::advance(int size)
{
    int& advance = (*mAdvances)[static_cast<size_t>(size - SmallestSize)];
    if (advance == Unmeasured) {
        advance = QFontMetrics(sized(size)).horizontalAdvance(mText);
    }
    return advance;
}

FontMeasures::Ladder FontMeasures::ladder(const QFont& font, FontUnit unit, const QString& text)
{
    if (mEntries > MostEntries) {
        clear();
    }
    QFont face(font);
    setSize(face, unit, SmallestSize);
    // Points become pixels by the resolution that the font was made for.
    Face& measures = mFaces[FaceKey{face, qRound(QFontMetrics(face).fontDpi() * 100)}];
    if (measures.heights.empty()) {
        measures.heights.assign(SizeCount, Unmeasured);
        ++mEntries;
    }
    std::vector<int>* advances = nullptr;
    if (!text.isNull()) {
        advances = &measures.advances[text];
        if (advances->empty()) {
            advances->assign(SizeCount, Unmeasured);
            ++mEntries;
        }
    }
    return Ladder(face, unit, text, measures.heights, advances);
}

void FontMeasures::clear()
{
    mFaces.clear();
    mEntries = 0;
}

} // namespace quillon
