#pragma once

#include "device/TUsbAudioApiDll.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <mutex>

/// What the program needs of the audio driver: devices, rate, buffer, safe mode, firmware download. Without a driver library all
/// operations give their failure value. Each failure is one warning in the log and nothing more, unless told otherwise.
/// GUI thread; the operations with DFU in their name also from one other thread at a time.
class USBAudioAPI
{
public:
    static USBAudioAPI& instance();
    /// Takes a function table in place of the registered library's; null goes back to that one, unloaded. For use before Init.
    static void setLibrary(std::unique_ptr<TUsbAudioApiDll> library);

    /// Loads the driver library. False when there is none of version 5.13.
    bool Init();
    /// major << 16 | minor of the library, 0 without one.
    unsigned apiVersion() const;
    /// Whether the library is compatible with version 5.13.
    bool checkApiVersion() const;

    /// How many devices the driver lists after a refresh, 0 on failure.
    unsigned getNumberOfAvailableDevice();
    /// Their names; one that does not answer is left out. Opens the active device anew when it is among them.
    QStringList getNameOfAllDevice();
    /// Their properties; one that does not answer is left out, so that a place in the list is no device index.
    QList<TUsbAudioDeviceProperties> getPropertiesOfAllDevice();
    /// The names that occur at least twice, each once. True if there are any.
    bool getDuplicateDeviceNames(QStringList& names);
    bool isActiveDeviceOnline();
    /// Vendor and product of the devices of interest, in text form.
    void setDevices(const QList<QPair<QString, QString>>& devices);
    const QList<QPair<QString, QString>>& devices() const { return mDevices; }

    /// Makes the first device of this name the one that the operations below speak to. On failure the name stays as it was.
    bool setDeviceToActiveByName(const QString& name);

    /// Hz, 0 on failure.
    int getSampleRateOfActiveDevice();
    QList<int> getSampleRateOfActiveDeviceSupported();
    /// False, without a log line, for a rate that is not supported.
    bool setSampleRateOfActiveDevice(unsigned rate);

    /// Samples, 0 on failure.
    int getBufferSizeOfActiveDevice();
    /// Samples, at the current rate.
    QList<int> getBufferSizeOfActiveDeviceSupported();
    /// False, without a log line, for a size that is not supported.
    bool setBufferSizeOfActiveDevice(unsigned size);
    bool getSafeModeOfActiveDevice();
    bool setSafeModeOfActiveDevice(bool on);

    /// Begins to write a firmware file into the active device. False, without a log line, when that device is not listed.
    bool setDFUStart(const QString& path);
    unsigned getDFUBytesCurrent();
    unsigned getDFUBytesTotal();
    /// 1..100 while all goes well, 0 on failure.
    int getDFUPercentageComplete();
    bool setDFUTerminate();

    static long long dbToLinear(double db, double floorDb);
    static double linearToDb(long long linear);

private:
    struct Listed;
    struct DfuStatus;

    USBAudioAPI();
    unsigned countDevices();
    void visitDevices(const char* who, const std::function<bool(const Listed&)>& keep);
    int indexOf(const QString& name);
    bool open(const char* who, unsigned index, TUsbAudioHandle& handle);
    bool close(const char* who, TUsbAudioHandle handle);
    void keepHandle(const char* who, TUsbAudioHandle handle);
    bool streamInfo(const char* who, TUsbAudioAsioInstanceDetails& details, TUsbAudioAsioInstanceInfo& info);
    bool setPreferred(const char* who, unsigned instance, unsigned current, unsigned size, unsigned flags);
    QString activeName() const;
    bool dfuStatus(const char* who, DfuStatus& status);

    std::unique_ptr<TUsbAudioApiDll> mDll; // never null
    // One call of the library at a time, the download calls excepted: those belong to one thread and may take long.
    std::mutex mLibraryMutex;
    TUsbAudioHandle mHandle = 0;
    QString mActiveDeviceName; // guarded by mNameMutex
    mutable std::mutex mNameMutex;
    QList<QPair<QString, QString>> mDevices;
};
