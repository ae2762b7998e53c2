#include "device/DriverLibrary.h"

#include <QFileInfo>
#include <array>
#include <qt_windows.h>

namespace quillon
{

namespace
{

/// A key of the registry, closed with the object.
class Key
{
public:
    Key(HKEY parent, const wchar_t* name)
    {
        // The driver's library has the width of the program: the 64-bit view, whoever asks.
        if (RegOpenKeyExW(parent, name, 0, KEY_READ | KEY_WOW64_64KEY, &mKey) != ERROR_SUCCESS) {
            mKey = nullptr;
        }
    }
    ~Key()
    {
        if (mKey) {
            RegCloseKey(mKey);
        }
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    HKEY get() const { return mKey; }

private:
    HKEY mKey = nullptr;
};

} // namespace

DriverLibrary::~DriverLibrary()
{
    unload();
}

int DriverLibrary::load()
{
    unload();
    const QString path = registeredPath();
    if (path.isEmpty()) {
        return NotRegistered;
    }
    if (!QFileInfo(path).isFile()) {
        return FileMissing;
    }
    mModule = LoadLibraryW(reinterpret_cast<const wchar_t*>(path.utf16()));
    return mModule ? Loaded : static_cast<int>(GetLastError());
}

void* DriverLibrary::resolve(const char* name) const
{
    if (!mModule) {
        return nullptr;
    }
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(mModule), name));
}

void DriverLibrary::unload()
{
    if (mModule) {
        FreeLibrary(static_cast<HMODULE>(mModule));
        mModule = nullptr;
    }
}

QString DriverLibrary::registeredPath()
{
    const Key classes(HKEY_CLASSES_ROOT, L"CLSID");
    if (!classes.get()) {
        return {};
    }
    const Key driver(classes.get(), reinterpret_cast<const wchar_t*>(kClassId));
    if (!driver.get()) {
        return {};
    }
    const Key server(driver.get(), L"InprocServer32");
    if (!server.get()) {
        return {};
    }
    std::array<wchar_t, MAX_PATH + 1> path{};
    DWORD bytes = MAX_PATH * sizeof(wchar_t); // the last one stays 0: a registry text need not end with it
    DWORD type = 0;
    if (RegQueryValueExW(server.get(), nullptr, nullptr, &type, reinterpret_cast<BYTE*>(path.data()), &bytes) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return {};
    }
    return QString::fromWCharArray(path.data());
}

} // namespace quillon
