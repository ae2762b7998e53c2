#include "device/USBAudioAPI.h"

#include "device/DriverCall.h"
#include "device/ValueLaws.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace quillon;

namespace
{

constexpr unsigned kMajor = 5;
constexpr unsigned kMinor = 13;
// Far above any machine: a library that counts wrong must not hold up the program.
constexpr unsigned kMostDevices = 64;

QString productName(const TUsbAudioDeviceProperties& properties)
{
    const auto* end = std::find(std::begin(properties.productString), std::end(properties.productString), u'\0');
    return QString::fromUtf16(properties.productString, end - std::begin(properties.productString));
}

} // namespace

/// A device that answered, while it is being visited.
struct USBAudioAPI::Listed {
    unsigned index;
    TUsbAudioHandle handle;
    const TUsbAudioDeviceProperties& properties;
};

USBAudioAPI::USBAudioAPI() : mDll(std::make_unique<TUsbAudioApiDll>()) {}

USBAudioAPI& USBAudioAPI::instance()
{
    // Never destroyed: the library stays loaded to the end of the process, where a download may still be under way.
    static auto* instance = new USBAudioAPI;
    return *instance;
}

void USBAudioAPI::setLibrary(std::unique_ptr<TUsbAudioApiDll> library)
{
    USBAudioAPI& self = instance();
    self.mDll = library ? std::move(library) : std::make_unique<TUsbAudioApiDll>();
    self.mHandle = 0;
    const std::lock_guard lock(self.mNameMutex);
    self.mActiveDeviceName.clear();
}

bool USBAudioAPI::Init()
{
    mDll->load(); // why it fails is of no use to the user: the version tells whether there is a driver
    const unsigned version = apiVersion();
    qInfo("USBAudioAPI::Init //usb audio version API[%u.%02u]", version >> 16, version & 0xFFFF);
    if (!checkApiVersion()) {
        warn("Init", "failed to check api version");
        mDll->unload();
        return false;
    }
    return true;
}

unsigned USBAudioAPI::apiVersion() const
{
    return mDll->TUSBAUDIO_GetApiVersion ? mDll->TUSBAUDIO_GetApiVersion() : 0;
}

bool USBAudioAPI::checkApiVersion() const
{
    return mDll->TUSBAUDIO_CheckApiVersion && mDll->TUSBAUDIO_CheckApiVersion(kMajor, kMinor) != 0;
}

unsigned USBAudioAPI::getNumberOfAvailableDevice()
{
    const std::lock_guard lock(mLibraryMutex);
    return countDevices();
}

QStringList USBAudioAPI::getNameOfAllDevice()
{
    const char* who = "getNameOfAllDevice";
    const QString active = activeName();
    QStringList names;
    const std::lock_guard lock(mLibraryMutex);
    visitDevices(who, [&](const Listed& device) {
        names += productName(device.properties);
        if (names.constLast() != active) {
            return false;
        }
        keepHandle(who, device.handle);
        return true;
    });
    return names;
}

QList<TUsbAudioDeviceProperties> USBAudioAPI::getPropertiesOfAllDevice()
{
    QList<TUsbAudioDeviceProperties> all;
    const std::lock_guard lock(mLibraryMutex);
    visitDevices("getPropertiesOfAllDevice", [&all](const Listed& device) {
        all += device.properties;
        return false;
    });
    return all;
}

bool USBAudioAPI::getDuplicateDeviceNames(QStringList& names)
{
    names = getNameOfAllDevice();
    names.sort();
    QStringList duplicates;
    for (qsizetype i = 1; i < names.size(); ++i) {
        if (names[i] == names[i - 1] && (duplicates.isEmpty() || duplicates.constLast() != names[i])) {
            duplicates += names[i];
        }
    }
    names = duplicates;
    return !names.isEmpty();
}

bool USBAudioAPI::isActiveDeviceOnline()
{
    return getNameOfAllDevice().contains(activeName());
}

void USBAudioAPI::setDevices(const QList<QPair<QString, QString>>& devices)
{
    mDevices = devices;
}

bool USBAudioAPI::setDeviceToActiveByName(const QString& name)
{
    const char* who = "setDeviceToActiveByName";
    const std::lock_guard lock(mLibraryMutex);
    const int index = indexOf(name);
    if (index < 0) {
        warn(who, "invalid device name");
        return false;
    }
    TUsbAudioHandle handle = 0;
    if (!open(who, static_cast<unsigned>(index), handle)) {
        return false;
    }
    if (!succeeded(mDll->TUSBAUDIO_SetPreferredASIODevice, handle, 0u)) {
        warn(who, "failed to set preferred asio device");
    }
    // Opened anew, so that the handle is that of the preferred device.
    if (!close(who, handle) || !open(who, static_cast<unsigned>(index), handle)) {
        return false;
    }
    keepHandle(who, handle);
    const std::lock_guard nameLock(mNameMutex);
    mActiveDeviceName = name;
    return true;
}

long long USBAudioAPI::dbToLinear(double db, double floorDb)
{
    return ::dbToLinear(db, floorDb);
}

double USBAudioAPI::linearToDb(long long linear)
{
    return ::linearToDb(linear);
}

unsigned USBAudioAPI::countDevices()
{
    if (!mDll->TUSBAUDIO_GetDeviceCount || !succeeded(mDll->TUSBAUDIO_EnumerateDevices)) {
        warn("getNumberOfAvailableDevice", "failed to enumerate devices");
        return 0;
    }
    return std::min<unsigned>(mDll->TUSBAUDIO_GetDeviceCount(), kMostDevices);
}

/// Opens every device in turn. One that keep gives false for is closed again.
void USBAudioAPI::visitDevices(const char* who, const std::function<bool(const Listed&)>& keep)
{
    const unsigned count = countDevices();
    for (unsigned index = 0; index < count; ++index) {
        TUsbAudioHandle handle = 0;
        if (!open(who, index, handle)) {
            continue;
        }
        TUsbAudioDeviceProperties properties{};
        properties.size = sizeof(properties);
        const bool known = succeeded(mDll->TUSBAUDIO_GetDeviceProperties, handle, &properties);
        if (!known) {
            warn(who, "failed to get device properties");
        }
        if (!known || !keep({index, handle, properties})) {
            close(who, handle);
        }
    }
}

/// The driver's index of the first device of this name, -1 for none.
int USBAudioAPI::indexOf(const QString& name)
{
    int found = -1;
    visitDevices("getPropertiesOfAllDevice", [&](const Listed& device) {
        if (found < 0 && productName(device.properties) == name) {
            found = static_cast<int>(device.index);
        }
        return false;
    });
    return found;
}

bool USBAudioAPI::open(const char* who, unsigned index, TUsbAudioHandle& handle)
{
    if (!succeeded(mDll->TUSBAUDIO_OpenDeviceByIndex, index, &handle)) {
        warn(who, "failed to open device by index");
        return false;
    }
    return true;
}

bool USBAudioAPI::close(const char* who, TUsbAudioHandle handle)
{
    if (!succeeded(mDll->TUSBAUDIO_CloseDevice, handle)) {
        warn(who, "failed to close device");
        return false;
    }
    return true;
}

/// Makes this the handle of the active device, in place of the one before.
void USBAudioAPI::keepHandle(const char* who, TUsbAudioHandle handle)
{
    const TUsbAudioHandle old = std::exchange(mHandle, handle);
    if (old != 0 && old != handle) {
        close(who, old);
    }
}

QString USBAudioAPI::activeName() const
{
    const std::lock_guard lock(mNameMutex);
    return mActiveDeviceName;
}
