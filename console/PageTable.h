#pragma once
// The pages of the console as data: what each is called, where its workspaces lie, how wide it is and how its panes stand.

#include <QString>
#include <array>
#include <span>

namespace quillon
{

/// Page ids are the positions in the page stack.
enum PageId : int { PageUpgd = 0, PageFcty = 1, PageMble = 2, PageLive = 3, PageTyro = 4, PageProf = 5, PageCount = 6 };

/// A splitter of a page: the setting that keeps its state and the sizes of a first start.
struct SplitterRow {
    const char* object = nullptr;
    const char* key = nullptr;
    int first = 0;
    int second = 0;
};

struct PageRow {
    PageId id;
    const char* object;
    const char* modeWord;         // how the work mode is called, English
    const char* modeWordZh;       // and Chinese
    const char* folder = nullptr; // of its workspaces; null: a page without any
    const char* prefix = nullptr;
    const char* fixedWorkspace = nullptr; // the one workspace of a page that offers no choice
    const char* widthKey = nullptr;       // null: the page keeps no size of its own
    int minimumWidth = 0;                 // at scale 1
    std::array<SplitterRow, 2> splitters{};
};

inline constexpr int kPageHeight = 645;     // at scale 1, all pages
inline constexpr int kRecoveryWidth = 1100; // at scale 1
inline constexpr const char* kPageIdKey = "R47/PageID";

std::span<const PageRow> pageRows();
/// The row of a splitter of the page; null when the page has none of that name.
const SplitterRow* splitterRow(const PageRow& page, const QString& objectName);
/// The row of a page; null for an id that is no page.
const PageRow* pageRow(int id);

} // namespace quillon
