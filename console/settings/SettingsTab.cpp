#include "console/settings/SettingsTab.h"

#include <QPainter>

namespace quillon
{

SettingsTab::SettingsTab(QWidget* parent) : FocusMarked(parent)
{
    setAttribute(Qt::WA_Hover);
    setMinimumSize(1, 1);
    setFocusPolicy(Qt::StrongFocus);
}

QRect SettingsTab::textPlace() const
{
    return rect().adjusted(height() * 2 / 5, 0, -height() / 8, 0);
}

void SettingsTab::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75);
    const double radius = height() * 0.16;
    const bool chosen = isChecked();
    if (chosen || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(chosen ? QColor(45, 45, 45) : QColor(36, 36, 36));
        painter.drawRoundedRect(plate, radius, radius);
    }
    if (chosen) {
        // The bar tells the chosen tab to who does not see its colours.
        const double bar = height() * 0.08;
        painter.setBrush(FocusMark::color());
        painter.drawRoundedRect(QRectF(bar, height() * 0.26, bar, height() * 0.48), bar / 2, bar / 2);
    }
    painter.setFont(font());
    painter.setPen(chosen ? QColor(235, 235, 235) : QColor(161, 161, 161));
    painter.drawText(textPlace(), Qt::AlignLeft | Qt::AlignVCenter, text());
    if (mFocus.isShown()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(FocusMark::color(), 1.5));
        painter.drawRoundedRect(plate, radius, radius);
    }
}

} // namespace quillon
