#include "InputBench.h"
#include "controls/PushButtonGroups.h"
#include "processing/AutoGainS1M1.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

/// One strip of a member, shown, loaded from a fresh workspace.
struct OneStrip {
    explicit OneStrip(const QString& member) : strip(bench::makeInput(member, u"Input"_s, u"IN 1"_s))
    {
        workspace.attach(*strip);
        record.listen(strip.get());
        strip->setStripEnabled(true);
        strip->resize(strip->minimumSize() * 3);
        strip->show();
        strip->loadSettings();
    }
    QWidget* child(const char* name) const { return strip->findChild<QWidget*>(QLatin1StringView(name)); }
    QVariant stored(const QString& key) const { return workspace.value(u"Input"_s, key); }
    void click(const char* name) { QTest::mouseClick(bench::button(*strip, name), Qt::LeftButton); }

    bench::OpenWorkspace workspace;
    bench::Record record;
    std::unique_ptr<InputBase> strip;
};

void addMembers()
{
    QTest::addColumn<QString>("member");
    for (const char* member : {"S1M1", "S1M2", "S1M3", "S1M4", "S1M5", "S1M6"}) {
        QTest::newRow(member) << QString::fromLatin1(member);
    }
}

bool isMicrophone(const QString& member)
{
    return member != u"S1M3" && member != u"S1M6";
}

bool hasPolarity(const QString& member)
{
    return member >= u"S1M4";
}

} // namespace

class tst_inputs : public QObject
{
    Q_OBJECT
private slots:
    void load()
    {
        const std::tuple<QString, QStringList, QStringList> members[] = {
            {u"S1M1"_s, {u"BalanceLoad=100"_s}, {u"MIC=Mic1"_s, u"48V=0"_s, u"GAIN=26"_s, u"MUTE=0"_s}},
            {u"S1M2"_s, {u"BalanceLoad=100"_s}, {u"48V=0"_s, u"GAIN=26"_s, u"MUTE=0"_s}},
            {u"S1M3"_s, {}, {u"GAIN=-6"_s, u"MUTE=0"_s}},
            {u"S1M4"_s, {}, {u"MIC=Mic1"_s, u"48V=0"_s, u"GAIN=26"_s, u"MUTE=0"_s, u"ANTI=0"_s}},
            {u"S1M5"_s, {}, {u"48V=0"_s, u"GAIN=26"_s, u"MUTE=0"_s, u"ANTI=0"_s}},
            {u"S1M6"_s, {}, {u"GAIN=-6"_s, u"MUTE=0"_s, u"ANTI=0"_s}}};
        for (const auto& [member, console, device] : members) {
            OneStrip one(member);
            QCOMPARE(one.record.take(), (isMicrophone(member) ? QStringList{u"EQ=Off"_s} : QStringList{}) + console + device);
            one.strip->loadSettings();
            QCOMPARE(one.record.take(), console + device);
            one.strip->setStripEnabled(false);
            QCOMPARE(one.record.take(), QStringList{u"MUTE=1"_s});
            one.strip->setStripEnabled(false);
            one.strip->updateAttribute();
            QVERIFY(one.record.lines.isEmpty());
            one.strip->loadSettings(); // hidden: nothing of the input stage
            QStringList hidden{*std::ranges::find_if(device, [](const QString& line) { return line.startsWith("GAIN"_L1); }),
                               u"MUTE=1"_s};
            if (hasPolarity(member)) {
                hidden += u"ANTI=0"_s;
            }
            QCOMPARE(one.record.take(), console + hidden);
        }
    }

    void gainIsStoredBeforeItIsSent_data() { addMembers(); }
    void gainIsStoredBeforeItIsSent()
    {
        QFETCH(const QString, member);
        OneStrip one(member);
        one.click("MUTE");
        one.record.take();
        QStringList storedThen;
        connect(one.strip.get(), &InputBase::attributeChanged, this,
                [&](const QString&, const QString& attribute) { storedThen += one.stored(attribute).toString(); });
        QTest::keyClick(one.child("widgetDial"), Qt::Key_Up);
        const QString gain = isMicrophone(member) ? u"27"_s : u"-5.5"_s;
        QCOMPARE(one.record.take(), QStringList({u"GAIN="_s + gain, u"MUTE=0"_s})); // the first step also unmutes
        QCOMPARE(storedThen, QStringList({gain, u"false"_s}));
        one.strip->setUnmuteOnGain(false);
        one.click("MUTE");
        one.record.take();
        QTest::keyClick(one.child("widgetDial"), Qt::Key_Down);
        QCOMPARE(one.record.attributes(), QStringList{u"GAIN"_s});
    }

    void deviceValuesAreSilent_data() { addMembers(); }
    void deviceValuesAreSilent()
    {
        QFETCH(const QString, member);
        OneStrip one(member);
        one.record.take();
        const auto take = [&](QStringView attribute, const QVariant& value) {
            const quillon::DeviceSetter setter = one.strip->deviceSetter(attribute);
            if (setter) {
                setter(value);
            }
            return static_cast<bool>(setter);
        };
        QVERIFY(take(u"GAIN", -4.0F) && take(u"MUTE", true) && take(u"Plug", true));
        QCOMPARE(take(u"MeterLeft", -100) && take(u"MeterRight", 2147483647), !isMicrophone(member));
        for (const QString& foreign : {u"Balance"_s, u"SOLO"_s, u"ChannelName"_s, u""_s, u"EQ"_s}) {
            QVERIFY2(!take(foreign, 1), qPrintable(foreign));
        }
        const bool hasSelector = member == u"S1M1" || member == u"S1M4";
        QCOMPARE(take(u"MIC", u"MicHP"_s) && take(u"MIC", u"Mic99"_s), hasSelector);
        QCOMPARE(one.stored(u"MIC"_s).toString(), hasSelector ? u"MicHP"_s : QString());
        QCOMPARE(take(u"ANTI", true), hasPolarity(member));
        QCOMPARE(one.stored(u"ANTI"_s).toBool(), hasPolarity(member));
        one.strip->setEQ(true);
        one.strip->setDUCKING(true);
        one.strip->updateAttribute();
        QVERIFY2(one.record.lines.isEmpty(), qPrintable(one.record.lines.join(u' ')));
        QCOMPARE(one.stored(u"MUTE"_s).toBool(), true);
        QCOMPARE(one.stored(u"GAIN"_s).toFloat(), isMicrophone(member) ? 0.0F : -4.0F); // clamped by the microphone's dial
        one.strip->loadSettings();
        QVERIFY(one.record.lines.contains(u"MUTE=1"_s));
    }

    void switches_data() { addMembers(); }
    void switches()
    {
        QFETCH(const QString, member);
        OneStrip one(member);
        if (!isMicrophone(member)) {
            QVERIFY(!bench::button(*one.strip, "EQ"));
            return;
        }
        one.record.take();
        for (const char* name : {"EQ", "DUCKING"}) {
            if (!bench::button(*one.strip, name)) {
                QVERIFY(hasPolarity(member)); // no ducking beside the polarity
                continue;
            }
            const QString attribute = QString::fromLatin1(name);
            const auto tells = [&](const char* what) {
                return QTest::qWaitFor([&] { return !one.record.lines.isEmpty(); }) &&
                       one.record.take() == QStringList{attribute + u'=' + QLatin1StringView(what)};
            };
            one.click(name);
            QVERIFY(tells("On"));
            one.click(name);
            QVERIFY(tells("Off"));
            one.click(name);
            one.click(name);
            QVERIFY(tells("Show"));
            QTest::mouseClick(bench::button(*one.strip, name), Qt::RightButton);
            QVERIFY(tells("Show"));
            QVERIFY(!one.workspace.file().contains(u"Input/"_s + attribute));
        }
        if (hasPolarity(member)) {
            one.click("ANTI");
            QCOMPARE(one.record.take(), QStringList{u"ANTI=1"_s});
            one.strip->setStripEnabled(false);
            QCOMPARE(one.record.take(), QStringList({u"MUTE=1"_s, u"ANTI=0"_s}));
            QCOMPARE(one.stored(u"ANTI"_s).toBool(), true);
            return;
        }
        QTest::keyClick(one.child("widgetHSlider"), Qt::Key_Right);
        QCOMPARE(one.record.take(), QStringList{u"Balance=101"_s});
        QCOMPARE(one.stored(u"Balance"_s).toString(), u"101"_s);
    }

    void name_data() { addMembers(); }
    void name()
    {
        QFETCH(const QString, member);
        OneStrip one(member);
        auto* field = one.strip->findChild<QLineEdit*>(u"lineEdit"_s);
        const auto type = [field](const QString& text, Qt::Key last) {
            field->setFocus();
            field->selectAll();
            QTest::keyClick(field, Qt::Key_Delete);
            QTest::keyClicks(field, text);
            QTest::keyClick(field, last);
        };
        type(u"Vox"_s, Qt::Key_Return);
        QCOMPARE(one.stored(u"ChannelName"_s).toString(), u"Vox"_s);
        QCOMPARE(one.child("widgetDial")->accessibleName(), u"Vox Gain"_s);
        QCOMPARE(one.child("widgetVolumeMeter")->accessibleName(), u"Vox Level"_s);
        QCOMPARE(bench::button(*one.strip, "MUTE")->accessibleName(), u"Vox MUTE"_s);
        QCOMPARE(one.strip->channelName(), u"IN 1"_s); // the field goes on knowing it by that
        type(u"Choir"_s, Qt::Key_Escape);
        QCOMPARE(field->text(), u"Vox"_s);
        type(QString(), Qt::Key_Return);
        QCOMPARE(field->text(), u"IN 1"_s);
        QCOMPARE(one.stored(u"ChannelName"_s).toString(), u"IN 1"_s);
        type(QString(60, u'W'), Qt::Key_Return);
        QVERIFY(field->text().size() > 1 && field->text().size() < 40);
        one.workspace.file().setValue(u"Input/ChannelName"_s, QString(200000, u'M'));
        one.strip->loadSettings();
        QVERIFY(field->text().size() < 40);
        one.strip->onAppSettingsChanged({}, u"Language"_s, u"Chinese"_s);
        QVERIFY(one.child("widgetDial")->accessibleName().endsWith(u"增益"_s));
    }

    // The device reads whole dB of a microphone: a fraction would arrive as 0.
    void wholeGain()
    {
        OneStrip one(u"S1M1"_s);
        one.workspace.file().setValue(u"Input/GAIN"_s, 41.6);
        one.record.take();
        one.strip->loadSettings();
        QVERIFY(one.record.lines.contains(u"GAIN=42"_s));
    }

    void withoutAField()
    {
        OneStrip one(u"S1M3"_s);
        one.click("MUTE");
        one.click("SOLO");
        QVERIFY(one.strip->getMute() && one.strip->getSolo());
    }

    void namesInBothLanguages()
    {
        QWidget strip;
        strip.setMinimumSize(200, 100);
        quillon::StripHead head(&strip);
        head.setChannelName(u"IN1"_s);
        head.setChineseName(u"输入1"_s);
        for (const bool chinese : {false, true}) {
            head.setChinese(chinese);
            const QString own = chinese ? u"输入1"_s : u"IN1"_s;
            QCOMPARE(head.shownName(), own);
            QCOMPARE(head.nameIn(true) + head.nameIn(false) + head.name(), u"输入1IN1IN1"_s);
            auto* field = strip.findChild<QLineEdit*>();
            field->clear();
            emit field->editingFinished();
            QCOMPARE(head.shownName(), own);
            head.showName(u"Singer"_s);
            QCOMPARE(head.nameIn(true) + head.nameIn(false), u"SingerSinger"_s);
            head.showName({});
        }
    }

    void autoGain()
    {
        for (const auto& [result, gain] : {std::pair{int(AutoGainS1M1::Cancelled), u"30"_s}, {-209, u"15"_s}, {-2000, u"88"_s}}) {
            OneStrip one(u"S1M2"_s);
            one.strip->setGAIN(30);
            one.record.take();
            QString storedMeanwhile;
            QTimer::singleShot(0, this, [&, code = result] {
                auto* dialog = one.strip->findChild<AutoGainS1M1*>();
                emit dialog->attributeChanged(u"Start"_s, u"1"_s);
                storedMeanwhile = one.stored(u"GAIN"_s).toString();
                dialog->done(code);
            });
            one.click("AUTO");
            QCOMPARE(storedMeanwhile, u"30"_s); // what a crash would leave
            QCOMPARE(one.record.take(), QStringList({u"GAIN=0"_s, u"GAIN="_s + gain}));
            QCOMPARE(one.stored(u"GAIN"_s).toString(), gain);
            QVERIFY(!bench::button(*one.strip, "AUTO")->isChecked());
        }
    }

    // The device vanishes while the dialog is open, and the console with it.
    void pageLeftDuringAutoGain()
    {
        OneStrip one(u"S1M2"_s);
        one.strip->setGAIN(30);
        one.record.take();
        QTimer::singleShot(0, this, [&] {
            auto* dialog = one.strip->findChild<AutoGainS1M1*>();
            emit dialog->attributeChanged(u"Start"_s, u"1"_s);
            one.strip->setSettingsHolder(nullptr);
            dialog->cancel();
        });
        one.click("AUTO");
        QCOMPARE(one.record.take(), QStringList{u"GAIN=0"_s}); // its page sends the gain when it comes back
        QVERIFY(!bench::button(*one.strip, "AUTO")->isChecked());
    }

    void goneDuringAutoGain()
    {
        OneStrip one(u"S1M2"_s);
        QTimer::singleShot(0, this, [&] { one.strip.reset(); });
        one.strip->findChild<PushButtonGroupS1M11*>()->setState(u"AUTO"_s, u"1"_s, true);
        QVERIFY(!one.strip);
    }

    void closeButton()
    {
        OneStrip one(u"S1M3"_s);
        auto* close = one.child("pushButtonClose");
        QSignalSpy events(one.strip.get(), &InputBase::attributeChanged);
        QEvent enter(QEvent::HoverEnter);
        QCoreApplication::sendEvent(one.child("lineEdit"), &enter);
        QTest::qWait(120);
        QVERIFY(close->isHidden());
        one.strip->setCloseEnabled(true);
        QCoreApplication::sendEvent(one.child("lineEdit"), &enter);
        QTRY_VERIFY(close->isVisible());
        QTest::mouseClick(close, Qt::LeftButton);
        QCOMPARE(events.last(), QList<QVariant>({u"IN 1"_s, u"Hide"_s, u"1"_s}));
        QVERIFY(close->isHidden());
    }

    void layout_data() { addMembers(); }
    void layout()
    {
        QFETCH(const QString, member);
        OneStrip one(member);
        QCOMPARE(bench::misplaced(*one.strip), QString());
        // Tab goes down the strip.
        int y = 0;
        for (QWidget* next = one.child("lineEdit"); (next = next->nextInFocusChain()) != one.child("lineEdit");) {
            if (next->focusPolicy() & Qt::TabFocus && next->isVisible() && one.strip->isAncestorOf(next) &&
                next->parentWidget()->isVisible()) {
                const int top = next->mapTo(one.strip.get(), QPoint()).y();
                QVERIFY2(top >= y, qPrintable(next->objectName()));
                y = top;
            }
        }
    }
};

QTEST_MAIN(tst_inputs)
#include "tst_inputs.moc"
