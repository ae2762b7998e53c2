// The program beside a panel, as its user has it: closed into the tray, fetched from there, ended from there.

#include "Desktop.h"
#include "Stage.h"

class tst_tray : public QObject
{
    Q_OBJECT
private slots:
    void closesIntoTheTray();
    void trayComesAndGoes();
};

namespace
{

const QStringList kChinese{"显示", "-", "退出"};
const QStringList kEnglish{"Show", "-", "Quit"};
constexpr int kWindowMs = 5000 * kPatience;

bool shows(Desktop& desktop, std::size_t count)
{
    return eventually([&] { return desktop.windows().size() == count; }, kWindowMs);
}

/// Only a console is up that is closed into the tray.
bool closesAway(Desktop& desktop)
{
    if (!shows(desktop, 1))
        return false;
    desktop.close(desktop.windows().front());
    return shows(desktop, 0);
}

bool startsAgain(Stage& stage)
{
    QProcess second;
    second.setProcessEnvironment(stage.program().processEnvironment());
    second.start(stage.folder("quillon"), QStringList());
    return second.waitForFinished(10000 * kPatience) && second.exitStatus() == QProcess::NormalExit && second.exitCode() == 0;
}

} // namespace

void tst_tray::closesIntoTheTray()
{
    Desktop desktop;
    QVERIFY2(desktop.stands(), "needs Xvfb and dbus-daemon");
    Panel panel(desktop);
    Stage stage;
    desktop.enter(stage.program());
    stage.unit().ask("unplug");
    QVERIFY(stage.start());
    QVERIFY(eventually([&] { return panel.items().size() == 1; }, kWindowMs));
    QCOMPARE(panel.menu(), kChinese); // the language comes with the first console

    QVERIFY(closesAway(desktop)); // the connection window
    QVERIFY(panel.activate());
    QVERIFY(shows(desktop, 1));
    stage.unit().ask("plug");
    QVERIFY(stage.waitForPage(kWindowMs));
    QVERIFY(eventually([&] { return panel.menu() == kEnglish; }, kWindowMs));

    QVERIFY(closesAway(desktop));
    QVERIFY(panel.activate());
    QVERIFY(closesAway(desktop));
    QVERIFY(panel.choose("Show"));
    QVERIFY(closesAway(desktop));
    QVERIFY(startsAgain(stage));
    QVERIFY(closesAway(desktop));
    QCOMPARE(panel.items().size(), 1);

    QVERIFY(panel.choose("Quit"));
    QVERIFY(stage.program().waitForFinished(kQuitMs));
    QCOMPARE(stage.program().exitStatus(), QProcess::NormalExit);
    QCOMPARE(stage.program().exitCode(), 0);
    QCOMPARE(stage.troubles(kDriverTrouble), QStringList());
}

void tst_tray::trayComesAndGoes()
{
    Desktop desktop;
    QVERIFY2(desktop.stands(), "needs Xvfb and dbus-daemon");
    Stage stage;
    desktop.enter(stage.program());
    QVERIFY(stage.start());
    QVERIFY(stage.waitForPage(kWindowMs));
    QVERIFY(shows(desktop, 1));
    desktop.close(desktop.windows().front());
    QTest::qWait(500);
    QVERIFY2(shows(desktop, 1), "hidden where nothing brings it back");
    for (int i = 0; i < 2; ++i) {
        Panel panel(desktop);
        QVERIFY(eventually([&] { return panel.items().size() == 1; }, kWindowMs));
        QCOMPARE(panel.menu(), kEnglish);
        QVERIFY(closesAway(desktop));
        QVERIFY(panel.activate());
        QVERIFY(shows(desktop, 1));
    }
    QTest::qWait(500);
    desktop.close(desktop.windows().front());
    QTest::qWait(500);
    QVERIFY2(shows(desktop, 1), "hidden after the panel has gone");
    QVERIFY(startsAgain(stage));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(), QStringList());
}

QTEST_GUILESS_MAIN(tst_tray)
#include "tst_tray.moc"
