#include "controls/HSliderS1M1.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"
#include "controls/ValueEditor.h"
#include "controls/slider/Balance.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
const QColor kPanel(60, 60, 60);
const QColor kTrackColor(102, 102, 102);
const QColor kAccent(67, 207, 124);
constexpr float kEnd = 0.05F; // share of the range in which a click on the track goes to the end
} // namespace

HSliderS1M1::HSliderS1M1(QWidget* parent)
    : QWidget(parent), mFont(GlobalFont::instance().font()), mLineEdit(quillon::makeValueEditor(this, kAccent)), mWheelGuard(this)
{
    setFocusPolicy(Qt::StrongFocus);
    mLineEdit->setValidator(new QRegularExpressionValidator(QRegularExpression(u"^(C|[LR]([1-9][0-9]?)?)$"_s), mLineEdit));
    connect(mLineEdit, &QLineEdit::editingFinished, this, &HSliderS1M1::in_mLineEdit_editingFinished);
    refreshText();
    resize(38, 19);
}

HSliderS1M1::~HSliderS1M1()
{
    mLineEdit->disconnect(this); // an editor that goes down with the focus still reports what was typed
}

void HSliderS1M1::setValue(float value, bool notify)
{
    if (std::isnan(value))
        return;
    value = std::clamp(value, mMin, mMax);
    if (value == mValue)
        return;
    mValue = value;
    update();
    if (notify)
        emit valueChanged(mValue);
    refreshText();
    quillon::announceValue(this, *this);
}

void HSliderS1M1::setFont(const QFont& font)
{
    mFont = font;
    QFont fitted = mFont;
    fitted.setPointSize(GlobalFont::instance().pointSizeForHeight(mFont, int(mTextRect.height())));
    mLineEdit->setFont(fitted);
}

QString HSliderS1M1::accessibleKind() const
{
    return u"Balance"_s;
}

QString HSliderS1M1::accessibleText() const
{
    return quillon::balanceText(mValue, mMin, mMax);
}

void HSliderS1M1::setAccessibleValue(double value)
{
    setValue(float(std::round(value)), true);
}

void HSliderS1M1::refreshText()
{
    mLineEdit->setText(accessibleText());
}

void HSliderS1M1::resizeEvent(QResizeEvent*)
{
    const double gap = height() * 0.1;
    mTrack = QRectF(gap, gap, width() - 2 * gap, height() * 0.3);
    mHandleWidth = float(mTrack.width() * 0.08);
    const double textTop = gap + mTrack.height() + gap;
    mTextRect = QRectF(gap, textTop, width() - 2 * gap, height() - gap - textTop);
    mLineEdit->setGeometry(mTextRect.toRect());
    setFont(mFont);
}

void HSliderS1M1::showEvent(QShowEvent* event)
{
    mLineEdit->setAccessibleName(quillon::controlName(this) + u" value"_s);
    QWidget::showEvent(event);
}

double HSliderS1M1::xOf(float value) const
{
    return mTrack.left() + double(value - mMin) / double(mMax - mMin) * (mTrack.width() - double(mHandleWidth));
}

QRectF HSliderS1M1::handle() const
{
    return {xOf(mValue), mTrack.top(), double(mHandleWidth), mTrack.height()};
}

/// The whole number for which a place on the track stands, half away from zero.
float HSliderS1M1::valueAt(double x) const
{
    if (mTrack.width() <= 0)
        return mValue;
    const double along = std::clamp(x - mTrack.left(), 0.0, mTrack.width());
    return float(std::round(along / mTrack.width() * double(mMax - mMin) + double(mMin)));
}

void HSliderS1M1::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPanel);
    const double radius = height() * 0.1;
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(kTrackColor);
    painter.drawRoundedRect(mTrack, mTrack.height() * 0.3, mTrack.height() * 0.3);
    painter.fillRect(handle(), kAccent);
    if (!mFocusMark.isShown())
        return;
    painter.setPen(QPen(quillon::FocusMark::color(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

void HSliderS1M1::mousePressEvent(QMouseEvent* event)
{
    const QPointF at = event->position();
    if (event->button() != Qt::LeftButton || !mTrack.contains(at)) {
        event->ignore();
        return;
    }
    if (handle().contains(at)) {
        mDragging = true;
        mPressPos = at;
        // Counted from the place of the track that the value stands for, so that grasping the handle anywhere does not shift it
        // far.
        const double place = mTrack.left() + double(mValue - mMin) / double(mMax - mMin) * mTrack.width();
        mDragOffset = QPointF((place - at.x()) * mPixelRatio, 0);
        return;
    }
    const float range = mMax - mMin;
    float value = valueAt(at.x());
    if (value < mMin + range * kEnd)
        value = mMin;
    else if (value > mMax - range * kEnd)
        value = mMax;
    setValue(value, true);
}

void HSliderS1M1::mouseMoveEvent(QMouseEvent* event)
{
    if (!mDragging || event->position() == mPressPos) {
        event->setAccepted(mDragging);
        return;
    }
    setValue(valueAt(mDragOffset.x() + event->position().x()), true);
}

void HSliderS1M1::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    mDragging = false;
    mPressPos = {};
    mDragOffset = {};
}

void HSliderS1M1::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setValue(mDefault, true);
    else
        event->ignore();
}

/// Toward the user is to the right.
void HSliderS1M1::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    if (delta == 0 || !mWheelGuard.allows(event)) {
        event->ignore();
        return;
    }
    if (const int notches = mWheelSteps.take(delta))
        setValue(mValue + (notches < 1 ? 1.0F : -1.0F), true);
    event->accept();
}

void HSliderS1M1::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        setValue(mValue - 1, true);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        setValue(mValue + 1, true);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void HSliderS1M1::focusInEvent(QFocusEvent* event)
{
    mFocusMark.focusIn(event);
    QWidget::focusInEvent(event);
}

void HSliderS1M1::focusOutEvent(QFocusEvent* event)
{
    mFocusMark.focusOut(event);
    QWidget::focusOutEvent(event);
}

bool HSliderS1M1::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mLineEdit && event->type() == QEvent::FocusOut && !mLineEdit->hasAcceptableInput()) {
        refreshText();
    } else if (watched == mLineEdit && event->type() == QEvent::KeyPress &&
               static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        refreshText();
        setFocus(Qt::OtherFocusReason);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void HSliderS1M1::in_mLineEdit_editingFinished()
{
    setValue(quillon::balanceFromText(mLineEdit->text(), mMin, mMax), true);
    refreshText();
    if (mLineEdit->hasFocus())
        setFocus(Qt::OtherFocusReason); // from the editor back to the slider, so that the arrow keys go on
}
