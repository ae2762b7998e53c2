#include "strips/loopback/LoopbackS1M2.h"

namespace
{

constexpr quillon::RouteShape kShape = quillon::pairRouteShape();

} // namespace

LoopbackS1M2::LoopbackS1M2(const QString& objectName, QWidget* parent) : LoopbackBase(kShape, objectName, parent) {}
