#include "console/head/HeadButton.h"

#include <QIcon>
#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr double kGrid = 24; // units in which the pictures are drawn
constexpr double kPictureShare = 0.66;
constexpr QColor kInk(222, 222, 222);
constexpr QColor kDoneInk(132, 132, 132);

QPen stroke(const QColor& color)
{
    return {color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void paintSave(QPainter& painter, const QColor& ink)
{
    painter.setPen(stroke(ink));
    painter.drawPolygon(QPolygonF({{3, 5}, {5, 3}, {16.5, 3}, {21, 7.5}, {21, 19}, {19, 21}, {5, 21}, {3, 19}}));
    painter.drawPolyline(QPolygonF({{7.5, 3.5}, {7.5, 8.5}, {15, 8.5}, {15, 3.5}}));
    painter.setPen(stroke(FocusMark::color()));
    painter.drawPolyline(QPolygonF({{7, 20.5}, {7, 14}, {17, 14}, {17, 20.5}}));
}

void paintDownload(QPainter& painter, const QColor& ink)
{
    painter.setPen(stroke(ink));
    painter.drawPolyline(QPolygonF({{3, 15}, {3, 19}, {5, 21}, {19, 21}, {21, 19}, {21, 15}}));
    painter.setPen(stroke(FocusMark::color()));
    painter.drawLine(QPointF(12, 3), QPointF(12, 15.5));
    painter.drawPolyline(QPolygonF({{7, 11}, {12, 16}, {17, 11}}));
}

void paintTick(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(31, 31, 31));
    painter.drawEllipse(QPointF(19.5, 19.5), 6, 6);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(stroke(FocusMark::color()));
    painter.drawPolyline(QPolygonF({{15.5, 19.5}, {18.5, 22.5}, {23.5, 16}}));
}

} // namespace

HeadButton::HeadButton(HeadPicture picture, QWidget* parent) : FocusMarked(parent), mPicture(picture)
{
    if (picture == HeadPicture::Settings) {
        mIcon = QIcon(u":/Icon/Settings.png"_s);
    }
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setMinimumSize(1, 1);
}

void HeadButton::setDone(bool done)
{
    if (std::exchange(mDone, done) != done) {
        update();
    }
}

void HeadButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = height() * 0.16;
    const QRectF plate = QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75);
    if (isEnabled() && (underMouse() || isDown())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? QColor(22, 22, 22) : QColor(60, 60, 60));
        painter.drawRoundedRect(plate, radius, radius);
    }
    painter.setBrush(Qt::NoBrush);
    if (mFocus.isShown()) {
        painter.setPen(QPen(FocusMark::color(), 1.5));
        painter.drawRoundedRect(plate, radius, radius);
    }
    const double side = std::min(width(), height()) * kPictureShare;
    const QRectF place((width() - side) / 2, (height() - side) / 2, side, side);
    if (mPicture == HeadPicture::Settings) {
        mIcon.paint(&painter, place.toAlignedRect());
        return;
    }
    painter.translate(place.topLeft());
    painter.scale(side / kGrid, side / kGrid);
    const QColor ink = mDone ? kDoneInk : kInk;
    mPicture == HeadPicture::Save ? paintSave(painter, ink) : paintDownload(painter, ink);
    if (mDone) {
        paintTick(painter);
    }
}

void HeadButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

} // namespace quillon
