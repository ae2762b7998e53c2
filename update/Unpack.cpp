#include "update/Unpack.h"

#include "update/ArchiveLibrary.h"
#include "update/UpdateThread.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <memory>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr size_t kBlock = 64 * 1024;

struct Closer {
    const ArchiveLibrary* library;
    void operator()(archive* handle) const { library->readFree(handle); }
};
using Reader = std::unique_ptr<archive, Closer>;

/// An entry's name with its folders, "a/b.bin"; empty when it is none that stays inside the folder it is unpacked to.
QString safeName(const ArchiveLibrary& library, archive_entry* entry)
{
    const char* raw = library.entryPathnameUtf8(entry);
    if (raw == nullptr) {
        raw = library.entryPathname(entry);
    }
    QString name = QString::fromUtf8(raw);
    if (name.endsWith(u'/')) {
        name.chop(1); // a folder
    }
    const QStringList parts = name.split(u'/');
    for (const QString& part : parts) {
        const bool isPlain =
            std::all_of(part.cbegin(), part.cend(), [](QChar c) { return c.isPrint() && c != u'\\' && c != u':'; });
        if (part.isEmpty() || part == u"."_s || part == u".."_s || !isPlain) {
            return {};
        }
    }
    return name;
}

/// Unpacks entry by entry and remembers how much there was.
class Unpacker
{
public:
    Unpacker(const ArchiveLibrary& library, archive* reader, const QDir& folder, const QString& only, const UnpackLimits& limits)
        : mLibrary(library), mReader(reader), mFolder(folder), mOnly(only), mLimits(limits)
    {
    }

    QString all()
    {
        archive_entry* entry = nullptr;
        int status = mLibrary.readNextHeader(mReader, &entry);
        for (; status == ARCHIVE_OK; status = mLibrary.readNextHeader(mReader, &entry)) {
            if (++mEntries > mLimits.entries) {
                return u"too many entries"_s;
            }
            if (const QString refusal = one(entry); !refusal.isEmpty()) {
                return refusal;
            }
        }
        return status == ARCHIVE_EOF ? QString() : damaged();
    }

private:
    QString damaged() const
    {
        const char* why = mLibrary.errorString(mReader);
        return u"damaged archive: "_s + QString::fromUtf8(why != nullptr ? why : "unknown");
    }

    QString one(archive_entry* entry)
    {
        const auto type = mLibrary.entryFiletype(entry);
        const bool isLink = mLibrary.entryHardlink(entry) != nullptr || mLibrary.entrySymlink(entry) != nullptr;
        if (isLink || (type != AE_IFREG && type != AE_IFDIR)) {
            return u"an entry that is neither file nor folder"_s;
        }
        const QString name = safeName(mLibrary, entry);
        if (name.isEmpty()) {
            return u"an entry whose name leaves the folder"_s;
        }
        if (!mOnly.isEmpty() && (name != mOnly || type != AE_IFREG)) {
            return {};
        }
        const QString parent = type == AE_IFDIR ? name : QFileInfo(name).path();
        if (!mFolder.mkpath(parent)) {
            return u"no folder can be made for an entry"_s;
        }
        return type == AE_IFDIR ? QString() : file(mFolder.filePath(name));
    }

    QString file(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            return u"a file can not be made: "_s + file.errorString();
        }
        const void* block = nullptr;
        size_t size = 0;
        la_int64_t offset = 0;
        int status = ARCHIVE_OK;
        while ((status = mLibrary.readDataBlock(mReader, &block, &size, &offset)) == ARCHIVE_OK) {
            mBytes += static_cast<qint64>(size);
            if (mBytes > mLimits.bytes) {
                return u"too large"_s;
            }
            if (UpdateThread::isStopping()) {
                return u"stopped"_s;
            }
            if (file.pos() != offset ||
                file.write(static_cast<const char*>(block), static_cast<qint64>(size)) != static_cast<qint64>(size)) {
                return u"a file can not be written: "_s + file.errorString();
            }
        }
        if (status != ARCHIVE_EOF) {
            return damaged();
        }
        return file.flush() ? QString() : u"a file can not be written: "_s + file.errorString();
    }

    const ArchiveLibrary& mLibrary;
    archive* mReader;
    QDir mFolder;
    QString mOnly;
    UnpackLimits mLimits;
    int mEntries = 0;
    qint64 mBytes = 0;
};

} // namespace

QString unpack(const QString& archive, const QString& folder, const QString& only, const UnpackLimits& limits)
{
    const ArchiveLibrary* library = ArchiveLibrary::instance();
    if (library == nullptr) {
        return u"the archive library is not installed"_s;
    }
    const Reader reader(library->readNew(), Closer{library});
    // By the directory at its end, so that an archive that was cut off is none.
    library->readSupportFormatZipSeekable(reader.get());
    if (library->readOpenFilename(reader.get(), QFile::encodeName(archive).constData(), kBlock) != ARCHIVE_OK) {
        return u"no archive"_s;
    }
    return Unpacker(*library, reader.get(), QDir(folder), only, limits).all();
}

} // namespace quillon
