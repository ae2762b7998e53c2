#include "console/head/ComboBoxS1M1.h"

#include "app/GlobalFont.h"
#include "console/head/HeadQuestion.h"
#include "controls/MessageBoxWidget.h"
#include "workspace/WorkspaceChoice.h"
#include "workspace/WorkspaceFile.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

struct Command {
    const char16_t* english;
    const char16_t* chinese;
};
// Below the names and a line; blanks at the end keep them apart from any name.
constexpr std::array<Command, 3> kCommands{{{u"Restore Default      ", u"恢复默认      "},
                                            {u"New Workspace      ", u"新建工作区      "},
                                            {u"Save Workspace as...      ", u"另存为工作区      "}}};
enum CommandRow { RestoreDefault = 1, NewWorkspace = 2, SaveAs = 3 }; // counted from the line

constexpr int kNamePoints = 9;
constexpr int kNameWidth = 127;     // pixels at that size
constexpr int kLongestTyped = 1024; // characters that are measured at all
constexpr int kVisibleRows = 16;
constexpr double kLetterHeight = 0.78; // of a line of text in the box
constexpr double kRowHeight = 1.75;    // of a line of text

// Beside that of the core, once.
constexpr const char* kSheet = "QToolTip { background: rgb(48, 48, 48); color: white; border: 1px solid rgb(84, 84, 84); }"
                               "QScrollBar:vertical { background: rgb(22, 22, 22); width: 10px; margin: 0px; }"
                               "QScrollBar::handle:vertical { background: rgb(84, 84, 84); border-radius: 3px;"
                               " margin: 2px; min-height: 24px; }"
                               "QScrollBar::add-line, QScrollBar::sub-line { height: 0px; }";

QString quoted(const QString& name)
{
    return u"\" %1 \""_s.arg(name);
}

/// The ground of all rows, the line, and the texts of the commands; names draw themselves.
class RowDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int line = QFontMetrics(option.font).height();
        return {1, int(line * (isLine(index) ? 0.6 : kRowHeight))};
    }
    void updateEditorGeometry(QWidget* row, const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        row->setGeometry(option.rect);
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (isLine(index)) {
            painter->fillRect(QRect(option.rect.left(), option.rect.center().y(), option.rect.width(), 1), QColor(84, 84, 84));
            return;
        }
        const bool lit = option.state & QStyle::State_Selected;
        painter->fillRect(option.rect, lit ? QColor(60, 60, 60) : QColor(22, 22, 22));
        if (index.row() < linePosition(index)) {
            return;
        }
        painter->setFont(option.font);
        painter->setPen(lit ? quillon::FocusMark::color() : QColor(172, 172, 172));
        const int left = ComboBoxS1M1_ItemS1M1::textLeft(option.rect.height());
        painter->drawText(option.rect.adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, index.data().toString().trimmed());
    }

private:
    static int linePosition(const QModelIndex& index) { return index.model()->rowCount() - int(kCommands.size()) - 1; }
    static bool isLine(const QModelIndex& index) { return index.row() == linePosition(index); }
};

QListWidget* installList(QComboBox* box)
{
    auto* list = new QListWidget(box);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    box->setModel(list->model());
    box->setView(list);
    return list;
}

} // namespace

ComboBoxS1M1::ComboBoxS1M1(QWidget* parent)
    : QComboBox(parent), mList(installList(this)), mCore(this, quillon::kCapsuleCombo), mFont(GlobalFont::instance().font()),
      mLanguage(u"English"_s)
{
    setObjectName(u"Workspace"_s);
    setItemDelegate(new RowDelegate(this));
    setStyleSheet(styleSheet() + QString::fromLatin1(kSheet));
    mList->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded); // the box had not been told yet that it opens a list
    setMaxVisibleItems(kVisibleRows);
    mList->installEventFilter(this);
    connect(mList, &QListWidget::currentRowChanged, this, &ComboBoxS1M1::light);
    connect(this, &QComboBox::activated, this, &ComboBoxS1M1::choose);
    // After the core, which fits its letters to the longest item: here that is a command, and a long name is cut short anyway.
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(model(), signal, this, &ComboBoxS1M1::fitLetters);
    }
    connect(model(), &QAbstractItemModel::dataChanged, this, &ComboBoxS1M1::fitLetters);
}

void ComboBoxS1M1::fitLetters()
{
    QFont letters = mFont;
    letters.setPixelSize(std::max(1, GlobalFont::instance().pixelSizeForHeight(mFont, int(height() * kLetterHeight))));
    QComboBox::setFont(letters);
    mList->setFont(letters);
    if (mEditOpen) {
        lineEdit()->setFont(letters);
    }
}

int ComboBoxS1M1::nameCount() const
{
    return std::max(0, count() - int(kCommands.size()) - 1);
}

QStringList ComboBoxS1M1::names() const
{
    QStringList names;
    for (int i = 0; i < nameCount(); ++i) {
        names += itemText(i);
    }
    return names;
}

int ComboBoxS1M1::rowOf(const QString& name) const
{
    return int(names().indexOf(name));
}

ComboBoxS1M1_ItemS1M1* ComboBoxS1M1::rowWidget(int row) const
{
    return static_cast<ComboBoxS1M1_ItemS1M1*>(mList->itemWidget(mList->item(row)));
}

void ComboBoxS1M1::light(int row)
{
    if (mLit) {
        mLit->setLit(false);
    }
    mLit = row >= 0 && row < nameCount() ? rowWidget(row) : nullptr;
    if (mLit) {
        mLit->setLit(true);
    }
}

void ComboBoxS1M1::tell(const QString& attribute, const QString& name)
{
    emit attributeChanged(objectName(), attribute, name);
}

void ComboBoxS1M1::setItems(const QStringList& names, const QString& current)
{
    closeEdit();
    mCurrent.clear();
    mList->clear();
    QStringList rows = names;
    rows += QString();
    for (const Command& command : kCommands) {
        rows += QString::fromUtf16(mLanguage == "Chinese"_L1 ? command.chinese : command.english);
    }
    mList->addItems(rows); // at once: each insertion fits the texts anew
    mList->item(nameCount())->setFlags(Qt::NoItemFlags);
    mRowsStale = true;
    if (names.isEmpty()) {
        const QString name = quillon::uniqueName(QString(), {});
        tell(u"NewItem"_s, name);
        addName(name);
    }
    pick(names.contains(current) ? current : itemText(0));
}

void ComboBoxS1M1::addName(const QString& name)
{
    mList->insertItem(nameCount(), name);
    mRowsStale = true;
}

void ComboBoxS1M1::showName(const QString& name)
{
    if (const int row = rowOf(name); row >= 0) {
        mCurrent = name;
        setCurrentIndex(row);
    }
}

void ComboBoxS1M1::pick(const QString& name)
{
    const bool changes = name != mCurrent;
    showName(name);
    if (changes) {
        tell(u"ItemChanged"_s, name);
    }
}

void ComboBoxS1M1::choose(int index)
{
    if (mEditOpen) {
        return; // the box has found what is being typed among its items
    }
    const int command = index - nameCount();
    if (command < 0) {
        pick(itemText(index));
        return;
    }
    showName(mCurrent);
    switch (command) {
    case RestoreDefault:
        tell(u"RestoreDefault"_s, mCurrent);
        break;
    case NewWorkspace:
        openEdit(New);
        break;
    case SaveAs:
        openEdit(Copy);
        break;
    default:
        break;
    }
}

// --- the edit

void ComboBoxS1M1::startSaveAs()
{
    openEdit(Copy);
}

void ComboBoxS1M1::openEdit(EditKind kind)
{
    if (mAsking) {
        return;
    }
    mEditKind = kind;
    if (std::exchange(mEditOpen, true)) {
        lineEdit()->clear();
        lineEdit()->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    setEditable(true);
    setCompleter(nullptr);
    QLineEdit* field = lineEdit();
    field->setFrame(false);
    field->setFont(QComboBox::font());
    QPalette dark = field->palette();
    dark.setColor(QPalette::Base, Qt::transparent);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(1, 110, 55));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    field->setPalette(dark);
    field->setTextMargins(height() / 3, 0, height() / 3, 0);
    field->clear();
    connect(field, &QLineEdit::textChanged, this, &ComboBoxS1M1::cutToWidth);
    connect(field, &QLineEdit::returnPressed, this, &ComboBoxS1M1::finishEdit);
    field->setFocus(Qt::ShortcutFocusReason);
    update();
}

void ComboBoxS1M1::closeEdit()
{
    if (!mEditOpen) {
        return;
    }
    mEditOpen = false; // first: the field reports its end
    mRefused = false;
    setEditable(false);
    showName(mCurrent);
    quillon::announcePick(this, mCurrent);
    update();
}

void ComboBoxS1M1::cutToWidth(const QString& text)
{
    QFont font = mFont;
    font.setPointSize(kNamePoints);
    const QFontMetrics metrics(font);
    QString cut = text.left(kLongestTyped);
    while (metrics.horizontalAdvance(cut) > kNameWidth) {
        cut.chop(cut.size() > 1 && cut.back().isLowSurrogate() ? 2 : 1);
    }
    if (cut != text) {
        const int cursor = lineEdit()->cursorPosition();
        lineEdit()->setText(cut); // comes back here, and fits
        lineEdit()->setCursorPosition(cursor);
        return;
    }
    mRefused = false;
    quillon::announcePick(this, cut);
    update();
}

void ComboBoxS1M1::finishEdit()
{
    if (!mEditOpen || mAsking) {
        return;
    }
    const QString typed = lineEdit()->text();
    const QString name = quillon::uniqueName(typed, names());
    if (name.isEmpty()) {
        askOverride(typed);
    } else if (!quillon::isWorkspaceName(name)) {
        refuseName();
    } else {
        closeEdit();
        tell(mEditKind == New ? u"NewItem"_s : u"ItemSaveAs"_s, name);
        addName(name);
        pick(name);
    }
}

/// A name that would leave its folder: the field stays open for another one.
void ComboBoxS1M1::refuseName()
{
    mRefused = true;
    lineEdit()->selectAll();
    const QString why = mLanguage == "Chinese"_L1 ? u"名称不能是 . 或 ..，也不能包含 / 或 \\"_s
                                                  : u"A name cannot be . or .. and cannot contain / or \\"_s;
    QToolTip::showText(mapToGlobal(QPoint(0, height())), why, this);
    quillon::announcePick(this, why);
    update();
}

void ComboBoxS1M1::askOverride(const QString& name)
{
    mAsking = true;
    auto* body = new MessageBoxWidget2;
    body->setName(quoted(name));
    quillon::askOverConsole(this, body, mLanguage, [this, name](int result) {
        mAsking = false;
        if (!mEditOpen) {
            return; // the page has changed behind the question
        }
        switch (result) {
        case 0:
            closeEdit();
            break;
        case 1:
            overrideName(name);
            break;
        default:
            lineEdit()->setFocus(Qt::ShortcutFocusReason);
            lineEdit()->selectAll();
        }
    });
}

void ComboBoxS1M1::overrideName(const QString& name)
{
    closeEdit();
    if (mEditKind == New) {
        showName(name); // this event loads it; another one would load it again
        tell(u"RestoreDefault"_s, name);
    } else {
        tell(u"ItemSaveAs"_s, name);
        pick(name);
    }
}

// --- deleting

void ComboBoxS1M1::askDelete(const QString& name)
{
    hidePopup();
    if (mAsking) {
        return;
    }
    mAsking = true;
    auto* body = new MessageBoxWidget1;
    body->setName(quoted(name));
    quillon::askOverConsole(this, body, mLanguage, [this, name](int result) {
        mAsking = false;
        if (result == 2) {
            remove(name);
        }
    });
}

/// What is open is never what is deleted: another one is loaded before, and when that fails nothing goes.
void ComboBoxS1M1::remove(const QString& name)
{
    const int row = rowOf(name);
    const int last = nameCount() - 1;
    if (row < 0) {
        return;
    }
    if (last == 0) {
        const QString fresh = quillon::uniqueName(QString(), names());
        tell(u"NewItem"_s, fresh);
        addName(fresh);
        pick(fresh);
    } else if (name == mCurrent) {
        pick(itemText(row == last ? 0 : row + 1));
    }
    if (name == mCurrent) {
        return;
    }
    tell(u"RemoveItem"_s, name);
    delete mList->takeItem(rowOf(name));
}

// --- the list

void ComboBoxS1M1::buildRows()
{
    for (int i = 0; i < nameCount(); ++i) {
        ComboBoxS1M1_ItemS1M1* row = rowWidget(i);
        if (row == nullptr) {
            row = new ComboBoxS1M1_ItemS1M1(itemText(i), mList->viewport());
            connect(row, &ComboBoxS1M1_ItemS1M1::deleteClicked, this, &ComboBoxS1M1::askDelete);
            mList->setItemWidget(mList->item(i), row);
        }
        row->setLanguage(mLanguage);
    }
    mRowsStale = false;
}

void ComboBoxS1M1::showPopup()
{
    if (mEditOpen || mAsking) {
        return;
    }
    const QFont letters = QComboBox::font();
    if (mRowsStale) {
        buildRows();
    }
    int widest = 0;
    for (int i = 0; i < count(); ++i) {
        widest = std::max(widest, QFontMetrics(letters).horizontalAdvance(itemText(i)));
    }
    for (int i = 0; i < nameCount(); ++i) {
        rowWidget(i)->setFont(letters);
        rowWidget(i)->setCurrent(itemText(i) == mCurrent);
    }
    const int extras = int(QFontMetrics(letters).height() * kRowHeight * 2.2); // lamp, delete button, scroll bar
    mList->setMinimumWidth(std::max(width(), widest + extras));
    QComboBox::showPopup();
    light(mList->currentRow());
}

bool ComboBoxS1M1::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mList && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int row = mList->currentRow();
        if ((key == Qt::Key_Delete || key == Qt::Key_Right) && row >= 0 && row < nameCount()) {
            if (key == Qt::Key_Right) {
                rowWidget(row)->focusDelete();
            } else {
                askDelete(itemText(row));
            }
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

// --- looks and input

void ComboBoxS1M1::setLanguage(const QString& language)
{
    mLanguage = language;
    mRowsStale = true;
    const bool chinese = language == "Chinese"_L1;
    setAccessibleName(chinese ? u"工作区"_s : u"Workspace"_s);
    for (int i = 0; i < int(kCommands.size()) && count() > 0; ++i) {
        const Command& command = kCommands[std::size_t(i)];
        setItemText(nameCount() + 1 + i, QString::fromUtf16(chinese ? command.chinese : command.english));
    }
}

void ComboBoxS1M1::setFont(const QFont& font)
{
    mFont = font;
    mCore.setFont(font);
    fitLetters();
}

bool ComboBoxS1M1::event(QEvent* event)
{
    mCore.watch(event);
    return QComboBox::event(event);
}

void ComboBoxS1M1::resizeEvent(QResizeEvent* event)
{
    QComboBox::resizeEvent(event);
    mCore.relayout();
    fitLetters();
}

void ComboBoxS1M1::paintEvent(QPaintEvent*)
{
    mCore.paint();
    if (mEditOpen) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(
            QPen(mRefused ? QColor(229, 69, 71) : quillon::FocusMark::color(), 1.5, mRefused ? Qt::DashLine : Qt::SolidLine));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), height() / 2.0, height() / 2.0);
    }
}

/// A page that goes away takes no name; a window that is minimised comes back.
void ComboBoxS1M1::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) {
        closeEdit();
    }
    QComboBox::hideEvent(event);
}

void ComboBoxS1M1::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    // A window or menu that comes in front is not left for good.
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason) {
        finishEdit();
    }
}

void ComboBoxS1M1::keyPressEvent(QKeyEvent* event)
{
    static constexpr std::array kOpeners{Qt::Key_Up, Qt::Key_Down, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F4};
    static constexpr std::array kSteppers{Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F4};
    const auto isIn = [key = event->key()](const auto& keys) { return std::find(keys.begin(), keys.end(), key) != keys.end(); };
    if (mEditOpen) {
        if (event->key() == Qt::Key_Escape) {
            closeEdit();
        } else if (!isIn(kSteppers)) {
            QComboBox::keyPressEvent(event);
        }
    } else if (isIn(kOpeners)) {
        showPopup();
    } else {
        event->ignore();
    }
}

void ComboBoxS1M1::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}
