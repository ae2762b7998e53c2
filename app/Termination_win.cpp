#include "app/Termination.h"

#include <QSocketNotifier>

namespace quillon
{

Termination::Termination() = default;
Termination::~Termination() = default;

} // namespace quillon
