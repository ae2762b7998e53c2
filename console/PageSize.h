#pragma once
// The size step of a page: height locked to the scale, width and splitters the user's, kept in the application settings.

#include <QList>

class QMainWindow;
class QSplitter;

namespace quillon
{

struct PageRow;

/// Whether a size step reads and writes the page's own settings, or only borrows its constants.
enum class SizeMemory { Own, None };

/// Locks height and minimum width, restores splitters and width of a page. scale: "ScaleFactor".
/// The stored width is read first, since setting the minimum width resizes the window, which stores the width.
void applyPageSize(QMainWindow& window, const PageRow& page, const QList<QSplitter*>& splitters, float scale,
                   SizeMemory memory = SizeMemory::Own);

/// Writes the width of a page that has had its first size step; a page without a width of its own keeps none.
void keepPageWidth(const PageRow& page, int width);
/// Writes the states of a page's splitters.
void keepSplitters(const PageRow& page, const QList<QSplitter*>& splitters);

/// Forgets the stored sizes of all pages: they belong to another scale.
void dropPageSizes();

} // namespace quillon
