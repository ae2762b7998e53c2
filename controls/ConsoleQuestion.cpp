#include "controls/ConsoleQuestion.h"

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "controls/MessageBoxS3M1.h"
#include "controls/MessageBoxWidget.h"

namespace quillon
{

namespace
{

// Shares of the height of the console.
constexpr double kBoxWidth = 0.53;
constexpr double kBoxHeight = 0.4;

} // namespace

void askOverConsole(QWidget* asker, MessageBoxWidget* body, const QString& language, const std::function<void(int)>& answered)
{
    QWidget* console = AppSettingsSubject::instance().mainWindow();
    if (console == nullptr) {
        console = asker->window();
    }
    body->setFont(GlobalFont::instance().font());
    body->setLanguage(language);
    auto* box = new MessageBoxS3M1(body, console);
    QObject::connect(box, &QDialog::finished, asker, [asker, answered](int result) { answered(asker->isVisible() ? result : 0); });
    QObject::connect(box, &QDialog::finished, box, &QObject::deleteLater);
    QObject::connect(asker, &QObject::destroyed, box, &QObject::deleteLater);
    box->placeOver(console, kBoxWidth, kBoxHeight);
    box->show();
}

} // namespace quillon
