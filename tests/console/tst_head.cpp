// The bar over a page, with the real store in a folder of its own: every way to open, make, copy and remove a workspace.

#include "app/AppSettingsSubject.h"
#include "console/head/ComboBoxS1M1.h"
#include "console/head/ComboBoxS1M1_ItemS1M1.h"
#include "console/head/FieldHeadS1M1.h"
#include "console/head/FieldHeadS1M2.h"
#include "controls/BatteryS1M1.h"
#include "controls/ComboBoxS1M2.h"
#include "controls/MessageBoxS3M1.h"
#include "device/USBAudioAPI.h"
#include "resources/Resources.h"
#include "tests/device/FakeTable.h"
#include "workspace/WorkspaceObserver.h"
#include "workspace/WorkspaceSubject.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{

/// A strip of one value, 0 in a new workspace.
struct Probe : WorkspaceObserver {
    Probe() : WorkspaceObserver(u"Probe"_s) {}
    void loadSettings() override
    {
        ++loads;
        value = loadValue("Value").toInt();
    }
    void set(int to) { saveValue("Value", value = to); }
    int value = -1;
    int loads = 0;
};

/// A window with a bar over three workspaces "A", "B" and "C" of the values 1, 2 and 3; "B" is open.
struct Bench {
    explicit Bench(bool autoSave, const QStringList& names = {u"A"_s, u"B"_s, u"C"_s})
    {
        QSettings().setValue("AutoSaveWorkspace", autoSave);
        subject.setWorkspaceInfo(u"R47"_s, folder.path(), u"R47_Live_"_s);
        subject.addObserver(&probe);
        for (const QString& name : names) {
            QFile file(path(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("[ConfigFileHeader]\nDeviceName=R47\nCreateDate=2026-11-15 01:12:08\n[Probe]\nValue=" +
                       QByteArray::number(++made) + '\n');
        }
        window.resize(1100, 645);
        bar.setParent(&window);
        bar.fit(645);
        bar.resize(1100, bar.height());
        other.setParent(&window);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        bar.setWorkspaces(names, u"B"_s);
        events = std::make_unique<QSignalSpy>(&box(), &ComboBoxS1M1::attributeChanged);
        probe.loads = 0;
    }
    ~Bench()
    {
        subject.clearObservers();
        subject.close();
    }
    ComboBoxS1M1& box() { return *bar.findChild<ComboBoxS1M1*>(); }
    QListWidget& list() { return *qobject_cast<QListWidget*>(box().view()); }
    /// The row of a list that is counted from its end: 3 restore, 2 new, 1 save as.
    void command(int fromEnd) { pick(box().count() - fromEnd); }
    void pick(int row)
    {
        box().showPopup();
        list().setCurrentRow(row);
        QTest::keyClick(&list(), Qt::Key_Return);
    }
    void type(const QString& name)
    {
        QTest::keyClicks(&box(), name);
        QTest::keyClick(&box(), Qt::Key_Return);
    }
    QWidget* question() const { return QApplication::activeModalWidget(); }
    void answer(const char* button)
    {
        QVERIFY(question());
        QTest::mouseClick(question()->findChild<QWidget*>(QLatin1String(button)), Qt::LeftButton);
    }
    void removeRow(int row)
    {
        box().showPopup();
        auto* widget = list().itemWidget(list().item(row));
        QTest::mouseClick(widget->findChild<QWidget*>(u"delete"_s), Qt::LeftButton);
    }
    QString told() const
    {
        QStringList lines;
        for (const QList<QVariant>& event : *events) {
            lines += event[1].toString() + u'=' + event[2].toString();
        }
        return lines.join(u' ');
    }
    QString path(const QString& name) const { return folder.filePath(u"R47_Live_%1.ini"_s.arg(name)); }
    /// What a workspace has on the disk, once nothing is open any more.
    int content(const QString& name)
    {
        subject.close();
        return QSettings(path(name), QSettings::IniFormat).value("Probe/Value", 0).toInt();
    }

    QTemporaryDir folder;
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    Probe probe;
    int made = 0;
    QWidget window;
    FieldHeadS1M1 bar{u"FieldHead"_s};
    QLineEdit other; // something else that takes the keyboard
    std::unique_ptr<QSignalSpy> events;
};

using Deed = std::function<void(Bench&)>;

} // namespace

class TestHead : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void flows_data();
    void flows();
    void diskTellsWhatIsUnsaved();
    void aCopyThatFailsLosesNothing();
    void emptyEditTakesTheClock();
    void onlyWorkspaceGivesWayToANewOne();
    void namesAreCutByWidth();
    void aPageThatGoesTakesNoName();
    void workspacesOfOthersArePassedOver();
    void vanishedFileLeavesTheSelection();
    void download_data();
    void download();
    void manyWorkspaces();
    void streams();

private:
    faketable::Driver mDriver;
};

void TestHead::initTestCase()
{
    quillon::initResources();
    mDriver.devices = {u"R47"_s};
    faketable::driver = &mDriver;
    USBAudioAPI::setLibrary(std::make_unique<faketable::FakeDll>());
    QVERIFY(USBAudioAPI::instance().Init());
    QVERIFY(USBAudioAPI::instance().setDeviceToActiveByName(u"R47"_s));
}

void TestHead::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support )"_s));
}

void TestHead::flows_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QList<int>>("contents"); // of A, B, C and New at the end; -1: no such file
    QTest::addColumn<bool>("losesEdit");      // of B, where changes are not saved by themselves
    QTest::addColumn<int>("loads");
    const auto row = [](const char* name, const Deed& deed, const QString& told, const QString& current, const QList<int>& contents,
                        bool losesEdit = true, int loads = -1) {
        loads = loads >= 0 ? loads : int(told.count(u"ItemChanged"_s) + told.count(u"RestoreDefault"_s));
        QTest::newRow(name) << deed << told << current << contents << losesEdit << loads;
    };
    const auto copyOverC = [](Bench& b) {
        b.bar.startSaveAs();
        b.type(u"C"_s);
    };
    const auto newNamed = [](const QString& name) {
        return [name](Bench& b) {
            b.command(2);
            b.type(name);
        };
    };
    const auto deleteRow = [](int number, const char* button) {
        return [number, button](Bench& b) {
            b.removeRow(number);
            b.answer(button);
        };
    };
    row("choose", [](Bench& b) { b.pick(0); }, u"ItemChanged=A"_s, u"A"_s, {1, 9, 3, -1});
    row("new that cannot be made",
        [=](Bench& b) {
            QVERIFY(QDir().mkpath(b.path(u"No"_s)));
            QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::createFile //failed to create file");
            newNamed(u"No"_s)(b);
            QVERIFY(!b.box().names().contains(u"No"_s));
        },
        u"NewItem=No"_s, u"B"_s, {1, 9, 3, -1});
    row("choose by mouse",
        [](Bench& b) {
            b.box().showPopup();
            QTest::mouseClick(b.list().itemWidget(b.list().item(0)), Qt::LeftButton, {}, {5, 5});
        },
        u"ItemChanged=A"_s, u"A"_s, {1, 9, 3, -1});
    row("choose the same", [](Bench& b) { b.pick(1); }, {}, u"B"_s, {1, 9, 3, -1});
    row(
        "restore", [](Bench& b) { b.command(3); }, u"RestoreDefault=B"_s, u"B"_s, {1, 0, 3, -1}, false);
    row("new", newNamed(u"New"_s), u"NewItem=New ItemChanged=New"_s, u"New"_s, {1, 9, 3, 0});
    row("copy", [](Bench& b) { b.command(1), b.type(u"New"_s); }, u"ItemSaveAs=New ItemChanged=New"_s, u"New"_s, {1, 9, 3, 9});
    row(
        "save", [](Bench& b) { QTest::mouseClick(b.bar.findChild<QWidget*>(u"WorkspaceSave"_s), Qt::LeftButton); }, {}, u"B"_s,
        {1, 9, 3, -1}, false);
    row("new over another", [=](Bench& b) { newNamed(u"C"_s)(b), b.answer("PushButton1"); }, u"RestoreDefault=C"_s, u"C"_s,
        {1, 9, 0, -1});
    row(
        "new over the open one", [=](Bench& b) { newNamed(u"B"_s)(b), b.answer("PushButton1"); }, u"RestoreDefault=B"_s, u"B"_s,
        {1, 0, 3, -1}, false);
    row("copy over another", [=](Bench& b) { copyOverC(b), b.answer("PushButton1"); }, u"ItemSaveAs=C ItemChanged=C"_s, u"C"_s,
        {1, 9, 9, -1});
    row(
        "copy over the open one", [](Bench& b) { b.command(1), b.type(u"B"_s), b.answer("PushButton1"); }, u"ItemSaveAs=B"_s,
        u"B"_s, {1, 9, 3, -1}, false);
    row("another name instead", [=](Bench& b) { copyOverC(b), b.answer("PushButton2"), b.type(u"New"_s); },
        u"ItemSaveAs=New ItemChanged=New"_s, u"New"_s, {1, 9, 3, 9});
    row("question closed", [=](Bench& b) { copyOverC(b), QTest::keyClick(b.question(), Qt::Key_Escape); }, {}, u"B"_s,
        {1, 9, 3, -1});
    row("edit given up",
        [](Bench& b) { b.command(2), QTest::keyClicks(&b.box(), u"New"_s), QTest::keyClick(&b.box(), Qt::Key_Escape); }, {}, u"B"_s,
        {1, 9, 3, -1});
    row("edit left", [](Bench& b) { b.command(2), QTest::keyClicks(&b.box(), u"New"_s), b.other.setFocus(); },
        u"NewItem=New ItemChanged=New"_s, u"New"_s, {1, 9, 3, 0});
    row("name out of the folder, then another",
        [](Bench& b) {
            b.command(2), b.type(u"../x"_s);
            QVERIFY(b.box().isEditOpen() && !b.question());
            b.type(u"New"_s); // in place of the refused one
        },
        u"NewItem=New ItemChanged=New"_s, u"New"_s, {1, 9, 3, 0});
    row("delete another", deleteRow(0, "PushButton2"), u"RemoveItem=A"_s, u"B"_s, {-1, 9, 3, -1});
    row("delete the last, not open", deleteRow(2, "PushButton2"), u"RemoveItem=C"_s, u"B"_s, {1, 9, -1, -1});
    row("delete the open one", deleteRow(1, "PushButton2"), u"ItemChanged=C RemoveItem=B"_s, u"C"_s, {1, -1, 3, -1}, false);
    row("delete the open and last one",
        [=](Bench& b) { b.pick(2), b.events->clear(), b.probe.loads = 0, deleteRow(2, "PushButton2")(b); },
        u"ItemChanged=A RemoveItem=C"_s, u"A"_s, {1, 9, -1, -1});
    row("delete not", deleteRow(1, "PushButton1"), {}, u"B"_s, {1, 9, 3, -1});
    row("delete by key",
        [](Bench& b) {
            b.box().showPopup();
            b.list().setCurrentRow(0);
            QTest::keyClick(&b.list(), Qt::Key_Delete);
            b.answer("PushButton2");
        },
        u"RemoveItem=A"_s, u"B"_s, {-1, 9, 3, -1});
    row("wheel and arrows on the closed box",
        [](Bench& b) {
            QWheelEvent turn({9, 9}, {9, 9}, {}, {0, -240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&b.box(), &turn);
            QTest::keyClick(&b.box(), Qt::Key_PageDown);
            QTest::keyClick(&b.box(), Qt::Key_A);
        },
        {}, u"B"_s, {1, 9, 3, -1});
}

/// The open workspace B is changed to 9 before each deed. Where changes are saved by hand, only a save, a copy or a clearing brings
/// anything of it into the files.
void TestHead::flows()
{
    QFETCH(Deed, deed);
    QFETCH(QString, told);
    QFETCH(QString, current);
    QFETCH(QList<int>, contents);
    QFETCH(bool, losesEdit);
    QFETCH(int, loads);
    for (const bool autoSave : {true, false}) {
        Bench bench(autoSave);
        bench.probe.set(9);
        deed(bench);
        QCOMPARE(bench.told(), told);
        QCOMPARE(bench.box().currentName(), current);
        QCOMPARE(bench.box().currentText(), current);
        QCOMPARE(bench.bar.workspace(), current);
        QVERIFY(!bench.box().isEditOpen() && !bench.box().isEditable() && !bench.question());
        QVERIFY(bench.subject.isCurrent(current));
        QCOMPARE(QSettings().value(bench.subject.rememberKey()).toString(), current);
        QCOMPARE(bench.probe.loads, loads);
        if (!autoSave && losesEdit) {
            contents[1] = 2;
        }
        const QStringList names{u"A"_s, u"B"_s, u"C"_s, u"New"_s};
        QStringList kept;
        for (int i = 0; i < names.size(); ++i) {
            QVERIFY(bench.box().names().contains(names[i]) == (contents[i] >= 0));
            if (contents[i] >= 0) {
                QCOMPARE(bench.content(names[i]), contents[i]);
                kept += names[i];
            }
        }
        QStringList found = bench.subject.workspaceNames();
        found.sort();
        QCOMPARE(found, kept);
    }
}

/// It is ticked while there is nothing for it to do.
void TestHead::diskTellsWhatIsUnsaved()
{
    Bench b(false);
    auto* disk = b.bar.findChild<QWidget*>(u"WorkspaceSave"_s);
    b.bar.setLanguage(u"English"_s);
    const auto isSaved = [disk] { return disk->accessibleDescription() == u"All changes are saved"_s; };
    const QImage ticked = disk->grab().toImage();
    QVERIFY(isSaved());
    b.probe.set(9);
    QVERIFY(!isSaved());
    QVERIFY(disk->grab().toImage() != ticked);
    QTest::qWait(400); // the copy is written, the file is not
    QVERIFY(!isSaved());
    QTest::mouseClick(disk, Qt::LeftButton);
    QVERIFY(isSaved());
    QCOMPARE(disk->grab().toImage(), ticked);
    b.probe.set(8);
    b.bar.setLanguage(u"Chinese"_s);
    QCOMPARE(disk->accessibleDescription(), u"有未保存的更改"_s);
    b.bar.setLanguage(u"English"_s);
    b.pick(0); // gone with its workspace
    QVERIFY(isSaved());
    b.probe.set(7);
    QSettings().setValue("AutoSaveWorkspace", true);
    b.subject.modifyWorkspacePreprocessing(0);
    b.bar.onAppSettingsChanged({}, u"AutoSaveWorkspace"_s, u"true"_s);
    QVERIFY(isSaved());
    b.probe.set(6);
    QVERIFY(isSaved());
}

/// What was to be rescued stays where it is.
void TestHead::aCopyThatFailsLosesNothing()
{
    Bench b(false);
    b.probe.set(9);
    QVERIFY(QFile::remove(b.path(u"C"_s)) && QDir().mkpath(b.path(u"C"_s)));
    b.probe.loads = 0;
    for (const bool fresh : {false, true}) {
        QTest::ignoreMessage(QtWarningMsg, fresh ? "WorkspaceSubject::createFile //failed to create file"
                                                 : "WorkspaceSubject::fileSaveAs //failed to copy file to target folder");
        b.command(fresh ? 2 : 1);
        b.type(u"C"_s);
        b.answer("PushButton1");
        QCOMPARE(b.box().currentName() + b.box().currentText() + b.bar.workspace(), u"BBB"_s);
        QVERIFY(b.subject.isCurrent(u"B"_s) && b.subject.hasUnsavedChanges());
    }
    QCOMPARE(b.probe.loads, 0);
    QCOMPARE(b.told(), u"ItemSaveAs=C RestoreDefault=C"_s);
    // Without room for a private copy none is open, and each can be chosen again.
    const QByteArray temp = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(b.folder.filePath(u"tmp"_s)));
    QVERIFY(QDir().mkpath(b.folder.filePath(u"tmp/R47_Live_A.ini"_s)));
    QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::modifyFile //failed to copy file to temp folder");
    b.pick(0);
    QCOMPARE(b.box().currentName() + b.bar.workspace(), QString());
    QVERIFY(!b.subject.isOpen());
    temp.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temp);
    b.pick(1);
    QVERIFY(b.subject.isCurrent(u"B"_s) && b.probe.value == 2);
    QVERIFY(QDir().rmdir(b.path(u"C"_s)));
}

void TestHead::emptyEditTakesTheClock()
{
    for (const bool left : {false, true}) {
        Bench bench(true);
        bench.command(2);
        left ? bench.other.setFocus() : QTest::keyClick(&bench.box(), Qt::Key_Return);
        const QString name = bench.box().currentName();
        QVERIFY(QRegularExpression(u"^\\d{4}-\\d{4}-\\d{4}-\\d{2}$"_s).match(name).hasMatch());
        QVERIFY(bench.subject.isCurrent(name) && bench.box().names().size() == 4);
    }
}

void TestHead::onlyWorkspaceGivesWayToANewOne()
{
    Bench bench(true, {u"B"_s});
    bench.removeRow(0);
    bench.answer("PushButton2");
    const QString fresh = bench.box().currentName();
    QCOMPARE(bench.told(), u"NewItem=%1 ItemChanged=%1 RemoveItem=B"_s.arg(fresh));
    QCOMPARE(bench.subject.workspaceNames(), QStringList{fresh});
    QCOMPARE(bench.box().names(), QStringList{fresh});
    QCOMPARE(bench.probe.value, 0);

    Bench none(true, {});
    QCOMPARE(none.box().names(), none.subject.workspaceNames());
    QVERIFY(none.subject.isCurrent(none.box().currentName()));
}

void TestHead::namesAreCutByWidth()
{
    Bench bench(true);
    bench.command(2);
    QTest::keyClicks(&bench.box(), QString(60, u'W'));
    const qsizetype wide = bench.box().lineEdit()->text().size();
    bench.box().lineEdit()->setText(QString(100000, u'i'));
    const qsizetype narrow = bench.box().lineEdit()->text().size();
    QVERIFY2(wide > 3 && wide < 20 && narrow > 2 * wide, qPrintable(u"%1 %2"_s.arg(wide).arg(narrow)));
    // Typed in the middle, the end goes, and the cursor stays where one types.
    bench.box().lineEdit()->setText(u"ab"_s + QString(60, u'W'));
    bench.box().lineEdit()->setCursorPosition(1);
    QTest::keyClicks(&bench.box(), u"WW"_s);
    QVERIFY(bench.box().lineEdit()->text().startsWith(u"aWWb"_s));
    QCOMPARE(bench.box().lineEdit()->cursorPosition(), 3);
}

void TestHead::aPageThatGoesTakesNoName()
{
    Bench bench(true);
    bench.command(2);
    QTest::keyClicks(&bench.box(), u"New"_s);
    bench.bar.hide();
    QVERIFY(bench.told().isEmpty() && !bench.box().isEditOpen());
    QCOMPARE(bench.box().currentText(), u"B"_s);
    bench.bar.show();
    bench.removeRow(0);
    bench.bar.hide(); // what is answered now would meet another page's workspaces
    bench.answer("PushButton2");
    QCOMPARE(bench.told(), QString());
    {
        Bench gone(true); // a lost device takes the console away under an open question
        gone.command(2);
        gone.type(u"C"_s);
        QVERIFY(gone.question());
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestHead::workspacesOfOthersArePassedOver()
{
    Bench bench(true);
    bench.subject.createFile(bench.path(u"X"_s), u"Other"_s);
    for (int i = 0; i < 2; ++i) {
        QTest::ignoreMessage(QtWarningMsg, "workspaceToOpen //remembered file is not a workspace of this device");
    }
    bench.bar.setWorkspaces({u"X"_s, u"C"_s}, u"X"_s);
    QCOMPARE(bench.box().currentName(), u"C"_s);
    bench.bar.setWorkspaces({u"X"_s}, u"X"_s);
    QVERIFY(bench.box().currentName() != u"X"_s && bench.subject.isCurrent(bench.box().currentName()));
    QCOMPARE(bench.box().names().size(), 2);
}

void TestHead::vanishedFileLeavesTheSelection()
{
    Bench bench(true);
    QVERIFY(QFile::remove(bench.path(u"C"_s)));
    QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::modifyFile //file does not exist");
    bench.pick(2);
    QCOMPARE(bench.box().currentText(), u"B"_s);
    QVERIFY(bench.subject.isCurrent(u"B"_s));
    QCOMPARE(bench.box().names(), QStringList({u"A"_s, u"B"_s}));
}

void TestHead::download_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("told");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<bool>("edit");
    QTest::newRow("cancel") << u"CheckBox2"_s << u"PushButton1"_s << false << false << false;
    QTest::newRow("in place") << QString() << u"PushButton2"_s << true << true << false;
    QTest::newRow("as a copy") << u"CheckBox2"_s << u"PushButton2"_s << true << false << true;
    QTest::newRow("device only") << u"CheckBox3"_s << u"PushButton2"_s << true << false << false;
}

void TestHead::download()
{
    QFETCH(QString, choice);
    QFETCH(QString, button);
    QFETCH(bool, told);
    QFETCH(bool, saved);
    QFETCH(bool, edit);
    Bench bench(false);
    bench.probe.set(9);
    QSignalSpy outside(&bench.bar, &FieldHeadS1M1::attributeChanged);
    QTest::keyClick(bench.bar.findChild<QWidget*>(u"WorkspaceDownload"_s), Qt::Key_Return);
    QWidget* box = bench.question();
    QVERIFY(box);
    QCOMPARE(box->size(), QSize(342, 258));
    QVERIFY((box->geometry().center() - bench.window.geometry().center()).manhattanLength() <= 2);
    if (!choice.isEmpty()) {
        QTest::mouseClick(box->findChild<QWidget*>(choice), Qt::LeftButton);
    }
    bench.answer(button.toLatin1().constData());
    QCOMPARE(outside.size(), told ? 1 : 0);
    QCOMPARE(bench.box().isEditOpen(), edit);
    bench.window.hide(); // ends the edit
    QCOMPARE(bench.content(u"B"_s), saved ? 9 : 2);
}

void TestHead::manyWorkspaces()
{
    QStringList names;
    for (int i = 0; i < 200; ++i) {
        names += u"Session %1"_s.arg(i);
    }
    ComboBoxS1M1 box;
    box.resize(200, 22);
    box.show();
    QElapsedTimer clock;
    clock.start();
    box.setItems(names, u"Session 150"_s);
    const qint64 fill = clock.restart();
    box.showPopup();
    const qint64 open = clock.elapsed();
    qInfo("200 names: filled in %lld ms, opened in %lld ms", fill, open);
    QVERIFY2(fill < 400 && open < 800, "the list is slow"); // a few ms each; the bound is for a busy machine
    QCOMPARE(box.count() - 4, 200);
    auto* list = qobject_cast<QListWidget*>(box.view());
    QVERIFY(list->viewport()->rect().intersects(list->visualItemRect(list->item(150))));
    QTest::keyClick(list, Qt::Key_Right);
    auto* remove = list->itemWidget(list->item(150))->findChild<QWidget*>(u"delete"_s);
    QCOMPARE(QApplication::focusWidget(), remove);
    QCOMPARE(remove->accessibleName(), u"Delete workspace Session 150"_s);
    QTest::keyClick(remove, Qt::Key_Down);
    QCOMPARE(list->currentRow(), 151);
    QCOMPARE(QApplication::focusWidget(), list);
}

/// Both bars: what the driver is told, and what is shown when it refuses; battery and texts.
void TestHead::streams()
{
    FieldHeadS1M1 full(u"FieldHead"_s);
    FieldHeadS1M2 easy(u"FieldHead"_s);
    const std::array<quillon::FieldHead*, 2> bars{&full, &easy};
    for (quillon::FieldHead* bar : bars) {
        mDriver.calls.clear();
        QSignalSpy outside(bar, &quillon::FieldHead::attributeChanged);
        bar->setSampleRates({44100, 48000, 96000}, 44100);
        bar->setBufferSizes({64, 256}, 256);
        auto* rate = bar->findChild<ComboBoxS1M2*>(u"SampleRate"_s);
        QCOMPARE(rate->currentText(), u"44100"_s);
        QVERIFY(mDriver.calls.isEmpty());
        rate->setCurrentIndex(1);
        QVERIFY(mDriver.calls.contains(u"rate 48000"_s));
        rate->setCurrentIndex(2); // not supported
        QCOMPARE(rate->currentText(), u"48000"_s);
        QVERIFY(outside.isEmpty());
        QTest::keyClick(bar->findChild<QWidget*>(u"SystemSettings"_s), Qt::Key_Space);
        QCOMPARE(outside.takeFirst(), (QVariantList{u"SystemSettings"_s, u"Clicked"_s, u"1"_s}));
        bar->setBattery(42);
        bar->setCharging(true);
        QVERIFY(bar->findChild<BatteryS1M1*>()->level() == 42 && bar->findChild<BatteryS1M1*>()->isCharging());
        dynamic_cast<AppSettingsObserver*>(bar)->onAppSettingsChanged({}, u"Language"_s, u"Chinese"_s);
        QCOMPARE(rate->accessibleName(), u"采样率"_s);
    }
    QCOMPARE(easy.findChild<ComboBoxS1M1*>(), nullptr);
}

QTEST_MAIN(TestHead)
#include "tst_head.moc"
