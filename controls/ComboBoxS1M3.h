#pragma once

#include "controls/picker/ComboCore.h"

#include <QStyledItemDelegate>

class QListView;

/// Centres the items of a list.
class RightAlignDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

/// A combo box whose text can be aligned: it stands in a line edit that cannot be written to. GUI thread.
class ComboBoxS1M3 : public QComboBox, public quillon::PickerHost
{
    Q_OBJECT
public:
    /// iconShare: side of the items' icons in shares of the height.
    explicit ComboBoxS1M3(QWidget* parent = nullptr, double iconShare = 1.0,
                          Qt::Alignment alignment = Qt::AlignRight | Qt::AlignVCenter);

    void setTextColour(const QColor& colour);
    void setFont(const QFont& font);
    /// Side of the items' icons in shares of the height, above 0; others are ignored.
    void setIconShare(double share);

    QAccessible::Role pickerRole() const override { return QAccessible::ComboBox; }
    QString pickerText() const override { return currentText(); }
    bool isPickerOpen() const override { return mCore.isOpen(); }
    void openPicker() override { showPopup(); }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent*) override { mCore.paint(); }
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void dressLineEdit();

    QListView* mPopup;
    double mScaleFactor;
    quillon::ComboCore mCore;
};
