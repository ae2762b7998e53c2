#include "strips/output/OutputS1M3.h"

namespace
{

constexpr quillon::RouteShape kShape = quillon::singleRouteShape({26.75F, 82.5F, 46.5F, 0.0F});

} // namespace

OutputS1M3::OutputS1M3(const QString& objectName, QWidget* parent) : OutputBase(kShape, objectName, parent) {}
