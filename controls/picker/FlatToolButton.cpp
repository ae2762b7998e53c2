#include "controls/picker/FlatToolButton.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillon
{

FlatToolButton::FlatToolButton(QWidget* parent) : FocusMarked(parent)
{
    installPickerAccessibility();
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setMinimumSize(1, 1);
}

void FlatToolButton::setColors(const QColor& text, const QColor& background)
{
    mText = text;
    mBackground = background;
    update();
}

void FlatToolButton::setRadius(double radius)
{
    mRadius = radius;
    update();
}

int FlatToolButton::iconSide() const
{
    return icon().isNull() ? 0 : height() * 7 / 10;
}

QRect FlatToolButton::textRoom() const
{
    const int free = int(lampWidth() * 2.5); // for the lamp, and as much at the right
    const int side = iconSide();
    return rect().adjusted(free + (side > 0 ? side + int(lampWidth()) : 0), 0, -free, 0);
}

bool FlatToolButton::isPickerOpen() const
{
    return menu() && menu()->isVisible();
}

void FlatToolButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lit = isEnabled() && (underMouse() || isDown() || isPickerOpen());
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit ? mBackground.lighter(130) : mBackground);
    painter.drawRoundedRect(rect(), mRadius, mRadius);

    const double lamp = lampWidth();
    if (isChecked()) {
        painter.setBrush(FocusMark::color());
        painter.drawRoundedRect(QRectF(lamp, height() * 0.25, lamp, height() * 0.5), lamp / 2, lamp / 2);
    }
    if (mFocus.isShown()) {
        painter.setPen(QPen(FocusMark::color(), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), mRadius, mRadius);
    }
    const QRect room = textRoom();
    if (const int side = iconSide(); side > 0)
        icon().paint(&painter, QRect(room.x() - side - int(lamp), (height() - side) / 2, side, side));
    painter.setPen(!isEnabled() ? QColor(96, 96, 96) : isChecked() ? FocusMark::color() : isDown() ? QColor(Qt::white) : mText);
    painter.setFont(font());
    painter.drawText(room, Qt::AlignCenter, fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void FlatToolButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QToolButton::keyPressEvent(event);
}

void FlatToolButton::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QToolButton::keyReleaseEvent(event);
}

QString darkMenuSheet(double letterPixels, const QColor& background)
{
    const int sign = int(letterPixels * 0.9); // tick and arrow
    return u"QMenu { background: %1; border: 1px solid rgb(172,172,172); padding: 10px; border-radius: 1px; color: white;"
           " font-size: %2px; }"
           "QMenu::item { padding: 4px %4px 4px %4px; background: transparent; }"
           "QMenu::item:selected { background: rgb(60, 60, 60); color: rgb(67, 207, 124); }"
           "QMenu::item:disabled { color: rgb(110, 110, 110); }"
           "QMenu::indicator { width: %3px; height: %3px; left: 5px; }"
           "QMenu::right-arrow { width: %3px; height: %3px; image: url(:/Icon/pullRight.png); }"
           "QMenu::indicator:checked { image: url(:/Icon/tick.png); }"
           "QLabel { color: white; font-size: %2px; background: transparent; }"
           "QLabel:disabled { color: rgb(110, 110, 110); }"_s.arg(background.name(), QString::number(letterPixels, 'g', 6))
               .arg(sign)
               .arg(sign + 10);
}

} // namespace quillon
