#pragma once

#include "strips/output/OutputBase.h"

/// OTG OUT beside an output with an equalizer: its mute has the size of that one's.
class OutputS1M3 final : public OutputBase
{
    Q_OBJECT
public:
    explicit OutputS1M3(const QString& objectName, QWidget* parent = nullptr);
};
