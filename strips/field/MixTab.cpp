#include "strips/field/MixTab.h"

#include <QMouseEvent>
#include <QPainter>

namespace quillon
{

namespace
{

constexpr QColor kNormal(128, 128, 128);
constexpr QColor kHover(222, 222, 222);

} // namespace

MixTab::MixTab(const QString& objectName, const QString& name, const QColor& colour, QWidget* parent)
    : FocusMarked(name, parent), mColour(colour)
{
    setObjectName(objectName);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

int MixTab::widthFor(int height) const
{
    return fontMetrics().horizontalAdvance(text()) + height / 2;
}

void MixTab::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        click();
    }
}

void MixTab::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(isChecked() ? mColour : underMouse() ? kHover : kNormal);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (isChecked()) {
        const int line = std::max(height() / 12, 1);
        painter.fillRect(QRect(height() / 4, height() - line, width() - height() / 2, line), mColour);
    }
    if (mFocus.isShown()) {
        painter.setPen(FocusMark::color());
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
    }
}

} // namespace quillon
