#include "console/PageTable.h"

namespace quillon
{

namespace
{

constexpr std::array<PageRow, PageCount> kPages{{
    {.id = PageUpgd, .object = "PageUpgd", .modeWord = "", .modeWordZh = ""},
    {.id = PageFcty, .object = "PageFcty", .modeWord = "", .modeWordZh = ""},
    {.id = PageMble,
     .object = "PageMble",
     .modeWord = "Mobile mode",
     .modeWordZh = "移动模式",
     .folder = "./Workspace/R47/Mble",
     .prefix = "R47_Mble_",
     .widthKey = "R47/PageMbleWidth",
     .minimumWidth = 720,
     .splitters = {{{"PageMbleSplitterE_O", "R47/PageMbleFactor1", 700, 800}}}},
    {.id = PageLive,
     .object = "PageLive",
     .modeWord = "Live streaming mode",
     .modeWordZh = "直播模式",
     .folder = "./Workspace/R47/Live",
     .prefix = "R47_Live_",
     .widthKey = "R47/PageLiveWidth",
     .minimumWidth = 1100,
     .splitters = {{{"PageLiveSplitterIE_MLO", "R47/PageLiveFactor1", 500, 800},
                    {"PageLiveSplitterL_O", "R47/PageLiveFactor2", 350, 200}}}},
    {.id = PageTyro,
     .object = "PageTyro",
     .modeWord = "Easy mode",
     .modeWordZh = "简易模式",
     .folder = "./Workspace/R47/Tyro",
     .prefix = "R47_Tyro_",
     .fixedWorkspace = "configFile"},
    {.id = PageProf,
     .object = "PageProf",
     .modeWord = "Pro audio mode",
     .modeWordZh = "专业音频模式",
     .folder = "./Workspace/R47/Prof",
     .prefix = "R47_Prof_",
     .widthKey = "R47/PageProfWidth",
     .minimumWidth = 1100,
     .splitters = {{{"PageProfSplitterIL_MO", "R47/PageProfFactor1", 510, 800}}}},
}};

constexpr bool pagesStandAtTheirIds()
{
    for (std::size_t i = 0; i < kPages.size(); ++i) {
        if (kPages[i].id != static_cast<int>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(pagesStandAtTheirIds());

} // namespace

std::span<const PageRow> pageRows()
{
    return kPages;
}

const SplitterRow* splitterRow(const PageRow& page, const QString& objectName)
{
    for (const SplitterRow& row : page.splitters) {
        if (row.object != nullptr && objectName == QLatin1StringView(row.object)) {
            return &row;
        }
    }
    return nullptr;
}

const PageRow* pageRow(int id)
{
    return id >= 0 && id < PageCount ? &kPages[static_cast<std::size_t>(id)] : nullptr;
}

} // namespace quillon
