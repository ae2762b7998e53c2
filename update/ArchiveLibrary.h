#pragma once
// The archive library, loaded when the first archive is to be read. It brings five more libraries along, which cost each start of
// the program as much as a tenth of its first window, and most starts never see an archive.

#include <archive.h>
#include <archive_entry.h>

namespace quillon
{

/// Its calls, under the names that they have behind "archive_".
struct ArchiveLibrary {
    /// Null where the library is not installed. Any thread.
    static const ArchiveLibrary* instance();

    decltype(&archive_read_new) readNew;
    decltype(&archive_read_free) readFree;
    decltype(&archive_read_support_format_zip_seekable) readSupportFormatZipSeekable;
    decltype(&archive_read_open_filename) readOpenFilename;
    decltype(&archive_read_next_header) readNextHeader;
    decltype(&archive_read_data_block) readDataBlock;
    decltype(&archive_error_string) errorString;
    decltype(&archive_entry_pathname) entryPathname;
    decltype(&archive_entry_pathname_utf8) entryPathnameUtf8;
    decltype(&archive_entry_filetype) entryFiletype;
    decltype(&archive_entry_hardlink) entryHardlink;
    decltype(&archive_entry_symlink) entrySymlink;
};

} // namespace quillon
