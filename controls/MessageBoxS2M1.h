#pragma once

#include "controls/MessageBoxParts.h"

class QButtonGroup;

/// The body of MessageBoxS2M1: three exclusive choices, the third made at the start, and two buttons. GUI thread.
class MessageBoxS2M1_WidgetS2M1 : public quillon::LightBoxBody
{
    Q_OBJECT
public:
    explicit MessageBoxS2M1_WidgetS2M1(QWidget* parent = nullptr);

    /// Choices are counted from 0; other numbers are ignored.
    void setChoiceText(int choice, const QString& text);
    void setChoiceColor(int choice, const QColor& color);

signals:
    /// 1 to 3, the choice made, for the first button; 0 for the second.
    void buttonClicked(int choice);

protected:
    int startPoints(QSize row) const override;
    std::pair<QString, int> lineText(int line) const override;
    QString question() const override;
    void relayout() override;

private slots:
    void in_mPushButtonAll_clicked();

private:
    QButtonGroup* mChoices;
};

/// A choice of three. exec() gives 1 to 3 for the choice, 0 for the second button and when closed. GUI thread.
class MessageBoxS2M1 : public FramelessWindow
{
    Q_OBJECT
public:
    explicit MessageBoxS2M1(QWidget* parent = nullptr);

    MessageBoxS2M1_WidgetS2M1* widget() const { return mWidget; }

private slots:
    void in_mWidget_buttonClicked(int choice);

private:
    MessageBoxS2M1_WidgetS2M1* mWidget;
};
