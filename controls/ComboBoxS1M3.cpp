#include "controls/ComboBoxS1M3.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

void RightAlignDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->displayAlignment = Qt::AlignCenter;
}

ComboBoxS1M3::ComboBoxS1M3(QWidget* parent, double iconShare, Qt::Alignment alignment)
    : QComboBox(parent), mPopup(new QListView), mScaleFactor(iconShare), mCore(this, quillon::kCornerCombo)
{
    setView(mPopup); // as a child from the start it would be announced to a core that is not there yet
    setItemDelegate(new RightAlignDelegate(this));
    setEditable(true);
    QLineEdit* edit = lineEdit();
    edit->setReadOnly(true);
    edit->setAlignment(alignment);
    edit->setFrame(false);
    edit->setContextMenuPolicy(Qt::NoContextMenu);
    edit->setCursor(Qt::ArrowCursor);
    edit->installEventFilter(this);
    setCompleter(nullptr);
    connect(edit, &QLineEdit::textChanged, edit, [edit] { edit->setCursorPosition(0); }); // a long text shows its beginning
    setTextColour(Qt::white);
}

void ComboBoxS1M3::setTextColour(const QColor& colour)
{
    mCore.setTextColor(colour);
    dressLineEdit();
}

void ComboBoxS1M3::dressLineEdit()
{
    if (!mCore.isDressed())
        return;
    // A palette would be lost to the sheet that the box has for its list.
    lineEdit()->setStyleSheet(u"color: %1; background: transparent;"_s.arg(mCore.textColor().name()));
    update();
}

void ComboBoxS1M3::setFont(const QFont& font)
{
    mCore.setFont(font);
}

void ComboBoxS1M3::setIconShare(double share)
{
    if (!(share > 0))
        return;
    mScaleFactor = share;
    const int side = int(height() * mScaleFactor);
    setIconSize(QSize(side, side));
}

bool ComboBoxS1M3::event(QEvent* event)
{
    const bool dressed = mCore.isDressed();
    mCore.watch(event);
    if (mCore.isDressed() != dressed)
        dressLineEdit();
    return QComboBox::event(event);
}

bool ComboBoxS1M3::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lineEdit() && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)) {
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            showPopup();
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void ComboBoxS1M3::changeEvent(QEvent* event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && lineEdit())
        dressLineEdit();
}

void ComboBoxS1M3::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    lineEdit()->deselect(); // Tab selects a text that is to be typed over; this one is not
}

void ComboBoxS1M3::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

void ComboBoxS1M3::resizeEvent(QResizeEvent* event)
{
    QComboBox::resizeEvent(event);
    mCore.relayout();
    const int margin = height() * 3 / 10; // beside the mark in the corner; on both sides, so that the middle stays the middle
    lineEdit()->setTextMargins(margin, 0, margin, 0);
    setIconShare(mScaleFactor);
}

void ComboBoxS1M3::wheelEvent(QWheelEvent* event)
{
    event->setAccepted(mCore.wheel(event));
}
