#include "app/FontStart.h"

#include "app/FirstPicture.h"
#include "app/GlobalFont.h"
#include "app/SystemFonts.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QWidget>

namespace quillon
{

namespace
{

void complete()
{
    admitSystemFonts();
    const QStringList others = applicationFontPaths().sliced(1);
    GlobalFont::instance().addFaces(others);
    // Taking a face away is what makes the toolkit list all fonts anew.
    QFontDatabase::removeApplicationFont(QFontDatabase::addApplicationFont(others.last()));
    for (QWidget* window : QApplication::topLevelWidgets()) {
        window->update();
    }
}

} // namespace

FontStart::FontStart()
{
    postponeSystemFonts();
}

void FontStart::load()
{
    const QStringList paths = applicationFontPaths();
    const bool isThere = QFile::exists(paths.first());
    if (!isThere || !GlobalFont::instance().load(paths.first(1))) {
        admitSystemFonts();
        GlobalFont::instance().load(paths.sliced(isThere ? 1 : 0)); // tells of a face that is missing once
        mComplete = true;
    }
}

void FontStart::completeAfter(const QWidget& window)
{
    if (!mComplete) {
        mComplete = true;
        afterFirstPicture(window, complete);
    }
}

} // namespace quillon
