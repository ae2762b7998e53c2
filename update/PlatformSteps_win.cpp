#include "update/PlatformSteps.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

// Unpacks over the working directory, which is the application's own.
const QString& setupScript()
{
    static const QString script = u"Expand-Archive -Path '%1' -DestinationPath '.' -Force; "
                                  "$setupFile = (Get-ChildItem -Path . -Filter '*.exe' | Where-Object {$_.Name -like "
                                  "'*Setup*.exe'} | Select-Object -First 1).FullName; "
                                  "if ($setupFile) { Start-Process -FilePath $setupFile -Wait }"_s;
    return script;
}

// Inside the shell's single quotes only these end a text.
QString singleQuoted(QString path)
{
    return path.replace(u'\'', u"''"_s);
}

// Inside its double quotes these begin a command or a variable.
QString doubleQuoted(QString path)
{
    return path.replace(u'`', u"``"_s).replace(u'$', u"`$"_s);
}

} // namespace

void lookUpHost(const char*)
{
    // The resolver of this platform gives up by itself.
}

QString startSetup(const QString& archive)
{
    QProcess process;
    process.setProgram(u"powershell"_s);
    process.setArguments({u"-command"_s, setupScript().arg(singleQuoted(archive))});
    return process.startDetached() ? QString() : process.errorString();
}

bool unpackImage(const QString& archive, const QString&)
{
    const QString folder = QFileInfo(archive).path();
    const QString command = u"Expand-Archive -Path \"%1\" -DestinationPath \"%2\" -Force"_s;
    return QProcess::execute(u"powershell"_s, {u"-Command"_s, command.arg(doubleQuoted(archive), doubleQuoted(folder))}) == 0;
}

} // namespace quillon
