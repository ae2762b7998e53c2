#include "controls/picker/PickerAccess.h"

#include "controls/Accessibility.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QWidget>

namespace quillon
{

namespace
{

class PickerAccessible final : public QAccessibleWidget
{
public:
    PickerAccessible(QWidget* control, PickerHost& host) : QAccessibleWidget(control, host.pickerRole()), mHost(host) {}

    QAccessible::Role role() const override { return mHost.pickerRole(); } // a button may become one that can be checked

    QString text(QAccessible::Text what) const override
    {
        switch (what) {
        case QAccessible::Name:
            return controlName(widget()).trimmed();
        case QAccessible::Value:
            return mHost.pickerText();
        case QAccessible::Description:
            if (widget()->accessibleDescription().isEmpty())
                return mHost.pickerText() == text(QAccessible::Name) ? QString() : mHost.pickerText();
            break;
        default:
            break;
        }
        return QAccessibleWidget::text(what);
    }

    // One control: what it is made of inside is no control of its own.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto* button = qobject_cast<QAbstractButton*>(widget())) {
            state.checkable = button->isCheckable();
            state.checked = button->isChecked();
        }
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = mHost.isPickerOpen();
        state.collapsed = !state.expanded;
        return state;
    }

    QStringList actionNames() const override
    {
        return widget()->isEnabled() ? QStringList{showMenuAction(), pressAction(), setFocusAction()} : QStringList();
    }

    void doAction(const QString& name) override
    {
        if (name != showMenuAction() && name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (widget()->isEnabled()) {
            // A menu runs a loop of its own: the client that asks must have its answer before that.
            QMetaObject::invokeMethod(
                widget(), [host = &mHost] { host->openPicker(); }, Qt::QueuedConnection);
        }
    }

private:
    PickerHost& mHost; // is the widget, which outlives its interface
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* host = object && object->isWidgetType() ? dynamic_cast<PickerHost*>(object) : nullptr;
    return host ? new PickerAccessible(static_cast<QWidget*>(object), *host) : nullptr;
}

} // namespace

void installPickerAccessibility()
{
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

void announcePick(QWidget* control, const QString& text)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent value(control, text);
    QAccessible::updateAccessibility(&value);
    QAccessibleEvent description(control, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
}

} // namespace quillon
