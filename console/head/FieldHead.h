#pragma once

#include "strips/StripBody.h"

#include <QFont>
#include <QList>
#include <QWidget>
#include <span>
#include <vector>

class BatteryS1M1;
class ComboBoxS1M1;
class ComboBoxS1M2;

namespace quillon
{

class HeadButton;

enum class HeadKind { Logo, Selector, Choice, Save, Download, Settings, Battery };

/// An item of a bar. Those before the first button stand at the left, the others at the right.
struct HeadItem {
    HeadKind kind;
    const char* objectName;
    StripText text; // caption of a box, name of the others
};

/// The bar over a page: its items side by side, as its table tells. What their events do is its member's business. GUI thread.
class FieldHead : public QWidget
{
    Q_OBJECT
public:
    FieldHead& setFont(const QFont& font);
    /// "English" or "Chinese"; others are ignored.
    FieldHead& setLanguage(const QString& language);

    /// Hz; no event. A current rate that is not among them shows none.
    void setSampleRates(const QList<int>& rates, int current) { setChoices(u"SampleRate", rates, current); }
    /// Samples; no event.
    void setBufferSizes(const QList<int>& sizes, int current) { setChoices(u"BufferSize", sizes, current); }
    /// Percent. Until the first one the battery is shown as unknown.
    void setBattery(int level);
    void setCharging(bool charging);
    /// Fixes the bar's height to its share of the window's.
    void fit(int windowHeight);

signals:
    /// What is for others to do.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    FieldHead(std::span<const HeadItem> items, const QString& objectName, QWidget* parent);

    /// An item was used: "ItemChanged" with a text, or "Clicked".
    virtual void in_item_attributeChanged(const QString& objectName, const QString& attribute, const QString& value) = 0;
    /// Gives a choice of rate or buffer to the driver, and shows the old one again when that refuses. False for other items.
    bool setStream(const QString& objectName, const QString& value);

    const QString& language() const { return mLanguage; }
    ComboBoxS1M1* selector() const { return mSelector; }
    /// Whether there is nothing to save by hand: the save button tells.
    void setSaved(bool saved);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Choices {
        QString name;
        ComboBoxS1M2* box;
        QList<int> values;
        int current = 0;
    };

    QWidget* makeItem(const HeadItem& item);
    QWidget* makeChoice(const QString& name);
    QWidget* makeButton(const HeadItem& item);
    QString captionOf(const HeadItem& item) const;
    Choices* choicesOf(QStringView name);
    void setChoices(QStringView name, const QList<int>& values, int current);
    void fitCaptions();
    void describeSave();

    std::span<const HeadItem> mItems;
    std::vector<QWidget*> mWidgets; // null for the logo
    std::vector<QRect> mPlaces;
    std::vector<Choices> mChoices;
    ComboBoxS1M1* mSelector = nullptr;
    HeadButton* mSave = nullptr;
    BatteryS1M1* mBattery = nullptr;
    QFont mFont;
    QFont mCaptionFont;
    QString mLanguage;
    QPixmap mLogo;
};

} // namespace quillon
