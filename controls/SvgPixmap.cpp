#include "controls/SvgPixmap.h"

#include <QPainter>
#include <QSvgRenderer>

namespace quillon
{

const QPixmap& SvgPixmap::at(QSize size, qreal ratio, const QColor& ground)
{
    if (mSize != size || mGround != ground || mPixmap.devicePixelRatio() != ratio) {
        mSize = size;
        mGround = ground;
        mPixmap = QPixmap((QSizeF(size) * ratio).toSize());
        mPixmap.setDevicePixelRatio(ratio);
        mPixmap.fill(ground);
        if (!mPixmap.isNull()) {
            QPainter painter(&mPixmap);
            QSvgRenderer(mFile).render(&painter, QRectF(QPointF(), QSizeF(size)));
        }
    }
    return mPixmap;
}

} // namespace quillon
