#include "console/StatusLine.h"

#include "app/GlobalFont.h"

#include <QStatusBar>
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr double kBarShare = 0.0248;
constexpr auto kSeparator = u"    ";

} // namespace

StatusLine::StatusLine(QStatusBar& bar)
    : QObject(&bar), mBar(bar), mLeft(new QLabel(&bar)), mRight(new QLabel(&bar)), mEasy(new QPushButton(&bar))
{
    bar.setStyleSheet(u"QStatusBar {   background-color: rgb(31, 31, 31);   color: white;}QSizeGrip {   image: none;   "
                      u"background-color: rgb(31, 31, 31);   width: 16px;   height: 16px;}QStatusBar::item { border: none; }"_s);
    bar.setFont(GlobalFont::instance().font());
    for (QLabel* label : {mLeft, mRight}) {
        label->setStyleSheet(u"QLabel { color: rgb(161, 161, 161); background: transparent; padding: 0px 6px; }"_s);
        label->setMinimumSize(1, 1);
        // The bar's height is fixed by the window's; a label must not ask for more.
        label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    }
    mEasy->setObjectName(u"pushButtonEasyMode"_s);
    mEasy->setCursor(Qt::PointingHandCursor);
    mEasy->setStyleSheet(
        u"QPushButton { color: rgb(67, 207, 124); background: transparent; border: 1px solid transparent; padding: 0px 8px; }"
        u"QPushButton:hover { background-color: rgb(46, 46, 46); }QPushButton:focus { border-color: rgb(67, 207, 124); }"
        u"QPushButton:pressed { background-color: rgb(60, 60, 60); }"_s);
    mEasy->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    mEasy->hide();
    connect(mEasy, &QPushButton::clicked, this, &StatusLine::easyRequested);
    bar.addWidget(mLeft);
    bar.addWidget(mEasy);
    bar.addPermanentWidget(mRight);
}

void StatusLine::setLanguage(const QString& language)
{
    mChinese = language == u"Chinese"_s;
    mEasy->setText(mChinese ? u"简易模式"_s : u"Easy mode"_s);
    show();
}

void StatusLine::setMode(const QString& english, const QString& chinese)
{
    mModeEnglish = english;
    mModeChinese = chinese;
    show();
}

void StatusLine::setWorkspace(const QString& name)
{
    mWorkspace = name;
    show();
}

void StatusLine::setFirmware(const QString& version)
{
    mFirmware = version;
    show();
}

void StatusLine::setSampleRate(int hertz)
{
    mSampleRate = hertz;
    show();
}

void StatusLine::setBufferSize(int samples)
{
    mBufferSize = samples;
    show();
}

void StatusLine::show()
{
    QStringList left;
    QStringList right;
    if (const QString mode = mChinese ? mModeChinese : mModeEnglish; !mode.isEmpty()) {
        left += mode;
    }
    if (!mWorkspace.isEmpty()) {
        left += (mChinese ? u"工作区  %1"_s : u"Workspace  %1"_s).arg(mWorkspace);
    }
    if (!mFirmware.isEmpty()) {
        right += (mChinese ? u"固件  %1"_s : u"Firmware  %1"_s).arg(mFirmware);
    }
    if (mSampleRate > 0) {
        right += u"%1 kHz"_s.arg(mSampleRate / 1000.0);
    }
    if (mBufferSize > 0) {
        right += (mChinese ? u"缓冲区  %1"_s : u"Buffer  %1"_s).arg(mBufferSize);
    }
    mLeft->setText(left.join(kSeparator));
    mRight->setText(right.join(kSeparator));
}

void StatusLine::fit(int windowHeight)
{
    const int height = static_cast<int>(windowHeight * kBarShare);
    QFont font = GlobalFont::instance().font();
    font.setPointSize(std::max(1, GlobalFont::instance().pointSizeForHeight(font, height) - 1));
    mBar.setFont(font);
    mLeft->setFont(font);
    mRight->setFont(font);
    mEasy->setFont(font);
    mBar.setFixedHeight(height);
}

} // namespace quillon
