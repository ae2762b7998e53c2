#pragma once

#include "controls/group/ClickTiming.h"
#include "controls/group/GroupShape.h"
#include "controls/group/PlatePicture.h"

#include <QHash>
#include <QObject>
#include <QWidget>

#include <vector>

namespace quillon
{
class PlateButton;

/// What all groups of push buttons share; a group holds one by value and forwards to it. GUI thread.
///
/// The buttons are real checkable buttons over a picture of the whole panel. A state change looks a picture up and repaints;
/// it sets no style sheet, because resolving one costs a hundred times as much as the change itself.
class GroupCore : public QObject
{
    Q_OBJECT
public:
    /// Builds the frame and the buttons into group. The shape must outlive the core.
    GroupCore(QWidget* group, const GroupShape& shape);

    void setState(const QString& button, const QString& state, bool emitSignal);
    void setState(const QString& button, bool on) { setState(button, on ? QStringLiteral("1") : QStringLiteral("0"), true); }
    QString getState(const QString& button) const;
    void setLanguage(const QString& language);
    void setFont(const QFont& font);
    void setAccessibleName(const QString& prefix);
    /// Places frame and buttons and fits the captions. Call on each resize of the group.
    void layout();

signals:
    void stateChanged(QString button, QString state);
    void mouseClickEvent(QString button, QString event);

private:
    int indexOf(const QString& button) const;
    void buttonClicked(int index, bool checked);
    void showState();
    void fitFont();
    void nameButtons();

    const GroupShape& mShape;
    QWidget* mGroup;
    PlatePicture* mFrame;
    std::vector<PlateButton*> mButtons;
    QHash<unsigned, QString> mStyleByState; ///< the picture that stands for each state
    QFont mFont;
    bool mChinese = false;
    unsigned mState = 0;
    QString mSelected; ///< of a selector
    QString mAccessiblePrefix;
    ClickTiming mClicks;
};
} // namespace quillon
