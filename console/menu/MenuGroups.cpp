#include "console/menu/MenuGroups.h"

namespace quillon
{

namespace
{

constexpr PanelButton command(const char* name, const char* chinese)
{
    return {.name = name, .english = name, .chinese = chinese, .momentary = true};
}
constexpr PanelButton kScenes[]{command("Chat", "聊天"), command("Vocal", "唱歌")};
constexpr PanelButton kPresets[]{command("Load preset1", "调用配置1"), command("Load preset2", "调用配置2"),
                                 command("Save preset1", "保存配置1"), command("Save preset2", "保存配置2")};
constexpr MenuGroup kGroups[]{
    {{"Scene", "场景"}, {"Scene", PlateStyle::Shaded, false, 110, 16, 2, kScenes}},
    {{"User presets", "用户配置"}, {"Presets", PlateStyle::Shaded, false, 220, 16, 4, kPresets}},
};

} // namespace

std::span<const MenuGroup> sceneAndPresetGroups()
{
    return kGroups;
}

std::span<const MenuGroup> presetGroups()
{
    return std::span(kGroups).last(1);
}

} // namespace quillon
