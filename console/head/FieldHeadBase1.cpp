#include "console/head/FieldHeadBase1.h"

#include "console/head/ComboBoxS1M1.h"
#include "controls/ConsoleQuestion.h"
#include "controls/MessageBoxWidget.h"

using namespace Qt::StringLiterals;
using quillon::HeadKind;

namespace
{

constexpr quillon::HeadItem kItems[]{
    {HeadKind::Logo, "Logo", {}},
    {HeadKind::Selector, "Workspace", {"Workspace", "工作区"}},
    {HeadKind::Choice, "SampleRate", {"Sample Rate", "采样率"}},
    {HeadKind::Choice, "BufferSize", {"Buffer Size", "缓冲区大小"}},
    {HeadKind::Save, "WorkspaceSave", {"Save workspace", "保存工作区"}},
    {HeadKind::Download, "WorkspaceDownload", {"Download to device", "下载到设备"}},
    {HeadKind::Settings, "SystemSettings", {"Settings", "设置"}},
    {HeadKind::Battery, "Battery", {"Battery", "电池"}},
};

enum DownloadAnswer { InPlace = 2, AsCopy = 3, DeviceOnly = 4 };

} // namespace

FieldHeadBase1::FieldHeadBase1(const QString& objectName, QWidget* parent) : FieldHead(kItems, objectName, parent) {}

void FieldHeadBase1::setWorkspaces(const QStringList& names, const QString& current)
{
    selector()->setItems(names, current);
}

const QString& FieldHeadBase1::workspace() const
{
    return selector()->currentName();
}

void FieldHeadBase1::startSaveAs()
{
    selector()->startSaveAs();
}

void FieldHeadBase1::askDownload()
{
    quillon::askOverConsole(this, new MessageBoxWidget3, language(), [this](int answer) {
        if (answer < InPlace || answer > DeviceOnly) {
            return;
        }
        emit attributeChanged(u"WorkspaceDownload"_s, u"Clicked"_s, u"1"_s);
        if (answer == InPlace) {
            in_item_attributeChanged(u"WorkspaceSave"_s, u"Clicked"_s, u"1"_s);
        } else if (answer == AsCopy) {
            startSaveAs();
        }
    });
}
