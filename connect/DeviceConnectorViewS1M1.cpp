#include "connect/DeviceConnectorViewS1M1.h"

#include "app/GlobalFont.h"
#include "connect/ConnectRows.h"

#include <QAccessible>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QResizeEvent>
#include <QStackedWidget>
#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

constexpr int kSmallerBy = 4;   // points that details and check boxes stay below the rest
constexpr int kLeastPoints = 4; // what the font helpers give at least
// A smaller line stops here: below it, the strokes of a Chinese glyph run together.
constexpr int kLegiblePoints = 7;
constexpr int kFontShare = 12;  // a line of text is one part in so many of the height
constexpr int kPageShares = 24; // parts of a page's height
// Columns of a page: a margin, two for the left button, a gap, two for the right one, a margin - so that a button that
// stands alone is as wide as one of two: it takes the inner halves.
constexpr int kColumnShare[] = {3, 9, 7, 2, 7, 9, 3};
constexpr int kColumns = static_cast<int>(std::size(kColumnShare));

constexpr QStringView kMessageStyle = u"QLabel {   color: rgb(255, 255, 255);}";
constexpr QStringView kDetailStyle = u"QLabel {   color: rgb(102, 102, 102);}";
constexpr QStringView kButtonStyle =
    u"QPushButton {   background-color: rgb(%1);   color: rgb(255, 255, 255);   border: none;   border-radius: 8px;}"
    u"QPushButton:focus {   border: 2px solid rgb(222, 222, 222);}";
constexpr QStringView kCancelColor = u"48, 48, 48";
constexpr QStringView kConfirmColor = u"1, 150, 65";
constexpr QStringView kBarStyle = u"QProgressBar {   background-color: rgb(51, 51, 51);   border: none;   border-radius: 2px;}"
                                  u"QProgressBar::chunk {   background-color: rgb(3, 149, 65);   border-radius: 2px;}";
constexpr QStringView kCheckStyle =
    u"QCheckBox {    color: rgb(255, 255, 255);    spacing: %1px;}QCheckBox::indicator {    width: %2px;    height: %2px;}"
    u"QCheckBox::indicator:unchecked {    image: url(:/Icon/CheckBox_Uncheck.png);}"
    u"QCheckBox::indicator:checked {    image: url(:/Icon/CheckBox_Checked.png);}"
    u"QCheckBox {    border: 1px solid transparent;    border-radius: 3px;    padding: 2px;}"
    u"QCheckBox:focus {    border-color: rgb(222, 222, 222);}";
constexpr double kSpacingShare = 0.02;
constexpr double kIndicatorShare = 0.05;

// Parts of the page's height per row; the two spacers share what a full page leaves.
int heightShare(ConnectKind kind)
{
    switch (kind) {
    case ConnectKind::Message:
        return 6;
    case ConnectKind::Detail:
        return 4;
    case ConnectKind::Bar:
        return 1;
    case ConnectKind::Cancel:
    case ConnectKind::Confirm:
        return 4;
    case ConnectKind::Check:
        return 3;
    }
    return 1;
}

bool isSmall(ConnectKind kind)
{
    return kind == ConnectKind::Detail || kind == ConnectKind::Check;
}

// Whether the text stands whole in its widget in that font.
bool fits(const QWidget* widget, const QFont& font)
{
    const QFontMetrics metrics(font);
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const QRect space = label->contentsRect();
        const QSize size = metrics.boundingRect(space, Qt::AlignCenter | Qt::TextWordWrap, label->text()).size();
        return size.width() <= space.width() && size.height() <= space.height();
    }
    const auto* button = static_cast<const QAbstractButton*>(widget);
    const int needed = metrics.horizontalAdvance(button->text()) + 2 * metrics.averageCharWidth();
    if (qobject_cast<const QCheckBox*>(widget) != nullptr) {
        // It takes the width that it needs; the page is the limit.
        const QWidget* page = widget->parentWidget();
        return needed + static_cast<int>((kSpacingShare + kIndicatorShare) * page->height()) <= page->width();
    }
    return needed <= button->width() && metrics.height() <= button->height();
}

/// A page takes the size that it is given, so nobody needs to measure the texts of thirteen pages for the start.
class Page : public QWidget
{
public:
    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override { return {30, 20}; }
    bool hasHeightForWidth() const override { return false; }
};

QString versionText(const QString& version)
{
    return version.section(u'.', -1) == u"0"_s ? version : version + u" Beta"_s;
}

} // namespace

DeviceConnectorViewS1M1::DeviceConnectorViewS1M1(QWidget* parent)
    : DeviceConnectorViewBase(parent), mStack(new QStackedWidget(this)), mFont(GlobalFont::instance().font()),
      mLanguage(u"English"_s)
{
    setMinimumSize(30, 20);
    mStack->setObjectName(u"stackedWidget"_s);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mStack);
    for (int page = 0; page < ConnectPageCount; ++page) {
        mStack->addWidget(new Page);
    }
    resize(300, 200);
    fit();
}

/// A page is built when it is first needed: a start shows one of thirteen.
void DeviceConnectorViewS1M1::buildPage(int number)
{
    QWidget* page = mStack->widget(number);
    if (page->layout() != nullptr) {
        return;
    }
    // Before there are children: each would measure its text in the system's font first, which is a long search for that font.
    page->setFont(mFont);
    page->setObjectName(connectPageName(number));
    auto* grid = new QGridLayout(page);
    grid->setSpacing(0);
    for (int column = 0; column < kColumns; ++column) {
        grid->setColumnStretch(column, kColumnShare[column]);
    }

    int line = 0;
    int left = kPageShares;
    const auto nextLine = [&](int share) {
        grid->setRowStretch(++line, 2 * share);
        left -= share;
    };
    for (const ConnectRow& row : connectRows()) {
        if (row.page != number) {
            continue;
        }
        QWidget* widget = buildWidget(row, page);
        const bool besideCancel =
            row.kind == ConnectKind::Confirm && mItems.back().row->page == number && mItems.back().row->kind == ConnectKind::Cancel;
        if (!besideCancel) {
            nextLine(1); // air above each line
            nextLine(heightShare(row.kind));
        }
        if (row.kind == ConnectKind::Cancel) {
            grid->addWidget(widget, line, 1, 1, 2);
        } else if (row.kind == ConnectKind::Confirm) {
            grid->addWidget(widget, line, besideCancel ? 4 : 2, 1, besideCancel ? 2 : 3);
        } else {
            const bool check = row.kind == ConnectKind::Check;
            grid->addWidget(widget, line, 1, 1, kColumns - 2, check ? Qt::AlignCenter : Qt::Alignment());
        }
        mItems.push_back({&row, widget});
        setText(mItems.back(), (mLanguage == u"Chinese"_s ? row.chinese : row.english).toString());
    }
    // Two spacers centre what there is, each with half of what is left.
    grid->setRowStretch(0, left);
    grid->setRowStretch(line + 1, left);
}

QWidget* DeviceConnectorViewS1M1::buildWidget(const ConnectRow& row, QWidget* page)
{
    QWidget* widget = nullptr;
    switch (row.kind) {
    case ConnectKind::Message:
    case ConnectKind::Detail: {
        auto* label = new QLabel(page);
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        label->setStyleSheet((row.kind == ConnectKind::Message ? kMessageStyle : kDetailStyle).toString());
        widget = label;
        break;
    }
    case ConnectKind::Bar:
        mProgress = new QProgressBar(page);
        mProgress->setTextVisible(false);
        mProgress->setValue(0);
        mProgress->setStyleSheet(kBarStyle.toString());
        widget = mProgress;
        break;
    case ConnectKind::Cancel:
    case ConnectKind::Confirm:
        widget = new QPushButton(page);
        widget->setStyleSheet(kButtonStyle.toString().arg(row.kind == ConnectKind::Cancel ? kCancelColor : kConfirmColor));
        break;
    case ConnectKind::Check:
        widget = new QCheckBox(page);
        break;
    }
    widget->setObjectName(row.object);
    // The grid alone decides: no text may push the window beyond the size that it is given.
    widget->setMinimumSize(1, 1);
    if (row.kind != ConnectKind::Check) {
        widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    }
    connectEvent(row, widget);
    return widget;
}

void DeviceConnectorViewS1M1::connectEvent(const ConnectRow& row, QWidget* widget)
{
    const QString page = connectPageName(row.page);
    if (auto* button = qobject_cast<QPushButton*>(widget)) {
        connect(button, &QPushButton::clicked, this,
                [this, page, value = QString(row.event)] { emit attributeChanged(page, u"Update"_s, value); });
    } else if (auto* box = qobject_cast<QCheckBox*>(widget)) {
        connect(box, &QCheckBox::stateChanged, this, [this, page](int state) {
            emit attributeChanged(page, u"Update"_s, state == Qt::Checked ? u"AutoCheckOFF"_s : u"AutoCheckON"_s);
        });
    }
}

void DeviceConnectorViewS1M1::setFont(QFont font)
{
    mFont = font;
    fit();
    update();
}

void DeviceConnectorViewS1M1::setLanguage(QString language)
{
    const bool chinese = language == u"Chinese"_s;
    if (!chinese && language != u"English"_s) {
        return;
    }
    mLanguage = language;
    for (const Item& item : mItems) {
        setText(item, (chinese ? item.row->chinese : item.row->english).toString());
    }
}

void DeviceConnectorViewS1M1::setVersions(QString current, QString available)
{
    buildPage(PageUpdateOffered);
    const bool chinese = mLanguage == u"Chinese"_s;
    setText("Page6Label1"_L1, (chinese ? u"最新版本 : V"_s : u"Available version : V"_s) + versionText(available));
    setText("Page6Label2"_L1, (chinese ? u"当前版本 : V"_s : u"Current version : V"_s) + versionText(current));
}

void DeviceConnectorViewS1M1::setProgressText(QString text)
{
    buildPage(PageProgress);
    setText("Page8Label1"_L1, text);
    mProgress->setAccessibleName(text);
}

void DeviceConnectorViewS1M1::setProgressValue(int value)
{
    buildPage(PageProgress);
    mProgress->setValue(qBound(mProgress->minimum(), value, mProgress->maximum()));
}

void DeviceConnectorViewS1M1::setProgressMessage(QString text)
{
    buildPage(PageProgress);
    setText("Page8Label2"_L1, text);
}

int DeviceConnectorViewS1M1::currentPage() const
{
    return mStack->currentIndex();
}

void DeviceConnectorViewS1M1::setPage(int page)
{
    if (page < 0 || page >= mStack->count()) {
        return;
    }
    fitPage(page);
    mStack->setCurrentIndex(page);
    QWidget* message = nullptr;
    QWidget* button = nullptr;
    for (const Item& item : mItems) {
        if (item.row->page != page) {
            continue;
        }
        if (item.row->kind == ConnectKind::Message) {
            message = item.widget;
        } else if (button == nullptr && qobject_cast<QPushButton*>(item.widget) != nullptr) {
            button = item.widget;
        }
    }
    if (message == nullptr) {
        return; // a page without a message has nothing to say
    }
    // Without a button the message takes the focus: it must not wander to the title bar, where Return would close the window.
    (button != nullptr ? button : message)->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent alert(message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void DeviceConnectorViewS1M1::resizeEvent(QResizeEvent* event)
{
    DeviceConnectorViewBase::resizeEvent(event);
    fit();
}

/// Only the page on top; the others follow when they are shown, for twelve pages' texts cost the start more than the window does.
void DeviceConnectorViewS1M1::fit()
{
    layout()->setGeometry(rect());
    mFont.setPointSize(GlobalFont::instance().pointSizeForHeight(mFont, height() / kFontShare));
    mFitted.reset();
    fitPage(currentPage());
}

void DeviceConnectorViewS1M1::fitPage(int number)
{
    if (mFitted.test(static_cast<std::size_t>(number))) {
        return;
    }
    buildPage(number);
    mFitted.set(static_cast<std::size_t>(number));
    // A page that is not on top yet is laid out only when it is shown; its texts need their rectangles now.
    QWidget* page = mStack->widget(number);
    page->resize(mStack->size());
    page->layout()->setGeometry(page->rect());
    const QString checkStyle = kCheckStyle.toString().arg(height() * kSpacingShare).arg(height() * kIndicatorShare);
    for (const Item& item : mItems) {
        if (item.row->page != number) {
            continue;
        }
        if (item.row->kind == ConnectKind::Check) {
            item.widget->setStyleSheet(checkStyle);
        }
        fitItem(item);
    }
}

void DeviceConnectorViewS1M1::fitItem(const Item& item)
{
    if (item.row->kind == ConnectKind::Bar) {
        return;
    }
    QFont font = mFont;
    int points = font.pointSize();
    if (isSmall(item.row->kind)) {
        points = std::max(points - kSmallerBy, std::min(points, kLegiblePoints));
    }
    for (;; --points) {
        font.setPointSize(points);
        if (points <= kLeastPoints || fits(item.widget, font)) {
            break;
        }
    }
    item.widget->setFont(font);
}

void DeviceConnectorViewS1M1::setText(const Item& item, const QString& text)
{
    if (auto* label = qobject_cast<QLabel*>(item.widget)) {
        label->setText(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(item.widget)) {
        button->setText(text);
    }
    if (mFitted.test(static_cast<std::size_t>(item.row->page))) {
        fitItem(item);
    }
}

void DeviceConnectorViewS1M1::setText(QLatin1StringView object, const QString& text)
{
    for (const Item& item : mItems) {
        if (item.row->object == object) {
            setText(item, text);
        }
    }
}
