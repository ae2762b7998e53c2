#include "app/AppSettingsSubject.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

// What reached listeners and observers, in order.
QStringList heard;

class Listener : public AppSettingsObserver
{
public:
    explicit Listener(QString name, bool leaving = false) : mName(std::move(name)), mLeaving(leaving) {}
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override
    {
        heard << mName + objectName + u' ' + attribute + u' ' + value + u' ' + settingValue(attribute).toString();
        if (mLeaving) {
            AppSettingsSubject::instance().removeAllObservers();
        }
    }

private:
    QString mName;
    bool mLeaving;
};

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QSettings().clear();
        AppSettingsSubject::instance().removeAllObservers();
        heard.clear();
    }

    void wipesAnotherLayoutOnce()
    {
        QVERIFY(QSettings().fileName().endsWith(u"/ZELMORA/ZELMORA Quillon.conf"_s));
        QSettings().setValue("ResetFlag", 5);
        QSettings().setValue("Language", u"Chinese"_s);
        QSettings().setValue("R47/R47_Live_Workspace", u"tour"_s);
        QVERIFY(AppSettingsSubject::instance().init());
        QCOMPARE(QSettings().value("ResetFlag").toInt(), 6);
        QCOMPARE(QSettings().value("Language").toString(), u"English"_s);
        QCOMPARE(QSettings().value("ScaleFactor").toFloat(), 1.5F);
        QVERIFY(!QSettings().contains("R47/R47_Live_Workspace"));

        QSettings().setValue("R47/R47_Live_Workspace", u"tour"_s);
        AppSettingsSubject::instance().init();
        QCOMPARE(QSettings().value("R47/R47_Live_Workspace").toString(), u"tour"_s);
    }

    void keepsWhatIsThere()
    {
        QSettings().setValue("ResetFlag", 6);
        QSettings().setValue("Language", u"Chinese"_s);
        QSettings().setValue("AutoSaveWorkspace", false);
        AppSettingsSubject::instance().init();
        QCOMPARE(QSettings().value("Language").toString(), u"Chinese"_s);
        QCOMPARE(QSettings().value("AutoSaveWorkspace").toBool(), false);
        QCOMPARE(QSettings().allKeys().size(), 7);
    }

    void fansOut()
    {
        AppSettingsSubject& subject = AppSettingsSubject::instance();
        QObject scope;
        connect(&subject, &AppSettingsSubject::attributeChanged, &scope,
                [](const QString& object, const QString& attribute, const QString& value) {
                    heard << object + u' ' + attribute + u' ' + value;
                });
        Listener a(u"a"_s);
        Listener b(u"b"_s);
        subject.addObserver(&a).addObservers({&b, &a});
        subject.changeLanguage(u"Chinese"_s).changeScaleFactor(u"abc"_s);
        QCOMPARE(heard, QStringList({
                            u"AppSettings ModifyLanguage Chinese"_s,
                            u"AppSettings ChangeLanguage 1"_s,
                            u"a Language Chinese Chinese"_s,
                            u"b Language Chinese Chinese"_s,
                            u"a Language Chinese Chinese"_s,
                            u"AppSettings ChangeLanguage 0"_s,
                            u"AppSettings ModifyScaleFactor abc"_s,
                            u"AppSettings ChangeScaleFactor 1"_s,
                            u"a ScaleFactor abc abc"_s,
                            u"b ScaleFactor abc abc"_s,
                            u"a ScaleFactor abc abc"_s,
                            u"AppSettings ChangeScaleFactor 0"_s,
                        }));
        const qsizetype once = heard.size() / 2;
        subject.changeScaleFactor(u"abc"_s);
        QCOMPARE(heard.size(), once * 3);
    }

    void observersMayLeaveDuringTheFanOut()
    {
        Listener leaving(u"leaving"_s, true);
        auto gone = std::make_unique<Listener>(u"gone"_s);
        AppSettingsSubject::instance().addObservers({&leaving, gone.get()});
        QSignalSpy events(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged);
        AppSettingsSubject::instance().changeLanguage(u"English"_s);
        QCOMPARE(heard, QStringList(u"leaving Language English English"_s));
        QCOMPARE(events.size(), 3);
    }

    void anEmptyLockFileDoesNotStopTheStart()
    {
        QFile lock(QSettings().fileName() + u".lock"_s);
        QVERIFY(lock.open(QIODevice::WriteOnly));
        QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
        lock.close();
        AppSettingsSubject::instance().init(); // waited for ever
        QCOMPARE(QSettings().value("ResetFlag").toInt(), 6);
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
