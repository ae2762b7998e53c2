#pragma once
// Hands on the console and hands on the unit, in an order that a seed decides; and what both sides ought to hold afterwards.

#include "Console.h"

#include <QRandomGenerator>

enum class Hand { Wheel, Key, Click, Space, Double, DragUp, DragRight, Type, Right };

inline void move(QWidget* widget, Hand hand, int amount)
{
    switch (hand) {
    case Hand::Wheel:
        turnWheel(widget, amount);
        break;
    case Hand::Key:
        QTest::keyClick(widget, Qt::Key(amount));
        break;
    case Hand::Click:
        QTest::mouseClick(widget, Qt::LeftButton);
        break;
    case Hand::Space:
        QTest::keyClick(widget, Qt::Key_Space);
        break;
    case Hand::Double:
        QTest::mouseDClick(widget, Qt::LeftButton);
        break;
    case Hand::DragUp:
        drag(widget, {0, -amount});
        break;
    case Hand::DragRight:
        drag(widget, {amount, 0});
        break;
    case Hand::Type:
        QTest::keyClicks(widget, "Vox");
        QTest::keyClick(widget, Qt::Key_Return);
        break;
    case Hand::Right:
        QTest::mouseClick(widget, Qt::RightButton);
        break;
    }
}

/// The wire value of a gain: steps of 0.5 dB down to -10 dB, of 1 dB below, and on AUX of 2 dB below -52 dB.
inline int wireGain(const QString& strip, double db)
{
    if (strip == "Input_IN1" || strip == "Input_IN2")
        return int(db);
    const double top = strip == "Input_AUX" ? 9 : 0;
    const double fine = std::min(top - db, top + 10) * 2;
    const double coarse = std::clamp(-10 - db, 0.0, strip == "Input_AUX" ? 42.0 : 79.0);
    const double last = strip == "Input_AUX" ? std::max(-52 - db, 0.0) / 2 : 0.0;
    return int(99 - fine - coarse - last);
}

class RandomHands
{
public:
    RandomHands(Console& console, quint32 seed) : mConsole(console), mRandom(seed) {}

    int below(int end) { return int(mRandom.bounded(end)); }

    /// One movement of the user's on one control of one strip. Most reach the device, some the workspace only.
    void useControl()
    {
        const int strip = below(5);
        const std::pair<const char*, Hand> ways[] = {
            {"widgetDial", Hand::Wheel},        {"widgetDial", Hand::Key},       {"widgetDial", Hand::DragUp},
            {"widgetDial", Hand::Double},       {"PushButtonMUTE", Hand::Click}, {"PushButtonSOLO", Hand::Click},
            {"PushButtonMUTE", Hand::Space},    {"lineEdit", Hand::Type},        {"PushButton48V", Hand::Click},
            {"widgetHSlider", Hand::DragRight}, {"PushButtonMic1", Hand::Click}, {"PushButtonMic35", Hand::Click},
            {"PushButtonMicHP", Hand::Click}};
        const int known = strip == 0 ? 13 : strip == 1 ? 10 : 8;
        const auto& [child, hand] = ways[below(known)];
        const int amount = hand == Hand::Key ? (below(2) ? Qt::Key_Up : Qt::Key_Down) : below(61) - 30;
        move(mConsole.part(kStrips[strip], child), hand, amount);
    }

    /// One movement at the unit's own panel.
    void turnUnit()
    {
        const char* blocks[] = {"21", "22", "23", "25", "27"};
        const int strip = below(5);
        const QString object = kStrips[strip];
        const auto panel = [&](const char* attribute, const QString& value) {
            mConsole.unit().ask(QString("panel %1 %2 %3").arg(object, attribute, value));
        };
        switch (below(strip == 0 ? 5 : strip == 1 ? 4 : 3)) {
        case 0:
            panel("GAIN", QString::number(strip < 2 ? below(89) : strip == 2 ? below(100) - 90 : below(90) - 89));
            break;
        case 1:
            panel("MUTE", QString::number(below(2)));
            break;
        case 2:
            mConsole.unit().ask(QString("frame %1").arg(blocks[strip]) + QString("01 %1").arg(-below(700)));
            break;
        case 3:
            panel("48V", QString::number(below(2)));
            break;
        case 4:
            panel("MIC", QStringList{"Mic1", "Mic35", "MicHP"}[below(3)]);
            break;
        }
    }

    /// The parameters of the five strips as the device has them, in the order in which a page goes down.
    static QStringList deviceSays(Console& console)
    {
        const QJsonObject parameters = console.parameters();
        QStringList lines;
        for (const char* code :
             {"2102", "2103", "2104", "2105", "2203", "2204", "2205", "2304", "2305", "2504", "2505", "2704", "2705"})
            lines += QString("%1 %2").arg(code).arg(parameters[QLatin1StringView(code)].toInt(-999));
        return lines;
    }

    /// The same out of the open workspace: while any strip is in solo, those that are not are silent.
    static QStringList workspaceSays()
    {
        WorkspaceSubject::instance().saveWorkspace();
        const QString folder = "Workspace/R47/Live/R47_Live_";
        const QSettings file(folder + QSettings().value("R47/R47_Live_Workspace").toString() + ".ini", QSettings::IniFormat);
        const auto value = [&file](const char* strip, const char* key) { return file.value(QString("%1/%2").arg(strip, key)); };
        const bool solo =
            std::any_of(std::begin(kStrips), std::end(kStrips), [&](const char* s) { return value(s, "SOLO").toBool(); });
        const char* blocks[] = {"21", "22", "23", "25", "27"};
        QStringList lines;
        for (int i = 0; i < 5; ++i) {
            const auto line = [&](const char* parameter, int number) {
                lines += QString("%1%2 %3").arg(blocks[i], parameter).arg(number);
            };
            if (i == 0)
                line("02", int(QStringList{"", "Mic1", "Mic35", "MicHP"}.indexOf(value(kStrips[i], "MIC").toString())));
            if (i < 2)
                line("03", value(kStrips[i], "48V").toBool());
            line("04", wireGain(kStrips[i], value(kStrips[i], "GAIN").toDouble()));
            line("05", solo ? !value(kStrips[i], "SOLO").toBool() : value(kStrips[i], "MUTE").toBool());
        }
        return lines;
    }

private:
    Console& mConsole;
    QRandomGenerator mRandom;
};
