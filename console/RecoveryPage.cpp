#include "console/RecoveryPage.h"

#include <QResizeEvent>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kLightPeriod = 250; // ms

} // namespace

RecoveryPage::RecoveryPage(QWidget* parent) : QWidget(parent), mPicture(this), mNotice(this), mOnline(this), mManual(this)
{
    setObjectName(u"PageFcty"_s);
    mPicture.setObjectName(u"PageFctyPicture"_s);
    mPicture.start(kLightPeriod);
    mNotice.setObjectName(u"PageFctyLabel1"_s);
    mOnline.setObjectName(u"PageFctyPushButton1"_s);
    mManual.setObjectName(u"PageFctyPushButton2"_s);
    for (QPushButton* button : {&mOnline, &mManual}) {
        button->setCursor(Qt::PointingHandCursor);
        button->setAutoDefault(true);
    }
    connect(&mOnline, &QPushButton::clicked, this, &RecoveryPage::onlineRequested);
    connect(&mManual, &QPushButton::clicked, this, &RecoveryPage::manualRequested);
    setLanguage(u"English"_s);
}

void RecoveryPage::setLanguage(const QString& language)
{
    if (language != u"Chinese"_s && language != u"English"_s) {
        return;
    }
    if (std::exchange(mLanguage, language) != language && isVisible()) {
        showLanguage();
    }
}

void RecoveryPage::showEvent(QShowEvent* event)
{
    showLanguage();
    QWidget::showEvent(event);
}

// Only for a page that is seen: the pictures are large, and each hello brings the language again.
void RecoveryPage::showLanguage()
{
    if (mShownLanguage == mLanguage) {
        return;
    }
    mShownLanguage = mLanguage;
    const bool chinese = mLanguage == u"Chinese"_s;
    const QString suffix = chinese ? u"CN"_s : u"EN"_s;
    mNotice.setStyleSheet(u"QLabel { image: url(:/Image/FactoryNotice%1.png); }"_s.arg(suffix));
    // The pictures bear the captions, so the focus needs a sign of its own.
    const QString button = u"QPushButton { image: url(:/Image/%1%2.png); border: 2px solid transparent; border-radius: 8px; "
                           u"background: transparent; } QPushButton:focus { border-color: rgb(67, 207, 124); }"_s;
    mOnline.setStyleSheet(button.arg(u"FactoryUpdateOnline"_s, suffix));
    mManual.setStyleSheet(button.arg(u"FactoryUpdateManual"_s, suffix));
    mNotice.setAccessibleName(chinese ? u"设备处于恢复模式，请更新固件"_s
                                      : u"The device is in recovery mode. Update its firmware."_s);
    mOnline.setAccessibleName(chinese ? u"在线更新"_s : u"Update online"_s);
    mManual.setAccessibleName(chinese ? u"选择固件文件"_s : u"Choose a firmware file"_s);
}

void RecoveryPage::resizeEvent(QResizeEvent* event)
{
    const int w = event->size().width();
    const int h = event->size().height();
    // The device at the left; what there is to read and to do beside it.
    const int pictureHeight = h * 84 / 100;
    const QSize& picture = R47_PrivateWidget6::kPictureSize;
    mPicture.setGeometry(w * 8 / 100, (h - pictureHeight) / 2, pictureHeight * picture.width() / picture.height(), pictureHeight);
    const int left = w * 37 / 100;
    const int room = w * 56 / 100;
    mNotice.setGeometry(left, h * 8 / 100, room, h * 61 / 100);
    const int gap = w * 3 / 100;
    const int buttonWidth = w * 24 / 100;
    const int buttonHeight = h * 11 / 100;
    const int top = h * 76 / 100;
    mOnline.setGeometry(left + room / 2 - gap / 2 - buttonWidth, top, buttonWidth, buttonHeight);
    mManual.setGeometry(left + room / 2 + gap / 2, top, buttonWidth, buttonHeight);
    QWidget::resizeEvent(event);
}
