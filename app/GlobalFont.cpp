#include "app/GlobalFont.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QResource>
#include <algorithm>

using namespace Qt::StringLiterals;
using quillon::FontMeasures;
using quillon::FontUnit;

namespace
{

// Each size costs the system a search for a font of that size, some 1 ms. So the growth does not begin at the smallest size but
// near its end, which one size that all fits share foretells: text grows in proportion, give or take the rounding.
constexpr int kForetellingSize = 12;

int foretold(int measure, int limit)
{
    return measure > 0 ? static_cast<int>(qint64(limit) * kForetellingSize / measure) : FontMeasures::LargestSize;
}

// The size at which the growth stops: the first one that does not fit, one above the largest where all do.
template<typename Fits> int stopSize(int near, Fits fits)
{
    int size = std::clamp<int>(near, FontMeasures::SmallestSize, FontMeasures::LargestSize);
    while (size > FontMeasures::SmallestSize && !fits(size)) {
        --size;
    }
    while (size <= FontMeasures::LargestSize && fits(size)) {
        ++size;
    }
    return size;
}

int stopForHeight(FontMeasures::Ladder& ladder, int height)
{
    return stopSize(foretold(ladder.height(kForetellingSize), height), [&](int size) { return ladder.height(size) <= height; });
}

int sizeForHeight(FontMeasures::Ladder ladder, int height)
{
    return stopForHeight(ladder, height) - 1;
}

int sizeForRect(FontMeasures::Ladder ladder, const QRect& rect)
{
    const int near = std::min(foretold(ladder.height(kForetellingSize), rect.height()),
                              foretold(ladder.advance(kForetellingSize), rect.width()));
    return stopSize(near, [&](int size) { return ladder.height(size) <= rect.height() && ladder.advance(size) <= rect.width(); }) -
           1;
}

// A null text would ask for no advances at all.
QString measurable(const QString& text)
{
    return text.isNull() ? u""_s : text;
}

/// A face of the resources is used where it lies: by its name the toolkit would read it twice, megabytes of a Chinese one.
int addFace(const QString& path)
{
    const QResource resource(path);
    if (!resource.isValid() || resource.compressionAlgorithm() != QResource::NoCompression) {
        return QFontDatabase::addApplicationFont(path);
    }
    const auto* data = reinterpret_cast<const char*>(resource.data());
    return QFontDatabase::addApplicationFontFromData(QByteArray::fromRawData(data, resource.size()));
}

} // namespace

GlobalFont& GlobalFont::instance()
{
    static GlobalFont font;
    return font;
}

int GlobalFont::addFaces(const QStringList& paths)
{
    int first = -1;
    for (const QString& path : paths) {
        const int id = addFace(path);
        if (id == -1) {
            qWarning("GlobalFont::load // failed to add file[%ls]", qUtf16Printable(path));
        } else if (first == -1) {
            first = id;
        }
    }
    return first;
}

bool GlobalFont::load(const QStringList& paths)
{
    const int first = addFaces(paths);
    const QStringList families = first == -1 ? QStringList() : QFontDatabase::applicationFontFamilies(first);
    if (families.isEmpty()) {
        qWarning("GlobalFont::load // failed to load font");
        return false;
    }
    mFont.setFamily(families.value(first, families.first()));
    mFont.setWeight(QFont::Bold);
    mFont.setPixelSize(16);
    // Fixed, so that text looks the same before and after the fonts of the system are known, whose settings would decide it.
    mFont.setHintingPreference(QFont::PreferVerticalHinting);
    mMeasures.clear();
    return true;
}

QFont GlobalFont::font() const
{
    return mFont;
}

QString GlobalFont::longerText(const QString& a, const QString& b) const
{
    QFont small(mFont);
    small.setPointSize(FontMeasures::SmallestSize);
    const QFontMetrics metrics(small);
    return metrics.horizontalAdvance(a) > metrics.horizontalAdvance(b) ? a : b;
}

int GlobalFont::pixelSizeForHeight(const QFont& font, int height) const
{
    return sizeForHeight(mMeasures.ladder(font, FontUnit::Pixel), height);
}

int GlobalFont::pixelSizeForRect(const QFont& font, const QString& text, const QRect& rect) const
{
    return sizeForRect(mMeasures.ladder(font, FontUnit::Pixel, measurable(text)), rect);
}

int GlobalFont::pointSizeForHeight(const QFont& font, int height) const
{
    return sizeForHeight(mMeasures.ladder(font, FontUnit::Point), height);
}

int GlobalFont::pointSizeForWidth(const QFont& font, const QString& text, int width) const
{
    FontMeasures::Ladder ladder = mMeasures.ladder(font, FontUnit::Point, measurable(text));
    return stopSize(foretold(ladder.advance(kForetellingSize), width), [&](int size) { return ladder.advance(size) <= width; }) - 1;
}

int GlobalFont::pointSizeForRect(const QFont& font, const QString& text, const QRect& rect) const
{
    return sizeForRect(mMeasures.ladder(font, FontUnit::Point, measurable(text)), rect);
}

int GlobalFont::textWidthForHeight(const QFont& font, const QString& text, int height) const
{
    FontMeasures::Ladder ladder = mMeasures.ladder(font, FontUnit::Point, measurable(text));
    return ladder.advance(stopForHeight(ladder, height));
}

bool GlobalFont::fitsWidth(const QFont& font, const QString& text, int width) const
{
    return QFontMetrics(font).horizontalAdvance(text) <= width;
}

QStringList quillon::applicationFontPaths()
{
    return {
        u":/Font/SourceHanSansCN-Bold.ttf"_s, u":/Font/NotoSans-Bold.ttf"_s,  u":/Font/NotoSans-ExtraBold.ttf"_s,
        u":/Font/NotoSans-ExtraLight.ttf"_s,  u":/Font/NotoSans-Light.ttf"_s, u":/Font/NotoSans-Medium.ttf"_s,
        u":/Font/NotoSans-Regular.ttf"_s,
    };
}
