#pragma once

#include <QString>
#include <memory>

class QSharedMemory;

namespace quillon
{

/// Where the starts of one user meet: two users of a machine, and two sessions that share nothing, each get a program of their own.
class InstanceScope
{
public:
    /// Held by one start at a time, given back by the system when its process ends in whatever way.
    class Turn
    {
    public:
        virtual ~Turn() = default;
    };

    explicit InstanceScope(const QString& name);

    /// Gives the memory the scope's key, before each look at it.
    void nameMemory(QSharedMemory& memory) const;
    /// For QLocalServer and QLocalSocket; empty where the user has no place of his own.
    const QString& serverName() const { return mServerName; }
    /// Waits for the turn, at most a second: another start may have been stopped inside its own. Null then, and where there is
    /// nothing to wait for.
    std::unique_ptr<Turn> takeTurn() const;

private:
    QString mServerName;
};

} // namespace quillon
