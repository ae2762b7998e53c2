#include "resources/Resources.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <QRawFont>
#include <QRegularExpression>
#include <QSet>
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
/// A row for every literal resource name in the program's own sources that has none yet.
void addNamesInTheCode()
{
    static const QRegularExpression resource(u":/((?:Icon|Image)/[\\w/.-]+\\.(?:png|svg|ico))"_s);
    QSet<QString> names;
    QDirIterator files(QString::fromUtf8(QUILLON_SOURCES), {u"*.cpp"_s, u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (path.contains("/tests/"_L1) || path.contains("/build/"_L1) || path.contains("/tools/"_L1)) {
            continue;
        }
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (auto match = resource.globalMatch(text); match.hasNext();) {
            names.insert(match.next().captured(1));
        }
    }
    QVERIFY(names.size() > 5);
    for (const QString& name : names) {
        QTest::newRow(qPrintable("code: "_L1 + name)) << ":/"_L1 + name;
    }
}
} // namespace

class TestArtwork : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }

    /// What the program and its settings, pages and windows ask for by name.
    void picturesAreThere_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"Icon/AppIcon.ico",
                                 "Icon/CheckBox_Checked.png",
                                 "Icon/CheckBox_Uncheck.png",
                                 "Icon/Ellipse.png",
                                 "Icon/EllipseBackground.png",
                                 "Icon/EqBackgroundIn.svg",
                                 "Icon/EqBackgroundOut.svg",
                                 "Icon/R47Device.svg",
                                 "Icon/Settings.png",
                                 "Icon/Trash.png",
                                 "Icon/Vantor.ico",
                                 "Icon/VerticalRoundedRectBlack.png",
                                 "Icon/VerticalRoundedRectGreen.png",
                                 "Icon/ZELMORALogo.png",
                                 "Icon/autoStart.svg",
                                 "Icon/autoStartUnchecked.svg",
                                 "Icon/close.svg",
                                 "Icon/duckingBackground.svg",
                                 "Icon/min.svg",
                                 "Icon/more.png",
                                 "Icon/pullDown.png",
                                 "Icon/pullUp.png",
                                 "Icon/tick.png",
                                 "Image/FactoryNoticeCN.png",
                                 "Image/FactoryNoticeEN.png",
                                 "Image/FactoryUpdateManualCN.png",
                                 "Image/FactoryUpdateManualEN.png",
                                 "Image/FactoryUpdateOnlineCN.png",
                                 "Image/FactoryUpdateOnlineEN.png"})
            QTest::newRow(name) << u":/"_s + QLatin1StringView(name);
        addNamesInTheCode();
    }

    void picturesAreThere()
    {
        QFETCH(QString, name);
        const QImage image = drawn(name);
        QVERIFY(!image.isNull());
        QVERIFY(!isBlank(image));
        if (!name.endsWith(".svg"_L1))
            QVERIFY(std::max(image.width(), image.height()) >= 128 || name.endsWith(".ico"_L1)); // sharp on large screens
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
        for (const char* name : {"SourceHanSansCN-Bold", "NotoSans-Bold", "NotoSans-ExtraBold", "NotoSans-ExtraLight",
                                 "NotoSans-Light", "NotoSans-Medium", "NotoSans-Regular"}) {
            QVERIFY2(QFontDatabase::addApplicationFont(u":/Font/%1.ttf"_s.arg(QLatin1StringView(name))) >= 0, name);
        }
    }
};

QTEST_MAIN(TestArtwork)
#include "tst_artwork.moc"
