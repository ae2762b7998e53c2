#include "app/AutoStartManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{

// Quoted as a command line first, where "%" begins a field code, then as the value of an entry.
QByteArray execValue(const QString& program)
{
    QString argument;
    for (const QChar c : program) {
        if (u"\"`$\\"_s.contains(c)) {
            argument += u'\\';
        }
        argument += c == u'%' ? u"%%"_s : QString(c);
    }
    QString value = '"' + argument + '"';
    value.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s).replace(u'\t', u"\\t"_s).replace(u'\r', u"\\r"_s);
    return QFile::encodeName(value);
}

QByteArray entry(const QString& program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Quillon\n"
           "Icon=quillon\n"
           "Exec=" +
           execValue(program) + "\nX-GNOME-Autostart-enabled=true\n";
}

bool hasText(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(text.size() + 1) == text;
}

bool write(const QString& path, const QByteArray& text)
{
    if (hasText(path, text)) {
        return true;
    }
    QSaveFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) && file.write(text) == text.size() &&
           file.commit();
}

bool remove(const QString& path)
{
    return QFile::remove(path) || !QFileInfo::exists(path);
}

} // namespace

void AutoStartManager::setAutoStart(bool enable)
{
    const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/autostart/quillon.desktop"_L1;
    const bool done = enable ? write(path, entry(QCoreApplication::applicationFilePath())) : remove(path);
    if (!done) {
        qWarning().noquote() << "AutoStartManager::setAutoStart //cannot change" << path;
    }
}
