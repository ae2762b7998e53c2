#include "controls/MessageBoxS2M1.h"

#include "app/GlobalFont.h"

#include <QButtonGroup>

namespace
{

using Choice = quillon::ChoiceButton<QRadioButton>;

constexpr double kMarkOfRow = 0.4;

} // namespace

MessageBoxS2M1_WidgetS2M1::MessageBoxS2M1_WidgetS2M1(QWidget* parent) : LightBoxBody(parent), mChoices(new QButtonGroup(this))
{
    for (int i = 0; i < kLineCount; ++i) {
        auto* choice = new Choice(this);
        addLine(choice);
        mChoices->addButton(choice, i + 1);
        setChoiceColor(i, Qt::black);
    }
    mChoices->button(kLineCount)->setChecked(true);
    for (quillon::AnswerButton* button : std::as_const(mAnswers))
        connect(button, &QPushButton::clicked, this, &MessageBoxS2M1_WidgetS2M1::in_mPushButtonAll_clicked);
    setDefaultAnswer(0);
}

void MessageBoxS2M1_WidgetS2M1::setChoiceText(int choice, const QString& text)
{
    if (choice < 0 || choice >= mLines.size())
        return;
    mChoices->button(choice + 1)->setText(text);
    relayout();
}

void MessageBoxS2M1_WidgetS2M1::setChoiceColor(int choice, const QColor& color)
{
    if (choice >= 0 && choice < mLines.size())
        quillon::setInk(mLines[choice], color);
}

int MessageBoxS2M1_WidgetS2M1::startPoints(QSize row) const
{
    const QRect text(0, 0, row.width(), int(row.height() * 0.6));
    return GlobalFont::instance().pointSizeForRect(font(), lineText(0).first, text);
}

std::pair<QString, int> MessageBoxS2M1_WidgetS2M1::lineText(int line) const
{
    const double row = height() / double(kLineCount + 1);
    return {mChoices->button(line + 1)->text(), int(row * kMarkOfRow * (1 + 2 * quillon::kChoiceGap))};
}

QString MessageBoxS2M1_WidgetS2M1::question() const
{
    return mChoices->checkedButton()->text();
}

void MessageBoxS2M1_WidgetS2M1::relayout()
{
    LightBoxBody::relayout();
    for (QWidget* choice : std::as_const(mLines))
        static_cast<Choice*>(choice)->setMarkSide(int(choice->height() * kMarkOfRow));
}

void MessageBoxS2M1_WidgetS2M1::in_mPushButtonAll_clicked()
{
    emit buttonClicked(sender() == mAnswers.first() ? mChoices->checkedId() : 0);
}

MessageBoxS2M1::MessageBoxS2M1(QWidget* parent) : FramelessWindow(parent), mWidget(new MessageBoxS2M1_WidgetS2M1)
{
    quillon::dressLightBox(*this);
    setBody(mWidget);
    connect(mWidget, &MessageBoxS2M1_WidgetS2M1::buttonClicked, this, &MessageBoxS2M1::in_mWidget_buttonClicked);
}

void MessageBoxS2M1::in_mWidget_buttonClicked(int choice)
{
    done(choice);
}
