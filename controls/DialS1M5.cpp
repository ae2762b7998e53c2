#include "controls/DialS1M5.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"
#include "controls/ValueEditor.h"

#include <QDoubleValidator>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRegularExpressionValidator>
#include <algorithm>

using namespace Qt::StringLiterals;

DialS1M5::DialS1M5(QWidget* parent)
    : QWidget(parent),
      PlainDialFace(this, quillon::PlainDialLaw(), quillon::kPictureDial, [this](float value) { emit valueChanged(value); })
{
    mLineEdit = quillon::makeValueEditor(this, quillon::DialColors().text);
    mLineEdit->hide();
    connect(mLineEdit, &QLineEdit::editingFinished, this, &DialS1M5::in_mLineEdit_editingFinished);
}

DialS1M5::~DialS1M5()
{
    mLineEdit->disconnect(this); // an editor that goes down with the focus still reports what was typed
}

void DialS1M5::setValueList(const QList<float>& list)
{
    mLaw.setValueList(list);
    mCore.refresh();
}

void DialS1M5::setMode(int mode)
{
    mLaw.setMode(mode);
    mCore.refresh();
}

void DialS1M5::setFitText(const QString& text)
{
    mCore.setFitText(text);
}

void DialS1M5::setDragStep(float step)
{
    mLaw.setDragStep(step);
}

void DialS1M5::setKeyStep(float step)
{
    mLaw.setKeyStep(step);
}

void DialS1M5::setWheelStep(float step)
{
    mLaw.setWheelStep(step);
}

void DialS1M5::setEditEnabled(bool enabled)
{
    mEditEnabled = enabled;
    auto* validator = new QDoubleValidator(double(mLaw.minimum()), double(mLaw.maximum()), mEditPrecision, mLineEdit);
    validator->setLocale(QLocale::c()); // as the text is read
    delete mLineEdit->validator();
    mLineEdit->setValidator(validator);
}

void DialS1M5::setEditPrecision(int decimals)
{
    mEditPrecision = std::clamp(decimals, 0, 6);
    const QString pattern = quillon::valuePattern(mLaw.minimum(), mLaw.maximum(), mEditPrecision, mLaw.format.signShown);
    delete mLineEdit->validator();
    mLineEdit->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), mLineEdit));
}

bool DialS1M5::event(QEvent* event)
{
    const bool editing = mLineEdit && mLineEdit->isVisible();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (const auto* press = static_cast<QMouseEvent*>(event); isEnabled() && mEditEnabled &&
                                                                  press->button() == Qt::RightButton &&
                                                                  mCore.layout().dial.contains(press->position().toPoint())) {
            openEditor();
            return true;
        }
        break;
    case QEvent::Wheel:
    case QEvent::KeyPress:
        if (editing)
            return QWidget::event(event);
        break;
    case QEvent::Resize:
        mCore.handle(event);
        if (editing)
            placeEditor();
        return QWidget::event(event);
    default:
        break;
    }
    return mCore.handle(event) || QWidget::event(event);
}

void DialS1M5::openEditor()
{
    mLineEdit->setText(QString::number(double(mLaw.value()), 'f', mEditPrecision));
    mLineEdit->setAccessibleName(quillon::controlName(this));
    placeEditor();
    mCore.setTextCovered(true);
    mEditing = true;
    mLineEdit->show();
    mLineEdit->selectAll(); // typing replaces the value
    mLineEdit->setFocus(Qt::OtherFocusReason);
}

void DialS1M5::placeEditor()
{
    const QRect& dial = mCore.layout().dial;
    QRect place(0, 0, int(dial.width() * 0.9), int(dial.height() * 0.3));
    place.moveTopLeft({dial.x() + (dial.width() - place.width()) / 2, int(dial.y() + (dial.height() - place.height()) * 0.48)});
    mLineEdit->setGeometry(place);
    QFont font = mCore.font();
    font.setPointSize(GlobalFont::instance().pointSizeForRect(font, mLineEdit->text(), place));
    mLineEdit->setFont(font);
}

/// Hands the keyboard back to the dial if the editor still has it.
void DialS1M5::closeEditor()
{
    mEditing = false;
    if (mLineEdit->hasFocus())
        setFocus(Qt::OtherFocusReason);
    mLineEdit->hide();
    mCore.setTextCovered(false);
}

bool DialS1M5::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mLineEdit && event->type() == QEvent::FocusOut) {
        mLineEdit->hide(); // the editor reports what was typed, if it will do, in its own handling of this event
        mCore.setTextCovered(false);
    } else if (watched == mLineEdit && event->type() == QEvent::KeyPress &&
               static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        closeEditor();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DialS1M5::in_mLineEdit_editingFinished()
{
    if (!mEditing)
        return; // a closing editor loses the focus, which it reports once more
    closeEditor();
    bool isNumber = false;
    const float typed = mLineEdit->text().toFloat(&isNumber);
    if (!isNumber)
        return;
    mLaw.setValue(typed);
    mCore.notify();
}
