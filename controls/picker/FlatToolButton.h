#pragma once

#include "controls/FocusMarked.h"
#include "controls/picker/PickerAccess.h"

#include <QToolButton>
#include <algorithm>

namespace quillon
{

/// A flat button that opens a menu: its text stands in the middle, without a mark for the menu. A checked one is green and has a
/// lamp at its left. GUI thread.
class FlatToolButton : public FocusMarked<QToolButton>, public PickerHost
{
public:
    explicit FlatToolButton(QWidget* parent);

    void setColors(const QColor& text, const QColor& background);
    /// In pixels.
    void setRadius(double radius);
    /// Where the text stands, right of an icon.
    QRect textRoom() const;

    QAccessible::Role pickerRole() const override { return isCheckable() ? QAccessible::CheckBox : QAccessible::ButtonMenu; }
    QString pickerText() const override { return text(); }
    bool isPickerOpen() const override;
    void openPicker() override { click(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    double lampWidth() const { return std::max(2.0, height() * 0.1); }
    int iconSide() const; // 0 without an icon

    QColor mText{216, 216, 216};
    QColor mBackground{45, 45, 45};
    double mRadius = 0;
};

/// The look of the program's menus, with letters of that many pixels. For a menu itself, set when it opens.
QString darkMenuSheet(double letterPixels, const QColor& background);

} // namespace quillon
