#pragma once

#include "console/pages/PageKit.h"

#include <QObject>
#include <vector>

class EqualizerBase;
class R47_PrivateWidget1;

namespace quillon
{

class SettingsWindow;

/// The windows of the console that belong to no page: made hidden with it, opened from strips and bars, in step with the device
/// whichever page is shown. GUI thread.
class ConsoleWindows : public QObject
{
    Q_OBJECT
public:
    /// owner: the window that they are windows of. Until join() they have no way to anybody.
    ConsoleWindows(QWidget& owner, DeviceR47& device, InboundRouter& router, ConsoleLinks& links);

    /// Joins the windows to the pages, which have been built: pages by id, null where there is none. Once.
    void join(const std::vector<ConsolePage*>& pages);

    void setPage(PageId page);
    void setScaleFactor(double factor);
    void hide();
    SettingsWindow& settings() { return *mSettings; }

private:
    void joinDucking(const std::vector<ConsolePage*>& pages);
    void joinEqualizers(const std::vector<ConsolePage*>& pages);
    void joinHeadphones(ConsolePage& page);
    void joinLamps(const std::vector<ConsolePage*>& pages);

    DeviceR47& mDevice;
    InboundRouter& mRouter;
    ConsoleLinks& mLinks;
    R47_PrivateWidget1* mDucking;
    std::array<EqualizerBase*, ConsoleLinks::ChannelCount> mEqualizers{};
    SettingsWindow* mSettings;
};

} // namespace quillon
