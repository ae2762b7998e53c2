#include "gallery/GalleryPage.h"

#include "app/GlobalFont.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon::gallery
{

namespace
{

constexpr int kPageWidth = 1180;
constexpr int kNameWidth = 170;
constexpr int kCaptionWidth = 76;
constexpr QColor kPageColor{12, 12, 12}, kRowColor{22, 22, 22}, kNameColor{67, 207, 124}, kCaptionColor{161, 161, 161};

int scaled(int pixels, const Setting& setting)
{
    return qRound(pixels * setting.scale);
}

QLabel* newText(const QString& text, const QColor& color, int pixels, const Setting& setting)
{
    auto* label = new QLabel(text);
    QFont font = controlFont(setting);
    font.setPixelSize(scaled(pixels, setting));
    font.setWeight(QFont::Medium);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    return label;
}

void fill(QWidget* widget, const QColor& color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

bool isReachable(const QWidget* widget)
{
    const bool hidden = widget->testAttribute(Qt::WA_WState_Hidden) && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
    return !hidden && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

/// What Tab reaches in a control first: itself or a part of it; null where nothing takes the keyboard.
QWidget* focusTarget(QWidget* control)
{
    if (isReachable(control))
        return control;
    const QList<QWidget*> parts = control->findChildren<QWidget*>();
    const auto part = std::find_if(parts.begin(), parts.end(), isReachable);
    return part == parts.end() ? nullptr : *part;
}

/// The state that a hand would bring about, for as long as no hand comes.
void touch(QWidget* control, Touch how)
{
    QWidget* target = focusTarget(control);
    if (how == Touch::Disabled) {
        control->setEnabled(false);
    } else if (how == Touch::Focus && target) {
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(target, &event);
    } else if (how == Touch::Hover && target) {
        const QPointF middle = target->rect().center();
        QEnterEvent enter(middle, middle, middle);
        QHoverEvent hover(QEvent::HoverEnter, middle, middle, QPointF(-1, -1));
        target->setAttribute(Qt::WA_UnderMouse);
        QCoreApplication::sendEvent(target, &enter);
        QCoreApplication::sendEvent(target, &hover);
    }
}

} // namespace

QFont controlFont(const Setting& setting)
{
    QFont font = GlobalFont::instance().font();
    font.setPixelSize(scaled(13, setting));
    return font;
}

GalleryPage::GalleryPage(const Family& family, const Setting& setting, QWidget* parent)
    : QWidget(parent), mSetting(setting), mMembers(family.members())
{
    fill(this, kPageColor);
    setFixedWidth(scaled(kPageWidth, setting));
    setAccessibleName(family.title.in(setting.language));
    auto* rows = new QVBoxLayout(this);
    const int margin = scaled(10, setting);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(scaled(6, setting));
    for (const Member& member : std::as_const(mMembers))
        rows->addWidget(newRow(member));
    rows->addStretch();
    for (const Shown& each : std::as_const(mShown))
        touch(each.control, each.exhibit->touch);
}

QWidget* GalleryPage::newRow(const Member& member)
{
    auto* row = new QFrame;
    fill(row, kRowColor);
    auto* columns = new QHBoxLayout(row);
    const int margin = scaled(10, mSetting);
    columns->setContentsMargins(margin, margin, margin, margin);
    QLabel* name = newText(QLatin1StringView(member.className), kNameColor, 14, mSetting);
    name->setFixedWidth(scaled(kNameWidth, mSetting));
    name->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    columns->addWidget(name);

    auto* cells = new QGridLayout;
    const int gap = scaled(8, mSetting);
    cells->setSpacing(gap);
    const int cellWidth = scaled(std::max(member.size.width(), kCaptionWidth), mSetting);
    const int room = scaled(kPageWidth - kNameWidth, mSetting) - 5 * margin;
    const int inLine = std::max(1, (room + gap) / (cellWidth + gap));
    int at = 0;
    for (const Exhibit& exhibit : member.exhibits) {
        cells->addWidget(newCell(member, exhibit), at / inLine, at % inLine, Qt::AlignTop);
        ++at;
    }
    columns->addLayout(cells);
    columns->addStretch();
    return row;
}

QWidget* GalleryPage::newCell(const Member& member, const Exhibit& exhibit)
{
    const auto nameOf = [&member](const Exhibit& it) {
        return QLatin1StringView(member.className) + u' ' + QString::fromUtf8(it.state.english);
    };
    const QString name = nameOf(exhibit);
    auto* cell = new QWidget;
    cell->setFixedWidth(scaled(std::max(member.size.width(), kCaptionWidth), mSetting));
    auto* column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(4, mSetting));
    QWidget* control = exhibit.make(mSetting, name);
    control->setFixedSize(member.size * mSetting.scale);
    column->addWidget(control, 0, Qt::AlignHCenter);
    QLabel* caption = newText(exhibit.state.in(mSetting.language), kCaptionColor, 12, mSetting);
    caption->setAlignment(Qt::AlignCenter);
    column->addWidget(caption);
    mShown << Shown{name, nameOf(member.exhibits.first()), &exhibit, control};
    return cell;
}

void GalleryPage::feed(const Levels& levels)
{
    for (const Shown& each : std::as_const(mShown))
        if (each.exhibit->feed)
            each.exhibit->feed(*each.control, levels);
}

QPixmap GalleryPage::picture()
{
    QPixmap whole = grab(QRect(0, 0, width(), layout()->totalSizeHint().height()));
    QPainter painter(&whole);
    for (const Shown& each : std::as_const(mShown)) {
        QWidget* target = each.exhibit->touch == Touch::Focus ? focusTarget(each.control) : nullptr;
        if (!target)
            continue;
        target->setFocus(Qt::TabFocusReason);
        const QRect place(each.control->mapTo(this, QPoint()), each.control->size());
        painter.drawPixmap(place, grab(place));
        target->clearFocus();
    }
    return whole;
}

Levels levelsAt(double seconds)
{
    const auto side = [seconds](double phase) {
        const double swell = std::sin(seconds * 0.9 + phase);
        const double beat = std::sin(seconds * 7.3 + 2 * phase);
        const int level = int(-190 + 150 * swell + 60 * beat);
        return level >= 15 ? 1 : std::min(level, 0);
    };
    return {side(0), side(0.7), 6};
}

} // namespace quillon::gallery
