#pragma once

#include <QFont>
#include <QHash>
#include <QString>

#include <vector>

namespace quillon
{

enum class FontUnit { Pixel, Point };

/// Font heights and text advances by size, remembered. A size is measured when it is first asked for, because each one costs
/// a font engine; after that a fit is a walk over integers. Bounded: everything is dropped when too many texts are held. GUI
/// thread.
class FontMeasures
{
public:
    static constexpr int SmallestSize = 5;
    static constexpr int LargestSize = 60;

    /// One face at all sizes from SmallestSize to LargestSize + 1, and one text in it. Valid until the next call of ladder().
    class Ladder
    {
    public:
        /// Height of the face at a size, in pixels.
        int height(int size);
        /// Horizontal advance of the text at a size, in pixels.
        int advance(int size);

    private:
        friend class FontMeasures;
        Ladder(const QFont& face, FontUnit unit, QString text, std::vector<int>& heights, std::vector<int>* advances)
            : mFace(face), mUnit(unit), mText(std::move(text)), mHeights(heights), mAdvances(advances)
        {
        }
        QFont sized(int size) const;

        QFont mFace;
        FontUnit mUnit;
        QString mText;
        std::vector<int>& mHeights;
        std::vector<int>* mAdvances;
    };

    /// The measures of a face whatever its size; a null text asks for heights only.
    Ladder ladder(const QFont& font, FontUnit unit, const QString& text = QString());
    /// Forgets everything: after a change of the installed faces.
    void clear();

private:
    // The size of the held font is always SmallestSize, so that fonts which differ in size share one entry.
    struct FaceKey {
        QFont font;
        int dpi;
        bool operator==(const FaceKey&) const = default;
    };
    struct Face {
        std::vector<int> heights;
        QHash<QString, std::vector<int>> advances;
    };
    friend size_t qHash(const FaceKey& key, size_t seed) { return qHashMulti(seed, key.font, key.dpi); }

    QHash<FaceKey, Face> mFaces;
    int mEntries = 0;
};

} // namespace quillon
