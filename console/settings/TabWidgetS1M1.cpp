#include "console/settings/TabWidgetS1M1.h"

#include "app/GlobalFont.h"
#include "console/settings/SettingsTab.h"
#include "controls/MessageBoxParts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

// Pixels at factor 1.
constexpr QSizeF kBaseSize{780, 490};
constexpr double kColumnWidth = 156;
constexpr double kTabHeight = 42;
constexpr double kTabGap = 4;
constexpr double kColumnMargin = 14;

constexpr int kFrame = 42;        // pixels of border and shadow, at every factor
constexpr double kLetters = 0.54; // of a tab's height

constexpr quillon::BoxText kTitle{u"Settings", u"设置"};

} // namespace

TabWidgetS1M1::TabWidgetS1M1(QWidget* parent)
    : FramelessWindow(parent), mLanguage(u"English"_s), mColumn(new QWidget), mStack(new QStackedWidget)
{
    setObjectName(u"Settings"_s);
    auto* body = new QWidget;
    auto* columns = new QHBoxLayout(body);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(mColumn);
    columns->addWidget(mStack, 1);
    auto* tabs = new QVBoxLayout(mColumn);
    tabs->addStretch();
    QPalette ground = mColumn->palette();
    ground.setColor(QPalette::Window, QColor(25, 25, 25));
    mColumn->setPalette(ground);
    mColumn->setAutoFillBackground(true);
    setBody(body);
    setStretch(1, 11);
    setFont(GlobalFont::instance().font());
    relabel();
    setScaleFactor(1);
}

void TabWidgetS1M1::setTabNames(const QMap<QString, QStringList>& names)
{
    mNames = names;
    const qsizetype count = names.value(u"English"_s).size();
    auto* column = static_cast<QVBoxLayout*>(mColumn->layout());
    while (mTabs.size() < count) {
        auto* tab = new quillon::SettingsTab(mColumn);
        const int index = int(mTabs.size());
        tab->setObjectName(u"tab"_s + names[u"English"_s][index]);
        tab->hide();
        connect(tab, &QAbstractButton::toggled, this, [this, index](bool chosen) {
            if (chosen)
                mStack->setCurrentWidget(mPages[index]);
        });
        column->insertWidget(index, tab);
        mTabs.append(tab);
        mPages.append(nullptr);
    }
    relabel();
}

bool TabWidgetS1M1::addScrolled(const QString& key, QScrollArea* area)
{
    const qsizetype index = mNames.value(u"English"_s).indexOf(key);
    if (index < 0 || mPages[index] != nullptr) {
        qWarning("TabWidgetS1M1::addPage //no place for page: %s", qUtf8Printable(key));
        delete area;
        return false;
    }
    mPages[index] = area;
    mStack->addWidget(area);
    mTabs[index]->show();
    if (mStack->count() == 1)
        mTabs[index]->setChecked(true);
    return true;
}

void TabWidgetS1M1::setCurrentTab(const QString& key)
{
    const qsizetype index = mNames.value(u"English"_s).indexOf(key);
    if (index < 0 || mPages[index] == nullptr)
        return;
    const bool keyboardOnTabs = mColumn->isAncestorOf(focusWidget());
    mTabs[index]->setChecked(true);
    if (keyboardOnTabs)
        mTabs[index]->setFocus();
}

void TabWidgetS1M1::setScaleFactor(double factor)
{
    if (!(factor > 0))
        return;
    mScale = factor;
    const QRect available = screen()->availableGeometry();
    const QSize size = ((kBaseSize * factor).toSize() + QSize(kFrame, kFrame)).boundedTo(available.size());
    setMinimumSize(QSize(size.width() * 4 / 5, size.height() / 2));
    resize(size);
    // What has grown beyond the edge of the screen could not be reached any more.
    move(std::max(available.left(), std::min(x(), available.right() + 1 - width())),
         std::max(available.top(), std::min(y(), available.bottom() + 1 - height())));
    layoutTabs();
}

void TabWidgetS1M1::showOver(const QWidget* window)
{
    if (!isVisible() && window != nullptr)
        move(window->mapToGlobal(window->rect().center()) - rect().center());
    show();
    raise();
    activateWindow();
}

void TabWidgetS1M1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    if (attribute == "ScaleFactor"_L1) {
        setScaleFactor(value.toDouble());
    } else if (attribute == "Language"_L1 && (value == "English"_L1 || value == "Chinese"_L1)) {
        mLanguage = value;
        relabel();
    }
}

void TabWidgetS1M1::changeEvent(QEvent* event)
{
    FramelessWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        layoutTabs();
}

void TabWidgetS1M1::showEvent(QShowEvent* event)
{
    FramelessWindow::showEvent(event);
    layoutTabs();
}

void TabWidgetS1M1::resizeEvent(QResizeEvent* event)
{
    FramelessWindow::resizeEvent(event);
    layoutTabs();
}

void TabWidgetS1M1::relabel()
{
    setWindowTitle(kTitle.in(mLanguage == "Chinese"_L1));
    const QStringList texts = mNames.value(mLanguage);
    for (qsizetype i = 0; i < mTabs.size(); ++i) {
        mTabs[i]->setText(texts.value(i));
        mTabs[i]->setAccessibleName(texts.value(i));
    }
    layoutTabs();
}

void TabWidgetS1M1::layoutTabs()
{
    if (!isVisible())
        return; // measured when it is shown
    const double factor = std::min(mScale, (width() - kFrame) / kBaseSize.width());
    const auto pixels = [factor](double atFactorOne) { return int(std::lround(atFactorOne * factor)); };
    const int margin = pixels(kColumnMargin);
    mColumn->setFixedWidth(pixels(kColumnWidth));
    mColumn->layout()->setContentsMargins(margin / 2, margin, margin / 2, margin);
    mColumn->layout()->setSpacing(pixels(kTabGap));
    const int height = pixels(kTabHeight);
    std::vector<std::pair<QString, QSize>> texts;
    for (quillon::SettingsTab* tab : std::as_const(mTabs)) {
        tab->setFixedSize(pixels(kColumnWidth) - margin / 2 * 2, height);
        texts.emplace_back(tab->text(), QSize(tab->textPlace().width(), int(height * kLetters)));
    }
    QFont face = font();
    face.setPointSize(quillon::pointsForAll(face, GlobalFont::instance().pointSizeForHeight(face, int(height * kLetters)), texts));
    for (quillon::SettingsTab* tab : std::as_const(mTabs))
        tab->setFont(face);
}
