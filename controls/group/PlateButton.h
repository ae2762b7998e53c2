#pragma once

#include <QPushButton>

namespace quillon
{
/// A button over a plate of a group's picture: it draws its caption, pointer feedback and focus, never the plate. GUI thread.
class PlateButton : public QPushButton
{
    Q_OBJECT
public:
    /// lampAtFoot: the foot of the plate belongs to its lamp, the caption stands above it.
    PlateButton(QWidget* parent, bool lampAtFoot);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const bool mLampAtFoot;
    bool mRing = false; ///< focus came from the keyboard
};
} // namespace quillon
