#include "console/settings/ToggleSwitch.h"

#include "app/GlobalFont.h"
#include "controls/group/PlatePaint.h"

#include <QPainter>

namespace quillon
{

namespace
{

constexpr BoxText kWords[]{{u"OFF", u"关"}, {u"ON", u"开"}};
constexpr double kWordHeight = 0.66; // shares of the switch's height
constexpr double kKnob = 0.68;
constexpr double kEndInset = 0.2;

} // namespace

ToggleSwitch::ToggleSwitch(QWidget* parent) : FocusMarked(parent), mFace(font())
{
    setAttribute(Qt::WA_Hover);
    setMinimumSize(1, 1);
    setFocusPolicy(Qt::StrongFocus);
}

void ToggleSwitch::setChinese(bool chinese)
{
    mChinese = chinese;
    refit();
    update();
}

void ToggleSwitch::setFace(const QFont& face)
{
    mFace = face;
    refit();
}

QRectF ToggleSwitch::wordPlace(bool on) const
{
    const QRectF box(rect());
    const double knob = box.height();
    const double end = box.height() * kEndInset;
    return on ? box.adjusted(end, 0, -knob, 0) : box.adjusted(knob, 0, -end, 0);
}

void ToggleSwitch::refit()
{
    if (height() < 2)
        return;
    const QRect room(QPoint(), QSizeF(wordPlace(true).width(), height() * kWordHeight).toSize());
    const GlobalFont& fonts = GlobalFont::instance();
    QFont fitted = mFace;
    int pixels = FontMeasures::LargestSize;
    for (const BoxText& word : kWords)
        pixels = std::min(pixels, fonts.pixelSizeForRect(fitted, word.in(mChinese), room));
    fitted.setPixelSize(pixels);
    setFont(fitted);
}

void ToggleSwitch::resizeEvent(QResizeEvent* event)
{
    refit();
    FocusMarked::resizeEvent(event);
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool on = isChecked();
    const PlateColors colors = plateColors(PlateStyle::Shaded, PlateTone::Green, on);
    const QRectF track = QRectF(rect()).adjusted(1, 1, -1, -1);
    const double radius = track.height() / 2;
    QLinearGradient fill(track.topLeft(), track.bottomLeft());
    fill.setColorAt(0, on ? colors.top : QColor(30, 30, 30));
    fill.setColorAt(1, on ? colors.bottom : QColor(38, 38, 38));
    painter.setBrush(fill);
    painter.setPen(underMouse() ? colors.edge.lighter(140) : colors.edge);
    painter.drawRoundedRect(track, radius, radius);

    const double knob = height() * kKnob;
    const double inset = (height() - knob) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(on ? QColor(235, 235, 235) : QColor(140, 140, 140));
    painter.drawEllipse(QRectF(on ? width() - inset - knob : inset, inset, knob, knob));

    painter.setFont(font());
    painter.setPen(colors.caption);
    painter.drawText(wordPlace(on), Qt::AlignCenter, kWords[on ? 1 : 0].in(mChinese));
    if (mFocus.isShown()) {
        // Dark within light: seen on a lit switch of the same green as well.
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(16, 16, 16), 3));
        painter.drawRoundedRect(track.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
        painter.setPen(QPen(FocusMark::color(), 1.5));
        painter.drawRoundedRect(track, radius, radius);
    }
}

} // namespace quillon
