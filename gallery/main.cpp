// All controls on the screen, to look at, to try, and to be driven from outside.

#include "app/GlobalFont.h"
#include "app/LogHandler.h"
#include "app/Termination.h"
#include "controls/Accessibility.h"
#include "gallery/GalleryWindow.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    quillon::installLogHandler();
    quillon::initResources();
    GlobalFont::instance().load(quillon::applicationFontPaths());
    quillon::installControlAccessibility();

    const QCommandLineOption log(u"log"_s, u"Print each control and each of its signals."_s);
    const QCommandLineOption language(u"language"_s, u"English or Chinese."_s, u"name"_s, u"English"_s);
    const QCommandLineOption scale(u"scale"_s, u"1, 1.5 or 2."_s, u"factor"_s, u"1"_s);
    const QCommandLineOption page(u"page"_s, u"The page to begin with, from 0."_s, u"number"_s, u"0"_s);
    QCommandLineParser parser;
    parser.addOptions({log, language, scale, page});
    parser.addHelpOption();
    parser.process(application);

    const quillon::Termination termination;
    quillon::gallery::GalleryWindow window({parser.value(language), std::clamp(parser.value(scale).toDouble(), 1.0, 2.0)});
    window.setPage(parser.value(page).toInt());
    window.show();
    if (parser.isSet(log))
        window.setLogging();
    return QApplication::exec();
}
