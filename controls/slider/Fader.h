#pragma once

#include "controls/FocusMark.h"
#include "controls/ValueControl.h"

#include <QPixmap>
#include <QSlider>

namespace quillon
{

/// A groove with a fader cap: grasped and dragged where it is held; a press beside it moves by the page step toward the pointer, on
/// and on while the button is down. Tells assistive technology the value that its positions stand for. GUI thread.
class Fader : public QSlider, public ValueControlHost
{
public:
    Fader(Qt::Orientation orientation, ValueControl& value, QWidget* parent);

    ValueControl& valueControl() override { return mValueControl; }
    /// The cap at the present position.
    QRect cap() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void sliderChange(SliderChange change) override;

private:
    bool isVertical() const { return orientation() == Qt::Vertical; }
    int along(QPoint at) const { return isVertical() ? at.y() : at.x(); }
    int room() const;
    void letGo();

    ValueControl& mValueControl;
    FocusMark mFocusMark;
    QRectF mGroove;
    QSize mCapSize;
    QPixmap mCapPicture;
    QRect mShown;  // the cap as last asked to be painted
    int mGrip = 0; // from the cap's start to the pointer
    QPoint mPointer;
};

} // namespace quillon
