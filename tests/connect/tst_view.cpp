#include "app/GlobalFont.h"
#include "connect/DeviceConnectorViewS1M1.h"
#include "controls/FramelessWindow.h"
#include "resources/Resources.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

const QString kLongMessage = u"1023.9 MB / 1023.9 MB  ( 1023.9 KB/s )"_s;

/// The view in its window, as the user has it.
struct Shown {
    explicit Shown(double factor = 1.5, const QString& language = u"English"_s)
    {
        view = new DeviceConnectorViewS1M1(&window);
        view->setFont(GlobalFont::instance().font());
        view->setLanguage(language);
        window.setResizable(false);
        window.setBody(view);
        window.resize(static_cast<int>(340 * factor), static_cast<int>(260 * factor));
        window.show();
    }
    QString text(const QString& object) const { return view->findChild<QLabel*>(object)->text(); }

    FramelessWindow window;
    DeviceConnectorViewS1M1* view;
};

// What is too large for its widget or its page, empty if all fits.
QString misfit(const QWidget& page)
{
    const QList<QWidget*> widgets = page.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* widget : widgets) {
        if (!page.rect().contains(widget->geometry())) {
            return widget->objectName() + u" leaves its page"_s;
        }
        for (const QWidget* other : widgets) {
            if (other != widget && other->geometry().intersects(widget->geometry())) {
                return widget->objectName() + u" covers "_s + other->objectName();
            }
        }
        const QFontMetrics metrics(widget->font());
        QSize needed;
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            needed = metrics.boundingRect(label->contentsRect(), Qt::AlignCenter | Qt::TextWordWrap, label->text()).size();
        } else if (const auto* box = qobject_cast<const QCheckBox*>(widget)) {
            needed = box->sizeHint();
        } else if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
            needed = metrics.size(Qt::TextSingleLine, button->text());
        }
        if (needed.width() > widget->width() || needed.height() > widget->height()) {
            return widget->objectName() + u" clips its text"_s;
        }
    }
    return {};
}

} // namespace

class tst_view : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void buttonsReport();
    void checkBoxesReportInvertedAndApart();
    void versionsShowBeta();
    void languageResetsVersions();
    void nothingIsClipped();
    void returnNeverClosesTheWindow();
};

void tst_view::initTestCase()
{
    initResources();
    GlobalFont::instance().load({u":/Font/SourceHanSansCN-Bold.ttf"_s});
}

void tst_view::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void tst_view::buttonsReport()
{
    const std::tuple<int, QString, QString> buttons[] = {{6, u"Page6PushButton1"_s, u"Cancel"_s},
                                                         {6, u"Page6PushButton2"_s, u"UpdateSoftware"_s},
                                                         {7, u"Page7PushButton2"_s, u"RetryFetch"_s},
                                                         {9, u"Page9PushButton2"_s, u"RetryDownloadSoftware"_s},
                                                         {10, u"PageAPushButton2"_s, u"RetryDownloadFirmware"_s},
                                                         {11, u"PageBPushButton"_s, u"Cancel"_s},
                                                         {12, u"PageCPushButton"_s, u"Cancel"_s}};
    for (const auto& [page, button, value] : buttons) {
        Shown shown;
        shown.view->setPage(page);
        QVERIFY(QTest::qWaitForWindowActive(&shown.window));
        auto* target = shown.view->findChild<QPushButton*>(button);
        QCOMPARE(target->hasFocus(), !button.endsWith(u'2'));
        QSignalSpy spy(shown.view, &DeviceConnectorViewBase::attributeChanged);
        QTest::mouseClick(target, Qt::LeftButton);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_Return);
        const QList<QVariant> event{button.left(5), u"Update"_s, value};
        QCOMPARE(static_cast<const QList<QList<QVariant>>&>(spy), (QList<QList<QVariant>>{event, event}));
    }
}

void tst_view::checkBoxesReportInvertedAndApart()
{
    Shown shown;
    QSignalSpy spy(shown.view, &DeviceConnectorViewBase::attributeChanged);
    for (const int number : {6, 7, 9}) {
        shown.view->setPage(number);
        const QString page = u"Page%1"_s.arg(number);
        auto* box = shown.view->findChild<QCheckBox*>(page + u"CheckBox"_s);
        QVERIFY2(!box->isChecked(), "one box moved another");
        box->click();
        QCOMPARE(spy.takeLast(), (QList<QVariant>{page, u"Update"_s, u"AutoCheckOFF"_s}));
        box->click();
        QCOMPARE(spy.takeLast(), (QList<QVariant>{page, u"Update"_s, u"AutoCheckON"_s}));
        box->click();
    }
    QCOMPARE(spy.count(), 3);
}

void tst_view::versionsShowBeta()
{
    Shown shown;
    for (const auto& [available, text] : {std::pair{u"1.3.0"_s, u"V1.3.0"_s},
                                          {u"1.3.1"_s, u"V1.3.1 Beta"_s},
                                          {u"1.3.10"_s, u"V1.3.10 Beta"_s},
                                          {u"0"_s, u"V0"_s},
                                          {u"1.3."_s, u"V1.3. Beta"_s}}) {
        shown.view->setVersions(u"1.2.0"_s, available);
        QCOMPARE(shown.text(u"Page6Label1"_s), u"Available version : "_s + text);
        QCOMPARE(shown.text(u"Page6Label2"_s), u"Current version : V1.2.0"_s);
    }
    shown.view->setLanguage(u"Chinese"_s);
    shown.view->setVersions(u"1.2.0"_s, u"2.0.1"_s);
    QCOMPARE(shown.text(u"Page6Label1"_s), u"最新版本 : V2.0.1 Beta"_s);
    QCOMPARE(shown.text(u"Page6Label2"_s), u"当前版本 : V1.2.0"_s);
}

void tst_view::languageResetsVersions()
{
    Shown shown;
    shown.view->setPage(6);
    shown.view->setPage(13); // is none
    QCOMPARE(shown.view->currentPage(), 6);
    shown.view->setVersions(u"1.2.0"_s, u"1.4.0"_s);
    shown.view->setLanguage(u"Klingon"_s);
    QCOMPARE(shown.text(u"Page6Label1"_s), u"Available version : V1.4.0"_s);
    shown.view->setLanguage(u"English"_s);
    QCOMPARE(shown.text(u"Page6Label1"_s), u"Available version : V0.1.0"_s);
    QCOMPARE(shown.text(u"Page6Label2"_s), u"Current version : V0.0.0"_s);
}

void tst_view::nothingIsClipped()
{
    for (const double factor : {1.0, 1.5, 2.0}) {
        for (const QString& language : {u"English"_s, u"Chinese"_s}) {
            Shown shown(factor, language);
            shown.view->setVersions(u"1.2.0"_s, u"10.20.3011"_s);
            shown.view->setProgressText(u"Downloading  100%"_s);
            shown.view->setProgressMessage(kLongMessage);
            const auto* stack = shown.view->findChild<QStackedWidget*>(u"stackedWidget"_s);
            for (int page = 0; page < stack->count(); ++page) {
                shown.view->setPage(page);
                QCoreApplication::processEvents();
                QVERIFY2(misfit(*stack->currentWidget()).isEmpty(), qPrintable(misfit(*stack->currentWidget())));
            }
            QCOMPARE(shown.window.size(), QSize(static_cast<int>(340 * factor), static_cast<int>(260 * factor)));
        }
    }
}

void tst_view::returnNeverClosesTheWindow()
{
    Shown shown;
    QVERIFY(QTest::qWaitForWindowActive(&shown.window));
    // From a page whose button had the focus to one that has none.
    shown.view->setPage(11);
    shown.view->setPage(0);
    QSignalSpy spy(shown.view, &DeviceConnectorViewBase::attributeChanged);
    QTest::keyClick(shown.window.focusWidget(), Qt::Key_Return);
    QVERIFY(shown.window.isVisible());
    QCOMPARE(spy.count(), 0);
    QTest::keyClick(shown.window.focusWidget(), Qt::Key_Escape);
    QVERIFY(!shown.window.isVisible());
}

QTEST_MAIN(tst_view)
#include "tst_view.moc"
