#include "console/settings/SettingsRows.h"

#include "app/GlobalFont.h"
#include "console/settings/ToggleSwitch.h"
#include "controls/ComboBoxS1M2.h"
#include "controls/group/PlateButton.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

// Pixels at factor 1.
constexpr double kRowHeight = 46;
constexpr double kMargin = 14;
constexpr double kPadding = 16;
constexpr double kPageWidth = 624;

constexpr double kLeastFactor = 0.3; // less is not drawn any more

// Shares of the width between the paddings.
constexpr double kControlWidth = 0.37;
constexpr double kLabelWidth = 0.61;
constexpr double kShortLabelWidth = 0.34; // before a text
constexpr double kTextButtonWidth = 0.17;
constexpr double kGap = 0.02;

// Shares of the height of a row.
constexpr double kLetters = 0.5;
constexpr double kControlHeight = 0.66;
constexpr double kSwitchHeight = 0.6;
constexpr double kSwitchWidth = 1.5;

constexpr QColor kGround{37, 37, 37};
constexpr QColor kEdge{54, 54, 54};
constexpr QColor kInk{205, 205, 205};
constexpr QColor kTextInk{161, 161, 161};

QRect atRight(const QRect& row, double width, double height)
{
    const QSize size(int(std::lround(width)), int(std::lround(height)));
    return {QPoint(row.right() + 1 - size.width(), row.top() + (row.height() - size.height()) / 2), size};
}

QString read(const LiveChoice& choice, bool chinese)
{
    return chinese ? choice.chinese : choice.english;
}

} // namespace

SettingsRows::SettingsRows(std::span<const RowShape> shapes, QWidget* page) : QWidget(page)
{
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(this);
    layout->addStretch();
    mRows.reserve(qsizetype(shapes.size()));
    for (const RowShape& shape : shapes)
        addRow(shape);
    relayout();
}

void SettingsRows::addRow(const RowShape& shape)
{
    const int row = int(mRows.size());
    Row& it = mRows.emplace_back();
    it.shape = &shape;
    it.caption = shape.caption;
    it.label = new QLabel(this);
    setInk(it.label, kInk);
    addControl(row);
    const QString name = QString::fromUtf16(shape.name);
    it.label->setObjectName("label"_L1 + name);
    it.label->setBuddy(it.control);
    it.control->setObjectName(name);
    if (it.text != nullptr)
        it.text->setObjectName("text"_L1 + name);
    for (const RowChoice& choice : shape.choices) {
        it.choices.append({QString::fromUtf16(choice.data), choice.text.in(false), choice.text.in(true)});
        it.combo->addItem(QString());
    }
    relabel(it);
}

void SettingsRows::addControl(int row)
{
    Row& it = mRows[row];
    constexpr QSize kNone(1, 1); // without a size a control fits no text yet, and each fit costs the measures of a font
    switch (it.shape->kind) {
    case RowKind::Combo:
        it.control = it.combo = new ComboBoxS1M2(this);
        it.combo->resize(kNone);
        it.combo->setFont(font());
        it.combo->setMaxVisibleItems(14); // the longest list as a whole
        it.combo->installEventFilter(this);
        connect(it.combo, &QComboBox::activated, this, [this, row](int index) { take(row, mRows[row].choices[index].data); });
        break;
    case RowKind::Switch:
        it.control = it.toggle = new ToggleSwitch(this);
        it.toggle->resize(kNone);
        // Not clicked(): assistive technology toggles a button without a click.
        connect(it.toggle, &QAbstractButton::toggled, this, [this, row](bool on) { take(row, on ? u"1"_s : u"0"_s); });
        break;
    case RowKind::Text:
        mHasTexts = true;
        it.text = new QLabel(this);
        it.text->setTextFormat(Qt::PlainText); // what comes from the network is no markup
        it.text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setInk(it.text, kTextInk);
        [[fallthrough]];
    case RowKind::Button:
        it.control = it.button = new PlateButton(this);
        it.button->setVisible(it.shape->kind == RowKind::Button);
        connect(it.button, &QAbstractButton::clicked, this, [this, row] { emit edited(row, u"1"_s); });
        break;
    }
}

/// A choice that is made again is none: the device and the store hear of changes only. Its text is a copy: who hears may replace
/// the choices.
void SettingsRows::take(int row, QString value)
{
    if (mRows[row].value == value)
        return;
    mRows[row].before = std::exchange(mRows[row].value, value);
    emit edited(row, value);
}

bool SettingsRows::set(int row, const QString& value)
{
    Row& it = mRows[row];
    if (it.combo != nullptr) {
        const auto found = std::find_if(it.choices.cbegin(), it.choices.cend(),
                                        [&value](const LiveChoice& choice) { return choice.data == value; });
        if (found == it.choices.cend())
            return false;
        it.combo->setCurrentIndex(int(found - it.choices.cbegin()));
    } else {
        const QSignalBlocker silent(it.toggle);
        it.toggle->setChecked(value == "1"_L1);
    }
    it.value = value;
    return true;
}

void SettingsRows::takeBack(int row, const QString& present)
{
    Row& it = mRows[row];
    if (set(row, present) || set(row, it.before))
        return;
    it.combo->setCurrentIndex(-1);
    it.value = it.before;
}

void SettingsRows::setChoices(int row, const QList<LiveChoice>& choices, const QString& current)
{
    Row& it = mRows[row];
    it.choices = choices;
    it.combo->clear();
    for (const LiveChoice& choice : choices)
        it.combo->addItem(read(choice, mChinese));
    it.combo->setEnabled(!choices.isEmpty());
    it.combo->setCurrentIndex(-1);
    it.value.clear();
    set(row, current);
}

void SettingsRows::setText(int row, const QString& text, const BoxText& caption)
{
    mRows[row].text->setText(text);
    mRows[row].button->setVisible(caption.english != nullptr);
    setCaption(row, caption);
}

void SettingsRows::setCaption(int row, const BoxText& caption)
{
    mRows[row].caption = caption;
    relabel(mRows[row]);
    relayout();
}

void SettingsRows::relabel(Row& row)
{
    const QString label = row.shape->label.in(mChinese);
    const QString caption = row.caption.in(mChinese);
    row.label->setText(label);
    if (row.text != nullptr) {
        row.text->setAccessibleName(label + u": "_s + row.text->text());
        row.button->setAccessibleName(caption + u' ' + label);
    } else {
        row.control->setAccessibleName(label); // of a button too: its caption alone does not tell what it resets or opens
    }
    if (row.button != nullptr)
        row.button->setText(caption);
    if (row.toggle != nullptr)
        row.toggle->setChinese(mChinese);
    for (int i = 0; i < row.choices.size(); ++i)
        row.combo->setItemText(i, read(row.choices[i], mChinese));
}

void SettingsRows::applySetting(const QString& attribute, const QString& value)
{
    if (attribute == "Language"_L1 && (value == "English"_L1 || value == "Chinese"_L1)) {
        mChinese = value == "Chinese"_L1;
        for (Row& row : mRows)
            relabel(row);
        relayout();
    } else if (attribute == "ScaleFactor"_L1 && value.toDouble() > 0) {
        mScale = value.toDouble();
        relayout();
    }
}

/// The wheel belongs to the page: a mode of the device must not change because a row slid under the pointer.
bool SettingsRows::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SettingsRows::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    for (const Row& row : std::as_const(mRows)) {
        if (row.combo != nullptr)
            row.combo->setFont(font());
        if (row.toggle != nullptr)
            row.toggle->setFace(font());
    }
    relayout();
}

void SettingsRows::resizeEvent(QResizeEvent*)
{
    relayout();
}

void SettingsRows::showEvent(QShowEvent*)
{
    relayout();
}

/// A narrow page is a small one: all shrinks alike. The place is measured with its scroll bar, or the bar would come and go for
/// ever.
double SettingsRows::factor() const
{
    const QWidget* place = this;
    for (const QWidget* above = parentWidget(); above != nullptr && !above->isWindow(); above = above->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(above) != nullptr) {
            place = above;
            break;
        }
    }
    return std::min(mScale, std::max(place->width() / kPageWidth, kLeastFactor));
}

int SettingsRows::pixels(double atFactorOne) const
{
    return int(std::lround(atFactorOne * mFactor));
}

QRect SettingsRows::ground() const
{
    const int margin = pixels(kMargin);
    return {margin, margin, width() - 2 * margin, int(mRows.size()) * pixels(kRowHeight)};
}

QRect SettingsRows::place(int row) const
{
    const int height = pixels(kRowHeight);
    const QRect all = ground();
    const int padding = pixels(kPadding);
    return {all.left() + padding, all.top() + row * height, all.width() - 2 * padding, height};
}

void SettingsRows::layoutRow(int row)
{
    const Row& it = mRows[row];
    const QRect room = place(row);
    const double width = room.width();
    const double height = room.height();
    QRect label = room;
    label.setWidth(int(width * (it.text != nullptr ? kShortLabelWidth : kLabelWidth)));
    it.label->setGeometry(label);
    if (it.toggle != nullptr)
        it.toggle->setGeometry(atRight(room, height * kSwitchWidth, height * kSwitchHeight));
    if (it.combo != nullptr)
        it.combo->setGeometry(atRight(room, width * kControlWidth, height * kControlHeight));
    if (it.text == nullptr) {
        if (it.button != nullptr)
            it.button->setGeometry(atRight(room, width * (mHasTexts ? kTextButtonWidth : kControlWidth), height * kControlHeight));
        return;
    }
    const double taken = it.button->isHidden() ? 0 : width * (kTextButtonWidth + kGap);
    it.button->setGeometry(atRight(room, width * kTextButtonWidth, height * kControlHeight));
    it.text->setGeometry(QRect(label.right() + 1, room.top(), int(room.right() - taken - label.right()), room.height()));
}

void SettingsRows::relayout()
{
    mFactor = factor();
    setFixedHeight(2 * pixels(kMargin) + int(mRows.size()) * pixels(kRowHeight));
    if (!isVisible())
        return; // measured when it is shown
    for (int row = 0; row < mRows.size(); ++row)
        layoutRow(row);
    fitTexts();
    update();
}

/// One size for all labels and texts of a page, and one for the captions of its buttons.
void SettingsRows::fitTexts()
{
    const int letters = int(pixels(kRowHeight) * kLetters);
    std::vector<std::pair<QString, QSize>> texts;
    std::vector<std::pair<QString, QSize>> captions;
    for (const Row& row : std::as_const(mRows)) {
        texts.emplace_back(row.label->text(), QSize(row.label->width(), letters));
        if (row.text != nullptr)
            texts.emplace_back(row.text->text(), QSize(row.text->width(), letters));
        if (row.button != nullptr && !row.button->isHidden())
            captions.emplace_back(row.button->text(), QSizeF(row.button->captionSize().width() * 0.9, letters * 0.9).toSize());
    }
    const int points = GlobalFont::instance().pointSizeForHeight(font(), letters);
    QFont face = font();
    face.setPointSize(pointsForAll(face, points, texts));
    QFont small = font();
    small.setPointSize(pointsForAll(small, points, captions));
    for (const Row& row : std::as_const(mRows)) {
        row.label->setFont(face);
        if (row.text != nullptr)
            row.text->setFont(face);
        if (row.button != nullptr)
            row.button->setFont(small);
    }
}

void SettingsRows::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF all = QRectF(ground()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(kGround);
    painter.setPen(kEdge);
    painter.drawRoundedRect(all, pixels(8), pixels(8));
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int row = 1; row < mRows.size(); ++row) {
        const QRect room = place(row);
        painter.drawLine(room.left(), room.top(), room.right(), room.top());
    }
}

} // namespace quillon
