#pragma once

#include "controls/FocusMark.h"
#include "controls/ValueControl.h"
#include "controls/WheelGuard.h"
#include "controls/WheelSteps.h"

#include <QFont>
#include <QRectF>
#include <QWidget>

class QLineEdit;

/// The balance slider: a track with a handle, and below it the value, "C", "L40" or "R", which can be typed as well. From 0
/// (all left) to 200 (all right). GUI thread.
class HSliderS1M1 : public QWidget, public quillon::ValueControlHost, private quillon::ValueControl
{
    Q_OBJECT
public:
    explicit HSliderS1M1(QWidget* parent = nullptr);
    ~HSliderS1M1() override;

    float value() const { return mValue; }
    /// Clamped; what is no number is ignored. notify: emit valueChanged if it changed.
    void setValue(float value, bool notify = false);
    void setFont(const QFont& font);

    QSize sizeHint() const override { return {38, 19}; }
    quillon::ValueControl& valueControl() override { return *this; }

signals:
    void valueChanged(float value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void in_mLineEdit_editingFinished();

private:
    float valueAt(double x) const;
    double xOf(float value) const;
    QRectF handle() const;
    void refreshText();

    QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    QString accessibleKind() const override;
    Range accessibleRange() const override { return {mMin, mMax, 1}; }
    double accessibleValue() const override { return mValue; }
    QString accessibleText() const override;
    void setAccessibleValue(double value) override;

    QRectF mTrack;
    QRectF mTextRect;
    float mHandleWidth = 0;
    float mMin = 0;
    float mMax = 200;
    float mValue = 100;
    float mDefault = 100;
    int mPixelRatio = 2;
    bool mDragging = false;
    QPointF mPressPos;
    QPointF mDragOffset;
    QFont mFont;
    QLineEdit* mLineEdit;
    quillon::FocusMark mFocusMark;
    quillon::WheelGuard mWheelGuard;
    quillon::WheelSteps mWheelSteps;
};
