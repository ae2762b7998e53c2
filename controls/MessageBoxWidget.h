#pragma once

#include "controls/MessageBoxParts.h"

namespace quillon
{
struct MessageBoxTable;
}

/// A question with two answers, to be put into a MessageBoxS3M1: lines of text or exclusive choices above two buttons. The
/// members are tables of this form. GUI thread.
class MessageBoxWidget : public quillon::BoxBody
{
    Q_OBJECT
public:
    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);
    /// "Item1", "Item2", ...: the choice that is made; empty without choices.
    const QString& selected() const { return mSelected; }

signals:
    /// An answer was given. objectName is empty.
    void attributeChanged(QString objectName, QString attribute, QString value);
    /// The same as a result of the dialog: 1 for the first button, 2 for the second, one more for each choice below the first.
    void answered(int result);

protected:
    MessageBoxWidget(const quillon::MessageBoxTable& table, QWidget* parent);
    /// The caller's line, as it is to be shown; cut in the middle when it is too long for the box.
    void setTold(const QString& text);

    void relayout() override;
    QString question() const override;

private:
    void addRow(int index);
    void addAnswerOf(int index);
    void choose(int choice);
    void answer(int index);
    int fittedPoints() const;

    const quillon::MessageBoxTable& mTable;
    QList<QCheckBox*> mChoices;
    QString mSelected;
    QString mTold;
    bool mChinese = false;
};

/// "Delete workspace": Cancel 1, Ok 2.
class MessageBoxWidget1 : public MessageBoxWidget
{
    Q_OBJECT
public:
    explicit MessageBoxWidget1(QWidget* parent = nullptr);
    /// The name of the workspace that would go, as it is to be shown.
    void setName(const QString& name) { setTold(name); }
};

/// "A workspace with this name already exists": Override 1, Continue 2.
class MessageBoxWidget2 : public MessageBoxWidget
{
    Q_OBJECT
public:
    explicit MessageBoxWidget2(QWidget* parent = nullptr);
    /// The name in question, as it is to be shown.
    void setName(const QString& name) { setTold(name); }
};

/// What to download: Cancel 1, the choices 2, 3 and 4.
class MessageBoxWidget3 : public MessageBoxWidget
{
    Q_OBJECT
public:
    explicit MessageBoxWidget3(QWidget* parent = nullptr);
};

/// How to restore the device: Cancel 1, the choices 2 and 3.
class MessageBoxWidget4 : public MessageBoxWidget
{
    Q_OBJECT
public:
    explicit MessageBoxWidget4(QWidget* parent = nullptr);
};
