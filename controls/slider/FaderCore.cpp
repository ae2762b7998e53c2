#include "controls/slider/FaderCore.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"
#include "controls/ValueEditor.h"

#include <QCoreApplication>
#include <QHash>
#include <QKeyEvent>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

const QColor kText(161, 161, 161);
const QString kSample = u"+9.0"_s;

FaderLayout layoutVertical(QSize size, const FaderRatio& ratio, const QFont&)
{
    const int text = size.height() * ratio.text / 100;
    const int top = text + size.height() * ratio.space / 100;
    const int height = std::min(size.height() * ratio.slider / 100, size.height() - top);
    const int width = std::min(size.width(), std::max(10, size.height() * 12 / 100));
    return {QRect(0, 0, size.width(), text), QRect((size.width() - width) / 2, top, width, std::max(0, height))};
}

/// The shares go along the width; the read-out has at least the room that it needs at the height of the row.
FaderLayout layoutHorizontal(QSize size, const FaderRatio& ratio, const QFont& font)
{
    constexpr int kMargins = 6; // of the editor
    const int needed = GlobalFont::instance().textWidthForHeight(font, kSample, size.height()) + kMargins;
    const int text = std::max(size.width() * ratio.text / 100, std::min(needed, size.width() / 3));
    const int slider = std::max(0, size.width() - text - size.width() * ratio.space / 100);
    return {QRect(size.width() - text, 0, text, size.height()), QRect(0, 0, slider, size.height())};
}

/// One for all faders with that pattern: to compile one with every number of a range costs half a millisecond.
const QValidator* validatorFor(const QString& pattern)
{
    static QHash<QString, QPointer<QValidator>> validators;
    QPointer<QValidator>& validator = validators[pattern];
    if (!validator)
        validator = new QRegularExpressionValidator(QRegularExpression(pattern), QCoreApplication::instance());
    return validator;
}

} // namespace

const FaderShape kVerticalFader{Qt::Vertical, layoutVertical};
const FaderShape kHorizontalFader{Qt::Horizontal, layoutHorizontal};

FaderCore::FaderCore(QWidget* host, FaderLaw& law, const FaderShape& shape, std::function<void(float)> changed)
    : mHost(host), mLaw(law), mShape(shape), mChanged(std::move(changed)), mSlider(new Fader(shape.orientation, *this, host)),
      mLineEdit(makeValueEditor(host, kText)), mFont(GlobalFont::instance().font()), mValue(law.start), mWheelGuard(mSlider)
{
    host->setFocusProxy(mSlider);
    for (QObject* watched : {static_cast<QObject*>(host), static_cast<QObject*>(mSlider), static_cast<QObject*>(mLineEdit)})
        watched->installEventFilter(this);
    applyBounds();
    connect(mSlider, &QSlider::valueChanged, this, &FaderCore::in_mSlider_valueChanged);
    connect(mSlider, &QSlider::actionTriggered, this, &FaderCore::in_mSlider_actionTriggered);
    connect(mLineEdit, &QLineEdit::textChanged, this, &FaderCore::in_mLineEdit_textChanged);
    connect(mLineEdit, &QLineEdit::editingFinished, this, &FaderCore::in_mLineEdit_editingFinished);
}

/// The children speak to the core, so they go before it; and one that goes with the focus still reports that.
FaderCore::~FaderCore()
{
    for (QWidget* child : {static_cast<QWidget*>(mLineEdit), static_cast<QWidget*>(mSlider)}) {
        child->disconnect(this);
        child->removeEventFilter(this);
        delete child;
    }
}

void FaderCore::setValue(float value)
{
    if (std::isnan(value))
        return;
    const QScopedValueRollback silent(mSignalEnabled, false);
    moveTo(mLaw.settled(value));
}

void FaderCore::setRatio(const FaderRatio& ratio)
{
    mRatio = ratio;
    relayout();
}

void FaderCore::setFont(const QFont& font)
{
    mFont = font;
    relayout();
}

void FaderCore::applyBounds()
{
    mLineEdit->setValidator(validatorFor(mLaw.pattern()));
    {
        const QSignalBlocker quiet(mSlider); // what a position stands for changes under way
        mSlider->setRange(mLaw.lowest(), mLaw.highest());
        mSlider->setValue(mLaw.settled(mValue));
    }
    mValue = mLaw.valueAt(mSlider->value());
    showText();
}

void FaderCore::showText()
{
    mLineEdit->setText(mLaw.text(mValue));
}

ValueControl::Range FaderCore::accessibleRange() const
{
    return {mLaw.valueAt(mLaw.lowest()), mLaw.valueAt(mLaw.highest()), double(mLaw.valueAt(1) - mLaw.valueAt(0))};
}

void FaderCore::setAccessibleValue(double value)
{
    if (!std::isnan(value))
        moveTo(mLaw.settled(float(value)));
}

/// To a position, or, where the fader stands there already, to its text and value.
void FaderCore::moveTo(int position)
{
    if (position == mSlider->value())
        in_mSlider_valueChanged(position);
    else
        mSlider->setValue(position);
}

/// A position off the ladder is dropped: the cap goes back until the hand has reached the next one.
void FaderCore::in_mSlider_valueChanged(int position)
{
    const float value = mLaw.valueAt(position);
    if (!mLaw.isOn(value)) {
        mSlider->setValue(mLaw.settled(mValue));
        return;
    }
    const bool isNew = std::exchange(mValue, value) != value;
    showText();
    if (!isNew)
        return;
    announceValue(mSlider, *this);
    if (mSignalEnabled)
        mChanged(value);
}

/// A page step from the groove comes to rest on the ladder as well.
void FaderCore::in_mSlider_actionTriggered(int action)
{
    if (action == QAbstractSlider::SliderPageStepAdd || action == QAbstractSlider::SliderPageStepSub)
        mSlider->setSliderPosition(mLaw.settled(mLaw.valueAt(mSlider->sliderPosition())));
}

void FaderCore::in_mLineEdit_textChanged(const QString& text)
{
    const QString filtered = mLaw.filtered(text);
    if (filtered != text)
        mLineEdit->setText(filtered);
}

void FaderCore::in_mLineEdit_editingFinished()
{
    moveTo(mLaw.positionOf(mLineEdit->text()).value_or(mSlider->value()));
    if (mLineEdit->hasFocus())
        mSlider->setFocus(Qt::OtherFocusReason); // so that the arrow keys go on
}

bool FaderCore::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mSlider)
        return mSlider->isEnabled() && sliderEvent(event);
    if (watched == mLineEdit)
        return editEvent(event);
    if (event->type() == QEvent::Resize)
        relayout();
    else if (event->type() == QEvent::Show)
        nameChildren();
    return false;
}

bool FaderCore::sliderEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        moveTo(mLaw.settled(mDefault));
        return true;
    case QEvent::Wheel:
        return wheel(static_cast<QWheelEvent*>(event));
    case QEvent::KeyPress:
        return key(static_cast<QKeyEvent*>(event)->key());
    default:
        return false;
    }
}

/// Taken at the ends of the range too; a turn that is not taken goes on to the page.
bool FaderCore::wheel(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    const bool isTaken = delta != 0 && mWheelGuard.allows(event);
    event->setAccepted(isTaken);
    if (const int notches = isTaken ? mWheelSteps.take(delta) : 0)
        moveTo(mLaw.settled(mLaw.stepped(mValue, notches)));
    return true;
}

bool FaderCore::key(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        moveTo(mLaw.settled(mLaw.stepped(mValue, 1)));
        return true;
    case Qt::Key_Down:
    case Qt::Key_Left:
        moveTo(mLaw.settled(mLaw.stepped(mValue, -1)));
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

/// What was left half typed is put right before the editor looks at it.
bool FaderCore::editEvent(QEvent* event)
{
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key == Qt::Key_Escape) {
        showText();
        mSlider->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (event->type() == QEvent::FocusOut || key == Qt::Key_Return || key == Qt::Key_Enter) {
        QString text = mLineEdit->text();
        if (text.endsWith(u'.'))
            text.chop(1);
        mLineEdit->setText(text);
        if (text.isEmpty() || !mLineEdit->hasAcceptableInput())
            showText();
    }
    return false;
}

void FaderCore::relayout()
{
    const FaderLayout layout = mShape.layout(mHost->size(), mRatio, mFont);
    mLineEdit->setGeometry(layout.text);
    mSlider->setGeometry(layout.slider);
    QFont fitted = mFont;
    fitted.setPointSize(std::max(1, GlobalFont::instance().pointSizeForRect(mFont, kSample, layout.text)));
    mLineEdit->setFont(fitted);
}

/// The control's name is the fader's, which has the focus.
void FaderCore::nameChildren()
{
    if (!mHost->accessibleName().isEmpty())
        mSlider->setAccessibleName(mHost->accessibleName());
    mLineEdit->setAccessibleName(controlName(mSlider) + u" value"_s);
}

} // namespace quillon
