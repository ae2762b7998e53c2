#include "equalizer/window/CurveButtons.h"

#include "app/GlobalFont.h"

#include <QFontMetrics>
#include <QPainter>
#include <QScopedValueRollback>
#include <algorithm>
#include <numeric>

namespace quillon
{

namespace
{

constexpr double kTextShare = 0.6; // of the row's height
constexpr int kMargin = 3;         // at each side of a word
constexpr double kDimmed = 0.4;

} // namespace

const std::array<CurveViewRow, kCurveViews>& curveViewRows()
{
    static constexpr BandText kTarget{"Target", "目标"};
    static constexpr BandText kSource{"Source FR", "源频响"};
    static constexpr BandText kEach{"Each", "每个滤波"};
    static constexpr BandText kCombined{"Combined", "合并滤波"};
    static constexpr BandText kFiltered{"Filtered FR", "滤波后频响"};
    static constexpr std::array<CurveViewRow, kCurveViews> kRows{{
        {"Target", "StateTarget", kTarget, kTarget, {255, 255, 255}, Qt::SolidLine},
        {"Source", "StateSource", kSource, kSource, {255, 70, 70}, Qt::SolidLine},
        {"Each Filter", "StateEachFilter", kEach, kEach, {67, 192, 0}, Qt::DashLine},
        {"Combined", "StateCombined", kCombined, kCombined, {255, 98, 0}, Qt::SolidLine},
        {"Filtered", "StateFiltered", kFiltered, kFiltered, {89, 201, 195}, Qt::SolidLine},
        {"Compensated", "FilteredType", {"Raw", "原始"}, {"Compensated", "补偿"}, {255, 255, 255}, Qt::NoPen},
    }};
    return kRows;
}

CurveButton::CurveButton(const CurveViewRow& row, QWidget* parent) : FlatButton(parent), mRow(row)
{
    setObjectName(QLatin1StringView(row.name));
    connect(this, &QPushButton::toggled, this, &CurveButton::showText);
    showText();
}

void CurveButton::setChinese(bool chinese)
{
    mChinese = chinese;
    showText();
}

void CurveButton::showText()
{
    setText((isChecked() ? mRow.checkedText : mRow.text).in(mChinese));
}

QString CurveButton::longestText() const
{
    return GlobalFont::instance().longerText(mRow.text.in(mChinese), mRow.checkedText.in(mChinese));
}

void CurveButton::paintFace(QPainter& painter)
{
    const double stroke = std::max(1.5, height() * 0.09);
    const QRectF room = QRectF(rect()).adjusted(0, 0, 0, -2 * stroke);
    const bool hasCurve = mRow.line != Qt::NoPen;
    QColor colour = mRow.colour;
    colour.setAlphaF(hasCurve && !isChecked() ? float(kDimmed) : 1.0F);
    painter.setPen(colour);
    painter.setFont(font());
    painter.drawText(room, Qt::AlignCenter, text());
    if (hasCurve && isChecked()) {
        const double half = std::min<double>(width(), fontMetrics().horizontalAdvance(text())) / 2;
        const double middle = width() / 2.0;
        const double y = height() - 2 * stroke;
        painter.setPen(QPen(colour, stroke, mRow.line, Qt::FlatCap));
        painter.drawLine(QPointF(middle - half, y), QPointF(middle + half, y));
    }
}

CurveButtons::CurveButtons(QWidget* parent) : QWidget(parent)
{
    for (std::size_t i = 0; i < kCurveViews; ++i) {
        mButtons[i] = new CurveButton(curveViewRows()[i], this);
        // Not its click: assistive technology toggles a button without one.
        connect(mButtons[i], &QPushButton::toggled, this, [this, i](bool on) {
            if (!mSilent) {
                emit clicked(CurveView(i), on);
            }
        });
    }
}

void CurveButtons::setChecked(CurveView view, bool on)
{
    const QScopedValueRollback silent(mSilent, true);
    button(view)->setChecked(on);
}

void CurveButtons::setChinese(bool chinese)
{
    for (CurveButton* button : mButtons) {
        button->setChinese(chinese);
    }
    layoutButtons();
}

void CurveButtons::setFace(const QFont& face)
{
    mFace = face;
    layoutButtons();
}

void CurveButtons::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutButtons();
}

void CurveButtons::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    layoutButtons();
}

/// Words of one size; each button has the room that its word needs, and all of them an equal part of the rest.
void CurveButtons::layoutButtons()
{
    if (!isVisible()) {
        return; // measured when it is shown
    }
    std::array<int, kCurveViews> widths{};
    int total = 0;
    QFont font = mFace;
    const auto measure = [&](int pixels) {
        font.setPixelSize(pixels);
        const QFontMetrics metrics(font);
        std::ranges::transform(mButtons, widths.begin(), [&](const CurveButton* button) {
            return metrics.horizontalAdvance(button->longestText()) + 2 * kMargin;
        });
        total = std::accumulate(widths.begin(), widths.end(), 0);
        return total <= width();
    };
    int pixels = GlobalFont::instance().pixelSizeForHeight(mFace, int(height() * kTextShare));
    while (!measure(pixels) && pixels > 1) {
        --pixels;
    }
    const int spare = std::max(0, width() - total) / int(kCurveViews);
    int x = 0;
    for (std::size_t i = 0; i < kCurveViews; ++i) {
        mButtons[i]->setFont(font);
        mButtons[i]->setGeometry(x, 0, widths[i] + spare, height());
        x += widths[i] + spare;
    }
}

} // namespace quillon
