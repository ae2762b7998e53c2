#include "controls/dial/DialPaint.h"

#include "app/GlobalFont.h"
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

DialLayout layoutPictures(QSize size)
{
    const int side = std::min(size.width(), size.height());
    const QRect dial((size.width() - side) / 2, (size.height() - side) / 2, side, side);
    const int width = int(side * 0.6);
    const int height = int(side * 0.3);
    return {dial, QRect(dial.x() + (side - width) / 2, int(dial.y() + (side - height) * 0.48), width, height)};
}

int fitPictures(const QFont& font, const QString& sample, const DialLayout& layout)
{
    return GlobalFont::instance().pointSizeForRect(font, sample, layout.text);
}

/// Null where the picture is missing: the dial then shows pointer and text alone.
QPixmap scaledPicture(const QString& path, int pixels)
{
    const QPixmap source(path);
    return source.isNull() || pixels < 1 ? QPixmap() : source.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

void scalePictures(DialPictures& pictures, int pixels)
{
    if (pictures.pixels == pixels)
        return;
    pictures.pixels = pixels;
    pictures.face = scaledPicture(u":/Icon/EllipseBackground.png"_s, pixels);
    pictures.ring = scaledPicture(u":/Icon/Ellipse.png"_s, pixels);
}

/// The part of the ring that lies in the sector of the value, with smooth edges.
void paintSector(QPainter& painter, const QRect& dial, const QPixmap& ring, const DialFrame& frame)
{
    if (ring.isNull())
        return;
    const double start = frame.centreArc ? 90 : 225 - frame.angle;
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

void paintPointer(QPainter& painter, const QRect& dial, const DialFrame& frame)
{
    const int inset = int(dial.width() * 0.125);
    const QRectF inner = QRectF(dial).adjusted(inset, inset, -inset, -inset);
    const int a = int(dial.width() * 0.08);
    const double b = dial.width() * 0.5 - 2 * a;
    const double c = b * 0.03;
    painter.save();
    painter.translate(inner.center());
    painter.rotate(frame.angle - kDialSweep / 2);
    painter.setPen(QPen(frame.colors.pointer, int(a * 0.4)));
    painter.setBrush(frame.colors.pointer);
    painter.drawRoundedRect(QRectF(-c * 0.5, -inner.width() * 0.46, c, b * 0.23), c * 0.25, c * 0.25);
    painter.restore();
}

void paintFocus(QPainter& painter, const QRect& dial)
{
    painter.setPen(QPen(FocusMark::color(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(dial).adjusted(0.5, 0.5, -0.5, -0.5));
}

void paintPictures(QPainter& painter, const DialLayout& layout, const DialFrame& frame, DialPictures& pictures)
{
    if (layout.dial.isEmpty())
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    if (!frame.enabled)
        painter.setOpacity(kDisabledOpacity);
    // The scale of the surface painted on, which is not that of the widget when it is rendered into a picture.
    const QTransform transform = painter.deviceTransform();
    scalePictures(pictures, int(std::lround(layout.dial.width() * std::hypot(transform.m11(), transform.m12()))));
    if (!pictures.face.isNull())
        painter.drawPixmap(layout.dial, pictures.face);
    paintSector(painter, layout.dial, pictures.ring, frame);
    paintPointer(painter, layout.dial, frame);
    if (frame.focused)
        paintFocus(painter, layout.dial);
    if (frame.text.isEmpty())
        return;
    painter.setFont(frame.font);
    painter.setPen(frame.colors.text);
    painter.drawText(layout.text, Qt::AlignCenter | Qt::TextDontClip, frame.text);
}

} // namespace

const DialLook kPictureDial = {layoutPictures, fitPictures, paintPictures, u"+88"};

} // namespace quillon
