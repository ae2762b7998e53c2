#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace quillon
{

/// A control that shows one text and opens a list or menu of others. Assistive technology learns its own name apart from the
/// text that is picked, which it gets as value and as description. GUI thread.
class PickerHost
{
public:
    virtual ~PickerHost() = default;
    virtual QAccessible::Role pickerRole() const = 0;
    virtual QString pickerText() const = 0;
    virtual bool isPickerOpen() const = 0;
    virtual void openPicker() = 0;

protected:
    PickerHost() = default;
    PickerHost(const PickerHost&) = default;
    PickerHost& operator=(const PickerHost&) = default;
};

/// Gives every PickerHost that is a widget its accessible interface. Once per process, later calls do nothing.
void installPickerAccessibility();

/// Tells assistive technology that another text is picked. Free of cost while none listens.
void announcePick(QWidget* control, const QString& text);

} // namespace quillon
