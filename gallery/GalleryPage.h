#pragma once

#include "gallery/Member.h"

#include <QPixmap>

namespace quillon::gallery
{

/// All members of a family, a row each, every control with its state below it. GUI thread.
class GalleryPage : public QWidget
{
    Q_OBJECT
public:
    GalleryPage(const Family& family, const Setting& setting, QWidget* parent = nullptr);

    struct Shown {
        QString name;      ///< the accessible name: class and English state, unique
        QString firstName; ///< that of the class's first look
        const Exhibit* exhibit;
        QWidget* control;
    };
    const QList<Shown>& shown() const { return mShown; }

    /// Feeds what moves, and keeps still what has to stand.
    void feed(const Levels& levels);
    /// The page as it stands, with the focus where a state asks for it. The page has to be in a shown, active window.
    QPixmap picture();

private:
    QWidget* newRow(const Member& member);
    QWidget* newCell(const Member& member, const Exhibit& exhibit);

    Setting mSetting;
    QList<Member> mMembers;
    QList<Shown> mShown;
};

/// Levels as of music, seconds after the start: both sides move on their own, and clip now and then.
Levels levelsAt(double seconds);

} // namespace quillon::gallery
