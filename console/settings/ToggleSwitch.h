#pragma once

#include "controls/FocusMarked.h"
#include "controls/MessageBoxParts.h"

#include <QCheckBox>

namespace quillon
{

/// A sliding switch. Where its knob is not, a word tells the state as well. GUI thread.
class ToggleSwitch final : public FocusMarked<QCheckBox>
{
public:
    explicit ToggleSwitch(QWidget* parent);

    void setChinese(bool chinese);
    void setFace(const QFont& face);

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRectF wordPlace(bool on) const;
    void refit();

    bool mChinese = false;
    QFont mFace;
};

} // namespace quillon
