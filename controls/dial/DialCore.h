#pragma once

#include "controls/FocusMark.h"
#include "controls/WheelGuard.h"
#include "controls/WheelSteps.h"
#include "controls/dial/DialLaw.h"
#include "controls/dial/DialPaint.h"

#include <QFont>
#include <functional>

class QEvent;
class QMouseEvent;
class QWheelEvent;
class QWidget;

namespace quillon
{

/// What a dial holds: its look and the gestures on it, over a law. The widget passes its events to handle(); changed is called
/// after each change by the user. GUI thread.
class DialCore : public ValueControl
{
public:
    DialCore(QWidget* host, DialLaw& law, const DialLook& look, std::function<void(float)> changed);

    /// True when the event was of the dial's business and is done with.
    bool handle(QEvent* event);

    /// Tells that the law has moved by a call, not by the hand: repaints.
    void refresh();
    void setFont(const QFont& font);
    const QFont& font() const { return mFont; }
    void setFitText(const QString& text);
    void setCentreArc(bool on);
    void setArcVisible(bool visible);
    void setTextVisible(bool visible);
    /// While something else stands in the text's place.
    void setTextCovered(bool covered);
    const DialLayout& layout() const { return mLayout; }
    /// The user has changed the value by another way than the gestures here.
    void notify();

    QAccessible::Role accessibleRole() const override { return QAccessible::Dial; }
    QString accessibleKind() const override;
    Range accessibleRange() const override { return mLaw.range(); }
    double accessibleValue() const override { return mLaw.value(); }
    QString accessibleText() const override { return mLaw.text(); }
    void setAccessibleValue(double value) override;

private:
    bool input(QEvent* event);
    bool press(const QMouseEvent* event);
    bool move(const QMouseEvent* event);
    bool release(const QMouseEvent* event);
    bool doubleClick(const QMouseEvent* event);
    bool wheel(const QWheelEvent* event);
    bool key(int key);
    void moved(bool changed);
    void relayout();
    void paint();
    void set(bool& flag, bool value);

    QWidget* mHost;
    DialLaw& mLaw;
    const DialLook& mLook;
    std::function<void(float)> mChanged;
    DialLayout mLayout;
    DialPictures mPictures;
    QFont mFont;
    QFont mTextFont; // fitted
    QString mFitText;
    bool mCentreArc = false;
    bool mArcVisible = true;
    bool mTextVisible = true;
    bool mTextCovered = false;
    bool mDragging = false;
    double mDragStartY = 0;
    FocusMark mFocusMark;
    WheelGuard mWheelGuard;
    WheelSteps mWheelSteps;
};

} // namespace quillon
