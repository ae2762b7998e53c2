#pragma once

#include "controls/ValueControl.h"
#include "controls/WheelGuard.h"
#include "controls/WheelSteps.h"
#include "controls/slider/Fader.h"
#include "controls/slider/FaderLaw.h"

#include <QFont>
#include <QObject>
#include <functional>

class QLineEdit;

namespace quillon
{

/// Shares of the control, in percent, from the read-out to the fader.
struct FaderRatio {
    int text = 8;
    int space = 2;
    int slider = 90;
};

struct FaderLayout {
    QRect text;
    QRect slider;
};

/// Where read-out and fader stand in one member of the family.
struct FaderShape {
    Qt::Orientation orientation;
    FaderLayout (*layout)(QSize size, const FaderRatio& ratio, const QFont& font);
};

/// The read-out above.
extern const FaderShape kVerticalFader;
/// The read-out at the right end.
extern const FaderShape kHorizontalFader;

/// What a fader with a read-out holds, over a law: the two children and what the hand does with them. changed is called after each
/// change by the user. GUI thread.
class FaderCore : public QObject, public ValueControl
{
public:
    FaderCore(QWidget* host, FaderLaw& law, const FaderShape& shape, std::function<void(float)> changed);
    ~FaderCore() override;

    float value() const { return mValue; }
    float defaultValue() const { return mDefault; }
    /// Silent; comes to rest where the law has it.
    void setValue(float value);
    void setDefault(float value) { mDefault = value; }
    void setRatio(const FaderRatio& ratio);
    void setFont(const QFont& font);
    /// The law has other bounds now: silent, and the value stays as far as they let it.
    void applyBounds();
    /// The law writes values in another way now.
    void showText();

    QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    QString accessibleKind() const override { return QStringLiteral("Fader"); }
    Range accessibleRange() const override;
    double accessibleValue() const override { return mValue; }
    QString accessibleText() const override { return mLaw.text(mValue); }
    void setAccessibleValue(double value) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void in_mSlider_valueChanged(int position);
    void in_mSlider_actionTriggered(int action);
    void in_mLineEdit_textChanged(const QString& text);
    void in_mLineEdit_editingFinished();
    bool sliderEvent(QEvent* event);
    bool wheel(QWheelEvent* event);
    bool key(int key);
    bool editEvent(QEvent* event);
    void moveTo(int position);
    void relayout();
    void nameChildren();

    QWidget* mHost;
    FaderLaw& mLaw;
    const FaderShape& mShape;
    std::function<void(float)> mChanged;
    Fader* mSlider;
    QLineEdit* mLineEdit;
    QFont mFont;
    FaderRatio mRatio;
    float mValue;
    float mDefault = 0;
    bool mSignalEnabled = true;
    WheelGuard mWheelGuard;
    WheelSteps mWheelSteps;
};

} // namespace quillon
