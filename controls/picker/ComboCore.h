#pragma once

#include "controls/FocusMark.h"
#include "controls/WheelGuard.h"
#include "controls/WheelSteps.h"
#include "controls/picker/PickerAccess.h"

#include <QColor>
#include <QComboBox>

class QPainter;

namespace quillon
{

/// What differs between the looks of the combo boxes; shares of the height.
struct ComboLook {
    double radius;
    double arrow;     // width of the arrow
    double arrowRoom; // at the right, kept free of text; 0 puts a small mark into the corner
    double textInset; // at the left
    double letterHeight;
};

constexpr ComboLook kCapsuleCombo{1 / 2.0, 1 / 3.0, 1.0, 1 / 3.0, 0.72};
constexpr ComboLook kCornerCombo{0.15, 0.22, 0, 0.14, 0.78};

/// Look, wheel and focus of a combo box, held by it; texts are fitted to the longest item. GUI thread.
class ComboCore
{
public:
    ComboCore(QComboBox* host, const ComboLook& look);

    void setFont(const QFont& font);
    void setTextColor(const QColor& color) { mTextColor = color; }
    QColor textColor() const;
    bool isOpen() const;
    /// Whether the box has been seen, and has its style sheet since then.
    bool isDressed() const { return mDressed; }
    /// To be called when size or items have changed.
    void relayout();
    /// Ground, arrow and focus; the current text where the combo box has no line edit.
    void paint() const;
    /// Whole notches move by one item each, ends included; false when the page is to have the turn.
    bool wheel(const QWheelEvent* event);
    /// To be shown every event: it keeps the focus mark, and dresses the box when it is first seen.
    void watch(QEvent* event);

private:
    void dress();
    void step(int rows);
    QString longestItem() const;

    QComboBox* mHost;
    const ComboLook& mLook;
    QFont mFont;
    QColor mTextColor{222, 222, 222};
    FocusMark mFocus;
    WheelGuard mWheelGuard;
    WheelSteps mWheelSteps;
    bool mFitting = false;
    bool mDressed = false;
};

} // namespace quillon
