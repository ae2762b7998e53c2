#include "console/menu/WorkModeMenu.h"

#include "strips/ButtonPanel.h"
#include "strips/CaptionLabel.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr QColor kBox{31, 31, 31};
constexpr double kRadius = 4;
// In heights of the menu.
constexpr double kTitle = 2.9;
constexpr double kButton = 3.3;
constexpr double kPadding = 0.35; // before the title and behind the buttons
constexpr double kMargin = 0.12;  // above and below
constexpr double kGap = 0.15;     // between boxes
constexpr double kText = 0.62;    // height of the title

/// Width of a box, in heights of the menu.
double widthOf(const MenuGroup& group)
{
    return 2 * kPadding + kTitle + kButton * group.panel.columns;
}

} // namespace

std::vector<MenuPlace> menuPlaces(std::span<const MenuGroup> groups, QSize size)
{
    double heights = -kGap;
    for (const MenuGroup& group : groups) {
        heights += widthOf(group) + kGap;
    }
    const double unit = std::min<double>(size.height(), size.width() / heights);
    const int margin = qRound(size.height() * kMargin);
    std::vector<MenuPlace> places;
    double left = 0;
    for (const MenuGroup& group : groups) {
        const auto at = [&](double heightsIn) { return qRound(left + heightsIn * unit); };
        const int right = at(widthOf(group));
        const int text = qRound(size.height() * kText);
        const int buttons = at(kPadding + kTitle);
        places.push_back({.box = {at(0), 0, right - at(0), size.height()},
                          .title = {at(kPadding), (size.height() - text) / 2, qRound(kTitle * unit * 0.94), text},
                          .buttons = {buttons, margin, at(widthOf(group) - kPadding) - buttons, size.height() - 2 * margin}});
        left += (widthOf(group) + kGap) * unit;
    }
    places.back().box.setRight(size.width() - 1); // the bar goes on behind the last one
    return places;
}

WorkModeMenu::WorkModeMenu(std::span<const MenuGroup> groups, const QString& objectName, QWidget* parent)
    : QWidget(parent), WorkspaceObserver(objectName), mGroups(groups)
{
    setObjectName(objectName);
    for (const MenuGroup& group : groups) {
        const Box box{new CaptionLabel(this), new ButtonPanel(group.panel, this)};
        connect(box.buttons, &ButtonPanel::stateChanged, this,
                [this](const QString& button, const QString& state) { emit attributeChanged(this->objectName(), button, state); });
        mBoxes.push_back(box);
    }
    setMinimumHeight(20);
    setLanguage(u"English"_s);
}

void WorkModeMenu::setFont(const QFont& font)
{
    for (const Box& box : mBoxes) {
        box.title->setFace(font);
        box.buttons->setFont(font);
    }
}

void WorkModeMenu::onAppSettingsChanged(QString, QString attribute, QString value)
{
    if (attribute == "Language"_L1 && (value == "English"_L1 || value == "Chinese"_L1)) {
        setLanguage(value);
    }
}

void WorkModeMenu::setLanguage(const QString& language)
{
    for (std::size_t i = 0; i < mBoxes.size(); ++i) {
        const QString title = mGroups[i].title.in(language == "Chinese"_L1);
        mBoxes[i].title->setCaption(title);
        mBoxes[i].buttons->setLanguage(language);
        mBoxes[i].buttons->setAccessibleName(title);
    }
}

void WorkModeMenu::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    mPlaces = menuPlaces(mGroups, size());
    for (std::size_t i = 0; i < mBoxes.size(); ++i) {
        mBoxes[i].title->setGeometry(mPlaces[i].title);
        mBoxes[i].buttons->setGeometry(mPlaces[i].buttons);
    }
}

void WorkModeMenu::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kBox);
    for (const MenuPlace& place : mPlaces) {
        painter.drawRoundedRect(place.box, kRadius, kRadius);
    }
}

} // namespace quillon
