#include "controls/BatteryS1M1.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr QSizeF kBaseSize(90, 50);
constexpr double kInset = 0.15;    // of the height of what is inset
constexpr double kTerminal = 0.30; // width in heights of the body; half of it stands out
} // namespace

BatteryS1M1::BatteryS1M1(QWidget* parent) : QWidget(parent), mFont(font())
{
    quillon::installControlAccessibility();
    setDrawStrategy(new ContinuousDrawStrategy);
}

BatteryS1M1::~BatteryS1M1() = default;

void BatteryS1M1::setLevel(int level)
{
    if (level == mLevel)
        return;
    mLevel = level;
    quillon::announceValue(this, *this);
    update();
}

void BatteryS1M1::setCharging(bool charging)
{
    if (charging == mCharging)
        return;
    mCharging = charging;
    animate();
    quillon::announceValue(this, *this);
    update();
}

void BatteryS1M1::setDrawStrategy(BatteryDrawStrategy* strategy)
{
    if (!strategy || strategy == mStrategy.get())
        return;
    strategy->setParent(nullptr); // one owner
    mStrategy.reset(strategy);
    mStrategy->setUpdateCallback([this] { update(mFill.toAlignedRect()); });
    animate();
    update();
}

void BatteryS1M1::setShowText(bool show)
{
    mShowText = show;
    update();
}

void BatteryS1M1::setShowPercent(bool show)
{
    mShowPercent = show;
    update();
}

void BatteryS1M1::setFont(const QFont& font)
{
    mFont = font;
    resizeEvent(nullptr);
    update();
}

QString BatteryS1M1::accessibleText() const
{
    const QString percent = QString::number(mLevel) + u'%';
    return mCharging ? percent + u", charging"_s : percent;
}

/// The animation runs only where it can be seen.
void BatteryS1M1::animate()
{
    if (mCharging && isVisible())
        mStrategy->startAnimation();
    else
        mStrategy->stopAnimation();
}

void BatteryS1M1::showEvent(QShowEvent* event)
{
    animate();
    QWidget::showEvent(event);
}

void BatteryS1M1::hideEvent(QHideEvent* event)
{
    animate();
    QWidget::hideEvent(event);
}

void BatteryS1M1::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        update();
    QWidget::changeEvent(event);
}

void BatteryS1M1::resizeEvent(QResizeEvent*)
{
    const QSizeF whole = kBaseSize.scaled(size(), Qt::KeepAspectRatio);
    const double h = whole.height();
    mBodyRect = QRectF((width() - whole.width()) / 2, (height() - h) / 2, whole.width() - h * kTerminal / 2, h);
    const auto inset = [](const QRectF& rect) {
        const double by = rect.height() * kInset;
        return rect.adjusted(by, by, -by, -by);
    };
    mInner = inset(mBodyRect);
    mFill = inset(mInner);
    mTerminal = QRectF(mInner.right(), mBodyRect.center().y() - h / 6, h * kTerminal, h / 3);
    mFitted = mFont;
    mFitted.setPixelSize(GlobalFont::instance().pixelSizeForRect(mFont, u"100"_s, mInner.toRect()));
}

QColor BatteryS1M1::frameColour() const
{
    if (!isEnabled())
        return mColours.disabled;
    if (!mCharging && mLevel <= mCriticalLevel)
        return mColours.critical;
    if (!mCharging && mLevel <= mLowLevel)
        return mColours.low;
    return mColours.normal;
}

void BatteryS1M1::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double bodyRadius = mBodyRect.height() * 0.25;
    const double innerRadius = mInner.height() * 0.15;
    QPainterPath frame;
    frame.addRoundedRect(mBodyRect, bodyRadius, bodyRadius);
    frame.addRoundedRect(mInner, innerRadius, innerRadius); // odd-even: a hole
    const double terminalRadius = mTerminal.height() * 0.3;
    painter.setBrush(frameColour());
    painter.drawRoundedRect(mTerminal, terminalRadius, terminalRadius);
    painter.setBrush(mColours.background);
    painter.drawRoundedRect(mInner, innerRadius, innerRadius);
    painter.fillPath(frame, frameColour());

    mStrategy->drawBattery(painter, mFill, mLevel, mLowLevel, mCharging, mColours);
    if (mShowMark && mCharging)
        mStrategy->drawChargingMark(painter, mFill, mColours.mark);
    if (mShowText || mShowPercent)
        mStrategy->drawText(painter, mInner, mLevel, mFitted, mColours.text);
}
