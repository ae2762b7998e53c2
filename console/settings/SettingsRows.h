#pragma once

#include "console/settings/SettingsShape.h"

#include <QList>
#include <QWidget>

class ComboBoxS1M2;
class QLabel;

namespace quillon
{

class PlateButton;
class ToggleSwitch;

/// A choice that is known only while the program runs.
struct LiveChoice {
    QString data;
    QString english;
    QString chinese;
};

/// The rows of one page on a common ground. It fills its page, as high as its rows are at the present scale. Rows are counted
/// from 0. What the page sets stays silent, what the user does is told once. GUI thread.
class SettingsRows final : public QWidget
{
    Q_OBJECT
public:
    /// shapes has to outlive the page. page must have no layout yet.
    SettingsRows(std::span<const RowShape> shapes, QWidget* page);

    /// Takes "Language" ("English", "Chinese") and "ScaleFactor" (above 0); all else is ignored.
    void applySetting(const QString& attribute, const QString& value);
    bool isChinese() const { return mChinese; }

    /// Shows a value of a combo box or switch. One that the row does not know changes nothing and gives false.
    bool set(int row, const QString& value);
    /// What the row was last set to, by the page or by the user.
    const QString& value(int row) const { return mRows[row].value; }
    /// Takes a value as the present one, shown or not: choosing it is then no change.
    void keep(int row, const QString& value) { mRows[row].value = value; }
    /// Takes the user's last choice back: present is shown, or what stood before where the row does not know it.
    void takeBack(int row, const QString& present);
    /// Other choices for a combo box, with current selected, or none if it is not among them. Without any it is disabled.
    void setChoices(int row, const QList<LiveChoice>& choices, const QString& current);
    /// The text of a Text row; with a caption, a button stands behind it.
    void setText(int row, const QString& text, const BoxText& caption = {});
    void setCaption(int row, const BoxText& caption);

signals:
    /// The user has set another value or pressed the row's button.
    void edited(int row, const QString& value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Row {
        const RowShape* shape = nullptr;
        QLabel* label = nullptr;
        QWidget* control = nullptr; // what the keyboard comes to: one of those below
        ComboBoxS1M2* combo = nullptr;
        ToggleSwitch* toggle = nullptr;
        QLabel* text = nullptr;
        PlateButton* button = nullptr;
        QList<LiveChoice> choices;
        BoxText caption;
        QString value;
        QString before;
    };

    void addRow(const RowShape& shape);
    void addControl(int row);
    void take(int row, QString value);
    void relabel(Row& row);
    QRect ground() const;
    QRect place(int row) const;
    void layoutRow(int row);
    void relayout();
    void fitTexts();
    double factor() const;
    int pixels(double atFactorOne) const;

    QList<Row> mRows;
    bool mChinese = false;
    double mScale = 1;  // as set
    double mFactor = 1; // as laid out
    bool mHasTexts = false;
};

} // namespace quillon
