#include "controls/MessageBoxS1M1.h"

#include "app/GlobalFont.h"

#include <QLabel>

using namespace Qt::StringLiterals;

MessageBoxS1M1_WidgetS1M1::MessageBoxS1M1_WidgetS1M1(QWidget* parent) : LightBoxBody(parent)
{
    for (int i = 0; i < kLineCount; ++i) {
        addLabel();
        setLabelColor(i, Qt::black);
    }
    for (quillon::AnswerButton* button : std::as_const(mAnswers))
        connect(button, &QPushButton::clicked, this, &MessageBoxS1M1_WidgetS1M1::in_mPushButtonAll_clicked);
    setDefaultAnswer(1);
}

void MessageBoxS1M1_WidgetS1M1::setLabelText(int line, const QString& text)
{
    if (line < 0 || line >= mLines.size())
        return;
    static_cast<QLabel*>(mLines[line])->setText(text);
    relayout();
}

void MessageBoxS1M1_WidgetS1M1::setLabelColor(int line, const QColor& color)
{
    if (line >= 0 && line < mLines.size())
        quillon::setInk(mLines[line], color);
}

int MessageBoxS1M1_WidgetS1M1::startPoints(QSize row) const
{
    return GlobalFont::instance().pointSizeForHeight(font(), row.height());
}

std::pair<QString, int> MessageBoxS1M1_WidgetS1M1::lineText(int line) const
{
    return {static_cast<QLabel*>(mLines[line])->text(), 0};
}

QString MessageBoxS1M1_WidgetS1M1::question() const
{
    QStringList texts;
    for (int i = 0; i < mLines.size(); ++i)
        texts.append(lineText(i).first);
    return texts.join(u' ').simplified();
}

void MessageBoxS1M1_WidgetS1M1::in_mPushButtonAll_clicked()
{
    emit buttonClicked(sender() == mAnswers.first() ? u"Yes"_s : u"No"_s);
}

MessageBoxS1M1::MessageBoxS1M1(QWidget* parent) : FramelessWindow(parent), mWidget(new MessageBoxS1M1_WidgetS1M1)
{
    quillon::dressLightBox(*this);
    setBody(mWidget);
    connect(mWidget, &MessageBoxS1M1_WidgetS1M1::buttonClicked, this, &MessageBoxS1M1::in_mWidget_buttonClicked);
}

void MessageBoxS1M1::in_mWidget_buttonClicked(const QString& button)
{
    if (button == "Yes"_L1)
        done(1);
    else if (button == "No"_L1)
        done(2);
}
