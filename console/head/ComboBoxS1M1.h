#pragma once

#include "controls/picker/ComboCore.h"

namespace quillon
{
class NameList;
} // namespace quillon

/// The selector of workspaces: their names, and below them the commands that restore, make and copy one. It is never without a
/// name. It reports what the user does and touches no file. GUI thread.
///
/// Events, with the name of this widget: "ItemChanged", "NewItem", "ItemSaveAs", "RestoreDefault" and "RemoveItem", each with the
/// name of a workspace. Neither wheel nor arrow keys change the workspace while the list is closed: a load sets the whole device.
class ComboBoxS1M1 : public QComboBox, public quillon::PickerHost
{
    Q_OBJECT
public:
    explicit ComboBoxS1M1(QWidget* parent = nullptr);

    /// Replaces the names and selects current, or the first one where that is missing, with "ItemChanged" in any case. Without any
    /// name a new one is reported as "NewItem" and selected. An open edit ends.
    void setItems(const QStringList& names, const QString& current);
    /// Shows a name of the list without an event; others are ignored.
    void showName(const QString& name);
    /// To be called inside an event that could not be done: what is open stays selected, and a new name is not added.
    void refuseEvent() { mRefusedEvent = true; }
    /// Takes a name off the list, without an event; nothing is shown as open when it was the one.
    void forgetName(const QString& name);
    /// Shows that none of the names is open.
    void showNone();
    const QString& currentName() const { return mCurrent; }
    QStringList names() const;
    /// Opens the field for the name of a copy, as the command in the list does.
    void startSaveAs() { openEdit(Copy); }
    bool isEditOpen() const { return mEditOpen; }

    /// "English" or "Chinese".
    void setLanguage(const QString& language);
    void setFont(const QFont& font);

    void showPopup() override;

    QAccessible::Role pickerRole() const override { return mEditOpen ? QAccessible::EditableText : QAccessible::ComboBox; }
    QString pickerText() const override { return currentText(); }
    bool isPickerOpen() const override { return mCore.isOpen(); }
    void openPicker() override { showPopup(); }

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum EditKind { New = 0, Copy = 1 };

    bool tell(const QString& attribute, const QString& name);
    void choose(int index);
    void pick(const QString& name);
    void fitLetters();

    void openEdit(EditKind kind);
    void closeEdit();
    void cutToWidth(const QString& text);
    void finishEdit();
    void makeAndPick(const QString& how, const QString& name);
    void refuseName();
    void askOverride(const QString& name);
    void overrideName(const QString& name);

    void askDelete(const QString& name);
    void remove(const QString& name);

    quillon::NameList* mList;
    quillon::ComboCore mCore;
    QFont mFont;
    QString mLanguage;
    QString mCurrent;
    EditKind mEditKind = New;
    bool mEditOpen = false;
    bool mAsking = false;
    bool mRefusedEvent = false;
    bool mRefused = false;
};
