#pragma once

#include "controls/group/PanelShape.h"

#include <QColor>
#include <QLinearGradient>

class QPainter;

namespace quillon
{

/// How a plate is drawn in one of its states.
struct PlateColors {
    QColor top;
    QColor bottom;
    QColor edge;
    QColor lamp;
    QColor caption;
};
PlateColors plateColors(PlateStyle style, PlateTone tone, bool lit);

/// Where things are on a plate. A lamp tells on from off, so that colour is never the only sign: at the left of a wide plate, at
/// the foot of others. The caption keeps clear of it.
struct PlateLayout {
    QRectF plate;
    QRectF lamp;
    QRectF caption;
    double radius = 0;
};
enum class LampPlace { Left, Foot };
LampPlace lampPlaceFor(QSize plate);
PlateLayout layoutPlate(QSize size, LampPlace lamp);

/// What the pointer and the keyboard do to a plate at the moment.
struct PlateTouch {
    bool enabled = true;
    bool hovered = false;
    bool pressed = false;
    bool focused = false;
};

/// Draws one plate in the painter's font. fill is the gradient of colors over the plate, kept by the caller between paints.
void paintPlate(QPainter& painter, const PlateLayout& layout, const PlateColors& colors, const QBrush& fill, bool hasLamp,
                const PlateTouch& touch, const QString& caption);

} // namespace quillon
