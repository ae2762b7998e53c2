#include "controls/picker/ComboCore.h"

#include "app/GlobalFont.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon
{

static constexpr int kEditMargin = 3; // pixels that a line edit keeps free at each side

ComboCore::ComboCore(QComboBox* host, const ComboLook& look) : mHost(host), mLook(look), mFont(host->font()), mWheelGuard(host)
{
    installPickerAccessibility();
    host->setAttribute(Qt::WA_Hover);
    host->setFocusPolicy(Qt::StrongFocus);
    host->setMinimumSize(1, 1);
    host->setInsertPolicy(QComboBox::NoInsert);
    host->setItemDelegate(new QStyledItemDelegate(host)); // the look of the list below, on all platforms
    QObject::connect(host, &QComboBox::currentIndexChanged, host, [this] { announcePick(mHost, mHost->currentText()); });
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        QObject::connect(host->model(), signal, host, [this] { relayout(); });
    QObject::connect(host->model(), &QAbstractItemModel::dataChanged, host, [this] { relayout(); });
}

/// Only the list is styled: the box itself is painted. With the first sight of it, since a sheet takes longer than all the rest of
/// a box, and most stand in windows that are seldom opened.
void ComboCore::dress()
{
    if (std::exchange(mDressed, true))
        return;
    const QString own = mHost->styleSheet();
    mHost->setStyleSheet(u"QComboBox { combobox-popup: 0; border: none; padding: 0px; }"
                         "QComboBox::drop-down { width: 0px; border: none; }"
                         "QComboBox QAbstractItemView { background: rgb(22, 22, 22); color: rgb(222, 222, 222);"
                         " border: 1px solid rgb(84, 84, 84); outline: 0; selection-background-color: rgb(60, 60, 60);"
                         " selection-color: rgb(67, 207, 124); }"
                         "QComboBox QAbstractItemView::item { padding: 3px 6px; background: transparent; }"
                         "QComboBox QAbstractItemView::item:selected { background: rgb(60, 60, 60); color: rgb(67, 207, 124); }"_s +
                         own);
    relayout();
}

void ComboCore::setFont(const QFont& font)
{
    mFont = font;
    relayout();
}

QColor ComboCore::textColor() const
{
    return mHost->isEnabled() ? mTextColor : QColor(96, 96, 96);
}

bool ComboCore::isOpen() const
{
    return mHost->view()->isVisible();
}

QString ComboCore::longestItem() const
{
    QString longest;
    for (int i = 0; i < mHost->count(); ++i)
        longest = GlobalFont::instance().longerText(mHost->itemText(i), longest);
    return longest;
}

void ComboCore::relayout()
{
    if (mFitting || mHost->height() < 2)
        return;
    mFitting = true; // a new font reports itself
    const double h = mHost->height();
    const int edit = mHost->isEditable() ? kEditMargin : 0;
    const int width = int(mHost->width() - 2 * edit - h * (mLook.textInset + std::max(mLook.arrowRoom, mLook.textInset)));
    QFont fitted = mFont;
    fitted.setPixelSize(
        GlobalFont::instance().pixelSizeForRect(mFont, longestItem(), QRect(0, 0, width, int(h * mLook.letterHeight))));
    mHost->setFont(fitted);
    mHost->view()->setFont(fitted); // a style sheet on the box keeps its font from its children
    if (mHost->isEditable())
        mHost->lineEdit()->setFont(fitted);
    // The list is as wide as its longest text, however narrow the box.
    const int rows = QFontMetrics(fitted).horizontalAdvance(longestItem()) + 28;
    mHost->view()->setMinimumWidth(std::max(mHost->width(), rows));
    mFitting = false;
    mHost->update();
}

void ComboCore::paint() const
{
    const QRectF box(mHost->rect());
    const double h = box.height();
    QPainter painter(mHost);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lit = mHost->isEnabled() && (mHost->underMouse() || isOpen());
    const bool focused = mFocus.isShown();
    painter.setPen(QPen(focused ? FocusMark::color() : QColor(70, 70, 70), focused ? 1.5 : 1));
    painter.setBrush(lit ? QColor(60, 60, 60) : QColor(45, 45, 45));
    painter.drawRoundedRect(box.adjusted(0.75, 0.75, -0.75, -0.75), mLook.radius * h, mLook.radius * h);

    const QColor ink = textColor();
    const double side = mLook.arrow * h;
    painter.setPen(Qt::NoPen);
    if (mLook.arrowRoom > 0) {
        const QPointF middle(box.right() - mLook.arrowRoom * h / 2, box.center().y());
        painter.setPen(QPen(ink, std::max(1.2, h * 0.07), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF(
            {middle + QPointF(-side / 2, -side / 4), middle + QPointF(0, side / 4), middle + QPointF(side / 2, -side / 4)}));
    } else {
        const QPointF corner(box.right() - h * 0.1, box.bottom() - h * 0.1);
        painter.setBrush(ink.darker(140));
        painter.drawPolygon(QPolygonF({corner, corner - QPointF(side, 0), corner - QPointF(0, side)}));
    }
    if (mHost->isEditable())
        return;
    const QRect room = box.adjusted(mLook.textInset * h, 0, -mLook.arrowRoom * h, 0).toRect();
    painter.setPen(ink);
    painter.setFont(mHost->font());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     mHost->fontMetrics().elidedText(mHost->currentText(), Qt::ElideRight, room.width()));
}

bool ComboCore::wheel(const QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    if (delta == 0 || !mWheelGuard.allows(event))
        return false;
    if (const int notches = mWheelSteps.take(delta))
        step(-notches);
    return true;
}

void ComboCore::step(int rows)
{
    if (mHost->count() == 0)
        return;
    const int to = std::clamp(mHost->currentIndex() + rows, 0, mHost->count() - 1);
    if (to == mHost->currentIndex())
        return;
    mHost->setCurrentIndex(to);
    emit mHost->activated(to); // as a choice in the list does
    emit mHost->textActivated(mHost->currentText());
}

void ComboCore::watch(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        dress();
        break;
    case QEvent::FocusIn:
        mFocus.focusIn(static_cast<QFocusEvent*>(event));
        mHost->update();
        break;
    case QEvent::FocusOut:
        mFocus.focusOut(static_cast<QFocusEvent*>(event));
        mHost->update();
        break;
    default:
        break;
    }
}

} // namespace quillon
