#pragma once

#include <QList>
#include <QWidget>

class CircleS1M1;
class QLabel;
class QPushButton;

namespace quillon
{

/// A text in both languages of the program.
struct AutoGainText {
    const char16_t* english = nullptr;
    const char16_t* chinese = nullptr;
};

/// A button and the page event that it raises, as attribute and as value.
struct AutoGainButton {
    AutoGainText caption;
    const char16_t* event = nullptr;
    bool main = false; // green, and what Return presses
};

/// One page of the dialog. In the text %1 stands for the channel's name.
struct AutoGainPage {
    const char16_t* objectName;
    quint32 circleMode;
    AutoGainText text;
    AutoGainText note;
    AutoGainButton buttons[2];
};

} // namespace quillon

/// A page of the auto gain dialog: a circle, a text, a note where the page has one, and one or two buttons. GUI thread.
class AutoGainS1M1_WidgetBase : public QWidget
{
    Q_OBJECT
public:
    void setFont(const QFont& font);
    /// "English" or "Chinese"; others are ignored. channelName goes into the text where the page names the channel.
    void setLanguage(const QString& language, const QString& channelName);
    /// Seconds shown by the circle.
    void setSeconds(int seconds);
    /// Puts the keyboard on the page's first button.
    void focusMainButton();

signals:
    /// A button was pressed: attribute and value are both its event.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    explicit AutoGainS1M1_WidgetBase(const quillon::AutoGainPage& row, QWidget* parent);
    void resizeEvent(QResizeEvent* event) override;

private:
    void relayout();
    void fitText(QLabel* label, const QRect& box, double lineHeight);

    const quillon::AutoGainPage& mRow;
    CircleS1M1* mCircle = nullptr;
    QLabel* mText = nullptr;
    QLabel* mNote = nullptr;
    QList<QPushButton*> mButtons;
};

/// Page 0: ready.
class AutoGainS1M1_WidgetS1M1 final : public AutoGainS1M1_WidgetBase
{
public:
    explicit AutoGainS1M1_WidgetS1M1(QWidget* parent = nullptr);
};

/// Page 1: measuring, the circle counts down.
class AutoGainS1M1_WidgetS1M2 final : public AutoGainS1M1_WidgetBase
{
public:
    explicit AutoGainS1M1_WidgetS1M2(QWidget* parent = nullptr);
};

/// Page 2: done.
class AutoGainS1M1_WidgetS1M3 final : public AutoGainS1M1_WidgetBase
{
public:
    explicit AutoGainS1M1_WidgetS1M3(QWidget* parent = nullptr);
};

/// Page 3: failed.
class AutoGainS1M1_WidgetS1M4 final : public AutoGainS1M1_WidgetBase
{
public:
    explicit AutoGainS1M1_WidgetS1M4(QWidget* parent = nullptr);
};
