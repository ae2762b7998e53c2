#pragma once

#include "controls/group/ClickTiming.h"
#include "controls/group/PanelShape.h"

#include <QFont>
#include <QObject>

#include <vector>

class QFrame;
class QWidget;

namespace quillon
{
class PlateButton;

/// What all panels of push buttons share; each holds one by value and forwards to it. GUI thread.
///
/// The buttons are real checkable buttons that draw themselves. A state change repaints one of them; it sets no style sheet,
/// because resolving one costs a hundred times as much as the change itself.
class PanelCore : public QObject
{
    Q_OBJECT
public:
    /// Builds the frame and the buttons into panel. The shape must outlive the core.
    PanelCore(QWidget* panel, const PanelShape& shape);

    /// By name and text: any number but 0 is on. On a selector it selects, whatever the state, and tells if it is another one.
    void setState(const QString& button, const QString& state, bool tell);
    /// Off is nothing to one of an exclusive set: it goes off when another one is lit. An index outside the panel does nothing.
    void setOn(int index, bool on, bool tell);
    /// "0" or "1"; the name of the selected button, or nothing before the first selection, on a selector.
    QString getState(const QString& button) const;
    bool isOn(int index) const { return index >= 0 && index < count() && (mState >> index & 1u) != 0; }

    void setLanguage(const QString& language);
    void setFont(const QFont& font);
    void setAccessibleName(const QString& prefix);
    /// Places everything and fits the captions. Call on each resize of the panel.
    void layout();

    QString nameOf(int index) const { return QLatin1StringView(mShape.buttons[std::size_t(index)].name); }

signals:
    void changed(int index, QString state);
    void clicked(int index, QString which);

private:
    void addButton(int index);
    void addIcon(int index);
    int count() const { return int(mButtons.size()); }
    bool switchTo(int index, bool on);
    void buttonToggled(int index, bool checked);
    void fitFont();
    void nameButtons();

    const PanelShape& mShape;
    QWidget* mPanel;
    QFrame* mFrame;
    std::vector<PlateButton*> mButtons;
    std::vector<QWidget*> mIcons; ///< null where the button has none
    QFont mFont;
    bool mChinese = false;
    bool mLaidOut = false;
    unsigned mState = 0; ///< a bit for each button that is on
    unsigned mExclusive = 0;
    QString mAccessiblePrefix;
    ClickTiming mClicks;
};
} // namespace quillon
