#include "equalizer/editor/EqualizerControllerS1M1.h"

#include "app/GlobalFont.h"
#include "equalizer/editor/BandLayout.h"
#include "equalizer/editor/BandTexts.h"
#include "equalizer/editor/EqWidgetIem.h"

#include <QFocusEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kColumnWidth = 54;      // at a scale of 1, as all that follows in pixels
constexpr double kGap = 0.005;        // between columns, of the width
constexpr double kLabels = 0.2;       // width of the labels, of the height
constexpr double kBarHeight = 11;     // with the room above it
constexpr double kLabelHeight = 0.09; // of the columns' height
constexpr double kMaximumScale = 16;
constexpr auto kBarSheet =
    "QScrollBar:horizontal { height: %1px; margin-top: %3px; background: #2B2B2B; border: none; border-radius: %2px; }"
    "QScrollBar::handle:horizontal { background: #43CF7C; border-radius: %2px; min-width: %1px; }"
    "QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

constexpr QLatin1StringView kLabelNames[]{"labelType"_L1, "labelGain"_L1, "labelFreq"_L1, "labelQ"_L1};

} // namespace

EqualizerControllerS1M1::EqualizerControllerS1M1(QWidget* parent)
    : QWidget(parent), mScrollArea(new QScrollArea(this)), mContent(new QWidget)
{
    for (const QLatin1StringView name : kLabelNames) {
        auto* label = new QLabel(this);
        label->setObjectName(QString(name));
        label->setAlignment(Qt::AlignCenter);
        QPalette colors = label->palette();
        colors.setColor(QPalette::WindowText, QColor(205, 205, 205));
        label->setPalette(colors);
        mLabels.append(label);
    }
    mScrollArea->setObjectName(u"scrollArea"_s);
    mScrollArea->setFrameShape(QFrame::NoFrame);
    mScrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    mScrollArea->setFocusPolicy(Qt::NoFocus);
    mScrollArea->setWidget(mContent);
    // The panel behind shows between the columns.
    mScrollArea->viewport()->setAutoFillBackground(false);
    mContent->setAutoFillBackground(false);
    mScrollArea->viewport()->installEventFilter(this);
    mScrollArea->horizontalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu);
    setLanguage(u"English"_s);
    setScaleFactor(1);
}

void EqualizerControllerS1M1::setItemCount(qint32 count)
{
    count = std::clamp<qint32>(count, 0, kMaximumCount);
    while (mItems.size() < count) {
        appendItem();
    }
    while (mItems.size() > count) {
        removeLastItem();
    }
    for (qsizetype i = 0; i < mItems.size(); ++i) {
        mItems[i]->setIndex(qint32(i));
    }
    layoutColumns();
    emit ItemCountChanged(count);
}

void EqualizerControllerS1M1::appendItem()
{
    auto* item = new EqWidgetIem(mContent);
    item->setObjectName(u"item%1"_s.arg(mItems.size() + 1));
    item->setIndex(qint32(mItems.size()));
    item->setLanguage(mLanguage);
    item->setFont(mLabelFont);
    item->setScaleFactor(mScaleFactor);
    connect(item, &EqWidgetIem::itemChanged, this,
            [this](qint32 index, const EqWidgetItemData& record) { emit itemDataChanged(QString::number(index + 1), record); });
    connect(item, &EqWidgetIem::itemChanged, this, &EqualizerControllerS1M1::report);
    joinTabOrder(item);
    mItems.append(item);
    item->show();
}

/// A column that comes late would be the last of the window with Tab.
void EqualizerControllerS1M1::joinTabOrder(EqWidgetIem* item)
{
    mContent->setFocusPolicy(Qt::TabFocus); // or nothing could be put behind it
    QWidget* before = mItems.isEmpty() ? mContent : mItems.last()->controls().last();
    for (QWidget* control : item->controls()) {
        control->installEventFilter(this); // for the focus
        setTabOrder(before, control);
        before = control;
    }
    mContent->setFocusPolicy(Qt::NoFocus);
}

void EqualizerControllerS1M1::removeLastItem()
{
    EqWidgetIem* item = mItems.takeLast();
    item->disconnect(this); // an open editor still reports when it loses the focus
    item->hide();
    item->deleteLater();
}

void EqualizerControllerS1M1::setItems(const QList<EqWidgetItemData>& list)
{
    setItemCount(qint32(std::min<qsizetype>(list.size(), kMaximumCount)));
    for (qsizetype i = 0; i < std::min(mItems.size(), list.size()); ++i) {
        mItems[i]->setItemData(list[i]);
    }
}

QList<EqWidgetItemData> EqualizerControllerS1M1::items() const
{
    QList<EqWidgetItemData> list;
    for (const EqWidgetIem* item : mItems) {
        list.append(item->itemData());
    }
    return list;
}

void EqualizerControllerS1M1::setItemAttribute(const QString& number, const QString& attribute, const QString& value)
{
    const int band = number.toInt();
    if (band >= 1 && band <= mItems.size()) {
        mItems[band - 1]->setAttribute(attribute, value);
    }
}

void EqualizerControllerS1M1::report(qint32 index, const EqWidgetItemData& record)
{
    const QString band = objectName() + u'@' + QString::number(index + 1);
    for (const quillon::BandAttribute& change : quillon::changedAttributes(record)) {
        emit attributeChanged(band, change.name, change.value);
    }
}

void EqualizerControllerS1M1::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1) {
        return;
    }
    mLanguage = language;
    for (qsizetype i = 0; i < mLabels.size(); ++i) {
        mLabels[i]->setText(quillon::kBandRows[i].in(language == "Chinese"_L1));
    }
    for (EqWidgetIem* item : mItems) {
        item->setLanguage(language);
    }
    fitLabels();
}

void EqualizerControllerS1M1::setFont(const QFont& font)
{
    mLabelFont = font;
    for (EqWidgetIem* item : mItems) {
        item->setFont(font);
    }
    fitLabels();
}

void EqualizerControllerS1M1::setScaleFactor(double factor)
{
    if (!(factor > 0 && factor <= kMaximumScale)) {
        return;
    }
    mScaleFactor = factor;
    const int height = barHeight();
    const int gap = height / 3;
    mScrollArea->horizontalScrollBar()->setStyleSheet(QString::fromLatin1(kBarSheet).arg(height).arg((height - gap) / 2).arg(gap));
    for (EqWidgetIem* item : mItems) {
        item->setScaleFactor(factor);
    }
    layoutRows();
}

int EqualizerControllerS1M1::barHeight() const
{
    return std::max(3, int(kBarHeight * mScaleFactor));
}

/// The labels stand level with the rows of the columns, which leave the room of the scroll bar free whether it shows or not.
void EqualizerControllerS1M1::layoutRows()
{
    const int labels = int(height() * kLabels);
    mScrollArea->setGeometry(labels, 0, std::max(0, width() - labels), height());
    layoutColumns();
    const quillon::BandLayout rows = quillon::layoutBand({0, mContent->height()});
    const QRect places[]{rows.type, rows.dials[0], rows.dials[1], rows.dials[2]};
    const int high = int(mContent->height() * kLabelHeight);
    for (qsizetype i = 0; i < mLabels.size(); ++i) {
        QRect place(0, 0, labels, high);
        place.moveTop(places[i].top() + (places[i].height() - high) / 2);
        mLabels[i]->setGeometry(place);
    }
    fitLabels();
}

void EqualizerControllerS1M1::layoutColumns()
{
    const int high = std::max(1, height() - barHeight());
    const int column = int(kColumnWidth * mScaleFactor);
    double at = 0;
    for (EqWidgetIem* item : mItems) {
        item->setGeometry(int(at), 0, column, high);
        at = int(at) + column + int(width() * kGap);
    }
    const int wide = mItems.isEmpty() ? 0 : mItems.last()->geometry().right() + 1;
    mContent->setFixedSize(wide, high);
}

/// All labels at the size at which the longest fits.
void EqualizerControllerS1M1::fitLabels()
{
    if (!isVisible()) {
        return; // fitted when it is shown
    }
    int size = quillon::FontMeasures::LargestSize;
    for (const QLabel* label : mLabels) {
        size =
            std::min(size, GlobalFont::instance().pixelSizeForRect(mLabelFont, label->text(), label->rect().adjusted(2, 0, -2, 0)));
    }
    QFont font = mLabelFont;
    font.setPixelSize(size);
    for (QLabel* label : mLabels) {
        label->setFont(font);
    }
}

void EqualizerControllerS1M1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutRows();
}

void EqualizerControllerS1M1::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fitLabels();
}

bool EqualizerControllerS1M1::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mScrollArea->viewport()) {
        return event->type() == QEvent::Wheel && scroll(*static_cast<QWheelEvent*>(event));
    }
    if (event->type() == QEvent::FocusIn) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::OtherFocusReason) {
            mScrollArea->ensureWidgetVisible(static_cast<QWidget*>(watched)->parentWidget(), int(width() * kGap), 0);
        }
    }
    return QWidget::eventFilter(watched, event);
}

/// The columns have one direction to go: an ordinary wheel moves them as well.
bool EqualizerControllerS1M1::scroll(const QWheelEvent& wheel)
{
    QScrollBar* bar = mScrollArea->horizontalScrollBar();
    const QPoint delta = wheel.angleDelta();
    if (delta.x() != 0 || delta.y() == 0 || bar->maximum() == 0) {
        return false;
    }
    bar->setValue(bar->value() - delta.y());
    return true;
}
