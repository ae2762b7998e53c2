#include "controls/slider/Fader.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace quillon
{

namespace
{

constexpr double kDisabledOpacity = 0.4;
const QColor kGroove(0x33, 0x33, 0x33);
const QColor kEdge(0x10, 0x10, 0x10);
const QColor kIndex(67, 207, 124);

/// A moulded cap, hollow toward its index line; size is that of a vertical fader's.
void paintCap(QPainter& painter, QSizeF size)
{
    const double line = std::max(1.0, size.height() * 0.08);
    const QRectF body = QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient hollow(body.topLeft(), body.bottomLeft());
    hollow.setColorAt(0, QColor(132, 132, 132));
    hollow.setColorAt(0.14, QColor(98, 98, 98));
    hollow.setColorAt(0.16, QColor(66, 66, 66));
    hollow.setColorAt(0.5, QColor(44, 44, 44));
    hollow.setColorAt(0.84, QColor(92, 92, 92));
    hollow.setColorAt(0.86, QColor(74, 74, 74));
    hollow.setColorAt(1, QColor(40, 40, 40));
    const double radius = std::min(3.0, size.height() * 0.15);
    painter.setPen(QPen(kEdge, 1));
    painter.setBrush(hollow);
    painter.drawRoundedRect(body, radius, radius);
    const double middle = size.height() / 2;
    for (const double off : {-0.24, -0.13, 0.13, 0.24}) // ribs for the finger
        painter.fillRect(QRectF(2, middle + off * size.height() - 0.5, size.width() - 4, 1), QColor(20, 20, 20, 140));
    painter.fillRect(QRectF(1, middle - line / 2, size.width() - 2, line), kIndex);
}

QPixmap makeCap(QSize size, Qt::Orientation orientation, double scale)
{
    QPixmap picture((QSizeF(size) * scale).toSize());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(picture.width()) / size.width(), double(picture.height()) / size.height());
    if (orientation == Qt::Vertical) {
        paintCap(painter, size);
    } else {
        painter.setTransform(QTransform(0, 1, 1, 0, 0, 0), true); // along and across change places
        paintCap(painter, size.transposed());
    }
    return picture;
}

} // namespace

Fader::Fader(Qt::Orientation orientation, ValueControl& value, QWidget* parent) : QSlider(orientation, parent), mValueControl(value)
{
    setFocusPolicy(Qt::StrongFocus);
    setPageStep(5);
}

QRect Fader::cap() const
{
    const int at = QStyle::sliderPositionFromValue(minimum(), maximum(), sliderPosition(), room(), isVertical());
    return isVertical() ? QRect(QPoint((width() - mCapSize.width()) / 2, at), mCapSize)
                        : QRect(QPoint(at, (height() - mCapSize.height()) / 2), mCapSize);
}

/// Pixels from the one end of the cap's way to the other.
int Fader::room() const
{
    return std::max(0, isVertical() ? height() - mCapSize.height() : width() - mCapSize.width());
}

bool Fader::event(QEvent* event)
{
    // The style would have parts lit that are not drawn here, and painted anew under a moving pointer.
    const bool hovers =
        event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove || event->type() == QEvent::HoverLeave;
    return hovers ? QWidget::event(event) : QSlider::event(event);
}

void Fader::resizeEvent(QResizeEvent*)
{
    const int across = isVertical() ? width() : height();
    const int length = isVertical() ? height() : width();
    const int cap = std::clamp(int(across * 1.3), 1, std::max(1, length / 5));
    mCapSize = isVertical() ? QSize(across, cap) : QSize(cap, across);
    const double margin = across * 0.37;
    mGroove = isVertical() ? QRectF(margin, 0, across - 2 * margin, length) : QRectF(0, margin, length, across - 2 * margin);
    mCapPicture = {};
    mShown = this->cap();
}

void Fader::paintEvent(QPaintEvent*)
{
    if (mCapSize.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (!isEnabled())
        painter.setOpacity(kDisabledOpacity);
    const double radius = std::min(mGroove.width(), mGroove.height()) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(kGroove);
    painter.drawRoundedRect(mGroove, radius, radius);
    // The scale of the surface painted on, which is not that of the widget when it is rendered into a picture.
    const QTransform transform = painter.deviceTransform();
    const double scale = std::hypot(transform.m11(), transform.m12());
    if (mCapPicture.size() != (QSizeF(mCapSize) * scale).toSize())
        mCapPicture = makeCap(mCapSize, orientation(), scale);
    const QRect cap = this->cap();
    painter.drawPixmap(cap, mCapPicture);
    if (!mFocusMark.isShown())
        return;
    painter.setPen(QPen(FocusMark::color(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(cap).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

void Fader::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || isSliderDown()) {
        event->ignore();
        return;
    }
    mPointer = event->position().toPoint();
    const QRect cap = this->cap();
    if (cap.contains(mPointer)) {
        mGrip = along(mPointer) - along(cap.topLeft());
        setSliderDown(true);
        return;
    }
    const bool isBefore = along(mPointer) < along(cap.topLeft());
    const SliderAction action = isBefore == isVertical() ? SliderPageStepAdd : SliderPageStepSub;
    triggerAction(action);
    setRepeatAction(action);
}

void Fader::mouseMoveEvent(QMouseEvent* event)
{
    if (!isSliderDown()) {
        event->ignore();
        return;
    }
    const int at = along(event->position().toPoint()) - mGrip;
    setSliderPosition(QStyle::sliderValueFromPosition(minimum(), maximum(), at, room(), isVertical()));
}

void Fader::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        letGo();
    else
        event->ignore();
}

/// Hidden in the middle of a drag: the release goes elsewhere.
void Fader::hideEvent(QHideEvent* event)
{
    letGo();
    QSlider::hideEvent(event);
}

void Fader::letGo()
{
    setRepeatAction(SliderNoAction);
    setSliderDown(false);
}

void Fader::focusInEvent(QFocusEvent* event)
{
    if (mFocusMark.focusIn(event))
        update(cap());
}

void Fader::focusOutEvent(QFocusEvent* event)
{
    if (mFocusMark.focusOut(event))
        update(cap());
}

void Fader::sliderChange(SliderChange change)
{
    if (change != SliderValueChange && change != SliderRangeChange) {
        QSlider::sliderChange(change);
        return;
    }
    const QRect cap = this->cap();
    if (cap != mShown)
        update(mShown.united(cap));
    mShown = cap;
    if (repeatAction() != SliderNoAction && cap.contains(mPointer))
        setRepeatAction(SliderNoAction);
}

} // namespace quillon
