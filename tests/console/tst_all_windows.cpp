// Language and scale with every window of the console open: all follow at once, nothing is cut off, and the way back is exact.

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "console/MainWindow_R47.h"
#include "console/ducking/R47_PrivateWidget1.h"
#include "console/settings/TabWidgetS1M1.h"
#include "device/USBAudioAPI.h"
#include "equalizer/window/EqualizerBase.h"
#include "resources/Resources.h"
#include "tests/device/FakeTable.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

const QStringList kScales{u"0.5"_s, u"0.75"_s, u"1"_s, u"1.25"_s, u"1.5"_s, u"1.75"_s, u"2"_s};

/// What can be read in the windows, in their order.
QStringList texts(const QList<QWidget*>& windows)
{
    QStringList all;
    for (const QWidget* window : windows) {
        for (const QLabel* label : window->findChildren<QLabel*>()) {
            all += label->text();
        }
        for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
            all += button->text();
        }
    }
    return all;
}

/// Labels on the screen whose text is wider than they are.
QStringList cutOff(const QList<QWidget*>& windows)
{
    QStringList cut;
    for (const QWidget* window : windows) {
        for (const QLabel* label : window->findChildren<QLabel*>()) {
            const bool whole = label->wordWrap() || label->fontMetrics().horizontalAdvance(label->text()) <= label->width() + 1;
            if (label->isVisible() && !label->text().isEmpty() && !whole) {
                cut += u"%1 '%2' in %3"_s.arg(label->objectName(), label->text(), window->objectName());
            }
        }
    }
    return cut;
}

} // namespace

class TestAllWindows : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void languageAndScale();

private:
    QTemporaryDir mFolder;
    faketable::Driver mDriver;
};

void TestAllWindows::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support propagateSizeHints)"_s));
    initResources();
    GlobalFont::instance().load(applicationFontPaths());
    QVERIFY(QDir::setCurrent(mFolder.path()));
    mDriver.devices = {u"R47"_s};
    faketable::driver = &mDriver;
    USBAudioAPI::setLibrary(std::make_unique<faketable::FakeDll>());
    QVERIFY(USBAudioAPI::instance().Init());
    QSettings().clear();
    QSettings().setValue("ScaleFactor", 1.0);
    AppSettingsSubject::instance().init();
}

void TestAllWindows::languageAndScale()
{
    MainWindow_R47 window;
    window.finishAuth(2);
    QList<QWidget*> windows{&window, window.findChild<R47_PrivateWidget1*>(), window.findChild<TabWidgetS1M1*>()};
    for (EqualizerBase* equalizer : window.findChildren<EqualizerBase*>()) {
        windows += equalizer;
    }
    QCOMPARE(windows.size(), 6);
    for (QWidget* each : windows) {
        each->show();
    }
    AppSettingsSubject& settings = AppSettingsSubject::instance();
    QMap<QString, QStringList> first;
    for (const QString& language : {u"Chinese"_s, u"English"_s, u"Chinese"_s, u"English"_s}) {
        settings.changeLanguage(language);
        QList<QSize> before;
        for (const QString& scale : kScales) {
            settings.changeScaleFactor(scale);
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            for (const QString& key : {u"System"_s, u"Device"_s, u"ASIO"_s, u"About"_s}) {
                window.findChild<TabWidgetS1M1*>()->setCurrentTab(key);
                QCoreApplication::processEvents();
                QCOMPARE(cutOff(windows).join(u"; "_s), QString());
            }
            for (qsizetype i = 0; i < windows.size(); ++i) {
                QVERIFY(windows[i]->isVisible());
                // The dialog stays within the screen.
                QVERIFY(before.isEmpty() || windows[i]->height() > before[i].height() || qobject_cast<TabWidgetS1M1*>(windows[i]));
            }
            before.clear();
            for (const QWidget* each : std::as_const(windows)) {
                before += each->size();
            }
        }
        if (!first.contains(language)) {
            first[language] = texts(windows);
        }
        QCOMPARE(texts(windows), first[language]);
    }
    QVERIFY(first[u"Chinese"_s] != first[u"English"_s]);
}

QTEST_MAIN(TestAllWindows)
#include "tst_all_windows.moc"
