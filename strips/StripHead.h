#pragma once

#include "strips/StripLayout.h"

#include <QFont>
#include <QObject>
#include <QString>
#include <QTimer>
#include <optional>

class QFrame;
class QLineEdit;
class QPushButton;
class QWidget;

namespace quillon
{

/// The plate of a strip and its top row: the name that the user may edit, the close button that shows while the pointer rests
/// there, and the sheet over it all that tells of a missing plug. Held by the strip; builds its children into it. GUI thread.
class StripHead : public QObject
{
    Q_OBJECT
public:
    /// Longest name that a workspace or the clipboard can bring in; what fits the row is shorter.
    static constexpr int kMaximumName = 64;

    explicit StripHead(QWidget* strip);

    /// The name of the channel: what an emptied field falls back to.
    void setChannelName(const QString& name);
    const QString& channelName() const { return mChannelName; }
    /// How the channel is called in Chinese, while the user has given it no name.
    void setChineseName(const QString& name) { mChineseName = name; }
    void setChinese(bool chinese);
    /// Shows a name, shortened until it fits. An empty one shows the channel's.
    void showName(const QString& name);
    /// The name to keep, what it is called in a language, and what stands in the field for it.
    QString name() const;
    QString nameIn(bool chinese) const;
    QString shownName() const;
    void setNameEditable(bool editable);
    /// What the field is called as an object; "lineEdit" without this.
    void setFieldName(const QString& objectName);
    /// Where the name stands on a strip that lies; without this it takes a row at the top.
    void setNamePlace(const Place& place) { mNamePlace = place; }
    /// The pointer brings the close button out. Off also hides it.
    void setCloseArmed(bool armed);
    void setOverlayVisible(bool visible);
    void setFont(const QFont& font);
    /// Accessible names of name field and close button, and the tool tip of the latter.
    void setTexts(const QString& nameField, const QString& closeButton);
    /// Call on each resize of the strip.
    void layout();

signals:
    /// The user ended an edit; the name is what the field now shows.
    void nameEdited();
    void closeClicked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void on_lineEdit_textChanged(const QString& arg1);
    void on_lineEdit_editingFinished();
    void on_pushButtonClose_clicked();
    void in_mTimer_timeout();

private:
    QString inLanguage(const QString& name, bool chinese) const;
    void filterHover(bool entered);
    void hideClose();
    void restyle(int radius, int rowRadius);
    QRect nameRow(QSize strip) const;

    QWidget* mStrip;
    QFrame* mFrame;
    QLineEdit* mLineEdit;
    QPushButton* mClose;
    QWidget* mOverlay;
    QTimer mTimer;
    std::optional<Place> mNamePlace;
    QString mChannelName;
    QString mChineseName;
    QString mShownName;
    QFont mFont;
    int mRadius = -1;
    int mRowRadius = -1;
    bool mChinese = false;
    bool mCloseArmed = false;
    bool mFinishing = false;
};

} // namespace quillon
