#include "strips/StripHead.h"

#include "app/GlobalFont.h"

#include <QCursor>
#include <QEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr int kHoverMs = 100;
constexpr int kNameMargin = 6; // pixels of the minimum width that a name leaves free

template<class Child> Child* makeChild(QWidget* strip, const QString& name)
{
    auto* child = new Child(strip);
    child->setObjectName(name);
    return child;
}

} // namespace

StripHead::StripHead(QWidget* strip)
    : mStrip(strip), mFrame(makeChild<QFrame>(strip, u"frame"_s)), mLineEdit(makeChild<QLineEdit>(strip, u"lineEdit"_s)),
      mClose(makeChild<QPushButton>(strip, u"pushButtonClose"_s)), mOverlay(makeChild<QWidget>(strip, u"widgetOverlay"_s))
{
    mTimer.setSingleShot(true);
    mTimer.setInterval(kHoverMs);
    mLineEdit->setAlignment(Qt::AlignCenter);
    mLineEdit->setMaxLength(kMaximumName);
    mLineEdit->setContextMenuPolicy(Qt::NoContextMenu);
    mLineEdit->setAttribute(Qt::WA_Hover);
    mClose->setAttribute(Qt::WA_Hover);
    mClose->setFlat(true);
    mClose->setIcon(QIcon(u":/Icon/StripClose.svg"_s)); // read when first shown
    mClose->hide();
    mOverlay->setAttribute(Qt::WA_StyledBackground);
    mOverlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    mOverlay->hide();
    for (QObject* watched : {static_cast<QObject*>(mLineEdit), static_cast<QObject*>(mClose), static_cast<QObject*>(strip)}) {
        watched->installEventFilter(this);
    }
    connect(&mTimer, &QTimer::timeout, this, &StripHead::in_mTimer_timeout);
    connect(mLineEdit, &QLineEdit::textChanged, this, &StripHead::on_lineEdit_textChanged);
    connect(mLineEdit, &QLineEdit::editingFinished, this, &StripHead::on_lineEdit_editingFinished);
    connect(mClose, &QPushButton::clicked, this, &StripHead::on_pushButtonClose_clicked);
}

void StripHead::setChannelName(const QString& name)
{
    mChannelName = name;
    showName(name);
}

void StripHead::showName(const QString& name)
{
    const QString text = inLanguage(name.isEmpty() ? mChannelName : name.left(kMaximumName), mChinese);
    if (text == mShownName && text == mLineEdit->text()) {
        return; // most loads bring the name that is there; setting it would lay the text out anew
    }
    mLineEdit->setText(text);
    mLineEdit->setCursorPosition(0);
    mShownName = mLineEdit->text();
}

/// The channel has a name in each language, one of the user's own is the same in all.
QString StripHead::inLanguage(const QString& name, bool chinese) const
{
    return chinese && name == mChannelName && !mChineseName.isEmpty() ? mChineseName : name;
}

QString StripHead::nameIn(bool chinese) const
{
    return inLanguage(name(), chinese);
}

QString StripHead::name() const
{
    const QString text = mLineEdit->text();
    return text == mChineseName && mChinese ? mChannelName : text;
}

QString StripHead::shownName() const
{
    return mLineEdit->text();
}

void StripHead::setChinese(bool chinese)
{
    const QString kept = name();
    mChinese = chinese;
    showName(kept);
}

void StripHead::setFieldName(const QString& objectName)
{
    mLineEdit->setObjectName(objectName);
}

void StripHead::setNameEditable(bool editable)
{
    mLineEdit->setEnabled(editable);
}

void StripHead::setCloseArmed(bool armed)
{
    mCloseArmed = armed;
    if (!armed) {
        hideClose();
    }
}

void StripHead::setOverlayVisible(bool visible)
{
    mOverlay->raise();
    mOverlay->setVisible(visible);
}

void StripHead::setFont(const QFont& font)
{
    mFont = font;
    layout();
}

void StripHead::setTexts(const QString& nameField, const QString& closeButton)
{
    mLineEdit->setAccessibleName(nameField);
    mClose->setAccessibleName(closeButton);
    mClose->setToolTip(closeButton);
}

QRect StripHead::nameRow(QSize strip) const
{
    return mNamePlace ? placeRect(*mNamePlace, strip, {}) : QRect(0, 0, strip.width(), titleHeight(strip));
}

void StripHead::layout()
{
    const QSize size = mStrip->size();
    const QRect row = nameRow(size);
    const int title = row.height();
    const int side = static_cast<int>(static_cast<float>(title) / 100.0F * 50.0F);
    mFrame->setGeometry(QRect(QPoint(), size));
    mLineEdit->setGeometry(row);
    mOverlay->setGeometry(row);
    mClose->setGeometry(row.x() + static_cast<int>(static_cast<float>(row.width()) - static_cast<float>(side) * 1.3F),
                        row.y() + (title - side) / 2, side, side);
    mClose->setIconSize({side, side});
    QFont font = mFont;
    font.setPointSize(namePointSize(GlobalFont::instance().pointSizeForHeight(mFont, title)));
    mLineEdit->setFont(font);
    const int radius = static_cast<int>(static_cast<float>(size.width()) * 0.04F);
    restyle(radius, mNamePlace ? std::min(radius, title / 4) : radius);
}

void StripHead::restyle(int radius, int rowRadius)
{
    if (radius == mRadius && rowRadius == mRowRadius) {
        return; // a style sheet costs more than the rest of a resize
    }
    mRadius = radius;
    mRowRadius = rowRadius;
    mFrame->setStyleSheet(u"QFrame {   background-color: #161616;   border-radius: %1px;}"_s.arg(radius));
    mOverlay->setStyleSheet(u"QWidget {   background-color: rgba(31, 31, 31, 153);   border-radius: %1px;}"_s.arg(rowRadius));
    mLineEdit->setStyleSheet(
        u"QLineEdit {   color: rgb(222, 222, 222);   background-color: rgb(46, 46, 46);   border: 1px solid transparent;"
        "   padding: 0px;   border-radius: %1px;}"
        "QLineEdit:focus {   border: 1px solid rgb(67, 207, 124);}"_s.arg(rowRadius));
}

bool StripHead::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mLineEdit && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        mLineEdit->setText(mShownName);
        mLineEdit->clearFocus();
        return true;
    }
    if (!mCloseArmed) {
        return QObject::eventFilter(watched, event);
    }
    if (watched == mStrip) {
        if (event->type() == QEvent::Move) {
            QTimer::singleShot(0, this, [this] {
                if (mCloseArmed && mLineEdit->rect().contains(mLineEdit->mapFromGlobal(QCursor::pos()))) {
                    mTimer.start();
                }
            });
        }
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        filterHover(event->type() == QEvent::HoverEnter);
        return event->type() == QEvent::HoverEnter;
    }
    if (watched == mLineEdit && event->type() == QEvent::MouseButtonPress && mLineEdit->isEnabled()) {
        hideClose();
    }
    return QObject::eventFilter(watched, event);
}

void StripHead::filterHover(bool entered)
{
    if (entered) {
        if (mClose->isHidden()) {
            mTimer.start();
        }
        return;
    }
    // The pointer may be on its way from the one to the other.
    QTimer::singleShot(0, this, [this] {
        if (!mLineEdit->underMouse() && !mClose->underMouse()) {
            hideClose();
        }
    });
}

void StripHead::hideClose()
{
    mTimer.stop();
    mClose->hide();
}

void StripHead::on_lineEdit_textChanged(const QString& arg1)
{
    QFont font = mFont;
    font.setPointSize(5);
    if (QFontMetrics(font).horizontalAdvance(arg1) > nameRow(mStrip->minimumSize()).width() - kNameMargin) {
        mLineEdit->setText(arg1.chopped(1));
    }
}

void StripHead::on_lineEdit_editingFinished()
{
    if (mFinishing) {
        return; // giving the focus away ends the edit once more
    }
    mFinishing = true;
    if (mLineEdit->text().isEmpty()) {
        showName({});
    }
    mLineEdit->clearFocus();
    mShownName = mLineEdit->text();
    mFinishing = false;
    emit nameEdited();
}

void StripHead::on_pushButtonClose_clicked()
{
    emit closeClicked();
    mClose->hide();
}

void StripHead::in_mTimer_timeout()
{
    mClose->raise();
    mClose->show();
}

} // namespace quillon
