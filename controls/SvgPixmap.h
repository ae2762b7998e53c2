#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>

namespace quillon
{

/// A drawing out of the resources as a pixmap of the size that is asked for, drawn anew only when size, ratio or ground change.
class SvgPixmap
{
public:
    /// file: a resource name.
    explicit SvgPixmap(QString file) : mFile(std::move(file)) {}

    /// size in logical pixels, stretched to; ground lies under the drawing.
    const QPixmap& at(QSize size, qreal ratio, const QColor& ground = Qt::transparent);

private:
    QString mFile;
    QColor mGround;
    QSize mSize;
    QPixmap mPixmap;
};

} // namespace quillon
