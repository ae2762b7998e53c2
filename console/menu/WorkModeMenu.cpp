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
constexpr int kGap = 4; // pixels between boxes
constexpr double kRadius = 4;
// Shares of a box.
constexpr double kMargin = 0.08; // of its height, on all sides
constexpr double kTitle = 0.24;  // of its height, of its width at most
constexpr double kTitleGap = 0.04;
constexpr double kPlate = 0.4; // height of a button, of its width at most

int widthOf(std::span<const MenuGroup> groups)
{
    int width = 0;
    for (const MenuGroup& group : groups) {
        width += group.panel.columns;
    }
    return width;
}

} // namespace

std::vector<MenuPlace> menuPlaces(std::span<const MenuGroup> groups, QSize size)
{
    const bool stacked = size.height() > size.width();
    const int gaps = kGap * static_cast<int>(groups.size() - 1);
    const int units = stacked ? static_cast<int>(groups.size()) : widthOf(groups);
    const double unit = std::max((stacked ? size.height() : size.width()) - gaps, 0) / static_cast<double>(units);
    std::vector<MenuPlace> places;
    double at = 0;
    for (const MenuGroup& group : groups) {
        const double along = unit * (stacked ? 1 : group.panel.columns);
        const int start = qRound(at);
        const int end = qRound(at + along);
        const QRect box = stacked ? QRect(0, start, size.width(), end - start) : QRect(start, 0, end - start, size.height());
        const int margin = qRound(std::min(box.height(), box.width()) * kMargin);
        const QRect inner = box.adjusted(margin, margin, -margin, -margin);
        const int title = qRound(std::min(inner.height() * kTitle, inner.width() * kTitle));
        QRect buttons = inner.adjusted(0, title + qRound(inner.height() * kTitleGap), 0, 0);
        const int rows = static_cast<int>(group.panel.buttons.size()) / group.panel.columns;
        buttons.setHeight(std::min(buttons.height(), qRound(kPlate * inner.width() / group.panel.columns * rows)));
        places.push_back({box, {inner.x(), inner.y(), inner.width(), title}, buttons});
        at += along + kGap;
    }
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
    setMinimumSize(72 * widthOf(groups), 58);
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
