#pragma once

#include "console/InboundRouter.h"

#include <QObject>
#include <functional>

class QWidget;
class R47_PrivateWidget7;
class TabWidgetS1M1;
class WidgetAbout1;
class WidgetAudio1;
class WidgetSytem1;

namespace quillon
{

class UpdateGateway;

/// The settings dialog of the console: its four pages, filled, and in step with device and driver. Hidden until it is asked for.
/// GUI thread.
class SettingsWindow : public QObject
{
    Q_OBJECT
public:
    /// owner: the window that it is a window of.
    explicit SettingsWindow(QWidget& owner);

    void show();
    void hide();
    void setScaleFactor(double factor);
    /// Gives the router the page of the device's own options.
    void bind(InboundRouter& router);
    /// What page the console shows.
    void setPage(const PageRow& page);
    /// Hz and samples, as the driver has them now.
    void setSampleRates(const QList<int>& rates, int current);
    void setBufferSizes(const QList<int>& sizes, int current);
    void setSafeMode(bool on);
    /// "2.03"; empty: not known.
    void setFirmwareVersion(const QString& version);
    /// Where newer versions are asked for; may be null.
    void setUpdateGateway(UpdateGateway* gateway);
    /// Who makes and removes the entry that starts the program at log-in. It is brought into line with the setting at once.
    void setAutoStarter(const std::function<void(bool)>& starter);

signals:
    /// What the pages of device, program and versions raise.
    void attributeChanged(QString objectName, QString attribute, QString value);

private:
    QWidget& mOwner;
    TabWidgetS1M1* mDialog;
    WidgetSytem1* mSystem;
    R47_PrivateWidget7* mDevice;
    WidgetAudio1* mAudio;
    WidgetAbout1* mAbout;
};

} // namespace quillon
