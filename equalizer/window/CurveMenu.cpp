#include "equalizer/window/CurveMenu.h"

#include "controls/picker/FlatToolButton.h"
#include "equalizer/editor/BandTexts.h"

namespace quillon
{

namespace
{

struct GroupRow {
    const char* name;
    BandText text;
};
constexpr GroupRow kGroups[]{{"menuImport", {"Import", "导入"}}, {"menuExport", {"Export", "导出"}}};

struct ItemRow {
    int group;
    const char* name;
    BandText text;
};
constexpr std::array<ItemRow, CurveMenu::ItemCount> kItems{{
    {0, "actionTarget", {"Target", "目标"}},
    {0, "actionSource", {"Source FR", "源频响"}},
    {0, "actionImportFilters", {"Import Filters", "导入滤波器"}},
    {1, "actionExportFilters", {"Export Filters", "导出滤波器"}},
    {1, "actionExportFiltersCurve", {"Export Filters Curve", "导出滤波器曲线"}},
}};

} // namespace

CurveMenu::CurveMenu(QWidget* parent) : QMenu(parent)
{
    for (std::size_t i = 0; i < mGroups.size(); ++i) {
        mGroups[i] = addMenu(QString());
        mGroups[i]->setObjectName(QLatin1StringView(kGroups[i].name));
    }
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        mItems[i] = mGroups[std::size_t(kItems[i].group)]->addAction(QString());
        mItems[i]->setObjectName(QLatin1StringView(kItems[i].name));
        connect(mItems[i], &QAction::triggered, this, [this, i] { emit chosen(Item(i)); });
    }
    setChinese(false);
}

void CurveMenu::setChinese(bool chinese)
{
    for (std::size_t i = 0; i < mGroups.size(); ++i) {
        mGroups[i]->setTitle(kGroups[i].text.in(chinese));
    }
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        mItems[i]->setText(kItems[i].text.in(chinese));
    }
}

void CurveMenu::setLetterPixels(int pixels)
{
    if (std::exchange(mLetterPixels, pixels) != pixels) {
        setStyleSheet(darkMenuSheet(pixels, QColor(22, 22, 22))); // its sub-menus inherit it
    }
}

} // namespace quillon
