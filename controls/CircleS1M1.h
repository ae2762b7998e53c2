#pragma once

#include "controls/ValueControl.h"

#include <QPixmap>
#include <QWidget>

/// A round status sign: ready, counting down, done or failed. It takes the font of the widget and fits it. GUI thread.
class CircleS1M1 : public QWidget, public quillon::ValueControlHost, private quillon::ValueControl
{
    Q_OBJECT
public:
    enum Mode : quint32 { Ready, Counting, Done, Failed };

    explicit CircleS1M1(QWidget* parent = nullptr);

    /// One of Mode; other numbers are ignored. Repaints only on a change.
    void setMode(quint32 mode);
    quint32 mode() const { return mMode; }

    /// What stands in the circle while counting, in seconds of maximum(). Repaints only on a change; what is no number is ignored.
    void setValue(float value);
    float value() const { return mValue; }
    float maximum() const { return mMaximum; }

    quillon::ValueControl& valueControl() override { return *this; }
    QSize sizeHint() const override { return {90, 90}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Fit {
        QRectF disc;
        QRect text;
        QRect caption;
        int textPixels = 0;
        int captionPixels = 0;
    };

    void refit();
    void paintTick(QPainter& painter, const QRectF& disc);

    QAccessible::Role accessibleRole() const override { return QAccessible::ProgressBar; }
    QString accessibleKind() const override { return QStringLiteral("Countdown"); }
    Range accessibleRange() const override { return {0, double(mMaximum), 1}; }
    double accessibleValue() const override { return double(mValue); }
    QString accessibleText() const override;

    quint32 mMode = Ready;
    float mValue = 0;
    float mMaximum = 15.0F;
    Fit mFit;
    QPixmap mTick; // scaled to the disc, made when first shown at a size
};
