#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QAbstractButton;

namespace quillon
{
/// Tells single from double clicks on watched buttons by the time between two releases. GUI thread.
///
/// The release is kept from the button, so that a press alone toggles nothing: a single left click is carried out by click()
/// once no second one can follow any more. A click on something else within that time calls both off.
class ClickTiming : public QObject
{
    Q_OBJECT
public:
    static constexpr int kIntervalMs = 200;

    ClickTiming();
    void watch(QAbstractButton* button);

signals:
    /// which is "Left", "Right" or "Middle" with "ButtonSingle" or "ButtonDouble" behind it.
    void clicked(QAbstractButton* button, QString which);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void in_mTimer_timeout();

private:
    void released(QAbstractButton* button, Qt::MouseButton mouseButton);

    QTimer mTimer;
    QPointer<QAbstractButton> mButton;
    Qt::MouseButton mMouseButton = Qt::NoButton;
};
} // namespace quillon
