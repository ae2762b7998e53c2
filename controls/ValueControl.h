#pragma once

#include <QAccessible>
#include <QString>

namespace quillon
{

/// What a hand-painted control tells assistive technology. GUI thread.
class ValueControl
{
public:
    struct Range {
        double minimum;
        double maximum;
        double step;
    };

    virtual ~ValueControl() = default;
    virtual QAccessible::Role accessibleRole() const = 0;
    /// What the control is, in one word, for a name where none was given: "Dial".
    virtual QString accessibleKind() const = 0;
    virtual Range accessibleRange() const = 0;
    virtual double accessibleValue() const = 0;
    /// The value as it is shown.
    virtual QString accessibleText() const = 0;
    /// Sets the value as the user would: brought into range and onto the steps, signals emitted. Indicators ignore it.
    virtual void setAccessibleValue(double value) { Q_UNUSED(value) }

protected:
    ValueControl() = default;
    ValueControl(const ValueControl&) = default;
    ValueControl& operator=(const ValueControl&) = default;
};

/// A widget that implements this gets its accessible interface from installControlAccessibility().
class ValueControlHost
{
public:
    virtual ~ValueControlHost() = default;
    virtual ValueControl& valueControl() = 0;

protected:
    ValueControlHost() = default;
    ValueControlHost(const ValueControlHost&) = default;
    ValueControlHost& operator=(const ValueControlHost&) = default;
};

} // namespace quillon
