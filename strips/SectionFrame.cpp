#include "strips/SectionFrame.h"

#include <QPainter>

namespace quillon
{

namespace
{

constexpr QColor kGround{30, 30, 30};
constexpr QColor kEdge{62, 62, 62};
constexpr double kRadius = 0.04; // of the width

} // namespace

SectionFrame::SectionFrame(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SectionFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(kEdge);
    painter.setBrush(kGround);
    const double radius = width() * kRadius;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace quillon
