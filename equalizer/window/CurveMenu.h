#pragma once

#include <QMenu>

#include <array>

namespace quillon
{

/// What an equalizer reads from files and writes to them, as a menu. GUI thread.
class CurveMenu : public QMenu
{
    Q_OBJECT
public:
    enum Item { ImportTarget, ImportSource, ImportFilters, ExportFilters, ExportFiltersCurve, ItemCount };

    explicit CurveMenu(QWidget* parent);

    void setChinese(bool chinese);
    /// Height of the letters.
    void setLetterPixels(int pixels);
    QAction* item(Item item) const { return mItems[item]; }

signals:
    void chosen(quillon::CurveMenu::Item item);

private:
    std::array<QMenu*, 2> mGroups{};
    std::array<QAction*, ItemCount> mItems{};
    int mLetterPixels = 0;
};

} // namespace quillon
