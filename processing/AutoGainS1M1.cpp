#include "processing/AutoGainS1M1.h"

#include "app/AppSettingsSubject.h"
#include "processing/AutoGainPages.h"

#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize kBaseSize(226, 220);
constexpr QSize kFirstSize(260, 260);
constexpr int kSmallestSide = 150;
constexpr int kFrameMargin = 20;
constexpr int kMeasuringSeconds = 15;
constexpr int kTickMs = 1000;
constexpr int kPageDelayMs = 50;
constexpr double kLevelTolerance = 1e-6;

} // namespace

AutoGainS1M1::AutoGainS1M1(QWidget* parent) : FramelessWindow(parent), mStack(new QStackedWidget), mLanguage(u"English"_s)
{
    mResult = Cancelled; // what Escape and the close button end with
    setObjectName(u"AutoGainS1M1"_s);
    setModal(true);
    setResizable(false);
    setShadowRadius(kFrameMargin);
    setMinimumSize(kSmallestSide, kSmallestSide);
    resize(kFirstSize);

    mPages = {{Ready, new AutoGainS1M1_WidgetS1M1},
              {Measuring, new AutoGainS1M1_WidgetS1M2},
              {Completed, new AutoGainS1M1_WidgetS1M3},
              {Failed, new AutoGainS1M1_WidgetS1M4}};
    for (AutoGainS1M1_WidgetBase* widget : std::as_const(mPages)) {
        mStack->addWidget(widget);
        connect(widget, &AutoGainS1M1_WidgetBase::attributeChanged, this, &AutoGainS1M1::in_widgetPageAll_attributeChanged);
    }
    setBody(mStack);

    mTimer.setInterval(kTickMs);
    connect(&mTimer, &QTimer::timeout, this, &AutoGainS1M1::in_mTimer_timeout);
    mTimerPage.setSingleShot(true);
    mTimerPage.setInterval(kPageDelayMs);
    connect(&mTimerPage, &QTimer::timeout, this, &AutoGainS1M1::in_mTimerPage_timeout);
    setLanguage(mLanguage);
}

AutoGainS1M1::~AutoGainS1M1() = default;

QWidget* AutoGainS1M1::console() const
{
    if (QWidget* window = AppSettingsSubject::instance().mainWindow())
        return window;
    return parentWidget() ? parentWidget()->window() : nullptr;
}

QRect AutoGainS1M1::squareOver(const QWidget* window)
{
    const int side = window->height() / 3;
    const QPoint centre = window->mapToGlobal(window->rect().center());
    return {centre - QPoint(side / 2, side / 2), QSize(side, side)};
}

QRect AutoGainS1M1::defaultGeometry() const
{
    // What is no usable factor gives the smallest window: the store is the user's to edit.
    const double factor = QSettings().value("ScaleFactor"_L1).toFloat();
    const double usable = factor > 0 && factor < 16 ? factor : 0;
    const QSize base = kBaseSize + QSize(2 * kFrameMargin, 2 * kFrameMargin);
    const QSize size = QSize(int(base.width() * usable), int(base.height() * usable)).expandedTo(minimumSize());
    const QWidget* window = console();
    const QPoint centre = window ? window->mapToGlobal(window->rect().center()) : screen()->geometry().center();
    return {centre - QPoint(size.width() / 2, size.height() / 2), size};
}

int AutoGainS1M1::exec()
{
    return execAt(defaultGeometry());
}

int AutoGainS1M1::execAt(const QRect& geometry)
{
    if (mRunning)
        return Cancelled;
    setGeometry(QRect(geometry.topLeft(), geometry.size().expandedTo(minimumSize())));
    const QPointer<AutoGainS1M1> guard(this);
    const QPointer<QWidget> watched(console());
    mWatched = watched;
    if (watched)
        watched->installEventFilter(this);
    mRunning = true;
    goToPage(Ready);
    const int code = FramelessWindow::exec();
    if (!guard)
        return Cancelled; // went with its owner while the loop ran
    mRunning = false;
    mWatched = nullptr;
    if (watched)
        watched->removeEventFilter(this);
    return code;
}

bool AutoGainS1M1::eventFilter(QObject* watched, QEvent* event)
{
    // A minimised console reports a spontaneous hide; a measurement goes on behind it.
    const bool goes = event->type() == QEvent::Close || (event->type() == QEvent::Hide && !event->spontaneous());
    if (goes && watched == mWatched)
        cancel();
    return FramelessWindow::eventFilter(watched, event);
}

void AutoGainS1M1::cancel()
{
    if (mRunning)
        done(Cancelled);
}

void AutoGainS1M1::done(int code)
{
    mTimer.stop();
    mTimerPage.stop();
    FramelessWindow::done(code);
}

void AutoGainS1M1::setLevel(float levelDb)
{
    if (mTimer.isActive())
        mSamples.add(levelDb);
}

void AutoGainS1M1::setChannelNames(const QMap<QString, QString>& names)
{
    mChannelNames = names;
    setLanguage(mLanguage);
}

void AutoGainS1M1::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1)
        return;
    mLanguage = language;
    setAccessibleName(language == "Chinese"_L1 ? u"自动增益"_s : u"Auto gain"_s);
    for (AutoGainS1M1_WidgetBase* widget : std::as_const(mPages))
        widget->setLanguage(language, mChannelNames.value(language));
}

void AutoGainS1M1::setFont(const QFont& font)
{
    FramelessWindow::setFont(font);
    for (AutoGainS1M1_WidgetBase* widget : std::as_const(mPages))
        widget->setFont(font);
}

void AutoGainS1M1::goToPage(qint32 number)
{
    if (number != mCurrentPage) {
        mCurrentPage = number;
        mStack->setCurrentWidget(page(number));
    }
    page(number)->focusMainButton();
}

void AutoGainS1M1::start(const QString& value)
{
    if (value != "0"_L1)
        emit attributeChanged(u"Start"_s, u"1"_s);
    mTimerPage.stop();
    goToPage(Measuring);
    mSecondsLeft = kMeasuringSeconds;
    mSamples.clear();
    mResultValid = false;
    page(Measuring)->setSeconds(mSecondsLeft);
    mTimer.start();
}

void AutoGainS1M1::in_widgetPageAll_attributeChanged(QString, QString attribute, QString value)
{
    if (attribute.startsWith("Start"_L1))
        start(value);
    else if (attribute.startsWith("Retry"_L1))
        start(u"0"_s);
    else if (attribute.startsWith("Cancel"_L1) || attribute.startsWith("Abandon"_L1))
        done(Cancelled);
    else if (attribute.startsWith("Apply"_L1))
        done(int(double(measuredLevel()) * 10.0));
}

float AutoGainS1M1::measuredLevel()
{
    if (mResultValid)
        return mResultDb;
    if (!mSamples.isValid())
        return 0.0F;
    mResultDb = mSamples.levelDb();
    mResultValid = true;
    return mResultDb;
}

void AutoGainS1M1::in_mTimer_timeout()
{
    --mSecondsLeft;
    page(Measuring)->setSeconds(mSecondsLeft);
    if (mSecondsLeft >= 1)
        return;
    mTimer.stop();
    const double levelDb = double(measuredLevel());
    const bool usable = levelDb >= double(mLevelMin) - kLevelTolerance && levelDb <= double(mLevelMax) + kLevelTolerance;
    mNextPage = usable ? Completed : Failed;
    mTimerPage.start();
}

void AutoGainS1M1::in_mTimerPage_timeout()
{
    goToPage(mNextPage);
}
