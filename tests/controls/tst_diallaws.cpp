#include "controls/dial/DialLaw.h"

#include <QRegularExpression>
#include <QTest>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillon;

class TestDialLaws : public QObject
{
    Q_OBJECT

private slots:
    /// Up and down from every value reach the bounds, on the ladder all the way, and the thresholds differ in direction.
    void ladderWalks_data()
    {
        QTest::addColumn<QList<float>>("marks");
        QTest::newRow("AUX") << QList<float>{9, -10, -52, -90};
        QTest::newRow("BT") << QList<float>{0, -10, -89, -89};
        QTest::newRow("fresh") << QList<float>{0, -10, -20, -30};
    }
    void ladderWalks()
    {
        QFETCH(QList<float>, marks);
        const Ladder ladder{marks[0], marks[1], marks[2], marks[3]};
        const auto stepAt = [&](float v, bool up) {
            const auto within = [&](float mark) { return up ? v >= mark : v > mark; };
            return within(ladder.threshold1) ? 0.5F : within(ladder.threshold2) ? 1.0F : 2.0F;
        };
        float value = ladder.threshold3;
        for (int count = 0; value < ladder.max; ++count) {
            QVERIFY2(ladder.isOn(value) && count < 500, qPrintable(QString::number(double(value))));
            const float next = ladder.steps(value, 1);
            QCOMPARE(next, std::min(value + stepAt(value, true), ladder.max));
            value = next;
        }
        for (int count = 0; value > ladder.threshold3; ++count) {
            QVERIFY2(ladder.isOn(value) && count < 500, qPrintable(QString::number(double(value))));
            const float next = ladder.steps(value, -1);
            QCOMPARE(next, std::max(value - stepAt(value, false), ladder.threshold3));
            value = next;
        }
        for (float any = -100; any < 20; any += 0.3F)
            QVERIFY(ladder.isOn(ladder.nearest(any)) && std::abs(ladder.nearest(any) - ladder.clamp(any)) <= 1);
        QCOMPARE(ladder.steps(0, 100000), ladder.max);
    }

    void ladderTexts()
    {
        LadderDialLaw law;
        law.setLadder({9, -10, -52, -90});
        for (const auto& [value, infinity, text] : {std::tuple{8.5F, true, u"+8.5"_s},
                                                    {0.0F, true, u"0.0"_s},
                                                    {-10.0F, true, u"-10"_s},
                                                    {-90.0F, true, u"-∞"_s},
                                                    {-90.0F, false, u"-90"_s},
                                                    {9.0F, true, u"+∞"_s}}) {
            law.format = {.plusInfinity = infinity, .minusInfinity = infinity};
            law.setValue(value);
            QCOMPARE(law.text(), text);
        }
    }

    void plainTexts()
    {
        PlainDialLaw law;
        law.setRange(-30, 30000);
        law.format = {.signShown = true, .plusInfinity = true, .minusInfinity = true};
        for (const auto& [value, precision, text] : {std::tuple{24.99F, 1, u"+24.9"_s}, // cut, not rounded
                                                     {24.99F, 0, u"+24"_s},
                                                     {20999.96F, 0, u"+20999"_s},
                                                     {16384.2F, 1, u"+16384.2"_s},
                                                     {128.01F, 3, u"+128.010"_s},
                                                     {9000, 2, u"+9000.00"_s},
                                                     {0.0F, 0, u"0"_s},
                                                     {-29.5F, 0, u"-29"_s},
                                                     {-30.0F, 0, u"-∞"_s},
                                                     {30000.0F, 2, u"+∞"_s},
                                                     {-1.25F, 2, u"-1.25"_s}}) {
            law.setPrecision(precision);
            law.setPrecision(5);
            law.setValue(value);
            QCOMPARE(law.text(), text);
        }
        law.format = {.signShown = true};
        law.setPrecision(1);
        for (int tenths = 1; tenths < 300; ++tenths) { // what is typed or dragged to is what is read
            for (const float value : {QString::number(tenths / 10.0).toFloat(), float(-30 + (tenths + 300) * double(0.1F))}) {
                law.setValue(value);
                QCOMPARE(law.text(), QString::number(tenths / 10.0, 'f', 1).prepend(u'+'));
            }
        }
        PlainDialLaw rounding({.clamps = false, .rounds = true});
        rounding.setValue(24.6F);
        QCOMPARE(rounding.text(), u"25"_s);
    }

    void dragsFromOffTheList()
    {
        PlainDialLaw law;
        law.setMode(1);
        law.setValueList({10, 20, 40, 80});
        law.setValue(33);
        law.beginDrag();
        QVERIFY(!law.drag(1));
        QCOMPARE(law.value(), 33.0F);
        QVERIFY(law.drag(500));
        QCOMPARE(law.value(), 80.0F);
        QVERIFY(law.drag(0) && law.value() == 33.0F); // back where it was grasped
    }

    void nearestInList()
    {
        const QList<float> list{1, 2, 4, 8};
        QCOMPARE(int(nearestIndex({}, 1, 0.000001F)), -1);
        for (const auto& [value, index] : {std::pair{-5.0F, 0}, {9.0F, 3}, {3.0F, 1}, {3.1F, 2}, {4.0F, 2}}) // a tie goes down
            QCOMPARE(int(nearestIndex(list, value, 0.000001F)), index);
    }

    void accepts()
    {
        for (const auto& [decimals, sign, text, accepted] : {std::tuple{0, false, u"88"_s, true},
                                                             {0, false, u"888"_s, false},
                                                             {0, false, u"8.5"_s, false},
                                                             {2, false, u"8.55"_s, true},
                                                             {2, false, u"8.555"_s, false},
                                                             {1, true, u"-8.5"_s, true},
                                                             {1, false, u"-8.5"_s, false}}) {
            const QRegularExpression pattern(valuePattern(-12, 88.9F, decimals, sign));
            QVERIFY2(pattern.match(text).hasMatch() == accepted, qPrintable(text));
        }
    }
};

QTEST_GUILESS_MAIN(TestDialLaws)
#include "tst_diallaws.moc"
