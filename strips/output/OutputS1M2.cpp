#include "strips/output/OutputS1M2.h"

namespace
{

constexpr quillon::RouteShape kShape = quillon::pairRouteShape();

} // namespace

OutputS1M2::OutputS1M2(const QString& objectName, QWidget* parent) : OutputBase(kShape, objectName, parent) {}
