#pragma once

#include "app/AppSettingsSubject.h"
#include "controls/group/PanelShape.h"
#include "strips/StripBody.h"
#include "workspace/WorkspaceObserver.h"

#include <QFont>
#include <QWidget>
#include <span>
#include <vector>

namespace quillon
{
class ButtonPanel;
class CaptionLabel;

/// A box of a menu: its title before its buttons.
struct MenuGroup {
    StripText title;
    PanelShape panel;
};

/// Where title and buttons of a group stand in a menu of a size.
struct MenuPlace {
    QRect box;
    QRect title;
    QRect buttons;
};
/// The boxes one after the other in a row, of a width that suits its height; narrower where they would not fit.
std::vector<MenuPlace> menuPlaces(std::span<const MenuGroup> groups, QSize size);

/// The menu of a work mode: boxes of commands to the device, which keeps what they are about. Tells of a click as
/// (its object name, the button's English text, "1"). GUI thread.
class WorkModeMenu : public QWidget, public WorkspaceObserver, public AppSettingsObserver
{
    Q_OBJECT
public:
    void setFont(const QFont& font);

    /// A menu keeps no values.
    void loadSettings() override {}
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    /// The groups must outlive the menu.
    WorkModeMenu(std::span<const MenuGroup> groups, const QString& objectName, QWidget* parent);

    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setLanguage(const QString& language);

    struct Box {
        CaptionLabel* title;
        ButtonPanel* buttons;
    };
    const std::span<const MenuGroup> mGroups;
    std::vector<Box> mBoxes;
    std::vector<MenuPlace> mPlaces;
};

} // namespace quillon
