#include "app/AppSettingsSubject.h"
#include "controls/CircleS1M1.h"
#include "processing/AutoGainS1M1.h"
#include "processing/PeakEstimate.h"
#include "resources/Resources.h"

#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;
using quillon::PeakEstimate;

namespace
{

/// Runs a dialog with steps inside its event loop, and hands back its code.
int run(AutoGainS1M1& dialog, const std::function<void()>& steps)
{
    QTimer::singleShot(0, &dialog, steps);
    // A step that fails to end the dialog must fail the test, not hang it.
    QTimer::singleShot(5000, &dialog, [&] { dialog.done(-999999); });
    return dialog.exec();
}

QWidget* shownPage(const AutoGainS1M1& dialog)
{
    return dialog.findChild<QStackedWidget*>()->currentWidget();
}

void press(const AutoGainS1M1& dialog, const char* event)
{
    auto* button = shownPage(dialog)->findChild<QPushButton*>(u"pushButton"_s + QLatin1String(event));
    QVERIFY2(button, event);
    QTest::mouseClick(button, Qt::LeftButton);
}

void tick(AutoGainS1M1& dialog, int seconds)
{
    for (int i = 0; i < seconds; ++i)
        QMetaObject::invokeMethod(&dialog, "in_mTimer_timeout");
}

void feed(AutoGainS1M1& dialog, int count, float levelDb)
{
    for (int i = 0; i < count; ++i)
        dialog.setLevel(levelDb);
}

bool isOn(const AutoGainS1M1& dialog, int page)
{
    return dialog.findChild<QStackedWidget*>()->currentIndex() == page;
}

} // namespace

class TestAutoGain : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        quillon::initResources();
        QCoreApplication::setOrganizationName(u"QuillonTest"_s);
        QSettings().setValue("ScaleFactor"_L1, 1.5);
    }

    void init() { QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s)); }

    void estimate()
    {
        const std::pair<QList<float>, float> phrases[] = {
            {{-20, -11, -15, -19, -12, -18, -13, -17, -14, -16}, -18.0F}, // of ten, the five quietest
            {QList<float>(5, -1.0F) + QList<float>(5, -30.0F), -30.0F},   // five transients are thrown away
            {QList<float>(6, -90.0F) + QList<float>(10, -12.0F) + QList<float>(500, -80.0F), -12.0F}, // nor counts a quiet phase
            {QList<float>(9, -20.0F) + QList<float>{std::numeric_limits<float>::quiet_NaN()}, 0.0F}};
        for (const auto& [readings, level] : phrases) {
            PeakEstimate estimate;
            for (const float reading : readings)
                estimate.add(reading);
            QCOMPARE(estimate.levelDb(), level);
            estimate.clear();
            QVERIFY(!estimate.isValid());
        }
    }

    void measurement()
    {
        constexpr int kCancelled = AutoGainS1M1::Cancelled;
        for (const auto& [level, count, page, wanted] : {std::tuple{-25.58F, 10, 2, -255}, // truncated toward zero
                                                         {-6.0000001F, 300, 2, -60},
                                                         {-70.0F, 10, 2, -700},
                                                         {-5.9F, 10, 3, kCancelled},
                                                         {-70.1F, 10, 3, kCancelled},
                                                         {-20.0F, 9, 3, kCancelled}}) {
            AutoGainS1M1 dialog;
            QSignalSpy events(&dialog, &AutoGainS1M1::attributeChanged);
            const int code = run(dialog, [&, level = level, count = count, page = page] {
                QVERIFY(isOn(dialog, 0));
                feed(dialog, 10, -3.0F); // nothing runs yet: these must not spoil the result
                press(dialog, "Start");
                QVERIFY(isOn(dialog, 1));
                QCOMPARE(shownPage(dialog)->findChild<CircleS1M1*>()->value(), 15.0F);
                tick(dialog, 14);
                QCOMPARE(shownPage(dialog)->findChild<CircleS1M1*>()->value(), 1.0F);
                feed(dialog, count, level);
                tick(dialog, 1);
                feed(dialog, 20, -1.0F); // the time is up
                QVERIFY(isOn(dialog, 1));
                QTRY_VERIFY(isOn(dialog, page));
                if (page == 2)
                    press(dialog, "Apply");
                else
                    dialog.reject();
            });
            QCOMPARE(code, wanted);
            QCOMPARE(events.count(), 1);
            QCOMPARE(events.first(), QVariantList({u"Start"_s, u"1"_s}));
        }
    }

    void retryMeasuresAnewWithoutStart()
    {
        AutoGainS1M1 dialog;
        QSignalSpy events(&dialog, &AutoGainS1M1::attributeChanged);
        const int code = run(dialog, [&] {
            press(dialog, "Start");
            feed(dialog, 50, -3.0F); // too loud
            tick(dialog, 15);
            QTRY_VERIFY(isOn(dialog, 3));
            press(dialog, "Retry");
            QVERIFY(isOn(dialog, 1));
            QCOMPARE(shownPage(dialog)->findChild<CircleS1M1*>()->value(), 15.0F);
            feed(dialog, 10, -33.0F); // the readings before are forgotten
            tick(dialog, 15);
            QTRY_VERIFY(isOn(dialog, 2));
            press(dialog, "Apply");
        });
        QCOMPARE(code, -330);
        QCOMPARE(events.count(), 1);
    }

    void everyWayOutCancels()
    {
        for (const QByteArray way : {"button", "escape", "close", "last second", "abandon"}) {
            AutoGainS1M1 dialog;
            const int code = run(dialog, [&] {
                press(dialog, "Start");
                feed(dialog, 10, -20.0F);
                if (way == "last second" || way == "abandon")
                    tick(dialog, 15);
                if (way == "abandon")
                    QTRY_VERIFY(isOn(dialog, 2));
                if (way == "escape")
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                else if (way == "close")
                    dialog.close();
                else
                    press(dialog, way == "abandon" ? "Abandon" : "Cancel");
            });
            QVERIFY2(code == AutoGainS1M1::Cancelled, way);
            QTest::qWait(100); // the page of the finished measurement must not come after the end
            QVERIFY2(isOn(dialog, way == "abandon" ? 2 : 1), way);
            // The next run starts from the beginning, with nothing of this one left.
            run(dialog, [&] {
                QVERIFY(isOn(dialog, 0));
                QTest::qWait(100);
                QVERIFY(isOn(dialog, 0));
                dialog.reject();
            });
        }
    }

    void endsWhenTheConsoleGoes()
    {
        for (const QByteArray end : {"hide", "close", "delete"}) {
            auto* console = new QWidget;
            const QPointer<QWidget> guard(console);
            AppSettingsSubject::instance().setMainWindow(console);
            const QPointer<AutoGainS1M1> dialog(new AutoGainS1M1(new QWidget(console)));
            console->show();
            const int code = run(*dialog, [&] {
                press(*dialog, "Start");
                if (end == "hide")
                    console->hide();
                else if (end == "close")
                    console->close();
                else
                    delete console;
            });
            QCOMPARE(code, AutoGainS1M1::Cancelled);
            QCOMPARE(dialog.isNull(), end == "delete");
            delete guard.data();
            AppSettingsSubject::instance().setMainWindow(nullptr);
        }
    }

    void placesItself()
    {
        QWidget console;
        console.setGeometry(100, 100, 500, 480);
        AppSettingsSubject::instance().setMainWindow(&console);
        AutoGainS1M1 dialog;
        run(dialog, [&] {
            QCOMPARE(dialog.size(), QSize(399, 390)); // 1.5 times base and frame
            QVERIFY((dialog.geometry().center() - console.geometry().center()).manhattanLength() <= 2);
            dialog.reject();
        });
        const QRect square = AutoGainS1M1::squareOver(&console);
        QCOMPARE(square.size(), QSize(160, 160));
        QTimer::singleShot(0, &dialog, [&] {
            QCOMPARE(dialog.geometry(), square);
            QCOMPARE(dialog.exec(), AutoGainS1M1::Cancelled); // running already
            dialog.reject();
        });
        dialog.execAt(square);

        QSettings().setValue("ScaleFactor"_L1, u"nonsense"_s);
        run(dialog, [&] {
            QCOMPARE(dialog.size(), QSize(150, 150));
            dialog.reject();
        });
        QSettings().setValue("ScaleFactor"_L1, 1.5);
        AppSettingsSubject::instance().setMainWindow(nullptr);
    }

    void textsFitTheirBoxes()
    {
        for (const QString& language : {u"English"_s, u"Chinese"_s}) {
            AutoGainS1M1 dialog;
            dialog.setChannelNames({{u"English"_s, u"IN 1"_s}, {u"Chinese"_s, u"通道 1"_s}});
            dialog.setLanguage(language);
            dialog.show();
            auto* stack = dialog.findChild<QStackedWidget*>();
            for (const int side : {200, 390}) {
                dialog.resize(side, side);
                for (int page = 0; page < stack->count(); ++page) {
                    stack->setCurrentIndex(page);
                    for (const auto* label : stack->currentWidget()->findChildren<QLabel*>())
                        QVERIFY2(label->rect().contains(QRect(QPoint(), label->fontMetrics().size(0, label->text()))),
                                 qPrintable(label->text()));
                    for (const auto* button : stack->currentWidget()->findChildren<QPushButton*>())
                        QVERIFY(button->fontMetrics().horizontalAdvance(button->text()) <= button->width());
                }
            }
            const QString text = stack->widget(1)->findChild<QLabel*>()->text();
            QVERIFY(text.contains(language == "Chinese"_L1 ? u"通道 1电平中"_s : u"Detecting IN 1 level"_s));
        }
    }
};

QTEST_MAIN(TestAutoGain)
#include "tst_autogain.moc"
