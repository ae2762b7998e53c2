#include "console/settings/WidgetAbout1.h"

#include "console/settings/SettingsRows.h"
#include "update/UpdateGateway.h"

#include <QDesktopServices>
#include <QShowEvent>
#include <QUrl>
#include <algorithm>

using namespace Qt::StringLiterals;
using quillon::BoxText;
using quillon::RowKind;
using quillon::RowShape;

namespace
{

enum Row { Model, Hardware, Firmware, Software, Website };

constexpr RowShape kRows[]{
    {u"Model", {u"Model", u"设备型号"}, RowKind::Text},
    {u"HardwareVersion", {u"Hardware version", u"设备硬件版本"}, RowKind::Text},
    {u"FirmwareVersion", {u"Firmware version", u"设备固件版本"}, RowKind::Text},
    {u"SoftwareVersion", {u"Software version", u"设备软件版本"}, RowKind::Text},
    {u"Website", {u"Official website", u"访问官网"}, RowKind::Button, {}, {u"Open", u"打开"}},
};

constexpr BoxText kFetching{u"  =>  Fetching...", u"  =>  正在获取..."};
constexpr BoxText kFailed{u"  =>  Fetch failed", u"  =>  获取失败"};
constexpr BoxText kRetry{u"Retry", u"重试"};
constexpr BoxText kUpdate{u"Update", u"更新"};
constexpr qsizetype kLongestVersion = 24;

/// A version of the manifest, which anybody may have written. Empty where it can be none.
QString asVersion(const QString& text)
{
    const bool plain =
        text.size() <= kLongestVersion && std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c > u' ' && c < u'\x7F'; });
    if (!plain)
        qWarning("WidgetAbout1 //version of the manifest is none");
    return plain ? text : QString();
}

QString told(int row, const QString& version)
{
    if (version.isEmpty())
        return u"–"_s;
    const bool beta = row == Software && version.section(u'.', -1) != "0"_L1;
    return u'V' + version + (beta ? u" Beta"_s : QString());
}

} // namespace

WidgetAbout1::WidgetAbout1(QWidget* parent) : QWidget(parent), mRows(new quillon::SettingsRows(kRows, this))
{
    setObjectName(u"SettingsAbout"_s);
    setModel(u"R47"_s);
    setHardwareVersion(u"1.00"_s);
    connect(mRows, &quillon::SettingsRows::edited, this, [this](int row) { rowEdited(row); });
    showVersions();
}

void WidgetAbout1::setModel(const QString& model)
{
    mRows->setText(Model, model);
}

void WidgetAbout1::setHardwareVersion(const QString& version)
{
    mRows->setText(Hardware, told(Hardware, version));
}

void WidgetAbout1::setFirmwareVersion(const QString& version)
{
    mFirmware = version;
    showVersions();
}

void WidgetAbout1::setSoftwareVersion(const QString& version)
{
    mSoftware = version;
    showVersions();
}

void WidgetAbout1::setUpdateGateway(quillon::UpdateGateway* gateway)
{
    if (mGateway != nullptr)
        mGateway->disconnect(this);
    mGateway = gateway;
    mState = State::Idle;
    if (gateway != nullptr)
        connect(gateway, &quillon::UpdateGateway::fetchFinished, this, &WidgetAbout1::fetched);
    showVersions();
    if (isVisible())
        fetch();
}

void WidgetAbout1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mRows->applySetting(attribute, value);
    showVersions();
}

void WidgetAbout1::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        fetch();
}

void WidgetAbout1::rowEdited(int row)
{
    if (row == Website)
        QDesktopServices::openUrl(QUrl(QStringLiteral(QUILLON_WEBSITE)));
    else if (mState == State::Failed)
        fetch();
    else
        emit attributeChanged(objectName(), row == Firmware ? u"UpdateFirmware"_s : u"UpdateSoftware"_s, u"1"_s);
}

void WidgetAbout1::fetch()
{
    if (mGateway == nullptr || !mGateway->hasHost() || mState == State::Fetching)
        return;
    mState = State::Fetching; // first: the answer may come before the call returns
    showVersions();
    mGateway->fetch();
}

/// A manifest that somebody else asked for is as good, but only while one is waited for: else the rows would change by themselves.
void WidgetAbout1::fetched(bool success)
{
    if (mState != State::Fetching)
        return;
    mState = success ? State::Fetched : State::Failed;
    showVersions();
}

/// The newer version of a row, empty if there is none. Texts are compared, not numbers, as the connection window does.
QString WidgetAbout1::newest(int row) const
{
    const QString& current = row == Firmware ? mFirmware : mSoftware;
    if (mGateway == nullptr || mState != State::Fetched || current.isEmpty())
        return {};
    const QStringList path =
        row == Firmware ? QStringList{u"Device"_s, u"R47"_s, u"Version"_s} : QStringList{u"Software"_s, u"Win"_s, u"Version"_s};
    const QString available = asVersion(mGateway->manifestText(path));
    return available > current ? available : QString();
}

void WidgetAbout1::showVersions()
{
    const bool chinese = mRows->isChinese();
    for (const int row : {Firmware, Software}) {
        const QString current = told(row, row == Firmware ? mFirmware : mSoftware);
        const QString available = newest(row);
        if (mGateway != nullptr && mState == State::Fetching)
            mRows->setText(row, current + kFetching.in(chinese));
        else if (mGateway != nullptr && mState == State::Failed)
            mRows->setText(row, current + kFailed.in(chinese), kRetry);
        else if (!available.isEmpty())
            mRows->setText(row, current + u"  =>  "_s + told(row, available), kUpdate);
        else
            mRows->setText(row, current);
    }
}
