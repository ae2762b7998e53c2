#include "console/head/FieldHeadBase2.h"

using quillon::HeadKind;

static constexpr quillon::HeadItem kItems[]{
    {HeadKind::Logo, "Logo", {}},
    {HeadKind::Choice, "SampleRate", {"Sample Rate", "采样率"}},
    {HeadKind::Choice, "BufferSize", {"Buffer Size", "缓冲区大小"}},
    {HeadKind::Settings, "SystemSettings", {"Settings", "设置"}},
    {HeadKind::Battery, "Battery", {"Battery", "电池"}},
};

FieldHeadBase2::FieldHeadBase2(const QString& objectName, QWidget* parent) : FieldHead(kItems, objectName, parent) {}
