#include "controls/MenuS1M1.h"

#include "app/GlobalFont.h"
#include "controls/picker/FlatToolButton.h"

#include <QButtonGroup>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QWidgetAction>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kLeastHeight = 50;
constexpr int kLeastRow = 20;
constexpr double kIndent = 10;    // hundredths of the width
constexpr double kRowPitch = 1.5; // hundredths of the height between two items
constexpr int kMenuShift = 10;

/// The label of a sub-item. The pointer goes through it to its menu; the active one has a ground and a bar.
class SubItemLabel : public QLabel
{
public:
    SubItemLabel(const QString& text, QMenu* menu, QAction* action) : QLabel(text), mMenu(menu), mAction(action)
    {
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setContentsMargins(12, 3, 12, 3);
        connect(menu, &QMenu::hovered, this, [this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (mMenu->activeAction() == mAction && isEnabled()) {
            QPainter painter(this);
            painter.fillRect(rect(), QColor(60, 60, 60));
            painter.fillRect(0, 0, 3, height(), QColor(67, 207, 124));
        }
        QLabel::paintEvent(event);
    }

private:
    QMenu* mMenu;
    QAction* mAction;
};

} // namespace

MenuS1M1::MenuS1M1(QWidget* parent, const QString& title)
    : QWidget(parent), mTitle(new QLabel(this)), mGroup(new QButtonGroup(this))
{
    mGroup->setExclusive(false);
    mTitle->setMinimumHeight(kLeastRow);
    mTitle->setAlignment(Qt::AlignCenter);
    setMinimumHeight(kLeastHeight);
    setTitle(title);
    setMenuColors(mTitleText, mMenuBackground);
}

void MenuS1M1::setTitle(const QString& title)
{
    mTitle->setText(title);
    setAccessibleName(title);
    relayout();
}

void MenuS1M1::addItem(const Record& item, const QList<Record>& subItems)
{
    quillon::FlatToolButton*& button = mByName[item.name];
    if (!button) {
        button = new quillon::FlatToolButton(this);
        button->setMinimumHeight(kLeastRow);
        button->setObjectName(item.name);
        button->setColors(mItemText, mItemBackground);
        connect(button, &QToolButton::clicked, this, [this, opened = button] { open(opened); });
        button->show();
        mGroup->addButton(button);
        mItems.append(button);
        setMinimumHeight(std::max(kLeastHeight, kLeastRow * int(mItems.size() + 1) + 2 * int(mItems.size())));
    }
    button->setText(item.text);
    button->setAccessibleName(item.text);
    button->setCheckable(item.flag);
    if (auto* former = button->findChild<QMenu*>()) { // this may be called by what was chosen from it
        former->hide();
        former->setParent(nullptr);
        former->deleteLater();
    }
    makeMenu(item, subItems)->setParent(button, Qt::Popup);
    relayout();
}

QMenu* MenuS1M1::makeMenu(const Record& item, const QList<Record>& subItems)
{
    auto* menu = new QMenu;
    for (const Record& subItem : subItems) {
        auto* action = new QWidgetAction(menu);
        action->setText(subItem.text); // what assistive technology reads
        action->setData(subItem.name);
        action->setDefaultWidget(new SubItemLabel(subItem.text, menu, action));
        action->setEnabled(subItem.flag);
        menu->addAction(action);
    }
    connect(menu, &QMenu::triggered, this,
            [this, name = item.name](QAction* action) { emit attributeChanged(objectName(), name, action->data().toString()); });
    return menu;
}

QToolButton* MenuS1M1::item(const QString& name) const
{
    return mByName.value(name);
}

void MenuS1M1::open(quillon::FlatToolButton* button)
{
    auto* menu = button->findChild<QMenu*>();
    if (!menu || menu->isEmpty())
        return;
    const int letters = GlobalFont::instance().pixelSizeForHeight(font(), height());
    menu->setStyleSheet(quillon::darkMenuSheet(letters * mItemTextRatio, mMenuBackground));
    const int x = mAlignment == 1 ? 0 : button->width() - menu->sizeHint().width() + kMenuShift;
    menu->popup(button->mapToGlobal(QPoint(x, button->height())));
}

void MenuS1M1::setFont(const QFont& font)
{
    QWidget::setFont(font);
    relayout();
}

void MenuS1M1::setHeightPercents(int title, int items)
{
    mTitlePercent = std::clamp(title, 0, 100);
    mItemPercent = std::clamp(items, 0, 100);
    relayout();
}

void MenuS1M1::setItemColors(const QColor& text, const QColor& background)
{
    mItemText = text;
    mItemBackground = background;
    for (quillon::FlatToolButton* button : std::as_const(mItems))
        button->setColors(text, background);
}

void MenuS1M1::setMenuColors(const QColor& titleText, const QColor& background)
{
    mTitleText = titleText;
    mMenuBackground = background;
    QPalette palette = mTitle->palette();
    palette.setColor(QPalette::WindowText, titleText);
    mTitle->setPalette(palette);
    update();
}

void MenuS1M1::resizeEvent(QResizeEvent*)
{
    relayout();
}

void MenuS1M1::relayout()
{
    const double widthUnit = width() / 100.0;
    const double gap = kRowPitch * height() / 100.0;
    const int count = int(mItems.size());
    const double percents = std::max(1, mTitlePercent + mItemPercent);
    const double wanted = std::max(height() * mItemPercent / percents, count * (kLeastRow + gap));
    const double title = std::max<double>(kLeastRow, height() - wanted);
    mRadius = height() * 0.04;

    const GlobalFont& fonts = GlobalFont::instance();
    QFont fitted = font();
    mTitle->setGeometry(0, 0, width(), int(title));
    const QRect titleRoom(0, 0, int(width() * 0.9), int(std::min(title, height() * 0.4) * 0.7));
    fitted.setPixelSize(fonts.pixelSizeForRect(font(), mTitle->text(), titleRoom));
    mTitle->setFont(fitted);

    mSeparators.clear();
    if (count == 0)
        return update();
    const double pitch = (height() - title) / count;
    int pixels = 60;
    for (int i = 0; i < count; ++i) {
        const double top = title + i * pitch;
        const QRect place = QRectF(kIndent * widthUnit, top, width() - 2 * kIndent * widthUnit, pitch - gap).toRect();
        mItems[i]->setGeometry(place);
        mItems[i]->setRadius(mRadius);
        const QRect room(0, 0, mItems[i]->textRoom().width(), int(place.height() * 0.85));
        pixels = std::min(pixels, fonts.pixelSizeForRect(font(), mItems[i]->text(), room));
        if (i > 0)
            mSeparators.append(QRectF(place.x(), top - gap * 0.75, place.width(), std::max(1.0, gap / 2)).toRect());
    }
    fitted.setPixelSize(pixels);
    for (quillon::FlatToolButton* button : std::as_const(mItems))
        button->setFont(fitted);
    update();
}

void MenuS1M1::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mMenuBackground);
    painter.drawRoundedRect(rect(), mRadius, mRadius);
    painter.setBrush(QColor(46, 46, 46));
    for (const QRect& separator : std::as_const(mSeparators))
        painter.drawRoundedRect(separator, 1, 1);
}
