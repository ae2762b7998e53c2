#pragma once

#include "controls/SvgPixmap.h"

#include <QBasicTimer>
#include <QList>
#include <QRectF>
#include <QWidget>

/// A drawing of the device, with a light that runs over its lamps. The picture fills the widget; a widget in the ratio of size
/// 205 to 427 shows it undistorted. GUI thread.
class R47_PrivateWidget6 : public QWidget
{
    Q_OBJECT
public:
    /// The picture's own size, the unit of the lamps' places.
    static constexpr QSize kPictureSize{205, 427};

    explicit R47_PrivateWidget6(QWidget* parent = nullptr);

    /// Lets the light run, one step each so many milliseconds, at least 1. While the widget is hidden nothing runs; the light
    /// goes on where it was.
    void start(int ms);
    /// The light stays where it is.
    void stop();

    /// The lamps in pixels of the widget.
    const QList<QRectF>& lamps() const { return mScaled; }
    bool isLit(qsizetype lamp) const { return mFirst <= lamp && lamp <= mLast; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QList<QRectF> mLamps;  // in the picture's units
    QList<QRectF> mScaled; // in pixels
    qsizetype mFirst = 0;
    qsizetype mLast = 0;
    int mPeriod = 0; // 0: stopped
    QBasicTimer mTimer;
    quillon::SvgPixmap mPicture;
};
