#pragma once

#include "controls/FocusMarked.h"

#include <QRadioButton>

namespace quillon
{

/// A tab at the left of the settings dialog: one of several of which one is chosen. GUI thread.
class SettingsTab final : public FocusMarked<QRadioButton>
{
public:
    explicit SettingsTab(QWidget* parent);

    /// Where its text stands.
    QRect textPlace() const;

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillon
