#include "update/ArchiveLibrary.h"

#include <QLibrary>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr int kInterface = 13; // of the headers that this is built with

template<typename Function> bool find(QLibrary& library, Function& function, const char* name)
{
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

std::optional<ArchiveLibrary> load()
{
    QLibrary library(u"archive"_s, kInterface); // stays loaded
    ArchiveLibrary calls{};
    const bool isWhole =
        find(library, calls.readNew, "archive_read_new") && find(library, calls.readFree, "archive_read_free") &&
        find(library, calls.readSupportFormatZipSeekable, "archive_read_support_format_zip_seekable") &&
        find(library, calls.readOpenFilename, "archive_read_open_filename") &&
        find(library, calls.readNextHeader, "archive_read_next_header") &&
        find(library, calls.readDataBlock, "archive_read_data_block") && find(library, calls.errorString, "archive_error_string") &&
        find(library, calls.entryPathname, "archive_entry_pathname") &&
        find(library, calls.entryPathnameUtf8, "archive_entry_pathname_utf8") &&
        find(library, calls.entryFiletype, "archive_entry_filetype") &&
        find(library, calls.entryHardlink, "archive_entry_hardlink") && find(library, calls.entrySymlink, "archive_entry_symlink");
    return isWhole ? std::optional(calls) : std::nullopt;
}

} // namespace

const ArchiveLibrary* ArchiveLibrary::instance()
{
    static const std::optional<ArchiveLibrary> library = load();
    return library ? &*library : nullptr;
}

} // namespace quillon
