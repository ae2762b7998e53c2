#include "app/AppSettingsSubject.h"
#include "app/Application.h"
#include "app/ScreenFit.h"
#include "app/WorkingFolder.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cmath>

using namespace Qt::StringLiterals;

class TestStart : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void fitsTheScreen()
    {
        const std::tuple<float, QSize, float> fits[] = {
            {1.5F, {1650, 968}, 1.5F},                                                             // to the pixel
            {1.5F, {1649, 2000}, 1.25F}, {1.5F, {4000, 967}, 1.25F}, {0.75F, {8000, 8000}, 0.75F}, // never raised
            {1.1F, {1300, 800}, 1.1F},                                                             // between the steps
            {1.4F, {1500, 900}, 1.25F},  {2.F, {500, 300}, 0.5F},                                  // none fits
            {0.4F, {100, 100}, 0.4F},    {0.F, {1024, 768}, 0.F},                                  // no number was stored
            {1e30F, {8000, 8000}, 2.F}};
        for (const auto& [factor, screen, fitting] : fits) {
            QCOMPARE(quillon::screenFitFactor(factor, screen), fitting);
        }
    }

    void lowersTheStoredFactor()
    {
        for (const bool follow : {true, false}) { // the system, or the user's own choice
            QSettings().clear();
            AppSettingsSubject::instance().init();
            QSettings().setValue("FollowSystemScale", follow);
            QSettings().setValue("ScaleFactor", u"9"_s);
            quillon::applyScreenFit();
            const QSize screen = QGuiApplication::primaryScreen()->availableSize();
            QCOMPARE(QSettings().value("ScaleFactor").toFloat(), follow ? quillon::screenFitFactor(9.F, screen) : 9.F);
            QVERIFY(quillon::screenFitFactor(9.F, screen) < 9.F);
            QVERIFY2(!quillon::applyScreenFit(), "lowered twice");
        }
        const auto fit = [](const char* key, const QString& value) {
            QSettings().setValue(key, value);
            return quillon::applyScreenFit();
        };
        const auto factor = [] { return QSettings().value("ScaleFactor").toString(); };
        QSettings().setValue("FollowSystemScale", true);
        QVERIFY(fit("ScaleFactor", u"9"_s) && factor() != u"9"_s);
        QVERIFY(fit("ChosenScaleFactor", u"0.6"_s)); // it has room now
        QCOMPARE(factor(), u"0.6"_s);
        for (const bool own : {true, false}) {
            QSettings().setValue("ChosenScaleFactor", u"0.6"_s);
            own ? quillon::keepScaleFactor() : QSettings().setValue("FollowSystemScale", false);
            QVERIFY(!fit("ScaleFactor", u"0.4"_s)); // the user's own since
            QCOMPARE(factor(), u"0.4"_s);
        }
    }

    void leavesBeforeItsLoopRuns()
    {
        QEventLoop first;
        QMetaObject::invokeMethod(&first, &quillon::Application::leave, Qt::QueuedConnection);
        QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(1); });
        first.exec();
        QCOMPARE(quillon::Application::run(), 0);
    }

    void choosesTheWorkingFolder()
    {
        const QTemporaryDir dir;
        const QString before = QDir::currentPath();
        const QString user = dir.filePath(u"home/data"_s);
        QCOMPARE(quillon::enterWorkingFolder(dir.path(), user), dir.path());
        QCOMPARE(QDir::currentPath(), dir.path());
        QVERIFY2(!QDir(user).exists(), "made although it was not needed");
        QVERIFY2(QDir(dir.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), "the trial left a file");

        // A folder in which not even the superuser can make a file.
        QCOMPARE(quillon::enterWorkingFolder(u"/proc"_s, user), user);
        QCOMPARE(QDir::currentPath(), user);

        QTest::ignoreMessage(QtWarningMsg, "enterWorkingFolder //no writable folder");
        QCOMPARE(quillon::enterWorkingFolder(u"/proc"_s, u"/proc/none"_s), u"/proc"_s);
        QDir::setCurrent(before);
    }
};

QTEST_MAIN(TestStart)
#include "tst_start.moc"
