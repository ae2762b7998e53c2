#include "app/InstanceScope.h"

#include <QSharedMemory>

namespace quillon
{

// Shared memory is named within a log-in session, pipes within the machine.
InstanceScope::InstanceScope(const QString& name) : mServerName(name + u'-' + qEnvironmentVariable("USERNAME")) {}

void InstanceScope::nameMemory(QSharedMemory& memory) const
{
    memory.setKey(mServerName);
}

std::unique_ptr<InstanceScope::Turn> InstanceScope::takeTurn() const
{
    return nullptr; // here create() fails for all but one
}

} // namespace quillon
