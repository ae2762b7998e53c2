#include "controls/Accessibility.h"

#include "controls/ValueControl.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QWidget>

namespace quillon
{

namespace
{

/// One interface for all: dials and sliders that can be set, and meters that can be read.
class ValueAccessible final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    ValueAccessible(QWidget* control, ValueControl& value) : QAccessibleWidget(control, value.accessibleRole()), mValue(value) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text what) const override
    {
        if (what == QAccessible::Name)
            return controlName(widget());
        return what == QAccessible::Value ? mValue.accessibleText() : QAccessibleWidget::text(what);
    }

    QVariant currentValue() const override { return mValue.accessibleValue(); }
    QVariant minimumValue() const override { return mValue.accessibleRange().minimum; }
    QVariant maximumValue() const override { return mValue.accessibleRange().maximum; }
    QVariant minimumStepSize() const override { return mValue.accessibleRange().step; }

    void setCurrentValue(const QVariant& value) override
    {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (isNumber && widget()->isEnabled())
            mValue.setAccessibleValue(number);
    }

private:
    ValueControl& mValue; // lives in the widget, which outlives its interface
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* host = object && object->isWidgetType() ? dynamic_cast<ValueControlHost*>(object) : nullptr;
    return host ? new ValueAccessible(static_cast<QWidget*>(object), host->valueControl()) : nullptr;
}

} // namespace

void installControlAccessibility()
{
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

QString controlName(const QWidget* control)
{
    if (!control->accessibleName().isEmpty())
        return control->accessibleName();
    const auto* host = dynamic_cast<const ValueControlHost*>(control);
    const QString kind = host ? const_cast<ValueControlHost*>(host)->valueControl().accessibleKind() : QString();
    for (const QWidget* above = control->parentWidget(); above; above = above->parentWidget())
        if (!above->accessibleName().isEmpty())
            return above->accessibleName() + u' ' + kind;
    return kind;
}

void announceValue(QWidget* control, const ValueControl& value)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(control, value.accessibleValue());
    QAccessible::updateAccessibility(&event);
}

} // namespace quillon
