#pragma once
// What stands on the pages of the connection view, page by page from top to bottom.

#include <QLatin1StringView>
#include <QStringView>
#include <span>

namespace quillon
{

enum class ConnectKind {
    Message,
    Detail, // a smaller, dimmer line
    Bar,
    Cancel,  // left of the confirming button that follows
    Confirm, // alone in its row where no cancel button stands before it
    Check,
};

struct ConnectRow {
    int page;
    ConnectKind kind;
    QLatin1StringView object;
    QStringView english;
    QStringView chinese;
    QLatin1StringView event = {}; // value of the "Update" event that a button reports
};

/// All rows, ordered by page.
std::span<const ConnectRow> connectRows();

/// "Page0" to "Page9", "PageA" to "PageC".
QString connectPageName(int page);

} // namespace quillon
