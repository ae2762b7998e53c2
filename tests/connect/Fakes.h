#pragma once
// A driver, a HID device, a console window and an update host that do what a test tells them.

#include "console/MainWindow_Base.h"
#include "device/DeviceR47.h"
#include "device/USBAudioAPI.h"
#include "tests/device/FakeHid.h"
#include "tests/device/FakeTable.h"
#include "update/UpdateGateway.h"

#include <functional>
#include <memory>

/// Puts a driver without devices and a silent HID device in place.
inline void installFakes(faketable::Driver& driver, const fakehid::Behaviour& behaviour = {})
{
    faketable::driver = &driver;
    USBAudioAPI::setLibrary(std::make_unique<faketable::FakeDll>());
    USBAudioAPI::instance().Init();
    fakehid::install(behaviour);
}

/// A console that notes what it is told.
class FakeWindow : public MainWindow_Base
{
public:
    static inline int alive = 0;

    explicit FakeWindow(int helloIntervalMs = 500)
    {
        ++alive;
        setHelloInterval(helloIntervalMs);
        mDevice.setUsbIdentity(0x152A, 0x875C);
        connect(&mDevice, &DeviceR47::newFrameReceived, this,
                [this](const DeviceType1::FrameInfo& frame) { finishAuth(frame.value); });
        setDevice(&mDevice, QStringLiteral("R47"));
    }
    ~FakeWindow() override { --alive; }

    void sendAuth() override
    {
        mDevice.in_fieldSystem_attributeChanged(QStringLiteral("MainWindow"), QStringLiteral("Auth"), QStringLiteral("1"));
    }
    void applyWorkMode(int mode) override { modes.append(mode); }
    void in_USBAudio_attributeChanged(QString, QString) override {}
    using MainWindow_Base::inHandshake;

    QList<int> modes;

private:
    DeviceR47 mDevice;
};

/// An update host whose manifest and answers a test writes.
class FakeGateway : public quillon::UpdateGateway
{
public:
    bool fetchAndWait() override
    {
        calls << QStringLiteral("wait");
        if (whileWaiting) {
            whileWaiting();
        }
        return reachable;
    }
    void fetch() override { calls << QStringLiteral("fetch"); }
    QString manifestText(const QStringList& path) const override
    {
        ++reads;
        return manifest.value(path.join(QLatin1Char('/')));
    }
    void downloadSoftware(const QString& url) override { calls << QStringLiteral("software ") + url; }
    void downloadFirmware(const QString& url) override { calls << QStringLiteral("firmware ") + url; }
    void updateFirmware(const QString& path) override { calls << QStringLiteral("file ") + path; }
    void setFirmwareVersion(const QString& version) override { calls << QStringLiteral("version ") + version; }

    bool reachable = true;
    std::function<void()> whileWaiting;
    QHash<QString, QString> manifest;
    QStringList calls;
    mutable int reads = 0; // of the manifest
};
