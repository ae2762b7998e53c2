#include "controls/group/PlateIcon.h"

#include "controls/FocusMark.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace quillon
{
namespace
{
/// Drawn once for each size and colour, shared by all panels of the process.
QPixmap tinted(const QString& svg, QSize size, QColor color)
{
    const QString key = "%1 %2 %3 %4"_L1.arg(svg).arg(size.width()).arg(size.height()).arg(color.rgb());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer(svg).render(&painter, QRectF(QPointF(), size));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), color);
        painter.end();
        QPixmapCache::insert(key, picture);
    }
    return picture;
}
} // namespace

PlateIcon::PlateIcon(const QString& svg, QWidget* parent) : QLabel(parent), mSvg(svg)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PlateIcon::setLit(bool lit)
{
    if (mLit != lit) {
        mLit = lit;
        update();
    }
}

void PlateIcon::paintEvent(QPaintEvent*)
{
    if (size().isEmpty()) {
        return;
    }
    const qreal ratio = devicePixelRatioF();
    const QColor color = !isEnabled() ? QColor(80, 80, 80) : mLit ? FocusMark::color() : QColor(161, 161, 161);
    QPixmap picture = tinted(mSvg, (QSizeF(size()) * ratio).toSize(), color);
    picture.setDevicePixelRatio(ratio);
    QPainter(this).drawPixmap(0, 0, picture);
}
} // namespace quillon
