#include "device/Frame.h"

#include <QTest>

using namespace quillon;

namespace
{

QByteArray hex(const Report& report)
{
    return QByteArray(reinterpret_cast<const char*>(report.data()), static_cast<qsizetype>(report.size())).toHex();
}

std::optional<Frame> decode(const QByteArray& bytes)
{
    return decodeInput({reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

} // namespace

class TestFrame : public QObject
{
    Q_OBJECT
private slots:
    void outputBytes();
    void inputBytes();
    void badInput();
    void bothDirectionsRoundTrip();
};

void TestFrame::outputBytes()
{
    QCOMPARE(hex(encodeOutput({.code = 0x9103, .value = -65})), QByteArray("0022332001019103ffffffbf00006677"));
    // Only the low bits of code and tag.
    QCOMPARE(hex(encodeOutput({.code = 0x7FAB1405, .value = 0x01020304, .frameTag = 0x1234})),
             QByteArray("00223334010114050102030400006677"));
}

void TestFrame::inputBytes()
{
    // The bytes 11, 12 and 15 of a report carry nothing and may hold anything.
    const auto frame = decode(QByteArray::fromHex("2233e0f1f2ab0f80000001aabb6677cc"));
    QVERIFY(frame.has_value());
    QCOMPARE(frame->frameTag, 0xE0);
    QCOMPARE(int{frame->frameRouteA}, 0xF1);
    QCOMPARE(int{frame->frameRouteB}, 0xF2);
    QCOMPARE(frame->code, 0xAB0F);
    QCOMPARE(frame->value, -2147483647);
}

void TestFrame::badInput()
{
    const QByteArray good = QByteArray::fromHex("22332001012104000000050000667700");
    QVERIFY(decode(good).has_value());
    for (const int mark : {0, 1, 13, 14}) {
        QByteArray bad = good;
        bad[mark] = static_cast<char>(bad[mark] ^ 1);
        QVERIFY2(!decode(bad), qPrintable(QString::number(mark)));
    }
    QVERIFY(!decode(good.first(15)));
    QVERIFY(!decode(good + '\0'));
    QVERIFY(!decode({}));
    QVERIFY2(!decode(QByteArray::fromHex("22332001010000000000050000667700")), "there is no code 0");
}

void TestFrame::bothDirectionsRoundTrip()
{
    for (const int value : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), -1}) {
        const Frame frame{.code = 0xFFFF, .value = value, .frameRouteA = 0xFE, .frameRouteB = 0x80, .frameTag = 0xFF};
        QCOMPARE(decodeInput(encodeInput(frame)), std::optional(frame));
        QCOMPARE(decodeOutput(encodeOutput(frame)), std::optional(frame));
        Report numbered = encodeOutput(frame);
        numbered[0] = 1;
        QVERIFY2(!decodeOutput(numbered), "another report id is another report");
    }
}

QTEST_GUILESS_MAIN(TestFrame)
#include "tst_frame.moc"
