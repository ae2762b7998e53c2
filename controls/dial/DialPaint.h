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
    QRect square; // the largest centred square
    QRect dial;   // what the hand can grasp, and what the arc runs along
    QRect text;
    int pen = 0; // width of the arc, where it is not a picture
};

struct DialColors {
    QColor disc{53, 53, 53};
    QColor ring{46, 46, 46};
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

/// The needle at the top of the sweep; shares of the dial's width or of the room that its text leaves.
struct DialPointer {
    double inset;
    double top;
    double width;
    double length;
};

/// One of the looks of the family.
struct DialLook {
    DialLayout (*layout)(QSize size);
    /// Point size of the text out of the one that fits.
    int (*pointSize)(int fitting);
    void (*paintFace)(QPainter& painter, const DialLayout& layout, const DialFrame& frame, DialPictures& pictures);
    void (*paintArc)(QPainter& painter, const DialLayout& layout, const DialFrame& frame, const DialPictures& pictures);
    DialPointer pointer;
    bool arcOverPointer;
    const char16_t* sample; // has to fit into the text's place
};

void paintDial(QPainter& painter, const DialLook& look, const DialLayout& layout, const DialFrame& frame, DialPictures& pictures);

/// A filled circle with a thin arc along its edge.
extern const DialLook kDiscDial;
/// A ring around an inner disc; the arc fills the ring.
extern const DialLook kRingDial;
/// A face, and a ring that is cut to the sector of the value. It always shows its arc.
extern const DialLook kPictureDial;

} // namespace quillon
