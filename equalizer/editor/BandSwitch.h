#pragma once

#include "controls/FocusMarked.h"

#include <QCheckBox>

namespace quillon
{

/// A check box that is all square: the tick tells its state, the colour only says it again. GUI thread.
class BandSwitch : public FocusMarked<QCheckBox>
{
public:
    explicit BandSwitch(QWidget* parent = nullptr);

    QSize sizeHint() const override { return {14, 14}; }
    QSize minimumSizeHint() const override { return {1, 1}; }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillon
