#pragma once

#include "controls/MessageBoxParts.h"

/// The body of MessageBoxS1M1: three lines of text and two buttons. GUI thread.
class MessageBoxS1M1_WidgetS1M1 : public quillon::LightBoxBody
{
    Q_OBJECT
public:
    explicit MessageBoxS1M1_WidgetS1M1(QWidget* parent = nullptr);

    /// Lines are counted from 0; other numbers are ignored.
    void setLabelText(int line, const QString& text);
    void setLabelColor(int line, const QColor& color);

signals:
    /// "Yes" for the first button, "No" for the second.
    void buttonClicked(QString button);

protected:
    int startPoints(QSize row) const override;
    std::pair<QString, int> lineText(int line) const override;
    QString question() const override;

private slots:
    void in_mPushButtonAll_clicked();
};

/// A question in up to three lines. exec() gives 1 for "Yes", 2 for "No", 0 when closed; Return says "No". GUI thread.
class MessageBoxS1M1 : public FramelessWindow
{
    Q_OBJECT
public:
    explicit MessageBoxS1M1(QWidget* parent = nullptr);

    MessageBoxS1M1_WidgetS1M1* widget() const { return mWidget; }

private slots:
    void in_mWidget_buttonClicked(const QString& button);

private:
    MessageBoxS1M1_WidgetS1M1* mWidget;
};
