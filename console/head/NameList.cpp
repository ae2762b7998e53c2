#include "console/head/NameList.h"

#include "controls/FocusMark.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct CommandText {
    const char16_t* english;
    const char16_t* chinese;

    QString in(const QString& language) const { return QString::fromUtf16(language == "Chinese"_L1 ? chinese : english); }
};
// Blanks at the end keep them apart from any name.
constexpr std::array<CommandText, 3> kCommands{{{u"Restore Default      ", u"恢复默认      "},
                                                {u"New Workspace      ", u"新建工作区      "},
                                                {u"Save Workspace as...      ", u"另存为工作区      "}}};
constexpr int kExtraRows = int(kCommands.size()) + 1;

// Of a line of text.
constexpr double kRowHeight = 1.75;
constexpr double kLineHeight = 0.6;

class NameDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return {1, int(QFontMetrics(option.font).height() * (isLine(index) ? kLineHeight : kRowHeight))};
    }
    void updateEditorGeometry(QWidget* row, const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        row->setGeometry(option.rect);
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QRect& place = option.rect;
        if (isLine(index)) {
            painter->fillRect(QRect(place.left(), place.center().y(), place.width(), 1), QColor(84, 84, 84));
            return;
        }
        const bool lit = option.state & QStyle::State_Selected;
        painter->fillRect(place, lit ? QColor(60, 60, 60) : QColor(22, 22, 22));
        if (index.row() < linePosition(index)) {
            return;
        }
        painter->setFont(option.font);
        painter->setPen(lit ? FocusMark::color() : QColor(172, 172, 172));
        const int left = ComboBoxS1M1_ItemS1M1::textLeft(place.height());
        painter->drawText(place.adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, index.data().toString().trimmed());
    }

private:
    static int linePosition(const QModelIndex& index) { return index.model()->rowCount() - kExtraRows; }
    static bool isLine(const QModelIndex& index) { return index.row() == linePosition(index); }
};

} // namespace

QAbstractItemDelegate* newNameDelegate(QObject* parent)
{
    return new NameDelegate(parent);
}

QString nameListSheet()
{
    return u"QToolTip { background: rgb(48, 48, 48); color: white; border: 1px solid rgb(84, 84, 84); }"
           "QScrollBar:vertical { background: rgb(22, 22, 22); width: 10px; margin: 0px; }"
           "QScrollBar::handle:vertical { background: rgb(84, 84, 84); border-radius: 3px; margin: 2px; min-height: 24px; }"
           "QScrollBar::add-line, QScrollBar::sub-line { height: 0px; }"_s;
}

NameList::NameList(QWidget* parent) : QListWidget(parent), mLanguage(u"English"_s)
{
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(this, &QListWidget::currentRowChanged, this, &NameList::light);
}

int NameList::nameCount() const
{
    return std::max(0, count() - kExtraRows);
}

QStringList NameList::names() const
{
    QStringList names;
    for (int i = 0; i < nameCount(); ++i) {
        names += item(i)->text();
    }
    return names;
}

void NameList::setNames(const QStringList& names)
{
    clear();
    QStringList rows = names;
    rows += QString();
    for (const CommandText& command : kCommands) {
        rows += command.in(mLanguage);
    }
    addItems(rows); // at once: each insertion fits the texts of the box anew
    item(nameCount())->setFlags(Qt::NoItemFlags);
}

void NameList::addName(const QString& name)
{
    insertItem(nameCount(), name);
}

void NameList::removeName(const QString& name)
{
    delete takeItem(rowOf(name));
}

void NameList::setLanguage(const QString& language)
{
    mLanguage = language;
    for (int i = 0; i < int(kCommands.size()) && count() > 0; ++i) {
        item(nameCount() + 1 + i)->setText(kCommands[std::size_t(i)].in(language));
    }
}

ComboBoxS1M1_ItemS1M1* NameList::rowWidget(int row) const
{
    return static_cast<ComboBoxS1M1_ItemS1M1*>(itemWidget(item(row)));
}

ComboBoxS1M1_ItemS1M1* NameList::makeRow(int row)
{
    auto* widget = new ComboBoxS1M1_ItemS1M1(item(row)->text(), viewport());
    connect(widget, &ComboBoxS1M1_ItemS1M1::deleteClicked, this, &NameList::deleteRequested);
    setItemWidget(item(row), widget);
    return widget;
}

void NameList::prepare(const QString& current, int leastWidth)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded); // the box switches it off where the style opens a menu
    const QFontMetrics metrics(font());
    int widest = 0;
    for (int i = 0; i < count(); ++i) {
        widest = std::max(widest, metrics.horizontalAdvance(item(i)->text()));
        if (i < nameCount()) {
            ComboBoxS1M1_ItemS1M1* row = rowWidget(i) ? rowWidget(i) : makeRow(i);
            row->setFont(font());
            row->setLanguage(mLanguage);
            row->setCurrent(row->name() == current);
        }
    }
    const int extras = int(metrics.height() * kRowHeight * 2.2); // lamp, delete button, scroll bar
    setMinimumWidth(std::max(leastWidth, widest + extras));
}

void NameList::light()
{
    if (mLit) {
        mLit->setLit(false);
    }
    mLit = currentRow() >= 0 && currentRow() < nameCount() ? rowWidget(currentRow()) : nullptr;
    if (mLit) {
        mLit->setLit(true);
    }
}

/// Delete removes the name that the list stands on; Right leads to its button.
void NameList::keyPressEvent(QKeyEvent* event)
{
    const int row = currentRow();
    const bool onName = row >= 0 && row < nameCount();
    if (onName && event->key() == Qt::Key_Delete) {
        emit deleteRequested(item(row)->text());
    } else if (onName && event->key() == Qt::Key_Right) {
        rowWidget(row)->focusDelete();
    } else {
        QListWidget::keyPressEvent(event);
    }
}

} // namespace quillon
