#pragma once

#include <QScrollArea>

namespace quillon
{

/// The look of the dialog's scroll areas: no frame, and a slim bar at the right only where the page is higher than its place.
class SettingsScroll : public QScrollArea
{
public:
    explicit SettingsScroll(QWidget* page);
};

} // namespace quillon

/// A page of the settings dialog with its scroll bar. GUI thread.
template<class Page> class ScrollArea final : public quillon::SettingsScroll
{
public:
    /// Takes page over.
    explicit ScrollArea(Page* page) : SettingsScroll(page) {}

    Page* page() const { return static_cast<Page*>(widget()); }
};
