#include "strips/field/FieldRow.h"

#include "app/GlobalFont.h"
#include "controls/ButtonBoxS1M1.h"

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

FieldRow::FieldRow(QWidget* field, Qt::Orientation orientation)
    : mField(field), mLabel(new QLabel(field)), mScrollArea(new QScrollArea(field)), mWidget(new QWidget),
      mAddition(new ButtonBoxS1M1(mWidget)), mOrientation(orientation),
      mTitleRatio(orientation == Qt::Horizontal ? kFieldTitleRatio : 0)
{
    mLabel->setStyleSheet(u"QLabel {   color: rgb(222, 222, 222);   background-color: transparent;}"_s);
    mLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    mScrollArea->setFrameShape(QFrame::NoFrame);
    mScrollArea->setVerticalScrollBarPolicy(isColumn() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    mScrollArea->setHorizontalScrollBarPolicy(isColumn() ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    mScrollArea->setContextMenuPolicy(Qt::NoContextMenu);
    bar()->setContextMenuPolicy(Qt::NoContextMenu);
    mScrollArea->setFocusPolicy(Qt::NoFocus);
    // The field paints what is behind the strips.
    mScrollArea->viewport()->setAutoFillBackground(false);
    mWidget->setObjectName(u"mWidget"_s);
    mScrollArea->setWidget(mWidget);
    mWidget->setAutoFillBackground(false);
    mScrollArea->viewport()->installEventFilter(this);
    connect(bar(), &QScrollBar::valueChanged, this, &FieldRow::in_mScrollArea_valueChanged);
    connect(mAddition, &ButtonBoxS1M1::attributeChanged, this, &FieldRow::additionChanged);
}

QScrollBar* FieldRow::bar() const
{
    return isColumn() ? mScrollArea->verticalScrollBar() : mScrollArea->horizontalScrollBar();
}

void FieldRow::setMembers(const QList<Member>& members)
{
    for (const Member& member : members) {
        member.widget->setParent(mWidget);
        member.widget->hide();
        mWidgetList.push_back({false, member});
    }
    mAddition->setNames(allNames());
    // The box comes last with Tab, as it does on the screen.
    mAddition->setParent(nullptr);
    mAddition->setParent(mWidget);
    relayout();
}

void FieldRow::setTitle(const QString& title)
{
    mLabel->setText(title);
    mField->setAccessibleName(title);
    emit titleLaidOut();
}

void FieldRow::setFont(const QFont& font)
{
    mFont = font;
    mAddition->setFont(font);
    relayout();
}

void FieldRow::setLanguage(const QString& language)
{
    mAddition->setLanguage(language);
}

void FieldRow::setAdditionVisible(bool visible)
{
    mAdditionVisible = visible;
    relayout();
}

void FieldRow::setVisibleList(const QStringList& names)
{
    for (Record& record : mWidgetList) {
        apply(record, names.contains(record.member.strip->channelName()));
    }
    relayout();
}

QStringList FieldRow::visibleList() const
{
    QStringList names;
    for (const Record& record : mWidgetList) {
        if (record.visible) {
            names += record.member.strip->channelName();
        }
    }
    return names;
}

QStringList FieldRow::allNames() const
{
    QStringList names;
    for (const Record& record : mWidgetList) {
        names += record.member.strip->channelName();
    }
    return names;
}

bool FieldRow::setVisible(const QString& name, bool visible)
{
    const auto found = std::ranges::find_if(mWidgetList, [&](const Record& r) { return r.member.strip->channelName() == name; });
    if (found == mWidgetList.end() || found->visible == visible) {
        return false;
    }
    apply(*found, visible);
    relayout();
    return true;
}

void FieldRow::apply(Record& record, bool visible)
{
    const QString name = record.member.strip->channelName();
    record.visible = visible;
    record.member.widget->setVisible(visible);
    record.member.strip->setStripEnabled(visible);
    if (visible) {
        mAddition->removeName(name);
    } else {
        mAddition->addName(name);
    }
}

void FieldRow::relayout()
{
    mGeometry = fieldGeometry(mField->size(), mTitleRatio, mOrientation);
    layoutTitle();
    mScrollArea->setGeometry(mGeometry.body);
    mContentLength = layoutStrips();
    mWidget->setFixedSize(alongAcross(mOrientation, {mContentLength, std::max(mGeometry.stripHeight, 0) + 2 * mGeometry.top}));
    restyleBar(mContentLength > alongAcross(mOrientation, mGeometry.body.size()).width());
    limitSize();
    mField->update();
}

void FieldRow::layoutTitle()
{
    const int height = mGeometry.title.height();
    mLabel->setHidden(height == 0);
    if (height == 0) {
        return;
    }
    QFont font = mFont;
    font.setPointSize(GlobalFont::instance().pointSizeForHeight(mFont, height));
    mLabel->setFont(font);
    mLabel->setGeometry(height / 2, 0, std::max(mGeometry.title.width() - height, 0), height);
    emit titleLaidOut();
}

QRect FieldRow::besideTitle() const
{
    QRect free = mGeometry.title;
    free.setLeft(mLabel->x() + mLabel->fontMetrics().horizontalAdvance(mLabel->text()) + free.height() / 2);
    return free;
}

QFont FieldRow::titleFont() const
{
    return mLabel->font();
}

int FieldRow::layoutStrips()
{
    QList<QWidget*> shown;
    QList<QSize> sizes;
    for (const Record& record : std::as_const(mWidgetList)) {
        if (record.visible) {
            shown += record.member.widget;
        }
    }
    const bool boxShown = mAdditionVisible && !mAddition->isEmpty();
    if (boxShown) {
        shown += mAddition;
    }
    for (const QWidget* widget : std::as_const(shown)) {
        sizes += widget->minimumSize();
    }
    const QList<QRect> places = placeStrips(mGeometry, sizes);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        shown[i]->setGeometry(places[i]);
    }
    const int last = places.isEmpty() ? 0 : (isColumn() ? places.last().bottom() : places.last().right()) + 1;
    const int end = last + mGeometry.start;
    if (!boxShown) {
        const QPoint beyond(end + mGeometry.start, mGeometry.top);
        mAddition->move(isColumn() ? beyond.transposed() : beyond);
    }
    mAddition->setVisible(boxShown);
    return end;
}

void FieldRow::restyleBar(bool scrollable)
{
    const QString style = scrollBarStyle(mGeometry, scrollable);
    if (style != mBarStyle) {
        mBarStyle = style;
        bar()->setStyleSheet(style);
    }
}

void FieldRow::limitSize()
{
    // A field that was never shown has no height to speak of, and a length out of it would hold the page's splitters open.
    const int height = mField->isVisible() ? mGeometry.stripHeight : 0;
    const auto lengthOf = [this, height](const QWidget* widget) {
        return stripSize(height, alongAcross(mOrientation, widget->minimumSize())).width();
    };
    int longest = 0;
    for (const Record& record : std::as_const(mWidgetList)) {
        if (record.visible || mWidgetList.size() == 1) {
            longest = std::max(longest, lengthOf(record.member.widget));
        }
    }
    if (longest == 0) {
        longest = lengthOf(mAddition);
    }
    const int strips = mWidgetList.size() == 1 ? 1 : 2;
    const int length = 2 * mGeometry.start + strips * longest + (strips - 1) * mGeometry.gap;
    if (isColumn()) {
        mField->setMinimumHeight(length);
    } else {
        mField->setMinimumWidth(length);
    }
}

void FieldRow::paint(QPainter& painter) const
{
    paintField(painter, mGeometry, mContentLength, mScrollValue);
}

bool FieldRow::eventFilter(QObject* watched, QEvent* event)
{
    // A row has one direction to go: an ordinary wheel moves it as well.
    if (event->type() == QEvent::Wheel && !isColumn()) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        QScrollBar* bar = this->bar();
        const QPoint delta = wheel->angleDelta();
        if (delta.x() == 0 && delta.y() != 0 && bar->maximum() > 0) {
            bar->setValue(bar->value() - delta.y());
            event->accept();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void FieldRow::in_mScrollArea_valueChanged(int value)
{
    mScrollValue = value;
    mField->update();
}

} // namespace quillon
