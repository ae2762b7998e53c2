#include "app/TrayMenu.h"

#include "app/GlobalFont.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct Entry {
    const char* english; // none: a separator
    const char* chinese;
    void (TrayMenu::*chosen)();
};

constexpr Entry kEntries[]{
    {"Show", "显示", &TrayMenu::showRequested},
    {nullptr, nullptr, nullptr},
    {"Quit", "退出", &TrayMenu::quitRequested},
};

constexpr auto kSheet = "QMenu { background: #1e1e1e; color: #ffffff; border: 1px solid #444; border-radius: 5px; padding: 12px;"
                        " font-size: 12pt; }"
                        "QMenu::item { padding: 5px 10px 5px 10px; border-left: 3px solid transparent; }"
                        "QMenu::item:selected { background: #3c3c3c; border-left-color: #43cf7c; }"
                        "QMenu::separator { background: #444; height: 1px; margin: 5px 10px 5px 10px; }";

} // namespace

TrayMenu::TrayMenu()
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setFont(GlobalFont::instance().font());
    setStyleSheet(QString::fromLatin1(kSheet));
    for (const Entry& entry : kEntries) {
        if (entry.chosen == nullptr) {
            addSeparator();
        } else {
            connect(addAction(QString()), &QAction::triggered, this, entry.chosen);
        }
    }
    setLanguage(u"Chinese"_s);
}

void TrayMenu::setLanguage(const QString& language)
{
    if (language != u"English"_s && language != u"Chinese"_s) {
        return;
    }
    const bool chinese = language == u"Chinese"_s;
    const QList<QAction*> all = actions();
    for (qsizetype i = 0; i < all.size(); ++i) {
        const Entry& entry = kEntries[i];
        all[i]->setText(QString::fromUtf8(chinese ? entry.chinese : entry.english));
    }
}

} // namespace quillon
