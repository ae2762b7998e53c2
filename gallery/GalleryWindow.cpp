#include "gallery/GalleryWindow.h"

#include "controls/ComboBoxS1M2.h"
#include "gallery/SignalLog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QTabWidget>

#include <iterator>

using namespace Qt::StringLiterals;

namespace quillon::gallery
{

namespace
{
constexpr int kFeedMs = 33;
constexpr Words kLanguage{"Language", "语言"}, kScale{"Scale", "缩放"};
} // namespace

GalleryWindow::GalleryWindow(const Setting& setting, QWidget* parent)
    : QWidget(parent), mSetting(setting), mTabs(new QTabWidget), mLanguage(new ComboBoxS1M2), mScale(new ComboBoxS1M2)
{
    setWindowTitle(u"Quillon"_s);
    setAccessibleName(windowTitle());
    setPalette(galleryPalette());
    setFont(controlFont({}));
    buildHead();
    buildPages();
    resize(1240, 860);
    mClock.start();
    connect(&mTimer, &QTimer::timeout, this, &GalleryWindow::in_mTimer_timeout);
    mTimer.start(kFeedMs);
}

void GalleryWindow::buildHead()
{
    auto* head = new QHBoxLayout;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    column->addLayout(head);
    column->addWidget(mTabs, 1);
    mLanguage->setItems({u"English"_s, u"Chinese"_s}, mSetting.language);
    mScale->setItems({u"1.0"_s, u"1.5"_s, u"2.0"_s}, QString::number(mSetting.scale, 'f', 1));
    head->addStretch();
    for (const auto& [box, words] : {std::pair{mLanguage, kLanguage}, std::pair{mScale, kScale}}) {
        auto* label = new QLabel(words.in(mSetting.language));
        label->setBuddy(box);
        box->setAccessibleName(label->text());
        box->setFixedSize(110, 28);
        head->addWidget(label);
        head->addWidget(box);
        connect(box, &ComboBoxS1M2::attributeChanged, this, [this] {
            mSetting = {mLanguage->currentText(), mScale->currentText().toDouble()};
            buildPages();
        });
    }
}

void GalleryWindow::buildPages()
{
    const int current = mTabs->currentIndex();
    while (mTabs->count() > 0)
        delete mTabs->widget(0);
    mPages.clear();
    for (const Family& family : kFamilies) {
        auto* page = new GalleryPage(family, mSetting);
        auto* scroll = new QScrollArea;
        scroll->setWidget(page);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        mTabs->addTab(scroll, family.title.in(mSetting.language));
        mPages << page;
    }
    setPage(current);
    if (mLog)
        setLogging();
}

void GalleryWindow::setLogging()
{
    delete mLog;
    mLog = new SignalLog(this);
    for (const GalleryPage* page : std::as_const(mPages)) {
        for (const GalleryPage::Shown& each : page->shown()) {
            mLog->watch(each.control, each.name);
            printLine(u"control "_s + each.name);
        }
    }
    printLine(u"ready"_s);
}

void GalleryWindow::setPage(int index)
{
    if (index >= 0 && index < mTabs->count())
        mTabs->setCurrentIndex(index);
}

void GalleryWindow::in_mTimer_timeout()
{
    if (GalleryPage* page = mPages.value(mTabs->currentIndex()))
        page->feed(levelsAt(double(mClock.elapsed()) / 1000));
}

QPalette galleryPalette()
{
    QPalette palette(QColor(46, 46, 46), QColor(22, 22, 22));
    palette.setColor(QPalette::WindowText, QColor(222, 222, 222));
    palette.setColor(QPalette::Text, QColor(222, 222, 222));
    palette.setColor(QPalette::ButtonText, QColor(222, 222, 222));
    palette.setColor(QPalette::Base, QColor(31, 31, 31));
    palette.setColor(QPalette::Highlight, QColor(67, 207, 124));
    palette.setColor(QPalette::HighlightedText, QColor(16, 16, 16));
    return palette;
}

} // namespace quillon::gallery
