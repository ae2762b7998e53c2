#include "controls/ButtonBoxS1M1.h"

#include "app/GlobalFont.h"

#include <QEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kBaseWidth = 90;
constexpr int kBaseHeight = 220; // of a strip: the box stands in a row of them
constexpr int kButtonHeight = 20;
constexpr int kGap = 5;
constexpr int kCloseDelayMs = 1000;

} // namespace

/// The "+": a plate over the whole box, so that the hand finds it, with a plus drawn in the middle and the word below.
class ButtonBoxS1M1::AddButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

    int captionPixels = 5;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const bool lit = underMouse() || hasFocus();
        const double unit = height() / double(kBaseHeight);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(hasFocus() ? QColor(67, 207, 124) : QColor(84, 84, 84), std::max(1.0, unit), Qt::DashLine));
        painter.setBrush(isDown() ? QColor(48, 48, 48) : QColor(22, 22, 22));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), width() * 0.04, width() * 0.04);

        const QColor mark = !isEnabled() ? QColor(84, 84, 84) : lit ? QColor(222, 222, 222) : QColor(161, 161, 161);
        const QPointF centre = QPointF(width() / 2.0, height() / 2.0 - unit * kButtonHeight / 2);
        const double arm = unit * 9;
        painter.setPen(QPen(mark, std::max(1.5, unit * 2), Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(centre - QPointF(arm, 0), centre + QPointF(arm, 0));
        painter.drawLine(centre - QPointF(0, arm), centre + QPointF(0, arm));

        QFont caption = font();
        caption.setPixelSize(captionPixels);
        painter.setFont(caption);
        painter.drawText(QRectF(0, centre.y() + arm * 1.6, width(), unit * kButtonHeight), Qt::AlignCenter, text());
    }
};

ButtonBoxS1M1::ButtonBoxS1M1(QWidget* parent)
    : QWidget(parent), mFrame(new QFrame(this)), mButtonAddition(new AddButton(mFrame)), mLanguage(u"English"_s), mFont(font())
{
    setMinimumSize(kBaseWidth, kBaseHeight);
    mFrame->setObjectName(u"frame"_s);
    mButtonAddition->setObjectName(u"pushButtonAddition"_s);
    // Reached by Tab; a click leaves the keyboard where it was.
    mButtonAddition->setFocusPolicy(Qt::TabFocus);
    mButtonAddition->setAutoDefault(true);
    mButtonAddition->installEventFilter(this);
    connect(mButtonAddition, &QPushButton::clicked, this, &ButtonBoxS1M1::in_mButtonAddition_clicked);
    mTimer.setSingleShot(true);
    mTimer.setInterval(kCloseDelayMs);
    connect(&mTimer, &QTimer::timeout, this, &ButtonBoxS1M1::in_mTimer_timeout);
    setLanguage(u"English"_s);
    refresh();
}

ButtonBoxS1M1::Item* ButtonBoxS1M1::find(const QString& name)
{
    const auto at = std::find_if(mItems.begin(), mItems.end(), [&](const Item& item) { return item.name == name; });
    return at == mItems.end() ? nullptr : &*at;
}

ButtonBoxS1M1::Item& ButtonBoxS1M1::append(const QString& name)
{
    auto* button = new QPushButton(mFrame);
    QString shown = name;
    button->setText(shown.replace(u'&', u"&&"_s)); // a name is no shortcut
    button->setObjectName(u"pushButton_"_s + name);
    button->setProperty("name", name);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(true);
    button->installEventFilter(this);
    button->hide();
    connect(button, &QPushButton::clicked, this, &ButtonBoxS1M1::in_mButtonListAll_clicked);
    mItems.append({name, button, false});
    return mItems.last();
}

void ButtonBoxS1M1::setAddable(Item& item, bool addable)
{
    if (item.addable == addable)
        return;
    item.addable = addable;
    mAddable += addable ? 1 : -1;
}

void ButtonBoxS1M1::setNames(const QStringList& all)
{
    for (const Item& item : std::as_const(mItems)) {
        item.button->removeEventFilter(this);
        item.button->hide();
        item.button->deleteLater(); // one of them may be the one whose click is being handled
    }
    mItems.clear();
    mAddable = 0;
    for (const QString& name : all)
        if (!find(name))
            setAddable(append(name), true);
    refresh();
}

void ButtonBoxS1M1::addName(const QString& name)
{
    Item* item = find(name);
    setAddable(item ? *item : append(name), true);
    refresh();
}

void ButtonBoxS1M1::removeName(const QString& name)
{
    Item* item = find(name);
    if (!item || !item->addable)
        return;
    const bool focused = item->button->hasFocus();
    setAddable(*item, false);
    if (focused)
        focusNear(item - mItems.constData());
    refresh();
}

QStringList ButtonBoxS1M1::names() const
{
    QStringList list;
    for (const Item& item : mItems)
        if (item.addable)
            list.append(item.name);
    return list;
}

/// Hands the keyboard on before the button that has it vanishes: to the entry after it, else the one before.
void ButtonBoxS1M1::focusNear(qsizetype index)
{
    for (qsizetype i = index + 1; i < mItems.size(); ++i)
        if (mItems[i].addable)
            return mItems[i].button->setFocus(Qt::OtherFocusReason);
    for (qsizetype i = index - 1; i >= 0; --i)
        if (mItems[i].addable)
            return mItems[i].button->setFocus(Qt::OtherFocusReason);
}

void ButtonBoxS1M1::setOpened(bool opened)
{
    if (mOpened == opened)
        return;
    const QWidget* focused = focusWidget();
    const bool hadKeyboard = focused && focused->hasFocus();
    mOpened = opened;
    mTimer.stop();
    refresh();
    if (!hadKeyboard || isEmpty())
        return;
    if (mOpened)
        focusNear(-1);
    else
        mButtonAddition->setFocus(Qt::OtherFocusReason);
}

/// Shows what belongs to the state: the entries, or the "+", or nothing when there is nothing to add.
void ButtonBoxS1M1::refresh()
{
    if (isEmpty()) {
        mOpened = false;
        mTimer.stop();
    }
    layoutButtons();
    for (const Item& item : std::as_const(mItems))
        item.button->setVisible(mOpened && item.addable);
    mButtonAddition->setVisible(!mOpened && !isEmpty());
}

void ButtonBoxS1M1::setFont(const QFont& font)
{
    mFont = font;
    layoutButtons();
}

void ButtonBoxS1M1::setLanguage(const QString& language)
{
    const bool chinese = language == "Chinese"_L1;
    if (!chinese && language != "English"_L1)
        return;
    mLanguage = language;
    mButtonAddition->setText(chinese ? u"添加"_s : u"Add"_s);
    mButtonAddition->setAccessibleName(chinese ? u"添加通道"_s : u"Add strip"_s);
    mButtonAddition->setToolTip(mButtonAddition->accessibleName());
    layoutButtons();
}

bool ButtonBoxS1M1::event(QEvent* event)
{
    if (mOpened && event->type() == QEvent::Enter)
        mTimer.stop();
    else if (mOpened && event->type() == QEvent::Leave)
        mTimer.start();
    return QWidget::event(event);
}

/// The keyboard leaves and enters as the pointer does.
bool ButtonBoxS1M1::eventFilter(QObject* watched, QEvent* event)
{
    if (mOpened && event->type() == QEvent::FocusIn)
        mTimer.stop();
    else if (mOpened && event->type() == QEvent::FocusOut && !underMouse())
        mTimer.start();
    return QWidget::eventFilter(watched, event);
}

void ButtonBoxS1M1::keyPressEvent(QKeyEvent* event)
{
    if (mOpened && event->key() == Qt::Key_Escape)
        setOpened(false);
    else
        QWidget::keyPressEvent(event);
}

void ButtonBoxS1M1::in_mTimer_timeout()
{
    setOpened(false);
}

void ButtonBoxS1M1::in_mButtonAddition_clicked()
{
    setOpened(true);
}

void ButtonBoxS1M1::in_mButtonListAll_clicked()
{
    const QString name = sender()->property("name").toString();
    removeName(name); // before the event: the field lays itself out in it and asks whether anything is left
    emit attributeChanged(name, u"Visible"_s, u"1"_s);
}

void ButtonBoxS1M1::resizeEvent(QResizeEvent*)
{
    mFrame->setGeometry(rect());
    layoutButtons();
}

void ButtonBoxS1M1::layoutButtons()
{
    const double unit = height() / double(kBaseHeight);
    const GlobalFont& fonts = GlobalFont::instance();
    restyle(int(width() * 0.04));
    mButtonAddition->setGeometry(mFrame->rect());
    QFont caption = mFont;
    mButtonAddition->setFont(mFont);
    const QRect captionBox(0, 0, int(width() * 0.8), int(unit * kButtonHeight * 0.7));
    mButtonAddition->captionPixels = fonts.pixelSizeForRect(mFont, mButtonAddition->text(), captionBox);

    // Entries keep their size while they fit; more of them than fit share the height.
    const double pitch = std::min(unit * (kButtonHeight + kGap), (height() - unit * kGap) / std::max(1, mAddable));
    const double buttonHeight = pitch * kButtonHeight / (kButtonHeight + kGap);
    const double margin = width() * 0.06;
    double top = unit * kGap;
    for (const Item& item : std::as_const(mItems)) {
        if (!item.addable)
            continue;
        const QRect box = QRectF(margin, top, width() - 2 * margin, buttonHeight).toRect();
        item.button->setGeometry(box);
        const QRect textBox(0, 0, int(box.width() * 0.9), int(box.height() * 0.8));
        caption.setPixelSize(fonts.pixelSizeForRect(mFont, item.name, textBox));
        item.button->setFont(caption);
        top += pitch;
    }
    mButtonAddition->update();
}

void ButtonBoxS1M1::restyle(int radius)
{
    if (radius == mRadius)
        return; // a style sheet is parsed and applied anew at each call
    mRadius = radius;
    mFrame->setStyleSheet(u"QFrame { background-color: #161616; border-radius: %1px; }"
                          "QPushButton { color: rgb(222, 222, 222); background: rgb(60, 60, 60); border: 1px solid transparent;"
                          " border-radius: %1px; padding: 0px; }"
                          "QPushButton:hover { background: rgb(84, 84, 84); }"
                          "QPushButton:pressed { background: rgb(48, 48, 48); }"
                          "QPushButton:focus { border: 1px solid rgb(67, 207, 124); }"_s.arg(radius));
}
