#pragma once

#include <QList>
#include <QMetaMethod>
#include <QObject>

namespace quillon::gallery
{

/// Prints a line for each signal that a watched control emits: "NAME: signal(arguments)". GUI thread.
class SignalLog : public QObject
{
public:
    using QObject::QObject;

    /// All signals that the control has beyond those of every widget.
    void watch(QObject* control, const QString& name);
    /// One slot for each watched signal; there is no other way to take signals that are known at run time only.
    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

private:
    struct Line {
        QString name;
        QMetaMethod signal;
    };
    QList<Line> mLines;
};

/// Writes a line to the standard output at once.
void printLine(const QString& line);

} // namespace quillon::gallery
