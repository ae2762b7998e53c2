#include "connect/UpdateProgress.h"

#include "connect/DeviceConnectorViewBase.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct Words {
    QLatin1StringView prefix; // of the attributes
    QStringView running;
    QStringView runningZh;
    QStringView done;
    QStringView doneZh;
};

constexpr Words kWords[] = {
    {"Download"_L1, u"Downloading  %1%", u"下载中  %1%", u"Download Success", u"完成下载"},
    {"Update"_L1, u"Updating  %1%", u"更新中  %1%", u"Complete update", u"完成更新"},
};

void setText(DeviceConnectorViewBase& view, QStringView english, QStringView chinese, const QString& percent = {})
{
    const QString language = QSettings().value("Language").toString();
    if (language == u"English"_s) {
        view.setProgressText(english.toString().replace(u"%1"_s, percent));
    } else if (language == u"Chinese"_s) {
        view.setProgressText(chinese.toString().replace(u"%1"_s, percent));
    }
}

} // namespace

void UpdateProgress::restart()
{
    mFileSize = u"0B"_s;
    mSpeed = u"0B/s"_s;
}

UpdateProgress::Outcome UpdateProgress::show(DeviceConnectorViewBase& view, const QString& attribute, const QString& value)
{
    const Words& words = attribute.startsWith(kWords[1].prefix) ? kWords[1] : kWords[0];
    const QStringView event = attribute.startsWith(words.prefix) ? QStringView(attribute).mid(words.prefix.size()) : QStringView();
    if (event == u"State") {
        if (value == u"Start"_s) {
            restart();
            setText(view, words.running, words.runningZh, u"0"_s);
            view.setProgressValue(0);
            view.setProgressMessage(QString());
        } else if (value == u"Success"_s) {
            setText(view, words.done, words.doneZh);
            return Outcome::Done;
        } else if (value == u"Failed"_s) {
            return Outcome::Failed;
        }
    } else if (event == u"Progress") {
        setText(view, words.running, words.runningZh, value);
        view.setProgressValue(value.toInt());
    } else if (event == u"FileSize") {
        mFileSize = value;
    } else if (event == u"Speed") {
        mSpeed = value;
    } else if (event == u"Completed") {
        view.setProgressMessage(value + u" / "_s + mFileSize + u"  ( "_s + mSpeed + u" )"_s);
    }
    return Outcome::Running;
}

} // namespace quillon
