#include "equalizer/window/FlatButton.h"

#include <QPainter>

namespace quillon
{

namespace
{

constexpr QColor kHover{53, 53, 53};
constexpr QColor kPressed{12, 12, 12};

} // namespace

FlatButton::FlatButton(QWidget* parent) : FocusMarked(parent)
{
    setCheckable(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setMinimumSize(1, 1);
}

void FlatButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(mFocus.isShown() ? QPen(FocusMark::color()) : QPen(Qt::NoPen));
    if (isDown() || underMouse()) {
        painter.setBrush(isDown() ? kPressed : kHover);
    }
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    paintFace(painter);
}

PictureButton::PictureButton(const QString& picture, const QString& checked, QWidget* parent) : FlatButton(parent)
{
    QIcon icon;
    icon.addFile(picture, {}, QIcon::Normal, QIcon::Off);
    icon.addFile(checked, {}, QIcon::Normal, QIcon::On);
    setIcon(icon);
}

void PictureButton::paintFace(QPainter& painter)
{
    icon().paint(&painter, rect().adjusted(1, 1, -1, -1), Qt::AlignCenter, QIcon::Normal, isChecked() ? QIcon::On : QIcon::Off);
}

} // namespace quillon
