#pragma once

#include "equalizer/editor/EqWidgetItemData.h"

#include <QFrame>
#include <QVariant>

#include <functional>
#include <map>

class ComboBoxS1M3;
class DialS1M5;
class QCheckBox;
class QLabel;

/// One column of the band editor: a band's number, type, gain, frequency, Q and switch. The record and the controls are kept apart:
/// a new column's dials stand elsewhere than its record until the first band arrives. GUI thread.
class EqWidgetIem : public QFrame
{
    Q_OBJECT
public:
    explicit EqWidgetIem(QWidget* parent = nullptr);

    /// Takes the record over as it is and shows it. Silent.
    void setItemData(const EqWidgetItemData& record);
    EqWidgetItemData itemData() const { return mData; }
    /// "Type", "Gain", "Freq", "Q" or "Switch", from the device or a workspace: kept as told and shown, silent. What is no number
    /// is refused with a warning; other attributes are ignored.
    void setAttribute(const QString& attribute, const QString& value);

    /// In the order of Tab.
    QList<QWidget*> controls() const;

    /// Position from 0; the number shown is one more.
    void setIndex(qint32 index);
    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);
    void setFont(const QFont& font);
    /// Ignored unless above 0.
    void setScaleFactor(double factor);

signals:
    /// The user has touched a control; record.changed tells what that has changed, which may be nothing.
    void itemChanged(qint32 index, const EqWidgetItemData& record);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    void setupConnections();
    void apply(int bit, const QVariant& value);
    void takeType(const QString& type);
    bool setType(const QString& type);
    void showType();
    void showSwitch();
    void nameControls();
    void fitNumber();
    template<typename T> void take(T EqWidgetItemData::*field, const T& value, EqWidgetItemData::Change bit);

    qint32 mIndex = 0;
    EqWidgetItemData mData;
    QFont mLabelFont;
    double mScaleFactor = 1.0;
    bool mChinese = false;
    QLabel* mLabelNumber;
    ComboBoxS1M3* mComboBoxType;
    DialS1M5* mDialGain;
    DialS1M5* mDialFreq;
    DialS1M5* mDialQ;
    QCheckBox* mCheckBoxSwitch;
    std::map<int, std::function<void(const QVariant&)>> mHandlers; // of the user's changes, by their bit
    // Of what comes from outside; false: it was no number.
    std::map<QString, std::function<bool(const QString&)>> mSetters;
};
