#include "strips/output/OutputS1M1.h"

namespace
{

constexpr quillon::RouteShape kShape = quillon::singleRouteShape({26.0F, 82.5F, 48.0F, 0.0F});

} // namespace

OutputS1M1::OutputS1M1(const QString& objectName, QWidget* parent) : OutputBase(kShape, objectName, parent) {}
