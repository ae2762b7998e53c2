// Turns the SVG sources of the artwork into the pictures that the program asks for. Runs at build time, offscreen.
//
// usage: render_art SOURCES OUTPUT FONT...
// Renders SOURCES/art.list and the recovery page into OUTPUT, and lists them there in art.qrc.
//
// SVG of the tiny profile only; what Qt's renderer does not know (filters, masks, markers) is missing in the picture.

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <QtEndian>

#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
[[noreturn]] void fail(const QString& what)
{
    std::fprintf(stderr, "render_art: %s\n", qPrintable(what));
    std::exit(1);
}

QByteArray readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(path + ": "_L1 + file.errorString());
    }
    return file.readAll();
}

void writeAll(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        fail(path + ": "_L1 + file.errorString());
    }
}

/// Where the pictures go, and their names for the resource compiler.
struct Output {
    QDir folder;
    QString list;

    void add(const QString& name, const QByteArray& bytes)
    {
        writeAll(folder.filePath(name), bytes);
        list += u"<file>%1</file>\n"_s.arg(name);
    }
};

QImage render(const QByteArray& svg, QSize size, const QString& name)
{
    QSvgRenderer renderer(svg);
    if (!renderer.isValid()) {
        fail(name + ": not a picture"_L1);
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

QByteArray png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG", 0)) {
        fail(u"no PNG writer"_s);
    }
    return bytes;
}

/// An icon file of several sizes, each a PNG: the writer that comes with Qt puts one size into a file.
QByteArray ico(const QByteArray& svg, const QString& name)
{
    constexpr int kSizes[]{16, 20, 24, 32, 40, 48, 64, 128, 256};
    QByteArray head;
    QByteArray body;
    const auto put = [&head](auto value) {
        value = qToLittleEndian(value);
        head.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    put(quint16(0));
    put(quint16(1));
    put(quint16(std::size(kSizes)));
    const int start = 6 + 16 * int(std::size(kSizes));
    for (const int size : kSizes) {
        const QByteArray picture = png(render(svg, {size, size}, name));
        put(quint8(size)); // 256 is written as 0
        put(quint8(size));
        put(quint16(0));
        put(quint16(1));
        put(quint16(32));
        put(quint32(picture.size()));
        put(quint32(start + body.size()));
        body += picture;
    }
    return head + body;
}

/// The words of the recovery page, by picture and language. Keys stand between @ in the template.
struct Words {
    const char* source;
    const char* output;
    QSize size;
    std::vector<std::pair<const char*, QString>> values;
};

std::vector<Words> recoveryPictures()
{
    const std::pair<const char*, QString> accent[]{{"LIGHT", u"#0aa84f"_s}, {"DARK", u"#017c37"_s}, {"EDGE", u"#43cf7c"_s}};
    const std::pair<const char*, QString> plain[]{{"LIGHT", u"#424242"_s}, {"DARK", u"#303030"_s}, {"EDGE", u"#5a5a5a"_s}};
    const QSize notice(1440, 920);
    const QSize button(1200, 288);
    return {
        {"factory-notice.svg",
         "Image/FactoryNoticeEN.png",
         notice,
         {{"TITLE", u"The device is in recovery mode"_s},
          {"LINE1", u"Its firmware has to be updated before it can be used."_s},
          {"LINE2", u"Leave it connected until the update is done."_s}}},
        {"factory-notice.svg",
         "Image/FactoryNoticeCN.png",
         notice,
         {{"TITLE", u"设备处于恢复模式"_s},
          {"LINE1", u"请先更新固件，然后即可继续使用。"_s},
          {"LINE2", u"更新完成之前，请保持设备连接。"_s}}},
        {"factory-button.svg",
         "Image/FactoryUpdateOnlineEN.png",
         button,
         {{"TITLE", u"Update online"_s}, accent[0], accent[1], accent[2]}},
        {"factory-button.svg",
         "Image/FactoryUpdateOnlineCN.png",
         button,
         {{"TITLE", u"在线更新"_s}, accent[0], accent[1], accent[2]}},
        {"factory-button.svg",
         "Image/FactoryUpdateManualEN.png",
         button,
         {{"TITLE", u"Choose a file..."_s}, plain[0], plain[1], plain[2]}},
        {"factory-button.svg",
         "Image/FactoryUpdateManualCN.png",
         button,
         {{"TITLE", u"选择文件..."_s}, plain[0], plain[1], plain[2]}},
    };
}

void renderList(const QDir& sources, Output& output)
{
    QTextStream list(readAll(sources.filePath(u"art.list"_s)));
    for (QString line; list.readLineInto(&line);) {
        const QStringList fields = line.simplified().split(u' ');
        if (line.startsWith(u'#') || fields.size() != 4) {
            continue;
        }
        const QByteArray svg = readAll(sources.filePath(fields[0]));
        const QSize size(fields[2].toInt(), fields[3].toInt());
        const QString& to = fields[1];
        output.add(to, size.isEmpty() ? svg : to.endsWith(".ico"_L1) ? ico(svg, to) : png(render(svg, size, to)));
    }
}

void renderRecovery(const QDir& sources, Output& output, const QString& family)
{
    for (const Words& words : recoveryPictures()) {
        QString svg = QString::fromUtf8(readAll(sources.filePath("images/"_L1 + QLatin1StringView(words.source))));
        svg.replace("@FAMILY@"_L1, family);
        for (const auto& [key, value] : words.values) {
            svg.replace(u"@%1@"_s.arg(QLatin1StringView(key)), value.toHtmlEscaped());
        }
        const QString name = QLatin1StringView(words.output);
        output.add(name, png(render(svg.toUtf8(), words.size, name)));
    }
}
} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    if (arguments.size() < 2) {
        fail(u"usage: render_art SOURCES OUTPUT FONT..."_s);
    }
    QString family = u"sans-serif"_s;
    for (const QString& font : arguments.mid(2)) {
        const QStringList families = QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(font));
        if (!families.isEmpty()) {
            family = families.first();
        }
    }
    Output output{QDir(arguments[1]), {}};
    renderList(arguments[0], output);
    renderRecovery(arguments[0], output, family);
    // Last, and only when all went well: the build takes this file for the sign that the pictures are there.
    writeAll(output.folder.filePath(u"art.qrc"_s),
             ("<RCC><qresource prefix=\"/\">\n"_L1 + output.list + "</qresource></RCC>\n"_L1).toUtf8());
    return 0;
}
