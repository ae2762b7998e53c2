#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

namespace quillon
{

/// The way of a unit into its update mode, as the driver sees it: away, and back under the same name. The window goes on painting
/// meanwhile, and the program can be left. GUI thread.
class FirmwareHandover : public QObject
{
    Q_OBJECT
public:
    explicit FirmwareHandover(QObject* parent = nullptr);

    /// Waits a second at most for the unit to go, then without limit for its return. No effect while it waits.
    void start(const QString& deviceName);
    bool isWaiting() const { return mTimer.isActive(); }

signals:
    /// The unit is back, and active at the driver. Once per start.
    void ready();

private:
    void look();

    QTimer mTimer;
    QString mDeviceName;
    int mLooks = 0;
    bool mGone = false;
};

} // namespace quillon
