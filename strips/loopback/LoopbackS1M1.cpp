#include "strips/loopback/LoopbackS1M1.h"

namespace
{

constexpr quillon::RouteShape kShape = quillon::singleRouteShape({26.0F, 82.5F, 48.0F, 0.0F});

} // namespace

LoopbackS1M1::LoopbackS1M1(const QString& objectName, QWidget* parent) : LoopbackBase(kShape, objectName, parent) {}
