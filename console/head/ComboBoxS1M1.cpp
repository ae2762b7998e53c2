#include "console/head/ComboBoxS1M1.h"

#include "app/GlobalFont.h"
#include "console/head/NameList.h"
#include "controls/ConsoleQuestion.h"
#include "controls/MessageBoxWidget.h"
#include "workspace/WorkspaceChoice.h"
#include "workspace/WorkspaceFile.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kNamePoints = 9;
constexpr int kNameWidth = 127;     // pixels at that size
constexpr int kLongestTyped = 1024; // characters that are measured at all
constexpr int kVisibleRows = 16;
constexpr double kLetterHeight = 0.78; // of a line of text in the box

QString quoted(const QString& name)
{
    return u"\" %1 \""_s.arg(name);
}

quillon::NameList* installList(QComboBox* box)
{
    auto* list = new quillon::NameList(box);
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
    setItemDelegate(quillon::newNameDelegate(this));
    setStyleSheet(styleSheet() + quillon::nameListSheet()); // once
    setMaxVisibleItems(kVisibleRows);
    connect(mList, &quillon::NameList::deleteRequested, this, &ComboBoxS1M1::askDelete);
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

QStringList ComboBoxS1M1::names() const
{
    return mList->names();
}

/// False when nobody could do it.
bool ComboBoxS1M1::tell(const QString& attribute, const QString& name)
{
    mRefusedEvent = false;
    emit attributeChanged(objectName(), attribute, name);
    return !std::exchange(mRefusedEvent, false);
}

void ComboBoxS1M1::setItems(const QStringList& names, const QString& current)
{
    closeEdit();
    mCurrent.clear();
    mList->setNames(names);
    if (names.isEmpty()) {
        makeAndPick(u"NewItem"_s, quillon::uniqueName(QString(), {}));
        return;
    }
    pick(names.contains(current) ? current : itemText(0));
}

void ComboBoxS1M1::showName(const QString& name)
{
    if (const int row = mList->rowOf(name); row >= 0) {
        mCurrent = name;
        setCurrentIndex(row);
    }
}

void ComboBoxS1M1::forgetName(const QString& name)
{
    mList->removeName(name);
    if (name == mCurrent) {
        showNone();
    }
}

void ComboBoxS1M1::showNone()
{
    mCurrent.clear();
    setCurrentIndex(-1);
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
    const int command = index - mList->nameCount();
    if (command < 0) {
        pick(itemText(index));
        return;
    }
    showName(mCurrent);
    switch (command) {
    case quillon::NameList::RestoreDefault:
        tell(u"RestoreDefault"_s, mCurrent);
        break;
    case quillon::NameList::NewWorkspace:
        openEdit(New);
        break;
    case quillon::NameList::SaveAs:
        openEdit(Copy);
        break;
    default:
        break;
    }
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
        makeAndPick(mEditKind == New ? u"NewItem"_s : u"ItemSaveAs"_s, name);
    }
}

void ComboBoxS1M1::makeAndPick(const QString& how, const QString& name)
{
    if (tell(how, name)) {
        mList->addName(name);
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
        const QString open = mCurrent;
        showName(name); // this event loads it; another one would load it again
        if (!tell(u"RestoreDefault"_s, name)) {
            showName(open);
        }
    } else if (tell(u"ItemSaveAs"_s, name)) {
        pick(name);
    }
}

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
    const int row = mList->rowOf(name);
    const int last = mList->nameCount() - 1;
    if (row < 0) {
        return;
    }
    if (last == 0) {
        const QString fresh = quillon::uniqueName(QString(), names());
        makeAndPick(u"NewItem"_s, fresh);
    } else if (name == mCurrent) {
        pick(itemText(row == last ? 0 : row + 1));
    }
    if (name == mCurrent) {
        return;
    }
    tell(u"RemoveItem"_s, name);
    mList->removeName(name);
}

void ComboBoxS1M1::showPopup()
{
    if (mEditOpen || mAsking) {
        return;
    }
    mList->prepare(mCurrent, width());
    QComboBox::showPopup();
    mList->light();
}

void ComboBoxS1M1::setLanguage(const QString& language)
{
    mLanguage = language;
    setAccessibleName(language == "Chinese"_L1 ? u"工作区"_s : u"Workspace"_s);
    mList->setLanguage(language);
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
