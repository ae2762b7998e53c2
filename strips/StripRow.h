#pragma once
// What a strip is made of, as data: one row per thing that the workspace keeps, that the device hears of, or both.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <optional>
#include <variant>

namespace quillon
{

/// How a value is kept in the workspace and written in an event.
enum class ValueForm : quint8 {
    Text,    // QString: the text itself
    Flag,    // int 0 or 1: bool in the workspace, "0" or "1" in an event
    Integer, // int: decimal
    Decimal, // float: general form with 6 significant digits
};

/// A value in one of the forms: a flag and an integer are ints, a decimal is a float.
using StripValue = std::variant<int, float, QString>;

/// What a strip that is hidden in its field owes the device for a row: nothing (std::nullopt), the value as shown, or one fixed
/// value.
struct AsShown {
};
using WhileHidden = std::optional<std::variant<AsShown, StripValue>>;

/// One row. Rows stand in the order in which they are saved, loaded and echoed.
struct StripRow {
    /// Key in the strip's group; empty for a value that is only computed for the device.
    QString key = {};
    ValueForm form = ValueForm::Flag;
    /// Value of a fresh group. Asked at that moment, so that it can follow what the page builder configured.
    std::function<StripValue()> initial = {};
    /// Value of the control, of several controls, or of the store: what is saved and, without wanted, what the device ought to
    /// have.
    std::function<StripValue()> read = {};
    /// What the device ought to have, where that is not the kept value.
    std::function<StripValue()> wanted = {};
    /// The same for a prefix that is not shown, out of the store; asked after the strip was told to visit it.
    std::function<StripValue()> elsewhere = {};
    /// Moves the control without a signal. Empty for a row that no control shows.
    std::function<void(const StripValue&)> show = {};
    /// Runs once the control has moved, by the user or by the device; false keeps the value out of the workspace.
    std::function<bool()> settle = {};
    /// Attributes that carry the value to the device, each in turn; none for a value of the console only.
    QStringList sends = {};
    /// Place among the rows when they are sent; equal places go in the order of the rows.
    int sendOrder = 0;
    WhileHidden whileHidden = {};
    /// Kept and sent once per mix: the prefix of the current mix stands before key and attributes.
    bool perMix = false;
};

/// The form in which the workspace keeps the value.
QVariant toVariant(ValueForm form, const StripValue& value);
/// A value out of the workspace or a report. What does not convert, or is no finite number, becomes 0 or an empty text.
StripValue fromVariant(ValueForm form, const QVariant& value);
/// The text of an event.
QString toText(ValueForm form, const StripValue& value);
/// What no control ever yields; an unsent row compares unequal to everything else.
StripValue unsent(ValueForm form);

} // namespace quillon
