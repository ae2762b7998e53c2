#include "processing/AutoGainPages.h"

#include "app/GlobalFont.h"
#include "controls/CircleS1M1.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

using quillon::AutoGainButton;
using quillon::AutoGainPage;
using quillon::AutoGainText;

constexpr std::array<AutoGainPage, 4> kPages = {{
    {.objectName = u"AutoGainS1M1_WidgetS1M1",
     .circleMode = CircleS1M1::Ready,
     .text = {u"Click Start\nto begin autogain match", u"点击\"开始\"进行自动增益匹配"},
     .note = {u"(input gain will reset to 0)", u"(输入增益将重置为0)"},
     .buttons = {{.caption = {u"Start", u"开始"}, .event = u"Start", .main = true}, {}}},
    {.objectName = u"AutoGainS1M1_WidgetS1M2",
     .circleMode = CircleS1M1::Counting,
     .text = {u"Detecting %1 level......\nPlease perform into \nthe microphone.", u"%1电平中......\n请对麦克风演奏"},
     .note = {},
     .buttons = {{.caption = {u"Cancel", u"取消"}, .event = u"Cancel"}, {}}},
    {.objectName = u"AutoGainS1M1_WidgetS1M3",
     .circleMode = CircleS1M1::Done,
     .text = {u"Autogain match\nhas been completed", u"自动增益匹配已完成"},
     .note = {},
     .buttons = {{.caption = {u"Apply", u"应用"}, .event = u"Apply", .main = true},
                 {.caption = {u"Back", u"返回"}, .event = u"Abandon"}}},
    {.objectName = u"AutoGainS1M1_WidgetS1M4",
     .circleMode = CircleS1M1::Failed,
     .text = {u"Autogain detection failed.\nPlease check your device\nconnection and try again",
              u"自动增益检测失败,\n请检查设备连接并重试"},
     .note = {},
     .buttons = {{.caption = {u"Retry", u"重试"}, .event = u"Retry", .main = true}, {}}},
}};

// Shares of the page's width and height.
constexpr double kCircleHeight = 0.40;
constexpr double kTextWidth = 0.80;
constexpr double kTextTop = 0.44;
constexpr double kTextHeight = 0.20;
constexpr double kTextLine = 0.10; // one size of letters on all pages, however many lines a text has
constexpr double kNoteTop = 0.66;
constexpr double kNoteHeight = 0.08;
constexpr double kButtonWidth = 0.35;
constexpr double kButtonTop = 0.80;
constexpr double kButtonHeight = 0.12;

QString inLanguage(const AutoGainText& text, bool chinese)
{
    const char16_t* chosen = chinese ? text.chinese : text.english;
    return chosen ? QString::fromUtf16(chosen) : QString();
}

} // namespace

AutoGainS1M1_WidgetBase::AutoGainS1M1_WidgetBase(const AutoGainPage& row, QWidget* parent)
    : QWidget(parent), mRow(row), mCircle(new CircleS1M1(this)), mText(new QLabel(this)), mNote(new QLabel(this))
{
    setObjectName(QString::fromUtf16(row.objectName));
    mCircle->setMode(row.circleMode);
    for (QLabel* label : {mText, mNote}) {
        label->setAlignment(Qt::AlignCenter);
        label->setTextFormat(Qt::PlainText); // a channel's name is the user's own text
    }
    mText->setStyleSheet(u"QLabel { color: rgb(222, 222, 222); background: transparent; border: none; }"_s);
    mNote->setStyleSheet(u"QLabel { color: rgb(161, 161, 161); background: transparent; border: none; }"_s);
    mNote->setVisible(row.note.english != nullptr);
    for (const AutoGainButton& entry : row.buttons) {
        if (!entry.event)
            continue;
        auto* button = new QPushButton(this);
        const QString name = QString::fromUtf16(entry.event);
        button->setObjectName(u"pushButton"_s + name);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, [this, name] { emit attributeChanged(objectName(), name, name); });
        mButtons.append(button);
    }
    setLanguage(u"English"_s, QString());
}

void AutoGainS1M1_WidgetBase::setFont(const QFont& font)
{
    QWidget::setFont(font);
    for (auto* child : findChildren<QWidget*>())
        child->setFont(font);
    relayout();
}

void AutoGainS1M1_WidgetBase::setLanguage(const QString& language, const QString& channelName)
{
    const bool chinese = language == "Chinese"_L1;
    if (!chinese && language != "English"_L1)
        return;
    mText->setText(inLanguage(mRow.text, chinese).replace(u"%1"_s, channelName));
    mNote->setText(inLanguage(mRow.note, chinese));
    for (qsizetype i = 0; i < mButtons.size(); ++i) {
        mButtons[i]->setText(inLanguage(mRow.buttons[i].caption, chinese));
        mButtons[i]->setAccessibleDescription(mText->text()); // read out when a page hands the keyboard to its button
    }
    relayout();
}

void AutoGainS1M1_WidgetBase::setSeconds(int seconds)
{
    mCircle->setValue(float(seconds));
}

void AutoGainS1M1_WidgetBase::focusMainButton()
{
    mButtons.first()->setDefault(true);
    mButtons.first()->setFocus(Qt::OtherFocusReason);
}

void AutoGainS1M1_WidgetBase::resizeEvent(QResizeEvent*)
{
    relayout();
}

/// The largest pixel size at which each line of a label stands in the box's width and in lineHeight.
void AutoGainS1M1_WidgetBase::fitText(QLabel* label, const QRect& box, double lineHeight)
{
    label->setGeometry(box);
    const QRect line(0, 0, box.width(), int(lineHeight));
    int pixels = 60;
    for (const QString& text : label->text().split(u'\n'))
        pixels = std::min(pixels, GlobalFont::instance().pixelSizeForRect(font(), text, line));
    QFont fitted = font();
    fitted.setPixelSize(pixels);
    label->setFont(fitted);
}

void AutoGainS1M1_WidgetBase::relayout()
{
    const double w = width();
    const double h = height();
    const auto centred = [&](double widthShare, double top, double heightShare) {
        return QRect(int(w * (1 - widthShare) / 2), int(h * top), int(w * widthShare), int(h * heightShare));
    };
    const int side = int(std::min(w, h * kCircleHeight));
    mCircle->setGeometry((width() - side) / 2, 0, side, side);
    // Without a note the text may use its room as well.
    const double textHeight = mNote->isHidden() ? kNoteTop + kNoteHeight - kTextTop : kTextHeight;
    fitText(mText, centred(kTextWidth, kTextTop, textHeight), h * kTextLine * 0.85);
    fitText(mNote, centred(kTextWidth, kNoteTop, kNoteHeight), h * kNoteHeight * 0.90);

    const int buttonWidth = int(w * kButtonWidth);
    const int buttonHeight = int(h * kButtonHeight);
    const int gap = (width() - buttonWidth * int(mButtons.size())) / (int(mButtons.size()) + 1);
    const int radius = int(buttonHeight * 0.2);
    for (qsizetype i = 0; i < mButtons.size(); ++i) {
        QPushButton* button = mButtons[i];
        button->setGeometry(gap + int(i) * (buttonWidth + gap), int(h * kButtonTop), buttonWidth, buttonHeight);
        const QString plate = mRow.buttons[i].main ? u"rgba(1, 150, 65, 1)"_s : u"rgba(48, 48, 48, 1)"_s;
        button->setStyleSheet(u"QPushButton { color: rgba(255, 255, 255, 1); background: %1;border-radius:%2px; padding: 0px;"
                              " border: 1px solid transparent; }"
                              "QPushButton:hover { border-color: rgb(128, 128, 128); }"
                              "QPushButton:focus { border-color: rgb(222, 222, 222); }"_s.arg(plate)
                                  .arg(radius));
        QFont fitted = font();
        const QRect caption(0, 0, int(buttonWidth * 0.9), int(buttonHeight * 0.80));
        fitted.setPixelSize(GlobalFont::instance().pixelSizeForRect(font(), button->text(), caption));
        button->setFont(fitted);
    }
}

AutoGainS1M1_WidgetS1M1::AutoGainS1M1_WidgetS1M1(QWidget* parent) : AutoGainS1M1_WidgetBase(kPages[0], parent) {}

AutoGainS1M1_WidgetS1M2::AutoGainS1M1_WidgetS1M2(QWidget* parent) : AutoGainS1M1_WidgetBase(kPages[1], parent) {}

AutoGainS1M1_WidgetS1M3::AutoGainS1M1_WidgetS1M3(QWidget* parent) : AutoGainS1M1_WidgetBase(kPages[2], parent) {}

AutoGainS1M1_WidgetS1M4::AutoGainS1M1_WidgetS1M4(QWidget* parent) : AutoGainS1M1_WidgetBase(kPages[3], parent) {}
