#pragma once

#include "controls/ValueControl.h"
#include "controls/battery/BatteryDrawStrategy.h"

#include <QFont>
#include <QWidget>
#include <memory>

/// The charge of a battery: a hollow frame, whose inside a strategy draws. It stands still while nobody can see it. GUI thread.
class BatteryS1M1 : public QWidget, public quillon::ValueControlHost, private quillon::ValueControl
{
    Q_OBJECT
public:
    explicit BatteryS1M1(QWidget* parent = nullptr);
    ~BatteryS1M1() override;

    /// Percent. The level that is shown already does nothing.
    void setLevel(int level);
    int level() const { return mLevel; }
    void setCharging(bool charging);
    bool isCharging() const { return mCharging; }
    /// Takes the strategy over; the old one is deleted. Null is ignored.
    void setDrawStrategy(BatteryDrawStrategy* strategy);
    /// Either of the two shows the level as a number.
    void setShowText(bool show);
    void setShowPercent(bool show);
    void setFont(const QFont& font);

    quillon::ValueControl& valueControl() override { return *this; }
    QSize sizeHint() const override { return {90, 50}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QColor frameColour() const;
    void animate();

    QAccessible::Role accessibleRole() const override { return QAccessible::ProgressBar; }
    QString accessibleKind() const override { return QStringLiteral("Battery"); }
    Range accessibleRange() const override { return {0, 100, 1}; }
    double accessibleValue() const override { return mLevel; }
    QString accessibleText() const override;

    bool mShowPercent = false;
    bool mShowText = false;
    bool mCharging = false;
    bool mShowMark = true;
    int mCriticalLevel = 5;
    int mLowLevel = 10;
    int mLevel = 100;
    QRectF mBodyRect;
    QRectF mInner;
    QRectF mTerminal;
    QRectF mFill;
    QFont mFont;
    QFont mFitted;
    BatteryColours mColours;
    std::unique_ptr<BatteryDrawStrategy> mStrategy;
};
