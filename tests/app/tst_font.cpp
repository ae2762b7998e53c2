#include "app/GlobalFont.h"
#include "resources/Resources.h"

#include <QFontMetrics>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

void grow(QFont& font, bool pixels, int size)
{
    pixels ? font.setPixelSize(size) : font.setPointSize(size);
}

// The growth as a plain loop: the size at which it stops, with nothing remembered.
template<typename Fits> int plainStop(QFont& font, bool pixels, Fits fits)
{
    int size = 5;
    grow(font, pixels, size);
    while (fits(QFontMetrics(font))) {
        grow(font, pixels, ++size);
        if (size > 60) {
            break;
        }
    }
    return size;
}

int plainFit(QFont font, bool pixels, const QString& text, int width, int height)
{
    return plainStop(font, pixels,
                     [&](const QFontMetrics& metrics) {
                         return (height < 0 || metrics.height() <= height) &&
                                (width < 0 || metrics.horizontalAdvance(text) <= width);
                     }) -
           1;
}

QString randomText(QRandomGenerator& random)
{
    static const QString letters = u"aWi1 -∞dBGain输入音量fi"_s;
    QString text;
    for (int left = random.bounded(12); left > 0; --left) {
        text += letters.at(random.bounded(static_cast<int>(letters.size())));
    }
    return text;
}

} // namespace

class TestFont : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { quillon::initResources(); }
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void goesOnWithoutItsFonts()
    {
        const QFont before = GlobalFont::instance().font();
        QTest::ignoreMessage(QtWarningMsg, "GlobalFont::load // failed to add file[:/Font/none.ttf]");
        QTest::ignoreMessage(QtWarningMsg, "GlobalFont::load // failed to load font");
        QVERIFY(!GlobalFont::instance().load({u":/Font/none.ttf"_s}));
        QCOMPARE(GlobalFont::instance().font(), before);
        QVERIFY(GlobalFont::instance().pixelSizeForHeight(before, 20) > 4);
    }

    void takesTheFirstFace()
    {
        QTest::ignoreMessage(QtWarningMsg, "GlobalFont::load // failed to add file[:/Font/none.ttf]");
        QVERIFY(GlobalFont::instance().load(QStringList{u":/Font/none.ttf"_s} + quillon::applicationFontPaths()));
        const QFont font = GlobalFont::instance().font();
        QVERIFY(QFontInfo(font).exactMatch());
        QCOMPARE(font.weight(), 700);
        QCOMPARE(font.pixelSize(), 16);
    }

    void fitsLikeThePlainLoop()
    {
        GlobalFont& fonts = GlobalFont::instance();
        QRandomGenerator random(47);
        QFont light(u"Noto Sans"_s);
        light.setWeight(QFont::Light);
        light.setLetterSpacing(QFont::AbsoluteSpacing, 1);
        QFont other(fonts.font());
        other.setItalic(true);
        const QFont faces[] = {fonts.font(), light, other};
        // In pixels every text comes twice, so that both the first measuring and the remembered one are compared.
        for (int i = 0; i < 60; ++i) {
            const QString text = randomText(random);
            const QFont& face = faces[i % 3];
            for (const bool pixels : {true, false, true}) {
                const int width = random.bounded(260);
                const int height = random.bounded(45);
                const QRect rect(3, 4, width, height);
                const int expected = plainFit(face, pixels, text, width, height);
                QCOMPARE(pixels ? fonts.pixelSizeForRect(face, text, rect) : fonts.pointSizeForRect(face, text, rect), expected);
                const int tall = plainFit(face, pixels, text, -1, height);
                QCOMPARE(pixels ? fonts.pixelSizeForHeight(face, height) : fonts.pointSizeForHeight(face, height), tall);
            }
            const int width = random.bounded(260);
            QCOMPARE(fonts.pointSizeForWidth(face, text, width), plainFit(face, false, text, width, -1));
            QFont stopped(face);
            plainStop(stopped, false, [&](const QFontMetrics& metrics) { return metrics.height() <= width / 4; });
            QCOMPARE(fonts.textWidthForHeight(face, text, width / 4), QFontMetrics(stopped).horizontalAdvance(text));
        }
    }

    void limits()
    {
        const GlobalFont& fonts = GlobalFont::instance();
        const QFont font = fonts.font();
        QCOMPARE(fonts.pixelSizeForHeight(font, 1), 4);
        QCOMPARE(fonts.pointSizeForWidth(font, u"a"_s, 10000), 60);
        QCOMPARE(fonts.pointSizeForWidth(font, QString(), 0), 60);
        QCOMPARE(fonts.pixelSizeForRect(font, QString(), QRect(0, 0, 10, 10000)), 60);
        // More texts than are remembered, and then the first one again.
        const int first = fonts.pointSizeForWidth(font, u"text 0"_s, 80);
        for (int i = 1; i < 2100; ++i) {
            fonts.pointSizeForWidth(font, u"text "_s + QString::number(i), 20);
        }
        QCOMPARE(fonts.pointSizeForWidth(font, u"text 0"_s, 80), first);
    }
};

QTEST_MAIN(TestFont)
#include "tst_font.moc"
