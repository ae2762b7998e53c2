#include "resources/Resources.h"

#include <QDir>
#include <QDirIterator>
#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <QRawFont>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
QImage drawn(const QString& name)
{
    if (!name.endsWith(".svg"_L1)) {
        return QImage(name);
    }
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(name).render(&painter);
    return image;
}

bool isBlank(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 60) {
                return false;
            }
        }
    }
    return true;
}
} // namespace

class TestArtwork : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }

    /// Every literal resource name in the program's own sources.
    void namesInTheCode()
    {
        static const QRegularExpression resource(u":/(?:Icon|Image)/[\\w/.-]+\\.(?:png|svg|ico)"_s);
        int count = 0;
        for (const char* folder :
             {"app", "connect", "console", "controls", "equalizer", "processing", "strips", "update", "workspace"}) {
            QDirIterator files(QString::fromUtf8(QUILLON_SOURCES) + u'/' + QLatin1StringView(folder), {u"*.cpp"_s, u"*.h"_s},
                               QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext()) {
                QFile file(files.next());
                QVERIFY(file.open(QIODevice::ReadOnly));
                const QString text = QString::fromUtf8(file.readAll());
                for (auto match = resource.globalMatch(text); match.hasNext(); ++count) {
                    const QString name = match.next().captured();
                    QVERIFY2(QFile::exists(name), qPrintable(name));
                }
            }
        }
        QVERIFY(count > 5);
    }

    void nothingIsBlank()
    {
        QDirIterator names({u":/Icon"_s}, QDir::Files, QDirIterator::Subdirectories);
        QDirIterator images({u":/Image"_s}, QDir::Files, QDirIterator::Subdirectories);
        int count = 0;
        for (QDirIterator* walk : {&names, &images}) {
            for (; walk->hasNext(); ++count) {
                const QString name = walk->next();
                const QImage image = drawn(name);
                QVERIFY2(!image.isNull() && !isBlank(image), qPrintable(name));
            }
        }
        QVERIFY(count > 30);
    }

    void iconFilesHoldSmallAndLargeSizes()
    {
        for (const QString& name : {u":/Icon/AppIcon.ico"_s, u":/Icon/Vantor.ico"_s}) {
            const QList<QSize> sizes = QIcon(name).availableSizes();
            for (const int size : {16, 32, 256}) {
                QVERIFY2(sizes.contains(QSize(size, size)), qPrintable(name));
                QVERIFY(!isBlank(QIcon(name).pixmap(size, size).toImage()));
            }
        }
    }

    /// The ring is cut to a sector over the face: it must lie on the track, clear of the pointer and of the text.
    void ringLiesOutsideThePointer()
    {
        const QImage ring(u":/Icon/Ellipse.png"_s);
        QCOMPARE(ring.size(), QImage(u":/Icon/EllipseBackground.png"_s).size());
        const int middle = ring.height() / 2;
        int first = 0;
        while (ring.pixelColor(first, middle).alpha() < 128) {
            ++first;
        }
        int last = first;
        while (ring.pixelColor(last, middle).alpha() > 128) {
            ++last;
        }
        QVERIFY(first > 0);
        QVERIFY(middle - last > ring.width() * 0.375);
        QCOMPARE(ring.pixelColor((first + last) / 2, middle), QColor(67, 207, 124));
    }

    void firstFaceHasTheSignsOfTheDials()
    {
        if (!QFile::exists(u":/Font/SourceHanSansCN-Bold.ttf"_s)) {
            QSKIP("built without the font packages");
        }
        const QRawFont face(u":/Font/SourceHanSansCN-Bold.ttf"_s, 16);
        QVERIFY(face.isValid());
        for (const char32_t sign : U"\u221E\u00B0+-0dBΩ设备恢复均衡闪避静音，。") {
            QVERIFY2(sign == 0 || face.supportsCharacter(sign), qPrintable(QString::number(sign, 16)));
        }
        for (const QString& file : QDir(u":/Font"_s).entryList()) {
            QVERIFY2(QFontDatabase::addApplicationFont(":/Font/"_L1 + file) >= 0, qPrintable(file));
        }
    }
};

QTEST_MAIN(TestArtwork)
#include "tst_artwork.moc"
