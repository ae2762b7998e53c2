#pragma once

#include "controls/FocusMarked.h"
#include "controls/group/PlatePaint.h"

#include <QPushButton>

#include <array>
#include <optional>

namespace quillon
{
/// A push button drawn as a plate. A checkable one has a lamp that is lit while it is checked. GUI thread.
class PlateButton : public FocusMarked<QPushButton>
{
    Q_OBJECT
public:
    explicit PlateButton(QWidget* parent = nullptr, PlateStyle style = PlateStyle::Shaded, PlateTone tone = PlateTone::Green);

    /// Where the lamp stands whatever the plate's ratio is, so that it is the same all over a panel.
    void setLampPlace(LampPlace place);
    /// The space of the caption, also of a hidden button, which is laid out only when it is shown.
    QSizeF captionSize() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    PlateLayout presentLayout() const;
    void layoutPlate();

    const std::array<PlateColors, 2> mColors; ///< off, on
    std::array<QBrush, 2> mFill;
    PlateLayout mLayout;
    std::optional<LampPlace> mLampPlace;
};
} // namespace quillon
