#pragma once
// Writes zip archives with whatever names and kinds a hostile hand may choose.

#include <QByteArray>
#include <QList>
#include <QtEndian>

struct ZipEntry {
    QByteArray name;
    QByteArray content;
    quint32 mode = 0100644; // as of a file system: kind and permissions; 0: none told
};

class ZipWriter
{
public:
    static QByteArray archive(const QList<ZipEntry>& entries)
    {
        QByteArray files;
        QByteArray directory;
        for (const ZipEntry& entry : entries) {
            const auto offset = static_cast<quint32>(files.size());
            files += number<quint32>(0x04034b50) + common(entry) + entry.name + entry.content;
            directory += number<quint32>(0x02014b50) + number<quint16>(0x0314) + common(entry);
            directory += number<quint16>(0) + number<quint16>(0) + number<quint16>(0); // comment, disk, kind of text
            directory += number<quint32>(entry.mode << 16) + number<quint32>(offset) + entry.name;
        }
        const auto count = number<quint16>(static_cast<quint16>(entries.size()));
        return files + directory + number<quint32>(0x06054b50) + number<quint16>(0) + number<quint16>(0) + count + count +
               number<quint32>(static_cast<quint32>(directory.size())) + number<quint32>(static_cast<quint32>(files.size())) +
               number<quint16>(0);
    }

private:
    template<typename T> static QByteArray number(T value)
    {
        const T bytes = qToLittleEndian(value);
        return {reinterpret_cast<const char*>(&bytes), sizeof bytes};
    }

    // What the head of a file and its line in the directory have in common: from the needed version to the sizes of the name.
    static QByteArray common(const ZipEntry& entry)
    {
        const auto size = number<quint32>(static_cast<quint32>(entry.content.size()));
        return number<quint16>(20) + number<quint16>(0) + number<quint16>(0) + number<quint32>(0x58210000) +
               number<quint32>(checksum(entry.content)) + size + size + number<quint16>(static_cast<quint16>(entry.name.size())) +
               number<quint16>(0);
    }

    static quint32 checksum(const QByteArray& bytes)
    {
        quint32 sum = 0xFFFFFFFF;
        for (const char byte : bytes) {
            sum ^= static_cast<quint8>(byte);
            for (int bit = 0; bit < 8; ++bit) {
                sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
            }
        }
        return ~sum;
    }
};
