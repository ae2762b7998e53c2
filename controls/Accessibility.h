#pragma once

#include <QString>

class QWidget;

namespace quillon
{

class ValueControl;

/// Gives every ValueControlHost an accessible interface with role, name, range and value. Once per process, before the first
/// assistive client asks; later calls do nothing.
void installControlAccessibility();

/// The control's accessible name; without one, the name of the nearest named ancestor and the kind of the control.
QString controlName(const QWidget* control);

/// Tells assistive technology the present value. Free of cost while none listens.
void announceValue(QWidget* control, const ValueControl& value);

} // namespace quillon
