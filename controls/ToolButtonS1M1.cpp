#include "controls/ToolButtonS1M1.h"

#include "app/GlobalFont.h"
#include "controls/picker/FlatToolButton.h"

#include <QEvent>
#include <QMenu>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QColor kPlate(45, 45, 45);
const QColor kMenuGround(22, 22, 22);
constexpr int kLeastMenuLetters = 11; // pixels: a narrow strip does not make its menu unreadable

QMenu* menuOfText(QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (!action->menu())
            continue;
        if (action->text() == text)
            return action->menu();
        if (QMenu* inner = menuOfText(action->menu(), text))
            return inner;
    }
    return nullptr;
}

void checkOnly(QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (action->menu())
            checkOnly(action->menu(), text);
        else
            action->setChecked(action->text() == text);
    }
}

} // namespace

ToolButtonS1M1::ToolButtonS1M1(QWidget* parent)
    : QWidget(parent), mMenu(new QMenu(this)), mToolButton(new quillon::FlatToolButton(this)), mFont(font())
{
    mToolButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    mToolButton->setPopupMode(QToolButton::InstantPopup);
    mToolButton->setMenu(mMenu);
    setFocusProxy(mToolButton);
    setTextColour(QColor(216, 216, 216));
    connect(mMenu, &QMenu::aboutToShow, this, &ToolButtonS1M1::dressMenu);
    connect(mMenu, &QMenu::triggered, this, &ToolButtonS1M1::in_mMenu_triggered);
}

QMenu* ToolButtonS1M1::section(QMenu* parent, const QString& text)
{
    for (QAction* action : parent->actions())
        if (action->menu() && action->text() == text)
            return action->menu();
    return parent->addMenu(text);
}

void ToolButtonS1M1::addMenu(const QString& path)
{
    QMenu* menu = mMenu;
    for (const QString& text : path.split(u'/', Qt::SkipEmptyParts))
        menu = section(menu, text);
}

void ToolButtonS1M1::addItem(const QString& menuName, const QString& text)
{
    QMenu* menu = menuOfText(mMenu, menuName);
    if (!menu)
        menu = mMenu->addMenu(menuName);
    const auto actions = menu->actions();
    if (std::any_of(actions.begin(), actions.end(), [&](const QAction* action) { return action->text() == text; }))
        return;
    QAction* action = menu->addAction(text);
    action->setCheckable(true);
    action->setChecked(text == mCurrentItem);
}

void ToolButtonS1M1::clear()
{
    const auto menus = mMenu->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
    mMenu->clear();
    qDeleteAll(menus);
}

void ToolButtonS1M1::setCurrentItem(const QString& text)
{
    checkOnly(mMenu, text);
    if (text == mCurrentItem)
        return;
    mCurrentItem = text;
    mToolButton->setText(text);
    quillon::announcePick(mToolButton, text);
    refit();
}

void ToolButtonS1M1::in_mMenu_triggered(QAction* action)
{
    const bool changes = action->text() != mCurrentItem;
    setCurrentItem(action->text()); // in any case: a click on a checked item has unchecked it
    if (changes)
        emit attributeChanged(objectName(), u"ItemChanged"_s, mCurrentItem);
}

void ToolButtonS1M1::setFont(const QFont& font)
{
    mFont = font;
    refit();
}

void ToolButtonS1M1::setTextColour(const QColor& colour)
{
    mToolButton->setColors(colour, kPlate);
}

void ToolButtonS1M1::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange) {
        mFont = font();
        refit();
    }
    QWidget::changeEvent(event);
}

void ToolButtonS1M1::resizeEvent(QResizeEvent*)
{
    refit();
}

void ToolButtonS1M1::refit()
{
    mToolButton->setGeometry(rect());
    mToolButton->setRadius(std::min(width(), height()) * 0.2);
    QFont fitted = mFont;
    const QRect room(0, 0, mToolButton->textRoom().width(), int(height() * 0.85));
    fitted.setPixelSize(GlobalFont::instance().pixelSizeForRect(mFont, mCurrentItem, room));
    mToolButton->setFont(fitted);
}

void ToolButtonS1M1::dressMenu()
{
    const int pixels = std::max(kLeastMenuLetters, GlobalFont::instance().pixelSizeForHeight(mFont, int(height() * 0.8)));
    if (pixels == mSheetPixels)
        return; // a style sheet is parsed and applied anew at each call
    mSheetPixels = pixels;
    mMenu->setStyleSheet(quillon::darkMenuSheet(pixels, kMenuGround)); // its sub-menus inherit it
}
