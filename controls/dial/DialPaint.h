#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QString>

class QPainter;

namespace quillon
{

struct DialLayout {
    QRect dial; // the largest centred square
    QRect text;
};

struct DialColors {
    QColor arc{67, 207, 124};
    QColor pointer{67, 207, 124};
    QColor text{67, 207, 124};
};

/// Everything that the picture of a dial depends on, besides its layout.
struct DialFrame {
    double angle = 0; // degrees from the start of the sweep
    QString text;     // empty: none is drawn
    QFont font;
    bool centreArc = false;
    bool arcVisible = true;
    bool enabled = true;
    bool focused = false;
    DialColors colors;
};

/// The pictures of a look at the size at which they were last drawn; made anew only when that changes.
struct DialPictures {
    QPixmap face;
    QPixmap ring;
    int pixels = -1; // edge in device pixels
};

/// One of the looks of the family.
struct DialLook {
    DialLayout (*layout)(QSize size);
    int (*pointSize)(const QFont& font, const QString& sample, const DialLayout& layout);
    void (*paint)(QPainter& painter, const DialLayout& layout, const DialFrame& frame, DialPictures& pictures);
    const char16_t* sample;
};

/// A face, and a ring that is cut to the sector of the value.
extern const DialLook kPictureDial;

} // namespace quillon
