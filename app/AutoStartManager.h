#pragma once

#include <QObject>

/// The program's entry among those that the desktop starts at log-in. GUI thread.
class AutoStartManager : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Writes the entry with this program's path, or removes it. One warning where the user's settings can not be written.
    static void setAutoStart(bool enable);
};
