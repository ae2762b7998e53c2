#pragma once

#include "controls/picker/ComboCore.h"

/// A combo box in the shape of a capsule. GUI thread.
class ComboBoxS1M2 : public QComboBox, public quillon::PickerHost
{
    Q_OBJECT
public:
    explicit ComboBoxS1M2(QWidget* parent = nullptr);

    /// Replaces the items and selects current, whatever its case; none if it is not among them. Emits no attributeChanged.
    void setItems(const QStringList& list, const QString& current);
    /// Whether choices are reported: from the first list on that is not empty.
    bool itemsReady() const { return mItemsReady; }
    void setFont(const QFont& font) { mCore.setFont(font); }

    QAccessible::Role pickerRole() const override { return QAccessible::ComboBox; }
    QString pickerText() const override { return currentText(); }
    bool isPickerOpen() const override { return mCore.isOpen(); }
    void openPicker() override { showPopup(); }

signals:
    /// Another item is current: the name of this widget, "ItemChanged", its text.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent*) override { mCore.paint(); }
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    quillon::ComboCore mCore;
    bool mItemsReady = false;
};
