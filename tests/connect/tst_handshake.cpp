#include "Fakes.h"
#include "app/AppSettingsSubject.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

const QList<QVariant> kSuccess{QString(), u"AuthResult"_s, u"Success"_s};
const QList<QVariant> kFailed{QString(), u"AuthResult"_s, u"Failed"_s};
const QList<QVariant> kDisconnected{QString(), u"Disconnected"_s, u"1"_s};

struct CountingObserver : AppSettingsObserver {
    void onAppSettingsChanged(QString, QString, QString) override { ++calls; }
    int calls = 0;
};

} // namespace

class tst_handshake : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { AppSettingsSubject::instance().init(); }
    void init();
    void oneHelloWhenAnswered();
    void zeroFailsAtOnce();
    void lossIsToldOnce();
    void endedWindowStaysQuiet();
    void observersGoWithTheWindow();

private:
    std::unique_ptr<faketable::Driver> mDriver;
};

void tst_handshake::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    mDriver = std::make_unique<faketable::Driver>();
    mDriver->devices = {u"R47"_s};
    installFakes(*mDriver);
}

void tst_handshake::oneHelloWhenAnswered()
{
    fakehid::install({.answer = 2});
    FakeWindow window;
    QStringList order;
    connect(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged, &window,
            [&](const QString&, const QString& attribute, const QString&) {
                if (attribute.startsWith(u"Modify"_s)) {
                    order << attribute;
                    QVERIFY(window.inHandshake());
                    QCOMPARE(window.modes.size(), order.size() > 2 ? 2 : 1);
                    QVERIFY(!window.isVisible());
                }
            });
    QSignalSpy spy(&window, &MainWindow_Base::attributeChanged);
    window.startConnection();
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.first(), kSuccess);
    QCOMPARE(order, (QStringList{u"ModifyLanguage"_s, u"ModifyScaleFactor"_s}));
    QVERIFY(!window.inHandshake());
    QVERIFY(window.isVisible());
    QCOMPARE(AppSettingsSubject::instance().mainWindow(), &window);
    QVERIFY(mDriver->rateReads > 0);
    QCOMPARE(fakehid::writtenCount(), 1);
    window.hide();
    const quillon::Report later = quillon::encodeInput({.code = 0x1101, .value = 3});
    fakehid::report({reinterpret_cast<const char*>(later.data()), static_cast<qsizetype>(later.size())});
    QTRY_COMPARE(spy.count(), 2);
    QCOMPARE(spy.last(), kSuccess);
    QCOMPARE(window.modes, (QList<int>{2, 3}));
    QVERIFY(window.isVisible());
}

void tst_handshake::zeroFailsAtOnce()
{
    fakehid::install({.answer = 0});
    FakeWindow window;
    QSignalSpy spy(&window, &MainWindow_Base::attributeChanged);
    window.startConnection();
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.first(), kFailed);
    QCOMPARE(window.modes, QList<int>{0});
    QVERIFY(!window.isVisible());
}

void tst_handshake::lossIsToldOnce()
{
    // Without HID, when there is no page of the device, the driver's list tells of it, or the channel that can be opened again.
    for (const auto& [hid, returns] : {std::pair(true, false), std::pair(false, false), std::pair(false, true)}) {
        fakehid::install({.opensAllowed = hid ? -1 : 0});
        FakeWindow window;
        QSignalSpy spy(&window, &MainWindow_Base::attributeChanged);
        window.startConnection();
        QCOMPARE(window.modes, hid ? QList<int>{} : QList<int>{-1});
        QCOMPARE(window.isVisible(), !hid);
        QCOMPARE(spy.count(), hid ? 0 : 1);
        spy.clear();
        if (hid) {
            fakehid::unplug();
        } else if (returns) {
            fakehid::install();
        } else {
            mDriver->devices.clear();
        }
        QTRY_COMPARE(spy.count(), 1);
        QCOMPARE(spy.first(), kDisconnected);
        QTest::qWait(60);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(mDriver->rateReads, 0);
        mDriver->devices = {u"R47"_s};
    }
}

void tst_handshake::endedWindowStaysQuiet()
{
    FakeWindow window(1);
    QSignalSpy spy(&window, &MainWindow_Base::attributeChanged);
    window.startConnection();
    window.endConnection();
    window.finishAuth(2);
    fakehid::unplug();
    QTest::qWait(60);
    QCOMPARE(spy.count(), 0);
    QVERIFY(window.modes.isEmpty());
    QVERIFY(!window.isVisible());
}

void tst_handshake::observersGoWithTheWindow()
{
    CountingObserver observer;
    {
        const FakeWindow window;
        AppSettingsSubject::instance().addObserver(&observer);
    }
    AppSettingsSubject::instance().changeLanguage(u"English"_s);
    QCOMPARE(observer.calls, 0);
}

QTEST_MAIN(tst_handshake)
#include "tst_handshake.moc"
