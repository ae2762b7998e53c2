#include "equalizer/window/EqualizerPanelS1M1.h"

#include "app/GlobalFont.h"
#include "controls/picker/FlatToolButton.h"
#include "equalizer/editor/EqualizerControllerS1M1.h"
#include "equalizer/window/Charts.h"

#include <QFileDialog>
#include <QPointer>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using quillon::BandText;
using quillon::CurveView;

namespace
{

// Shares of the panel.
constexpr double kLeft = 0.0521;
constexpr double kRight = 0.0721;
constexpr double kHead = 0.0235;
constexpr double kButtons = 0.055;
constexpr double kChart = 0.61;
constexpr double kHeadWidth = 0.12;
constexpr double kAxisLetters = 0.6; // of the row of buttons
constexpr double kMenuLetters = 0.026;
constexpr int kLeastLetters = 12;
constexpr int kLeastHead = 10; // a lower one could not be hit

constexpr double kCurveWidth = 2;
constexpr double kHues = 12;
constexpr double kSampleRate = 48000;
constexpr auto kEnglish = "English"_L1;
constexpr auto kChinese = "Chinese"_L1;

constexpr BandText kChartName{"Frequency response", "频率响应"};
constexpr BandText kHeadName{"Curve buttons", "曲线按钮"};
constexpr BandText kMenuName{"Import and export", "导入与导出"};

QString nameOf(CurveView view)
{
    return QLatin1StringView(quillon::curveViewRows()[std::size_t(view)].name);
}

QString bandName(qint32 index)
{
    return QString::number(index + 1);
}

FilterBand toBand(const EqWidgetItemData& data)
{
    return {.name = bandName(data.index),
            .enabled = data.enabled,
            .type = data.type.toInt(),
            .frequency = double(data.frequency),
            .gain = double(data.gain),
            .q = double(data.q)};
}

/// The index becomes the band's number, where the columns count from 0: what is imported stands one number higher in the curves.
EqWidgetItemData toRecord(const FilterBand& band)
{
    return {.index = band.name.toInt(),
            .type = QString::number(int(band.type)),
            .gain = float(band.gain),
            .frequency = float(band.frequency),
            .q = float(band.q),
            .enabled = band.enabled};
}

QString askWithDialog(const EqualizerTool::FileQuestion& question)
{
    return question.saving ? QFileDialog::getSaveFileName(nullptr, question.title, {}, question.filter)
                           : QFileDialog::getOpenFileName(nullptr, question.title, {}, question.filter);
}

} // namespace

EqualizerPanelS1M1::EqualizerPanelS1M1(QWidget* parent)
    : QWidget(parent), mTool(std::make_shared<EqualizerTool>(20, 22000, 676, false)), mButtons(new quillon::CurveButtons(this)),
      mToolButton(new quillon::FlatToolButton(this)), mFrameHead(new QWidget(this)),
      mHead(new quillon::PictureButton(u":/Icon/pullUp.png"_s, u":/Icon/pullDown.png"_s, mFrameHead)),
      mChart(quillon::makeChart(this)), mController(new EqualizerControllerS1M1(this)), mMenu(new quillon::CurveMenu(this))
{
    mButtons->setObjectName(u"widgetButtons"_s);
    mToolButton->setObjectName(u"widgetToolButton"_s);
    mFrameHead->setObjectName(u"frameButtonHead"_s);
    mHead->setObjectName(u"pushButtonHead"_s);
    mChart->widget().setObjectName(u"widgetChart"_s);
    mController->setObjectName(u"widgetController"_s);
    mTool->setFileChooser(askWithDialog);
    mChart->setupAxes();
    join();
    setLanguage(kEnglish);
}

EqualizerPanelS1M1::~EqualizerPanelS1M1() = default;

/// Tab goes the way of the eye: the switches of the curves, the menu, the head, the bands.
void EqualizerPanelS1M1::join()
{
    mToolButton->setIcon(QIcon(u":/Icon/more.png"_s));
    mToolButton->setColors(Qt::white, QColor(22, 22, 22));
    mToolButton->setMenu(mMenu);
    mToolButton->setPopupMode(QToolButton::InstantPopup);
    connect(mMenu, &quillon::CurveMenu::chosen, this, &EqualizerPanelS1M1::run);
    connect(mMenu, &QMenu::aboutToShow, this,
            [this] { mMenu->setLetterPixels(std::max(kLeastLetters, int(height() * kMenuLetters))); });
    connect(mHead, &QPushButton::toggled, this, [this] {
        mButtons->setHidden(!mButtons->isHidden());
        layoutParts();
    });
    connect(mButtons, &quillon::CurveButtons::clicked, this, [this](CurveView view, bool on) {
        showView(view);
        emit attributeChanged(objectName(), QLatin1StringView(quillon::curveViewRows()[std::size_t(view)].attribute),
                              on ? u"1"_s : u"0"_s);
    });
    connect(mController, &EqualizerControllerS1M1::itemDataChanged, this,
            [this](const QString&, const EqWidgetItemData& record) { applyBands({record}); });
    connect(mController, &EqualizerControllerS1M1::attributeChanged, this, &EqualizerPanelS1M1::attributeChanged);
}

void EqualizerPanelS1M1::setObjectName(const QString& name)
{
    QWidget::setObjectName(name);
    mController->setObjectName(name);
}

void EqualizerPanelS1M1::setItemCount(qint32 count)
{
    mController->setItemCount(count);
    mCount = std::clamp<qint32>(count, 0, EqualizerControllerS1M1::kMaximumCount);
    for (const quillon::CurveViewRow& row : quillon::curveViewRows()) {
        const bool ofBands = row.line == Qt::DashLine;
        const qint32 curves = row.line == Qt::NoPen ? 0 : ofBands ? mCount : 1;
        for (qint32 i = 0; i < curves; ++i) {
            const QColor colour = ofBands ? QColor::fromHslF(float(std::fmod(i / kHues, 1.0)), 0.5F, 0.5F) : row.colour;
            mChart->addSplineSeries(ofBands ? bandName(i) : QString(QLatin1StringView(row.name)), colour, kCurveWidth, row.line);
        }
    }
    for (std::size_t i = 0; i < quillon::kCurveViews; ++i) {
        showView(CurveView(i));
    }
    refreshBands();
}

void EqualizerPanelS1M1::setItemAttribute(const QString& number, const QString& attribute, const QString& value)
{
    mController->setItemAttribute(number, attribute, value);
}

void EqualizerPanelS1M1::refreshBands()
{
    applyBands(mController->items());
}

void EqualizerPanelS1M1::applyBands(const QList<EqWidgetItemData>& bands)
{
    QList<FilterBand> list;
    for (const EqWidgetItemData& record : bands) {
        list.append(toBand(record));
    }
    mTool->updateBands(list, kSampleRate);
    for (const EqWidgetItemData& record : bands) {
        const QString name = bandName(record.index);
        mChart->replaceSeries(name, mTool->curve(name));
        mChart->setSeriesVisible(name, record.enabled && mButtons->isChecked(CurveView::EachFilter));
    }
    showSum();
}

void EqualizerPanelS1M1::setPreGain(double preGain)
{
    mTool->setPreGain(preGain);
    showSum();
}

void EqualizerPanelS1M1::showSum()
{
    mChart->replaceSeries(nameOf(CurveView::Combined), mTool->curve(nameOf(CurveView::Combined)));
    showForm(CurveView::Filtered);
}

/// A curve of which the tool has two forms, in the one that is chosen.
void EqualizerPanelS1M1::showForm(CurveView view)
{
    const bool compensated = mButtons->isChecked(CurveView::FilteredType);
    mChart->replaceSeries(nameOf(view), mTool->curve(nameOf(view) + (compensated ? "Compensated"_L1 : "Raw"_L1)));
}

void EqualizerPanelS1M1::setState(CurveView view, bool on)
{
    mButtons->setChecked(view, on);
    showView(view);
}

void EqualizerPanelS1M1::showView(CurveView view)
{
    const bool on = mButtons->isChecked(view);
    switch (view) {
    case CurveView::EachFilter:
        for (qint32 i = 0; i < mCount && !on; ++i) {
            mChart->setSeriesVisible(bandName(i), false); // also those that the columns have lost
        }
        for (const EqWidgetItemData& record : mController->items()) {
            mChart->setSeriesVisible(bandName(record.index), on && record.enabled);
        }
        break;
    case CurveView::FilteredType:
        for (const CurveView form : {CurveView::Filtered, CurveView::Target, CurveView::Source}) {
            showForm(form);
        }
        break;
    default:
        mChart->setSeriesVisible(nameOf(view), on);
    }
}

QString EqualizerPanelS1M1::importCurve(CurveView view, const QString& path)
{
    const QPointer<EqualizerPanelS1M1> alive(this);
    const std::shared_ptr tool = mTool;
    const QString imported = tool->importCurve(nameOf(view), path);
    if (!alive || imported.isEmpty()) {
        return {};
    }
    for (const CurveView form : {CurveView::Target, CurveView::Source, CurveView::Filtered}) {
        showForm(form);
    }
    return imported;
}

void EqualizerPanelS1M1::run(quillon::CurveMenu::Item item)
{
    using quillon::CurveMenu;
    const std::shared_ptr tool = mTool;
    switch (item) {
    case CurveMenu::ImportTarget:
        tellImport(CurveView::Target, u"TargetFile"_s);
        break;
    case CurveMenu::ImportSource:
        tellImport(CurveView::Source, u"SourceFile"_s);
        break;
    case CurveMenu::ImportFilters:
        importFilters();
        break;
    case CurveMenu::ExportFilters:
        tool->exportBandData();
        break;
    case CurveMenu::ExportFiltersCurve:
        tool->exportCurve(nameOf(CurveView::Combined));
        break;
    case CurveMenu::ItemCount:
        break;
    }
}

void EqualizerPanelS1M1::tellImport(CurveView view, const QString& attribute)
{
    if (const QString path = importCurve(view, {}); !path.isEmpty()) {
        emit attributeChanged(objectName(), attribute, path);
    }
}

/// Editor and curves take the set over; the device hears of a band when the user touches it.
void EqualizerPanelS1M1::importFilters()
{
    const QPointer<EqualizerPanelS1M1> alive(this);
    const std::shared_ptr tool = mTool;
    if (tool->importBandData().isEmpty() || !alive) {
        return;
    }
    QList<FilterBand> bands = tool->bands();
    std::ranges::stable_sort(bands, {}, [](const FilterBand& band) { return band.name.toInt(); });
    QList<EqWidgetItemData> records;
    for (const FilterBand& band : bands) {
        records.append(toRecord(band));
    }
    mController->setItems(records);
    refreshBands();
}

void EqualizerPanelS1M1::setLanguage(const QString& language)
{
    if (language != kEnglish && language != kChinese) {
        return;
    }
    const bool chinese = language == kChinese;
    mButtons->setChinese(chinese);
    mMenu->setChinese(chinese);
    mToolButton->setAccessibleName(kMenuName.in(chinese));
    mHead->setAccessibleName(kHeadName.in(chinese));
    mChart->widget().setAccessibleName(kChartName.in(chinese));
    mController->setLanguage(language);
    mTool->setLanguage(language);
}

void EqualizerPanelS1M1::setFont(const QFont& font)
{
    mLabelFont = font;
    QWidget::setFont(font);
    mButtons->setFace(font);
    mController->setFont(font);
    fitAxes();
}

void EqualizerPanelS1M1::setScaleFactor(double factor)
{
    mController->setScaleFactor(factor);
}

void EqualizerPanelS1M1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutParts();
}

void EqualizerPanelS1M1::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fitAxes();
}

/// The curves take the row of a collapsed head.
void EqualizerPanelS1M1::layoutParts()
{
    const int left = int(width() * kLeft);
    const int right = int(width() * kRight);
    const int middle = width() - left - right;
    const int head = std::max(kLeastHead, int(height() * kHead));
    const int buttons = int(height() * kButtons);
    const int chart = int(height() * kChart);
    const int headWidth = int(middle * kHeadWidth);
    mFrameHead->setGeometry(left, 0, middle, head);
    mHead->setGeometry((middle - headWidth) / 2, 0, headWidth, head);
    mButtons->setGeometry(left, head, middle, buttons);
    const int top = head + buttons;
    const int chartTop = mButtons->isHidden() ? head : top;
    mChart->widget().setGeometry(left, chartTop, middle, top + chart - chartTop);
    mController->setGeometry(left, top + chart, middle, std::max(0, height() - top - chart));
    const int side = std::min(right, top);
    mToolButton->setGeometry(width() - right + (right - side) / 2, (top + head - side) / 2, side, side);
    fitAxes();
}

void EqualizerPanelS1M1::fitAxes()
{
    if (!isVisible()) {
        return; // measured when it is shown
    }
    QFont font = mLabelFont;
    font.setPixelSize(GlobalFont::instance().pixelSizeForHeight(font, int(height() * kButtons * kAxisLetters)));
    mChart->setAxisFont(font);
}
