#pragma once

#include "strips/GainScale.h"
#include "strips/output/RouteStrip.h"

class VSliderS1M2;

/// The console column of one physical output. GUI thread.
class OutputBase : public quillon::RouteStrip
{
    Q_OBJECT
public:
    /// The ladder of the faders.
    OutputBase& setGainRange(const quillon::GainScale& scale);

protected:
    /// objectName: who the strip is to the device, and its group in the workspace.
    OutputBase(const quillon::RouteShape& shape, const QString& objectName, QWidget* parent);

private:
    std::vector<VSliderS1M2*> mFaders;
};
