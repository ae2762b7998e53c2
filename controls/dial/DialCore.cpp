#include "controls/dial/DialCore.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon
{

DialCore::DialCore(QWidget* host, DialLaw& law, const DialLook& look, std::function<void(float)> changed)
    : mHost(host), mLaw(law), mLook(look), mChanged(std::move(changed)), mFont(GlobalFont::instance().font()),
      mFitText(QString::fromUtf16(look.sample)), mWheelGuard(host)
{
    mHost->setFocusPolicy(Qt::StrongFocus);
    relayout();
}

bool DialCore::handle(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint:
        paint();
        return true;
    case QEvent::Resize:
        relayout();
        return false;
    case QEvent::FocusIn:
        if (mFocusMark.focusIn(static_cast<QFocusEvent*>(event)))
            mHost->update();
        return false;
    case QEvent::FocusOut:
        if (mFocusMark.focusOut(static_cast<QFocusEvent*>(event)))
            mHost->update();
        return false;
    case QEvent::Hide:
        mDragging = false; // the release goes elsewhere
        return false;
    default:
        if (!mHost->isEnabled() || !input(event))
            return false;
        event->accept();
        return true;
    }
}

bool DialCore::input(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonDblClick:
        return doubleClick(static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
        return wheel(static_cast<QWheelEvent*>(event));
    case QEvent::KeyPress:
        return key(static_cast<QKeyEvent*>(event)->key());
    default:
        return false;
    }
}

bool DialCore::press(const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !mLayout.dial.contains(event->position().toPoint()))
        return false;
    mDragging = true;
    mDragStartY = event->position().y();
    mLaw.beginDrag();
    return true;
}

bool DialCore::move(const QMouseEvent* event)
{
    mDragging = mDragging && (event->buttons() & Qt::LeftButton);
    if (!mDragging)
        return false;
    moved(mLaw.drag(mDragStartY - event->position().y()));
    return true;
}

bool DialCore::release(const QMouseEvent* event)
{
    return event->button() == Qt::LeftButton && std::exchange(mDragging, false);
}

bool DialCore::doubleClick(const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !mLayout.dial.contains(event->position().toPoint()))
        return false;
    moved(mLaw.reset());
    return true;
}

/// At an end of the range too the turn is the dial's: otherwise the page would begin to scroll there.
bool DialCore::wheel(const QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    if (delta == 0 || !mWheelGuard.allows(event))
        return false;
    if (const int notches = mWheelSteps.take(delta))
        moved(mLaw.stepWheel(notches));
    return true;
}

bool DialCore::key(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Left:
        if (mLaw.everyKeyPaints())
            mHost->update();
        moved(mLaw.stepKey(key == Qt::Key_Up || key == Qt::Key_Right ? 1 : -1));
        return true;
    default:
        return false;
    }
}

void DialCore::moved(bool changed)
{
    if (changed)
        notify();
}

void DialCore::notify()
{
    mChanged(mLaw.value()); // first: the way to the device is the one that somebody waits for
    refresh();
}

void DialCore::refresh()
{
    mHost->update();
    announceValue(mHost, *this);
}

void DialCore::setFont(const QFont& font)
{
    mFont = font;
    relayout();
}

void DialCore::setFitText(const QString& text)
{
    mFitText = text;
    relayout();
}

void DialCore::setCentreArc(bool on)
{
    set(mCentreArc, on);
}

void DialCore::setArcVisible(bool visible)
{
    set(mArcVisible, visible);
}

void DialCore::setTextVisible(bool visible)
{
    set(mTextVisible, visible);
}

void DialCore::setTextCovered(bool covered)
{
    set(mTextCovered, covered);
}

void DialCore::set(bool& flag, bool value)
{
    if (std::exchange(flag, value) != value)
        mHost->update();
}

void DialCore::relayout()
{
    mLayout = mLook.layout(mHost->size());
    mTextFont = mFont;
    mTextFont.setPointSize(std::max(1, mLook.pointSize(GlobalFont::instance().pointSizeForRect(mFont, mFitText, mLayout.text))));
    mHost->update();
}

void DialCore::paint()
{
    DialFrame frame;
    frame.angle = std::clamp(mLaw.angle(), 0.0, kDialSweep);
    if (mTextVisible && !mTextCovered)
        frame.text = mLaw.text();
    frame.font = mTextFont;
    frame.centreArc = mCentreArc;
    frame.arcVisible = mArcVisible;
    frame.enabled = mHost->isEnabled();
    frame.focused = mFocusMark.isShown();
    QPainter painter(mHost);
    paintDial(painter, mLook, mLayout, frame, mPictures);
}

QString DialCore::accessibleKind() const
{
    return u"Dial"_s;
}

void DialCore::setAccessibleValue(double value)
{
    moved(mLaw.assign(value));
}

} // namespace quillon
