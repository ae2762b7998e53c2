#include "controls/dial/DialPaint.h"

#include "controls/FocusMark.h"
#include "controls/dial/DialLaw.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr double kDisabledOpacity = 0.4;
constexpr int kTop = 90;    // degrees, as painters count them
constexpr int kStart = 225; // of the sweep
constexpr int kSixteenths = 16;

QRect centredSquare(QSize size)
{
    const int side = std::min(size.width(), size.height());
    return {(size.width() - side) / 2, (size.height() - side) / 2, side, side};
}

DialLayout layoutPictures(QSize size)
{
    const QRect dial = centredSquare(size);
    const int width = int(dial.width() * 0.6);
    const int height = int(dial.height() * 0.3);
    const int x = dial.x() + (dial.width() - width) / 2;
    const int y = int(dial.y() + (dial.height() - height) * 0.48);
    return {.square = dial, .dial = dial, .text = {x, y, width, height}};
}

DialLayout layoutDrawn(QSize size)
{
    const QRect square = centredSquare(size);
    const int pen = square.width() / 20 + 1;
    const QRect dial = square.adjusted(pen, pen, -pen, -pen);
    const QRect text(dial.x() + dial.width() / 4, dial.y() + dial.height() / 4, dial.width() / 2, dial.height() / 2);
    return {.square = square, .dial = dial, .text = text, .pen = pen};
}

int asFitting(int fitting)
{
    return fitting;
}

int lowered(int fitting)
{
    const int size = fitting - 3;
    return size < 4 ? size + 2 : size;
}

/// Null where the picture is missing: the dial then shows pointer and text alone.
QPixmap scaledPicture(const QString& path, int pixels)
{
    const QPixmap source(path);
    return source.isNull() || pixels < 1 ? QPixmap() : source.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

void paintPictureFace(QPainter& painter, const DialLayout& layout, const DialFrame&, DialPictures& pictures)
{
    // The scale of the surface painted on, which is not that of the widget when it is rendered into a picture.
    const QTransform transform = painter.deviceTransform();
    const int pixels = int(std::lround(layout.dial.width() * std::hypot(transform.m11(), transform.m12())));
    if (pictures.pixels != pixels) {
        pictures.pixels = pixels;
        pictures.face = scaledPicture(u":/Icon/EllipseBackground.png"_s, pixels);
        pictures.ring = scaledPicture(u":/Icon/Ellipse.png"_s, pixels);
    }
    if (!pictures.face.isNull())
        painter.drawPixmap(layout.dial, pictures.face);
}

/// The part of the ring that lies in the sector of the value, with smooth edges.
void paintSector(QPainter& painter, const DialLayout& layout, const DialFrame& frame, const DialPictures& pictures)
{
    const QPixmap& ring = pictures.ring;
    const QRect& dial = layout.dial;
    if (ring.isNull())
        return;
    const double start = frame.centreArc ? kTop : kStart - frame.angle;
    const double sweep = frame.centreArc ? kDialSweep / 2 - frame.angle : frame.angle;
    QPainterPath pie(QRectF(dial).center());
    pie.arcTo(dial, start, sweep);
    pie.closeSubpath();
    QBrush brush(ring);
    brush.setTransform(
        QTransform(double(dial.width()) / ring.width(), 0, 0, double(dial.height()) / ring.height(), dial.x(), dial.y()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawPath(pie);
}

void paintDisc(QPainter& painter, const DialLayout& layout, const DialFrame& frame, DialPictures&)
{
    painter.setPen(QPen(frame.colors.ring, layout.pen));
    painter.setBrush(frame.colors.disc);
    painter.drawEllipse(layout.dial);
}

void paintRing(QPainter& painter, const DialLayout& layout, const DialFrame& frame, DialPictures&)
{
    painter.setPen(QPen(frame.colors.ring, layout.pen * 0.9, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(layout.dial, -45 * kSixteenths, int(kDialSweep) * kSixteenths);
    const double inset = layout.pen * 1.5;
    painter.setPen(QPen(frame.colors.disc, layout.pen * 0.6));
    painter.setBrush(frame.colors.ring);
    painter.drawEllipse(QRectF(layout.dial).adjusted(inset, inset, -inset, -inset));
}

void paintStroke(QPainter& painter, const DialLayout& layout, const DialFrame& frame, double width)
{
    if (!frame.arcVisible)
        return;
    const int start = frame.centreArc ? kTop : kStart;
    const double span = frame.centreArc ? kDialSweep / 2 - frame.angle : -frame.angle;
    painter.setPen(QPen(frame.colors.arc, width, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(layout.dial, start * kSixteenths, int(span * kSixteenths));
}

void paintThinArc(QPainter& painter, const DialLayout& layout, const DialFrame& frame, const DialPictures&)
{
    paintStroke(painter, layout, frame, layout.pen);
}

void paintRingArc(QPainter& painter, const DialLayout& layout, const DialFrame& frame, const DialPictures&)
{
    paintStroke(painter, layout, frame, layout.pen * 0.9);
}

void paintPointer(QPainter& painter, const DialPointer& shape, const QRect& dial, const DialFrame& frame)
{
    const int inset = int(dial.width() * shape.inset);
    const QRectF inner = QRectF(dial).adjusted(inset, inset, -inset, -inset);
    const int a = int(dial.width() * 0.08);
    const double b = dial.width() * 0.5 - 2 * a;
    const double c = b * shape.width;
    painter.save();
    painter.translate(inner.center());
    painter.rotate(frame.angle - kDialSweep / 2);
    painter.setPen(QPen(frame.colors.pointer, int(a * 0.4)));
    painter.setBrush(frame.colors.pointer);
    painter.drawRoundedRect(QRectF(-c * 0.5, -inner.width() * shape.top, c, b * shape.length), c * 0.25, c * 0.25);
    painter.restore();
}

void paintFocus(QPainter& painter, const QRect& square)
{
    painter.setPen(QPen(FocusMark::color(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(square).adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace

const DialLook kDiscDial = {layoutDrawn, lowered, paintDisc, paintThinArc, {0, 0.42, 0.06, 0.36}, true, u"-88"};
const DialLook kRingDial = {layoutDrawn, lowered, paintRing, paintRingArc, {0, 0.42, 0.06, 0.36}, false, u"-88"};
const DialLook kPictureDial = {layoutPictures, asFitting, paintPictureFace, paintSector, {0.125, 0.46, 0.03, 0.23}, false, u"+88"};

void paintDial(QPainter& painter, const DialLook& look, const DialLayout& layout, const DialFrame& frame, DialPictures& pictures)
{
    if (layout.dial.isEmpty())
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    if (!frame.enabled)
        painter.setOpacity(kDisabledOpacity);
    look.paintFace(painter, layout, frame, pictures);
    if (!look.arcOverPointer)
        look.paintArc(painter, layout, frame, pictures);
    paintPointer(painter, look.pointer, layout.dial, frame);
    if (look.arcOverPointer)
        look.paintArc(painter, layout, frame, pictures);
    if (frame.focused)
        paintFocus(painter, layout.square);
    if (frame.text.isEmpty())
        return;
    painter.setFont(frame.font);
    painter.setPen(frame.colors.text);
    painter.drawText(layout.text, Qt::AlignCenter | Qt::TextDontClip, frame.text);
}

} // namespace quillon
