#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "controls/Accessibility.h"
#include "controls/DialS1M5.h"
#include "controls/VSliderS1M1.h"
#include "controls/VSliderS1M2.h"
#include "controls/VolumeMeterS1M5.h"
#include "equalizer/editor/EqWidgetIem.h"
#include "equalizer/editor/EqualizerControllerS1M1.h"
#include "equalizer/window/Charts.h"
#include "equalizer/window/EqualizerPanelS1M1.h"
#include "equalizer/window/EqualizerS1M1.h"
#include "equalizer/window/EqualizerS1M2.h"
#include "resources/Resources.h"
#include "strips/output/OutputS1M4.h"
#include "tests/controls/Hands.h"
#include "tests/workspace/StoreFixture.h"

#include <QAccessible>
#include <QChartView>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QSplineSeries>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto kResponse = "fre(Hz),raw(dB)\n20,1\n500,6\n5000,-3\n22000,2\n";
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct OwnChart {
    ChartFace& face = *quillon::makeChart(nullptr);
    std::unique_ptr<QChartView> view{dynamic_cast<QChartView*>(&face.widget())};
};

/// A window, and what it says: "EQ_HP Switch=1, ...".
struct Bench {
    explicit Bench(bool headphones = true, qint32 bands = 3)
    {
        if (headphones) {
            window = std::make_unique<EqualizerS1M1>();
        } else {
            window = std::make_unique<EqualizerS1M2>();
        }
        window->setItemCount(bands);
        window->setObjectName(headphones ? u"EQ_HP"_s : u"EQ_IN1"_s);
        window->setFont(GlobalFont::instance().font());
        window->setFileChooser([this](const EqualizerTool::FileQuestion& question) {
            asked = question.title;
            return chosen;
        });
        QObject::connect(window.get(), &EqualizerBase::attributeChanged, window.get(),
                         [this](const QString& object, const QString& attribute, const QString& value) {
                             said += object + u' ' + attribute + u'=' + value;
                         });
    }
    void show() const
    {
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 3; ++i) { // the chart books its own layout
            QCoreApplication::processEvents();
        }
    }
    template<class T = QWidget> T* part(const QString& name) const { return window->findChild<T*>(name); }
    void click(const QString& name) const { QTest::mouseClick(part<QPushButton>(name), Qt::LeftButton); }
    void choose(const QString& action) const { part<QAction>(action)->trigger(); }
    void step(const QString& fader, Qt::Key key) const { QTest::keyClick(part(fader)->focusProxy(), key); }
    QStringList take() { return std::exchange(said, {}); }
    QSplineSeries* series(const QString& name) const
    {
        for (QAbstractSeries* series : part<QChartView>(u"widgetChart"_s)->chart()->series()) {
            if (series->name() == name) {
                return qobject_cast<QSplineSeries*>(series);
            }
        }
        return nullptr;
    }
    QStringList visible() const
    {
        settle();
        QStringList names;
        for (const QAbstractSeries* series : part<QChartView>(u"widgetChart"_s)->chart()->series()) {
            names += series->isVisible() ? QStringList{series->name()} : QStringList{};
        }
        names.sort();
        return names;
    }
    double level(const QString& name) const
    {
        settle();
        return series(name)->at(series(name)->count() / 3).y();
    }
    QString write(const QString& name, const QByteArray& text) const
    {
        StoreFixture::put(folder.filePath(name), text);
        return folder.filePath(name);
    }

    QTemporaryDir folder;
    QString chosen;
    QString asked;
    QStringList said;
    std::unique_ptr<EqualizerBase> window;
};

void setLanguage(const QString& language)
{
    AppSettingsSubject::instance().changeLanguage(language);
}

} // namespace

class TestEqualizerWindows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        quillon::initResources();
        quillon::installControlAccessibility();
        QVERIFY(GlobalFont::instance().load(quillon::applicationFontPaths()));
    }

    void curveButtons()
    {
        Bench bench;
        bench.show();
        struct Row {
            QString button;
            QString attribute;
            void (EqualizerPanelS1M1::*set)(bool);
            QStringList curves;
        };
        const Row rows[]{{u"Target"_s, u"StateTarget"_s, &EqualizerPanelS1M1::setStateTarget, {u"Target"_s}},
                         {u"Source"_s, u"StateSource"_s, &EqualizerPanelS1M1::setStateSource, {u"Source"_s}},
                         {u"Each Filter"_s, u"StateEachFilter"_s, &EqualizerPanelS1M1::setStateEachFilter, {u"1"_s, u"3"_s}},
                         {u"Combined"_s, u"StateCombined"_s, &EqualizerPanelS1M1::setStateCombined, {u"Combined"_s}},
                         {u"Filtered"_s, u"StateFiltered"_s, &EqualizerPanelS1M1::setStateFiltered, {u"Filtered"_s}},
                         {u"Compensated"_s, u"FilteredType"_s, &EqualizerPanelS1M1::setFilteredType, {}}};
        bench.window->setItemAttribute(u"2"_s, u"Switch"_s, u"0"_s);
        auto* panel = bench.window->findChild<EqualizerPanelS1M1*>();
        for (const Row& row : rows) {
            QCOMPARE(bench.visible(), QStringList());
            bench.click(row.button);
            QCOMPARE(bench.take(), QStringList{u"EQ_HP "_s + row.attribute + u"=1"_s});
            QCOMPARE(bench.visible(), row.curves);
            bench.click(row.button);
            QCOMPARE(bench.take(), QStringList{u"EQ_HP "_s + row.attribute + u"=0"_s});
            (panel->*row.set)(true);
            QCOMPARE(bench.visible(), row.curves);
            QVERIFY(bench.part<QPushButton>(row.button)->isChecked() && bench.take().isEmpty());
            (panel->*row.set)(false);
        }
        // A band that is switched off loses its curve with the next refresh.
        panel->setStateEachFilter(true);
        bench.window->setItemAttribute(u"3"_s, u"Switch"_s, u"0"_s);
        bench.window->setSwitch(true, false);
        QCOMPARE(bench.visible(), QStringList{u"1"_s});
    }

    void compensated()
    {
        Bench bench;
        bench.show();
        bench.window->setStateTarget(true);
        bench.window->setStateFiltered(true);
        bench.window->setStateSource(true);
        bench.window->importTargetFile(bench.write(u"t.csv"_s, kResponse));
        bench.window->importSourceFile(bench.write(u"s.csv"_s, "fre(Hz),raw(dB)\n20,3\n700,-4\n22000,1\n"));
        EqualizerTool tool(20, 22000, 676, false); // the same curves, without a window
        tool.updateBands({{.name = u"1"_s, .enabled = true, .frequency = 1000, .q = 0.7}});
        tool.importCurve(u"Target"_s, bench.folder.filePath(u"t.csv"_s));
        tool.importCurve(u"Source"_s, bench.folder.filePath(u"s.csv"_s));
        bench.settle();
        QCOMPARE(bench.series(u"Source"_s)->points(), tool.curve(u"SourceRaw"_s));
        for (const bool on : {true, false}) {
            bench.click(u"Compensated"_s);
            QCOMPARE(bench.part<QPushButton>(u"Compensated"_s)->text(), on ? u"Compensated"_s : u"Raw"_s);
            QCOMPARE(bench.visible(), QStringList({u"Filtered"_s, u"Source"_s, u"Target"_s}));
            for (const QString& name : {u"Target"_s, u"Source"_s, u"Filtered"_s}) {
                QCOMPARE(bench.series(name)->points(), tool.curve(name + (on ? u"Compensated"_s : u"Raw"_s)));
            }
        }
        setLanguage(u"Chinese"_s);
        QCOMPARE(bench.part<QPushButton>(u"Compensated"_s)->text(), u"原始"_s);
        QCOMPARE(bench.part<QAction>(u"actionExportFiltersCurve"_s)->text(), u"导出滤波器曲线"_s);
        QCOMPARE(bench.part<QLabel>(u"labelTitle"_s)->text(), u"均衡器"_s);
        setLanguage(u"English"_s);
    }

    void collapse()
    {
        Bench bench;
        bench.show();
        const int high = bench.part(u"widgetChart"_s)->height();
        bench.click(u"pushButtonHead"_s);
        QVERIFY(bench.part(u"widgetButtons"_s)->isHidden() && bench.part(u"widgetChart"_s)->height() > high);
        bench.click(u"pushButtonHead"_s);
        QVERIFY(bench.part(u"widgetButtons"_s)->isVisible() && bench.part(u"widgetChart"_s)->height() == high);
        QVERIFY(bench.take().isEmpty());
    }

    void filesOfTheMenu()
    {
        Bench bench;
        bench.show();
        bench.window->setStateTarget(true);
        const QString good = bench.write(u"good.csv"_s, kResponse);
        const QString bad = bench.write(u"bad.csv"_s, "20;1\n");
        struct Row {
            const char* action;
            QString chosen;
            QStringList said;
            const char* warning;
        };
        const Row rows[]{
            {"actionTarget", {}, {}, nullptr},
            {"actionTarget", good, {u"EQ_HP TargetFile="_s + good}, nullptr},
            {"actionTarget", bad, {}, "EqualizerTool::importCurve //The current curve is invalid"},
            {"actionSource", good, {u"EQ_HP SourceFile="_s + good}, nullptr},
            {"actionSource", u"/nowhere"_s, {}, "EqualizerTool::importCurve //failed to open curve file"},
            {"actionImportFilters", {}, {}, nullptr},
            {"actionImportFilters", bad, {}, "EqualizerTool::importBandData //The current filter parameters file is invalid"},
            {"actionExportFilters", {}, {}, nullptr},
            {"actionExportFiltersCurve", {}, {}, nullptr},
        };
        for (const Row& row : rows) {
            if (row.warning) {
                QTest::ignoreMessage(QtWarningMsg, row.warning);
            }
            bench.chosen = row.chosen;
            bench.choose(QLatin1StringView(row.action));
            QCOMPARE(bench.take(), row.said);
            QVERIFY(!std::exchange(bench.asked, {}).isEmpty());
        }
        QVERIFY(bench.level(u"Target"_s) > 1); // the good one stays
        // Whatever is seen, the combined curve goes out.
        bench.window->setGainInputLeft(-7);
        bench.chosen = bench.folder.filePath(u"out.csv"_s);
        bench.choose(u"actionExportFiltersCurve"_s);
        QVERIFY(StoreFixture::content(bench.chosen).startsWith("fre(Hz),raw(dB)\n20,-7\n"));
    }

    // The set is shown and heard of by nobody. Its curves stand one number higher than its columns. All of them can be turned.
    void importedFilters()
    {
        Bench bench;
        bench.show();
        bench.window->setStateEachFilter(true);
        bench.chosen = bench.write(u"in.txt"_s, "EQFilterParameters\nPreGain,-2\n4,1,0,4000,4,1\n2,1,0,200,6,2\n3,0,1,300,0,1\n"
                                                "1,1,0,100,-5,1\n");
        bench.choose(u"actionImportFilters"_s);
        QCOMPARE(bench.take(), QStringList());
        auto* controller = bench.window->findChild<EqualizerControllerS1M1*>();
        QStringList columns;
        for (const EqWidgetItemData& item : controller->items()) {
            columns += u"%1:%2:%3:%4"_s.arg(item.index).arg(item.type).arg(double(item.frequency)).arg(int(item.enabled));
        }
        QCOMPARE(columns, QStringList({u"1:0:100:1"_s, u"2:0:200:1"_s, u"3:1:300:0"_s, u"4:0:4000:1"_s}));
        QCOMPARE(bench.visible(), QStringList({u"1"_s, u"2"_s, u"3"_s})); // 2 and 3 are those of columns 1 and 2
        QVERIFY(bench.series(u"2"_s)->at(200).y() < 0 && bench.series(u"3"_s)->at(200).y() > 0);
        QCOMPARE(bench.series(u"1"_s)->at(200).y(), 0.0);
        bench.chosen = bench.folder.filePath(u"out.txt"_s);
        bench.choose(u"actionExportFilters"_s);
        QCOMPARE(StoreFixture::content(bench.chosen), "EQFilterParameters\nPreGain,-2\n2,1,0,100,-5,1\n3,1,0,200,6,2\n"
                                                      "4,0,1,300,0,1\n5,1,0,4000,4,1\n");
        for (const int column : {1, 4}) {
            auto* dial = controller->findChild<EqWidgetIem*>(u"item%1"_s.arg(column))->findChild<DialS1M5*>(u"dialGain"_s);
            dial->setFocus();
            QTest::keyClick(dial, Qt::Key_Up);
        }
        QCOMPARE(bench.said.size(), 2);
        QVERIFY(bench.said[0].startsWith(u"EQ_HP@1 Gain=-"_s) && bench.take()[1].startsWith(u"EQ_HP@4 Gain="_s));
        bench.click(u"Each Filter"_s);
        QCOMPARE(bench.visible(), QStringList());
    }

    void aDialogOutlivesItsWindow()
    {
        for (const char* action : {"actionTarget", "actionImportFilters", "actionExportFilters"}) {
            Bench bench;
            const QString path = bench.write(u"f"_s, QByteArray("EQFilterParameters\n") + kResponse);
            bench.window->setFileChooser([&bench, path](const EqualizerTool::FileQuestion&) {
                bench.window.reset();
                return path;
            });
            bench.choose(QLatin1StringView(action));
            QVERIFY(!bench.window && bench.said.isEmpty());
        }
    }

    void eventsOfTheHeadphones()
    {
        Bench bench;
        bench.show();
        bench.window->setStateCombined(true);
        QCOMPARE(bench.level(u"Combined"_s), 0.0);
        bench.step(u"slider"_s, Qt::Key_Down);
        bench.step(u"slider"_s, Qt::Key_Down); // half a dB is cut
        QCOMPARE(bench.take(), QStringList({u"EQ_HP GainInputLeft=0"_s, u"EQ_HP GainInputRight=0"_s, u"EQ_HP GainInputLeft=-1"_s,
                                            u"EQ_HP GainInputRight=-1"_s}));
        QCOMPARE(bench.level(u"Combined"_s), -1.0);
        for (const QString& fader : {u"slider"_s, u"slider_2"_s}) {
            QTest::mouseDClick(bench.part(fader)->focusProxy(), Qt::LeftButton);
        }
        QCOMPARE(bench.take(), QStringList({u"EQ_HP GainInputLeft=-38"_s, u"EQ_HP GainInputRight=-38"_s,
                                            u"EQ_HP GainOutputLeft=-38"_s, u"EQ_HP GainOutputRight=-38"_s}));
        QCOMPARE(bench.level(u"Combined"_s), -38.0); // the gain behind the curve does not move it
        bench.click(u"buttonSwitch"_s);
        bench.window->setSwitch(false, true);
        QCOMPARE(bench.take(), QStringList({u"EQ_HP Switch=1"_s, u"EQ_HP Switch=0"_s}));
        // Return in a read-out is the read-out's.
        auto* text = bench.part(u"slider_2"_s)->findChild<QLineEdit*>();
        text->setFocus();
        text->setText(u"-20"_s);
        QTest::keyClick(text, Qt::Key_Return);
        QCOMPARE(bench.take(), QStringList({u"EQ_HP GainOutputLeft=-20"_s, u"EQ_HP GainOutputRight=-20"_s}));
        bench.click(u"buttonClose"_s);
        QVERIFY(!bench.window->isVisible());
    }

    void eventsOfAMicrophone()
    {
        Bench bench(false, 4);
        bench.show();
        QCOMPARE(bench.visible(), QStringList{u"Combined"_s});
        bench.step(u"slider"_s, Qt::Key_Up);
        QCOMPARE(bench.take(), QStringList{u"EQ_IN1 Gain=1"_s});
        QCOMPARE(bench.level(u"Combined"_s), 0.0);
        auto* dial = bench.window->findChild<EqWidgetIem*>(u"item2"_s)->findChild<DialS1M5*>(u"dialGain"_s);
        dial->setFocus();
        QTest::keyClick(dial, Qt::Key_Up);
        QVERIFY(bench.level(u"Combined"_s) > 0);
        QCOMPARE(bench.said.size(), 1);
        QVERIFY(bench.said[0].startsWith(u"EQ_IN1@2 Gain="_s));
    }

    void whatTheDeviceReports()
    {
        for (const bool headphones : {true, false}) {
            Bench bench(headphones);
            bench.show();
            bench.window->setStateCombined(true);
            for (const auto& [attribute, value] : {std::pair<QStringView, QVariant>{u"Switch", true},
                                                   {u"MeterLeft", -100},
                                                   {u"MeterRight", -200},
                                                   {u"Meter", -300},
                                                   {u"OutputLeft", -400},
                                                   {u"OutputRight", 1},
                                                   {u"OutputLeft", std::numeric_limits<int>::min()},
                                                   {u"GainInput", -20.5F},
                                                   {u"GainInput", kNan},
                                                   {u"GainOutput", kInfinity},
                                                   {u"GainOutput", -30},
                                                   {u"GainOutput", kNan}}) {
                const quillon::DeviceSetter setter = bench.window->deviceSetter(attribute);
                QVERIFY2(setter, qPrintable(attribute.toString()));
                setter(value);
            }
            for (const QStringView foreign : {QStringView(u"EQ"), QStringView(u""), QStringView(u"Gain")}) {
                QVERIFY(!bench.window->deviceSetter(foreign));
            }
            QVERIFY(bench.part<QPushButton>(u"buttonSwitch"_s)->isChecked());
            if (headphones) {
                QCOMPARE(bench.part<VSliderS1M2>(u"slider"_s)->value(), -20.0F);
                QCOMPARE(bench.part<VSliderS1M2>(u"slider_2"_s)->value(), -30.0F);
                QCOMPARE(bench.level(u"Combined"_s), -20.0);
                QCOMPARE(bench.part<VolumeMeterS1M5>(u"widgetMeter"_s)->valueControl().accessibleValue(), -10.0);
            } else {
                QCOMPARE(bench.part<VSliderS1M1>(u"slider"_s)->value(), -30);
                QCOMPARE(bench.level(u"Combined"_s), 0.0);
            }
            bench.window->setItemAttribute(u"1"_s, u"Gain"_s, u"6"_s);
            bench.window->setItemAttribute(u"33"_s, u"Gain"_s, u"6"_s);
            const double before = bench.level(u"Combined"_s);
            bench.window->setSwitch(true, false); // brings the curves up to date
            bench.settle();
            const QList<QPointF> points = bench.series(u"Combined"_s)->points();
            QVERIFY(std::ranges::any_of(points, [&](const QPointF& point) { return point.y() > before + 5; }));
            QVERIFY2(bench.said.isEmpty(), qPrintable(bench.said.join(u' ')));
        }
    }

    // A change of many curves costs one hand-over each and one paint; hidden ones cost nothing.
    void oneHandOverInAPass()
    {
        const OwnChart chart;
        chart.view->resize(300, 200);
        chart.face.setupAxes();
        chart.face.addSplineSeries({}, Qt::red, 1, Qt::SolidLine);
        for (const QString& name : {u"a"_s, u"b"_s, u"a"_s}) {
            chart.face.addSplineSeries(name, name == u"a"_s ? Qt::red : Qt::blue, 2, Qt::DashLine);
        }
        QCOMPARE(chart.view->chart()->series().size(), 2);
        auto* a = qobject_cast<QSplineSeries*>(chart.view->chart()->series()[0]);
        auto* b = qobject_cast<QSplineSeries*>(chart.view->chart()->series()[1]);
        QVERIFY(a->attachedAxes().size() == 2 && a->pen().style() == Qt::DashLine);
        QSignalSpy handed(a, &QXYSeries::pointsReplaced);
        const auto book = [&](int times) {
            for (int i = 1; i <= times; ++i) {
                chart.face.replaceSeries(u"a"_s, {{20, i / 10.0}, {1000, -i / 10.0}, {20000, 5}});
                chart.face.replaceSeries(u"b"_s, {{20, -i / 10.0}, {20000, 5}});
                chart.face.replaceSeries(u"c"_s, {{20, 1}});
            }
        };
        book(3);
        Bench::settle();
        QCOMPARE(handed.size(), 0); // not before it is seen
        chart.view->show();
        Bench::settle();
        QCOMPARE(handed.size(), 1);
        QCOMPARE(a->at(0).y(), 0.3);
        PaintCount paints;
        chart.view->viewport()->installEventFilter(&paints);
        book(50);
        QCOMPARE(handed.size(), 1);
        Bench::settle();
        QCOMPARE(handed.size(), 2);
        QCOMPARE(paints.count, 1);
        chart.face.setSeriesVisible(u"a"_s, false);
        Bench::settle();
        handed.clear();
        book(5);
        Bench::settle();
        QVERIFY(handed.isEmpty() && !a->isVisible() && a->count() == 0 && b->isVisible() && b->count() == 2);
        QCOMPARE(chart.view->chart()->series().size(), 2);
    }

    void withoutTheModule()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^makeChart // no module of the chart: .+"_s));
        QWidget parent;
        ChartFace* chart = quillon::makeChart(&parent, {u"/nowhere"_s, QDir::tempPath()});
        QCOMPARE(chart->widget().parentWidget(), &parent);
        chart->addSplineSeries(u"a"_s, Qt::red, 2, Qt::SolidLine);
        chart->replaceSeries(u"a"_s, {{100, 1}});
    }

    void pointsThatCannotBeDrawn()
    {
        const OwnChart chart;
        chart.view->resize(300, 200);
        chart.face.setupAxes();
        chart.face.addSplineSeries(u"a"_s, Qt::red, 2, Qt::SolidLine);
        chart.view->show();
        const auto* a = qobject_cast<QSplineSeries*>(chart.view->chart()->series()[0]);
        const std::pair<QList<QPointF>, qsizetype> rows[]{
            {{}, 0},
            {{{100, 1}}, 1},
            {{{kNan, 1}, {100, kNan}, {200, 2}, {300, kInfinity}, {0, 1}, {-5, 1}, {400, -kInfinity}}, 1},
            {{{100, kNan}, {200, kNan}}, 0},
            {{{100, 1e300}, {200, -1e300}, {300, 1}}, 3},
            {{{200, 1}, {200, 2}, {100, 3}}, 3},
        };
        for (const auto& [points, drawn] : rows) {
            chart.face.replaceSeries(u"a"_s, points);
            Bench::settle();
            QVERIFY(!chart.view->grab().isNull());
            QCOMPARE(a->count(), drawn);
        }
    }

    // From the window's switch to its faders; every stop has a name.
    void keyboard()
    {
        Bench bench(true, 1);
        bench.show();
        bench.part(u"buttonSwitch"_s)->setFocus();
        QStringList stops;
        for (int i = 0; i < 20; ++i) {
            QWidget* at = bench.window->focusWidget();
            QVERIFY2(!QAccessible::queryAccessibleInterface(at)->text(QAccessible::Name).isEmpty(), qPrintable(at->objectName()));
            const QString name = at->objectName().isEmpty() ? at->parentWidget()->objectName() : at->objectName();
            if (stops.contains(u"buttonSwitch"_s) && name == u"buttonSwitch"_s) {
                break;
            }
            stops += name;
            QTest::keyClick(at, Qt::Key_Tab);
        }
        stops.removeDuplicates();
        QCOMPARE(stops, QStringList({u"buttonSwitch"_s, u"buttonClose"_s, u"Target"_s, u"Source"_s, u"Each Filter"_s, u"Combined"_s,
                                     u"Filtered"_s, u"Compensated"_s, u"widgetToolButton"_s, u"pushButtonHead"_s, u"comboBoxType"_s,
                                     u"dialGain"_s, u"dialFreq"_s, u"dialQ"_s, u"checkBoxSwitch"_s, u"slider"_s, u"slider_2"_s}));
        QCOMPARE(bench.part(u"slider"_s)->focusProxy()->accessibleName(), u"Input gain"_s);
        QTest::keyClick(bench.window.get(), Qt::Key_Escape);
        QVERIFY(!bench.window->isVisible());
    }

    void textsFit()
    {
        for (const bool headphones : {true, false}) {
            Bench bench(headphones, 4);
            for (const double scale : {1.0, 1.5, 2.0}) {
                for (const QString& language : {u"Chinese"_s, u"English"_s}) {
                    bench.window->setScaleFactor(scale);
                    setLanguage(language);
                    bench.show();
                    QCOMPARE(bench.window->size(), QSize(int(562 * scale), int(465 * scale)));
                    for (const QString& name : {u"labelTitle"_s, u"label"_s, u"label_2"_s}) {
                        const auto* label = bench.part<QLabel>(name);
                        QVERIFY2(label->sizeHint().width() <= label->width(), qPrintable(name));
                    }
                    const QWidget* row = bench.part(u"widgetButtons"_s);
                    for (const auto* button : row->findChildren<QPushButton*>()) {
                        QVERIFY(button->fontMetrics().horizontalAdvance(button->text()) <= button->width());
                        QVERIFY(button->geometry().right() < row->width());
                    }
                }
            }
        }
    }

    // While a window is hidden it is neither laid out nor handed any curve.
    void hiddenCostsNothing()
    {
        Bench bench;
        bench.window->setStateCombined(true);
        bench.show();
        bench.window->hide();
        QSignalSpy handed(bench.series(u"Combined"_s), &QXYSeries::pointsReplaced);
        PaintCount paints;
        bench.part<QChartView>(u"widgetChart"_s)->viewport()->installEventFilter(&paints);
        const QRect before = bench.part(u"widgetChart"_s)->geometry();
        bench.window->setScaleFactor(1.5);
        bench.window->setGainInputLeft(-9);
        bench.window->setSwitch(true, false);
        setLanguage(u"English"_s);
        Bench::settle();
        QVERIFY(handed.isEmpty() && paints.count == 0 && bench.part(u"widgetChart"_s)->geometry() == before);
        bench.show();
        QCOMPARE(bench.level(u"Combined"_s), -9.0);
        QVERIFY(bench.part(u"widgetChart"_s)->width() > before.width());
    }

    // The strip keeps the views in its workspace, and the responses in files beside it.
    void workspace()
    {
        StoreFixture store;
        WorkspaceSubject& subject = StoreFixture::subject();
        const QString target = store.folder + u"/Output_HP_EQTargetFile.csv"_s;
        const QString source = store.folder + u"/Output_HP_EQSourceFile.csv"_s;
        double level = 0;
        {
            OutputS1M4 strip(u"Output_HP"_s);
            Bench bench;
            bench.show();
            strip.setEqualizer(bench.window.get());
            const auto leave = qScopeGuard([&] { subject.clearObservers(); });
            subject.addObserver(&strip);
            subject.createWorkspace(u"A"_s);
            subject.modifyWorkspace(u"A"_s, 0);
            QCOMPARE(bench.visible(), QStringList{u"Combined"_s});
            for (const auto& [key, value] : {std::pair{"EQStateTarget", 0},
                                             {"EQStateSource", 0},
                                             {"EQStateEachFilter", 0},
                                             {"EQStateCombined", 1},
                                             {"EQStateFiltered", 0},
                                             {"EQFilteredType", 0}}) {
                QCOMPARE(strip.loadValue(key).toInt(), value);
            }
            QVERIFY(QFileInfo(target).isFile() && QFileInfo(source).size() == 0);

            bench.click(u"Target"_s);
            bench.click(u"Filtered"_s);
            bench.chosen = bench.write(u"t.csv"_s, kResponse);
            bench.choose(u"actionTarget"_s);
            QCOMPARE(StoreFixture::content(target), kResponse);
            level = bench.level(u"Target"_s);
            QVERIFY(level != 0);
            // What cannot be copied leaves the copy; an import from the copy itself too.
            QTest::ignoreMessage(QtWarningMsg, "OutputS1M4::in_equalizer_attributeChanged //failed to copy curve file");
            emit bench.window->attributeChanged(u"EQ_HP"_s, u"TargetFile"_s, u"/nowhere"_s);
            bench.chosen = target;
            bench.choose(u"actionTarget"_s);
            QCOMPARE(StoreFixture::content(target), kResponse);
            subject.close();
        }
        OutputS1M4 strip(u"Output_HP"_s);
        Bench bench;
        bench.show();
        strip.setEqualizer(bench.window.get());
        const auto leave = qScopeGuard([&] { subject.clearObservers(); });
        subject.addObserver(&strip);
        subject.modifyWorkspace(u"A"_s, 1); // of a private copy the files stand beside the workspace all the same
        QCOMPARE(bench.visible(), QStringList({u"Combined"_s, u"Filtered"_s, u"Target"_s}));
        QCOMPARE(bench.level(u"Target"_s), level);
        QVERIFY(bench.part<QPushButton>(u"Filtered"_s)->isChecked() && bench.said.isEmpty());
        // Empty files stand for no import: the curves stay.
        StoreFixture::put(target, {});
        subject.modifyWorkspace(u"A"_s, 0);
        QCOMPARE(bench.level(u"Target"_s), level);
        StoreFixture::put(target, "nonsense\n");
        QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::importCurve //The current curve is invalid");
        subject.modifyWorkspace(u"A"_s, 0);
        QCOMPARE(bench.level(u"Target"_s), level);
    }
};

QTEST_MAIN(TestEqualizerWindows)
#include "tst_equalizerwindows.moc"
