#pragma once
// The real console window in this process, on a real link to an r47d of its own.

#include "app/AppSettingsSubject.h"
#include "console/MainWindow_R47.h"
#include "controls/ValueControl.h"
#include "device/USBAudioAPI.h"
#include "device/USBHIDAPI.h"
#include "resources/Resources.h"
#include "tests/virtual/RunningR47.h"
#include "workspace/WorkspaceSubject.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QWheelEvent>
#include <memory>

inline constexpr const char* kStrips[] = {"Input_IN1", "Input_IN2", "Input_AUX", "Input_BT", "Input_OTGIN"};

/// Once in a test program: the driver is registered and both libraries are loaded.
inline void loadLibraries()
{
    quillon::initResources();
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(QDir().mkpath(config));
    QFile registration(config + "/TUSBAUDIO.conf");
    QVERIFY(registration.open(QIODevice::WriteOnly));
    registration.write("[CLSID]\n{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}\\InprocServer32=" R47DRIVER "\n");
    registration.close();
    AppSettingsSubject::instance();
    USBHIDAPI::instance().init();
    QVERIFY(USBAudioAPI::instance().Init());
}

class Console
{
public:
    /// unitOptions: of the r47d, whose mode and the remembered page decide which page opens.
    explicit Console(const QStringList& unitOptions = {"--rate", "0"}) : mUnit(unitOptions) { open(); }

    /// A console window on the workspace as it is now, in place of the one before. What it sends is in sent().
    void open()
    {
        mWindow.reset();
        mark();
        mWindow = std::make_unique<MainWindow_R47>();
        mWindow->startConnection();
        QTRY_VERIFY(mUnit.tell("count 1120").text == "2");
    }

    /// Closes the window as a program that ends.
    void close() { mWindow.reset(); }

    RunningR47& unit() { return mUnit; }
    MainWindow_R47& window() { return *mWindow; }
    /// The strip of that name on the Live page; other pages have theirs of the same name.
    QWidget* stripOf(const QString& name) const { return mWindow->findChild<QWidget*>("PageLive")->findChild<QWidget*>(name); }
    QWidget* part(const QString& strip, const char* child) const
    {
        auto* widget = stripOf(strip)->findChild<QWidget*>(QLatin1StringView(child));
        Q_ASSERT(widget);
        return widget;
    }

    void mark()
    {
        QVERIFY(mUnit.tell("clear"));
        QVERIFY(mUnit.tell("record " + mUnit.path("record")));
    }
    /// What the console has sent since the mark, "2104 27" for each frame; with the hello and the page's load where it had them.
    QStringList sent()
    {
        // Frames keep their order: behind this one there is none.
        emit WorkspaceSubject::instance().attributeChanged("Workspace", "LoadSettings", "77");
        QTest::qVerify(bool(mUnit.tell("wait 1120 77")), "fence", "the console's writer", __FILE__, __LINE__);
        mUnit.tell("record flush");
        QFile file(mUnit.path("record"));
        QStringList frames;
        if (!file.open(QIODevice::ReadOnly))
            return frames;
        for (const QByteArray& line : file.readAll().split('\n')) {
            const QByteArrayList words = line.split(' ');
            if (words.size() >= 4 && words[1] == "in" && words[3] != "77")
                frames += QString::fromLatin1(words[2] + ' ' + words[3]);
        }
        mark();
        return frames;
    }
    /// Returns when the console has taken all that the unit has told so far.
    void hear()
    {
        // Reports keep their order too. IN 1 is unplugged and plugged in again, which shows and touches nothing else.
        const bool plugged = part("Input_IN1", "widgetOverlay")->isHidden();
        mUnit.ask(QString("frame 2106 %1").arg(plugged ? 0 : 1));
        QElapsedTimer time;
        time.start();
        while (part("Input_IN1", "widgetOverlay")->isHidden() == plugged && time.elapsed() < 5000)
            QTest::qWait(1);
        QCOMPARE(part("Input_IN1", "widgetOverlay")->isHidden(), !plugged);
    }
    /// What the device has been told, or has told, last: by code, "2104".
    QJsonObject parameters() { return QJsonDocument::fromJson(mUnit.ask("state")).object()["parameters"].toObject(); }

    /// Everything that the five strips show, one line for each: "Input_IN1 widgetDial 26 dB".
    QStringList shown() const
    {
        QStringList lines;
        for (const char* strip : kStrips) {
            for (QWidget* child : stripOf(strip)->findChildren<QWidget*>()) {
                const QString objectName = child->objectName();
                QString state;
                if (objectName == "widgetOverlay")
                    state = child->isHidden() ? "hidden" : "shown";
                else if (auto* host = dynamic_cast<quillon::ValueControlHost*>(child))
                    state = QString::number(host->valueControl().accessibleValue()) + ' ' + host->valueControl().accessibleText();
                else if (auto* button = qobject_cast<QPushButton*>(child); button && button->isCheckable())
                    state = button->isChecked() ? "on" : "off";
                else if (auto* name = qobject_cast<QLineEdit*>(child))
                    state = name->text();
                if (!state.isEmpty())
                    lines += QString("%1 %2 %3").arg(strip, objectName, state);
            }
        }
        return lines;
    }

private:
    RunningR47 mUnit;
    std::unique_ptr<MainWindow_R47> mWindow;
};

inline void turnWheel(QWidget* widget, int notches)
{
    const QPointF at = widget->rect().center();
    QWheelEvent event(at, widget->mapToGlobal(at), {}, {0, notches * 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

/// Presses the left button in the middle, moves by `pixels` in steps of one, and lets go.
inline void drag(QWidget* widget, QPoint pixels)
{
    const auto send = [widget](QEvent::Type type, QPointF at, Qt::MouseButtons held) {
        QMouseEvent event(type, at, widget->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, {});
        QCoreApplication::sendEvent(widget, &event);
    };
    const QPointF start = widget->rect().center();
    const int steps = std::max(std::abs(pixels.x()), std::abs(pixels.y()));
    send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    for (int step = 1; step <= steps; ++step)
        send(QEvent::MouseMove, start + QPointF(pixels) * step / steps, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, start + pixels, Qt::NoButton);
}
