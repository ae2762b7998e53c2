#pragma once

#include "equalizer/editor/EqWidgetItemData.h"

#include <QWidget>

class EqWidgetIem;
class QLabel;
class QScrollArea;
class QWheelEvent;

/// The row of filter columns, with one set of labels for its rows at the left. What the user changes is told twice: as the band's
/// record, for the curves, and as one event for each field that changed, for the device. What comes from outside is shown and told
/// to nobody. GUI thread.
class EqualizerControllerS1M1 : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kMaximumCount = 32;

    explicit EqualizerControllerS1M1(QWidget* parent = nullptr);

    /// Brought into 0 to 32. New columns come at the end, surplus ones go from the end.
    void setItemCount(qint32 count);
    /// As many columns as records, each with its record.
    void setItems(const QList<EqWidgetItemData>& list);
    /// A copy of each column's record, in their order.
    QList<EqWidgetItemData> items() const;
    /// number: the band, from 1; others are ignored. See EqWidgetIem::setAttribute.
    void setItemAttribute(const QString& number, const QString& attribute, const QString& value);

    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);
    void setFont(const QFont& font);
    /// Width of the columns, as a factor. Ignored unless above 0 and at most 16.
    void setScaleFactor(double factor);

signals:
    /// index: the band's number, from 1.
    void itemDataChanged(const QString& index, const EqWidgetItemData& record);
    void ItemCountChanged(qint32 count);
    /// objectName: this object's name, "@", the band's number from 1.
    void attributeChanged(const QString& objectName, const QString& attribute, const QString& value);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void appendItem();
    void joinTabOrder(EqWidgetIem* item);
    void removeLastItem();
    void report(qint32 index, const EqWidgetItemData& record);
    bool scroll(const QWheelEvent& wheel);
    int barHeight() const;
    void layoutRows();
    void layoutColumns();
    void fitLabels();

    QFont mLabelFont;
    QString mLanguage;
    double mScaleFactor = 1.0;
    QScrollArea* mScrollArea;
    QWidget* mContent;
    QList<QLabel*> mLabels;
    QList<EqWidgetIem*> mItems;
};
