#include "controls/MessageBoxWidget.h"

#include "app/GlobalFont.h"

#include <QIcon>
#include <QLabel>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

enum class BoxLineKind { Picture, Title, Told, Warning, Choice };

struct BoxLine {
    BoxLineKind kind;
    const char16_t* objectName;
    BoxText text = {};
};

struct BoxAnswer {
    const char16_t* objectName;
    BoxText caption;
    const char16_t* attribute;
    QColor plate;
    bool givesChoice = false; // its value is the choice, not "1"
};

struct MessageBoxTable {
    const char16_t* objectName;
    BoxText name; // what it is about, for assistive technology
    std::vector<BoxLine> lines;
    std::array<BoxAnswer, 2> answers;
    int defaultAnswer; // what Return gives: the one that loses nothing
};

} // namespace quillon

namespace
{

using quillon::BoxLineKind;
using quillon::BoxText;
using quillon::MessageBoxTable;
using Choice = quillon::ChoiceButton<QCheckBox>;

constexpr QColor kPlain(48, 48, 48);
constexpr QColor kRed(229, 69, 71);
constexpr QColor kGreen(1, 150, 65);
constexpr BoxText kCancel{u"Cancel", u"取消"};
constexpr BoxText kOk{u"Ok", u"确定"};
constexpr int kRadius = 5;
constexpr double kLetterHeight = 0.088; // of the body's height
constexpr double kTextWidth = 0.88;
constexpr int kWarningPointsLess = 2;

const MessageBoxTable& deleteTable()
{
    static const MessageBoxTable table{
        u"MessageBoxWidget1",
        {u"Delete workspace", u"删除工作区"},
        {{BoxLineKind::Picture, u"Label1"},
         {BoxLineKind::Title, u"Label2", {u"Delete workspace", u"删除工作区"}},
         {BoxLineKind::Told, u"Label3"},
         {BoxLineKind::Warning, u"Label4", {u"Once deleted, it cannot be recovered.", u"删除后将无法恢复"}}},
        {{{u"PushButton1", kCancel, u"Cancel", kPlain}, {u"PushButton2", kOk, u"Ok", kRed}}},
        0};
    return table;
}

const MessageBoxTable& overwriteTable()
{
    static const MessageBoxTable table{
        u"MessageBoxWidget2",
        {u"Overwrite workspace", u"覆盖工作区"},
        {{BoxLineKind::Title, u"Label1", {u"A workspace with this name already exists", u"该工作区文件名已经存在"}},
         {BoxLineKind::Told, u"Label2"}},
        {{{u"PushButton1", {u"Overwrite", u"覆盖"}, u"Override", kPlain}, {u"PushButton2", kCancel, u"Continue", kGreen}}},
        1};
    return table;
}

const MessageBoxTable& downloadTable()
{
    static const MessageBoxTable table{
        u"MessageBoxWidget3",
        {u"Download to device", u"下载到设备"},
        {{BoxLineKind::Choice, u"CheckBox1", {u"Save current workspace and download to device", u"保存当前工作区并下载到设备"}},
         {BoxLineKind::Choice, u"CheckBox2", {u"Save as new workspace and download to device", u"另存为新工作区并下载到设备"}},
         {BoxLineKind::Choice, u"CheckBox3", {u"Download to device only", u"仅下载到设备"}}},
        {{{u"PushButton1", kCancel, u"Cancel", kPlain}, {u"PushButton2", kOk, u"Ok", kGreen, true}}},
        1};
    return table;
}

const MessageBoxTable& restoreTable()
{
    static const MessageBoxTable table{
        u"MessageBoxWidget4",
        {u"Restore device", u"恢复设备"},
        {{BoxLineKind::Choice, u"CheckBox1", {u"Reset device, keep configs 1/2", u"恢复出厂设置，但保留用户配置 1/2"}},
         {BoxLineKind::Choice, u"CheckBox2", {u"Reset device, clear configs 1/2", u"恢复出厂设置，且清除用户配置 1/2"}}},
        {{{u"PushButton1", kCancel, u"Cancel", kPlain}, {u"PushButton2", kOk, u"Ok", kRed, true}}},
        0};
    return table;
}

double weightOf(BoxLineKind kind)
{
    switch (kind) {
    case BoxLineKind::Picture:
        return 2.0;
    case BoxLineKind::Choice:
        return 1.25;
    default:
        return 1.0;
    }
}

} // namespace

MessageBoxWidget::MessageBoxWidget(const MessageBoxTable& table, QWidget* parent) : BoxBody(parent), mTable(table)
{
    setObjectName(QString::fromUtf16(table.objectName));
    for (int i = 0; i < int(table.lines.size()); ++i)
        addRow(i);
    for (int i = 0; i < int(table.answers.size()); ++i)
        addAnswerOf(i);
    setDefaultAnswer(table.defaultAnswer);
    if (!mChoices.isEmpty())
        mChoices.first()->setChecked(true);
    setLanguage(u"English"_s);
}

void MessageBoxWidget::addRow(int index)
{
    const quillon::BoxLine& line = mTable.lines[std::size_t(index)];
    if (line.kind == BoxLineKind::Choice) {
        auto* choice = new Choice(this);
        const int number = int(mChoices.size());
        mChoices.append(choice);
        connect(choice, &QCheckBox::toggled, this, [this, number](bool checked) {
            if (checked)
                choose(number);
        });
        addLine(choice);
    } else {
        addLabel();
    }
    mLines.last()->setObjectName(QString::fromUtf16(line.objectName));
    quillon::setInk(mLines.last(), line.kind == BoxLineKind::Warning ? QColor(207, 63, 65) : QColor(Qt::white));
}

void MessageBoxWidget::addAnswerOf(int index)
{
    const quillon::BoxAnswer& row = mTable.answers[std::size_t(index)];
    quillon::AnswerButton* button = addAnswer({Qt::white, row.plate, kRadius});
    button->setObjectName(QString::fromUtf16(row.objectName));
    connect(button, &QPushButton::clicked, this, [this, index] { answer(index); });
}

/// The choice that was made cannot be unmade by itself, only by another: it is disabled.
void MessageBoxWidget::choose(int choice)
{
    mSelected = u"Item"_s + QString::number(choice + 1);
    for (int i = 0; i < mChoices.size(); ++i) {
        if (i == choice)
            continue;
        mChoices[i]->setEnabled(true);
        mChoices[i]->setChecked(false);
    }
    mChoices[choice]->setEnabled(false); // last: the keyboard goes on to an enabled neighbour
}

void MessageBoxWidget::answer(int index)
{
    const quillon::BoxAnswer& row = mTable.answers[std::size_t(index)];
    int result = index + 1;
    if (row.givesChoice)
        result += mSelected.last(1).toInt() - 1;
    const QPointer<MessageBoxWidget> alive(this);
    emit attributeChanged(QString(), QString::fromUtf16(row.attribute), row.givesChoice ? mSelected : u"1"_s);
    if (alive)
        emit answered(result);
}

void MessageBoxWidget::setTold(const QString& text)
{
    mTold = text;
    for (int i = 0; i < mLines.size(); ++i)
        if (mTable.lines[std::size_t(i)].kind == BoxLineKind::Told)
            mLines[i]->setAccessibleName(text);
    relayout();
}

void MessageBoxWidget::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1)
        return;
    mChinese = language == "Chinese"_L1;
    setAccessibleName(mTable.name.in(mChinese));
    for (int i = 0; i < mLines.size(); ++i) {
        const BoxText& text = mTable.lines[std::size_t(i)].text;
        if (auto* choice = qobject_cast<QCheckBox*>(mLines[i]))
            choice->setText(text.in(mChinese));
        else if (text.english)
            static_cast<QLabel*>(mLines[i])->setText(text.in(mChinese));
    }
    for (int i = 0; i < mAnswers.size(); ++i)
        mAnswers[i]->setText(mTable.answers[std::size_t(i)].caption.in(mChinese));
    relayout();
}

QString MessageBoxWidget::question() const
{
    QStringList parts{mTable.name.in(mChinese)};
    for (const quillon::BoxLine& line : mTable.lines) {
        if (line.kind == BoxLineKind::Told)
            parts.append(mTold);
        else if (line.kind == BoxLineKind::Warning)
            parts.append(line.text.in(mChinese));
    }
    return parts.join(u", "_s);
}

/// One size for all lines: as the height asks for, less when a text of the table would not fit in the width.
int MessageBoxWidget::fittedPoints() const
{
    const int letters = int(height() * kLetterHeight);
    std::vector<std::pair<QString, QSize>> texts;
    for (const quillon::BoxLine& line : mTable.lines) {
        const int mark = line.kind == BoxLineKind::Choice ? letters * 7 / 4 : 0;
        if (line.text.english)
            texts.emplace_back(line.text.in(mChinese), QSize(int(width() * kTextWidth) - mark, height()));
    }
    return quillon::pointsForAll(font(), GlobalFont::instance().pointSizeForHeight(font(), letters), texts);
}

void MessageBoxWidget::relayout()
{
    std::vector<double> weights;
    for (const quillon::BoxLine& line : mTable.lines)
        weights.push_back(weightOf(line.kind));
    const quillon::BoxLayout layout = quillon::layoutWeightedRows(size(), weights);
    QFont large = font();
    large.setPointSize(fittedPoints());
    QFont small = large;
    small.setPointSize(std::max(1, large.pointSize() - kWarningPointsLess));
    for (int i = 0; i < mLines.size(); ++i) {
        const BoxLineKind kind = mTable.lines[std::size_t(i)].kind;
        const QRect& place = layout.lines[std::size_t(i)];
        mLines[i]->setGeometry(place);
        mLines[i]->setFont(kind == BoxLineKind::Warning ? small : large);
        if (kind == BoxLineKind::Choice) {
            static_cast<Choice*>(mLines[i])->setMarkSide(QFontMetrics(large).height() * 9 / 10);
            continue;
        }
        auto* label = static_cast<QLabel*>(mLines[i]);
        if (kind == BoxLineKind::Picture)
            label->setPixmap(QIcon(u":/Icon/Trash.png"_s).pixmap(place.size() * 0.92, devicePixelRatioF()));
        else if (kind == BoxLineKind::Told)
            label->setText(QFontMetrics(large).elidedText(mTold, Qt::ElideMiddle, place.width()));
    }
    QFont captions = font();
    captions.setPointSize(std::max(1, GlobalFont::instance().pointSizeForHeight(font(), int(height() * kLetterHeight))));
    for (int i = 0; i < mAnswers.size(); ++i) {
        mAnswers[i]->setGeometry(layout.answers[std::size_t(i)]);
        mAnswers[i]->setFont(captions);
    }
}

MessageBoxWidget1::MessageBoxWidget1(QWidget* parent) : MessageBoxWidget(deleteTable(), parent) {}

MessageBoxWidget2::MessageBoxWidget2(QWidget* parent) : MessageBoxWidget(overwriteTable(), parent) {}

MessageBoxWidget3::MessageBoxWidget3(QWidget* parent) : MessageBoxWidget(downloadTable(), parent) {}

MessageBoxWidget4::MessageBoxWidget4(QWidget* parent) : MessageBoxWidget(restoreTable(), parent) {}
