#pragma once

#include "controls/FramelessWindow.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QColor>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <vector>

class QLabel;

namespace quillon
{

/// A text in both languages of the program.
struct BoxText {
    const char16_t* english = nullptr;
    const char16_t* chinese = nullptr;

    QString in(bool isChinese) const { return QString::fromUtf16(isChinese ? chinese : english); }
};

struct AnswerLook {
    QColor text;
    QColor plate;
    int radius = 0; // pixels
};

/// An answer of a message box: a painted plate. Its focus is a ring in the colour of its caption. GUI thread.
class AnswerButton : public QPushButton
{
public:
    AnswerButton(QWidget* parent, const AnswerLook& look);

    const AnswerLook& look() const { return mLook; }
    void setLook(const AnswerLook& look);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    AnswerLook mLook;
};

/// How a choice is drawn: its mark at the left, as high as side, then its text in the colour of its palette.
void paintChoice(QAbstractButton& choice, int side, bool isRound);

/// A radio button or check box that paints itself and is pressed anywhere on its row. GUI thread.
template<class Button> class ChoiceButton final : public Button
{
public:
    explicit ChoiceButton(QWidget* parent) : Button(parent) { this->setFocusPolicy(Qt::TabFocus); }

    /// Side of the mark in pixels.
    void setMarkSide(int side)
    {
        mSide = side;
        this->update();
    }

protected:
    void paintEvent(QPaintEvent*) override { paintChoice(*this, mSide, std::is_same_v<Button, QRadioButton>); }
    bool hitButton(const QPoint& position) const override { return this->rect().contains(position); }

private:
    int mSide = 12;
};

/// Room between mark and text of a choice, and for its focus ring, in shares of the mark's side.
constexpr double kChoiceGap = 0.6;

/// Where the lines of a message box stand, and under them its two answers side by side.
struct BoxLayout {
    std::vector<QRect> lines;
    std::array<QRect, 2> answers;
};

/// Rows of equal height over the whole size, the answers in the last one, half a width each with a gap.
BoxLayout layoutEqualRows(QSize size, int lineCount);

/// Lines as high as their weights, centred above a foot with the answers, within margins.
BoxLayout layoutWeightedRows(QSize size, const std::vector<double>& weights);

/// points, or less: what all texts fit into their places with. A place of no width asks nothing.
int pointsForAll(const QFont& font, int points, const std::vector<std::pair<QString, QSize>>& texts);

/// The colour in which a label or choice writes.
void setInk(QWidget* widget, const QColor& color);

/// What the bodies of message boxes share: lines, and under them two answers. On each opening the keyboard stands on the default
/// answer, where a screen reader reads the whole question. GUI thread.
class BoxBody : public QWidget
{
public:
    void setFont(const QFont& font);

protected:
    using QWidget::QWidget;

    void addLine(QWidget* line) { mLines.append(line); }
    QLabel* addLabel();
    AnswerButton* addAnswer(const AnswerLook& look);
    void setDefaultAnswer(int answer);

    /// Places everything and fits the texts.
    virtual void relayout() = 0;
    virtual QString question() const = 0;

    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    QList<QWidget*> mLines;
    QList<AnswerButton*> mAnswers;

private:
    int mDefaultAnswer = 0;
};

/// The body of the two light boxes: three lines and two answers in rows of equal height. Both are counted from 0; other numbers
/// are ignored. GUI thread.
class LightBoxBody : public BoxBody
{
public:
    void setButtonText(int button, const QString& text);
    void setButtonColors(int button, const QColor& text, const QColor& background);

protected:
    static constexpr int kLineCount = 3;

    explicit LightBoxBody(QWidget* parent);

    /// The size of letters in a row of that size, before it is cut to the width of the texts.
    virtual int startPoints(QSize row) const = 0;
    /// The text of a line, and the width that it cannot use of its row.
    virtual std::pair<QString, int> lineText(int line) const = 0;
    void relayout() override;
};

/// Black title over a light grey body, in the shares of the light boxes.
void dressLightBox(FramelessWindow& window);

} // namespace quillon
