#pragma once

#include <QString>

namespace quillon
{

/// A driver library of the machine, found by its registration. One module, loaded at most once at a time. GUI thread.
class DriverLibrary
{
public:
    /// Why no library is loaded. Numbers above are the system's own error codes.
    enum Status : int { Loaded = 0, NotRegistered = 1, FileMissing = 2, NotLoadable = 3, NameMissing = 4 };

    /// The class under which a driver of this family registers its library.
    static constexpr char16_t kClassId[] = u"{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}";

    DriverLibrary() = default;
    ~DriverLibrary();
    DriverLibrary(const DriverLibrary&) = delete;
    DriverLibrary& operator=(const DriverLibrary&) = delete;

    /// Finds the registered file and loads it.
    int load();
    /// Address of an exported name, null when it has none or nothing is loaded.
    void* resolve(const char* name) const;
    void unload();
    bool isLoaded() const { return mModule != nullptr; }

private:
    /// The registered path, empty for none.
    static QString registeredPath();

    void* mModule = nullptr;
};

} // namespace quillon
