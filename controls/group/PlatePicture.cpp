#include "controls/group/PlatePicture.h"

#include <QPainter>
#include <QPixmapCache>

using namespace Qt::StringLiterals;

namespace quillon
{
namespace
{
/// The picture at a size in device pixels. About a millisecond the first time, a hash look-up afterwards.
QPixmap scaledPicture(const QString& path, QSize size)
{
    const QString key = "%1 %2 %3"_L1.arg(path).arg(size.width()).arg(size.height());
    QPixmap scaled;
    if (!QPixmapCache::find(key, &scaled)) {
        const QImage image(path);
        if (image.isNull()) {
            return {};
        }
        scaled = QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        QPixmapCache::insert(key, scaled);
    }
    return scaled;
}
} // namespace

PlatePicture::PlatePicture(QWidget* parent) : QFrame(parent)
{
    setFrameShape(QFrame::NoFrame);
}

void PlatePicture::setPicture(const QString& path)
{
    if (mPath != path) {
        mPath = path;
        update();
    }
}

void PlatePicture::paintEvent(QPaintEvent*)
{
    if (mPath.isEmpty() || size().isEmpty()) {
        return;
    }
    const qreal ratio = devicePixelRatioF();
    QPixmap picture = scaledPicture(mPath, (QSizeF(size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture);
}
} // namespace quillon
