#include "controls/CircleS1M1.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"

#include <QEvent>
#include <QPainter>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

struct Look {
    QColor background;
    QColor ring;
};

// By mode. The grey of the ready ring stands out from its disc without asking for attention.
const Look& lookOf(quint32 mode)
{
    static const std::array<Look, 4> looks = {{
        {QColor(42, 42, 42), QColor(84, 84, 84)},
        {QColor(0x24, 0x36, 0x2b), QColor(67, 207, 124)},
        {QColor(0x24, 0x36, 0x2b), QColor(67, 207, 124)},
        {QColor(0x3c, 0x26, 0x22), QColor(255, 87, 51)},
    }};
    return looks[mode];
}

const QColor kTrack(31, 31, 31); // the part of the ring that has run out

QFont sized(QFont font, int pixels)
{
    font.setPixelSize(pixels);
    return font;
}

} // namespace

CircleS1M1::CircleS1M1(QWidget* parent) : QWidget(parent)
{
    quillon::installControlAccessibility();
    setFocusPolicy(Qt::NoFocus);
}

void CircleS1M1::setMode(quint32 mode)
{
    if (mode == mMode || mode > Failed)
        return;
    mMode = mode;
    refit();
    quillon::announceValue(this, *this);
    update();
}

void CircleS1M1::setValue(float value)
{
    if (value == mValue || !std::isfinite(value))
        return;
    mValue = value;
    if (mMode != Counting)
        return; // not on show: the next change of mode brings it
    refit();
    quillon::announceValue(this, *this);
    update();
}

QString CircleS1M1::accessibleText() const
{
    switch (mMode) {
    case Counting:
        return QString::number(double(mValue)) + u" Second"_s;
    case Done:
        return u"Done"_s;
    case Failed:
        return u"Error"_s;
    default:
        return u"Ready"_s;
    }
}

void CircleS1M1::refit()
{
    const int side = std::min(width(), height());
    mFit = Fit{};
    if (side < 4)
        return;
    const double ring = side * 0.06;
    const QPointF centre(width() / 2.0, height() / 2.0);
    const double radius = (side - ring) / 2.0 - 0.5; // the ring's middle: half of it lies outside, all of it in the widget
    mFit.disc = QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);

    const auto box = [&](double w, double h, double top) {
        return QRectF(centre.x() - side * w / 2, centre.y() - side / 2.0 + side * top, side * w, side * h).toAlignedRect();
    };
    const GlobalFont& fonts = GlobalFont::instance();
    if (mMode == Counting) {
        mFit.text = box(0.62, 0.42, 0.20);
        mFit.caption = box(0.62, 0.18, 0.62);
        // Fitted to the width of the longest number, so that the size does not jump from 10 to 9.
        const QString number = QString::number(double(mValue));
        const auto digits = std::max(number.size(), QString::number(double(mMaximum)).size());
        mFit.textPixels = fonts.pixelSizeForRect(font(), QString(digits, u'8'), mFit.text);
        mFit.captionPixels = fonts.pixelSizeForRect(font(), u"Second"_s, mFit.caption);
    } else if (mMode == Failed) {
        mFit.text = box(0.64, 0.40, 0.30);
        mFit.textPixels = fonts.pixelSizeForRect(font(), u"Error"_s, mFit.text);
    }
}

void CircleS1M1::resizeEvent(QResizeEvent*)
{
    mTick = QPixmap();
    refit();
}

void CircleS1M1::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        refit();
    QWidget::changeEvent(event);
}

void CircleS1M1::paintTick(QPainter& painter, const QRectF& disc)
{
    const double side = disc.width() * 0.5;
    const QSize pixels = (QSizeF(side, side) * devicePixelRatioF()).toSize();
    if (mTick.isNull() || std::max(mTick.width(), mTick.height()) != pixels.width()) {
        const QPixmap source(u":/Icon/tick.png"_s);
        if (source.isNull())
            return;
        mTick = source.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        mTick.setDevicePixelRatio(devicePixelRatioF());
    }
    const QSizeF size = mTick.deviceIndependentSize();
    painter.drawPixmap(disc.center() - QPointF(size.width(), size.height()) / 2, mTick);
}

void CircleS1M1::paintEvent(QPaintEvent*)
{
    if (mFit.disc.isEmpty())
        return;
    const Look& look = lookOf(mMode);
    const double ring = std::min(width(), height()) * 0.06;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(mMode == Counting ? kTrack : look.ring, ring));
    painter.setBrush(look.background);
    painter.drawEllipse(mFit.disc);

    painter.setPen(Qt::white);
    if (mMode == Counting) {
        const double turn = std::clamp(double(mValue) / double(mMaximum), 0.0, 1.0);
        if (turn > 0) {
            painter.setPen(QPen(look.ring, ring, Qt::SolidLine, Qt::RoundCap));
            painter.drawArc(mFit.disc, 90 * 16, -qRound(turn * 360 * 16)); // clockwise from the top
            painter.setPen(Qt::white);
        }
        painter.setFont(sized(font(), mFit.textPixels));
        painter.drawText(mFit.text, Qt::AlignCenter, QString::number(double(mValue)));
        painter.setFont(sized(font(), mFit.captionPixels));
        painter.drawText(mFit.caption, Qt::AlignCenter, u"Second"_s);
    } else if (mMode == Done) {
        paintTick(painter, mFit.disc);
    } else if (mMode == Failed) {
        painter.setFont(sized(font(), mFit.textPixels));
        painter.drawText(mFit.text, Qt::AlignCenter, u"Error"_s);
    }
}
