#include "controls/group/PanelCore.h"

#include "app/GlobalFont.h"
#include "controls/group/PlateButton.h"
#include "controls/group/PlateIcon.h"

#include <QFontMetricsF>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{
namespace
{
/// The pixel size at which every caption still fits its plate by the height of its ink, clear of the lamp; at most limit.
///
/// A fit by line height leaves room for descenders that no caption has; on a plate eight pixels high that is the difference
/// between a caption and a smear.
double inkPixelSize(QFont font, const std::vector<PlateButton*>& buttons, double limit)
{
    constexpr int kProbe = 40;
    font.setPixelSize(kProbe);
    const QFontMetricsF metrics(font);
    for (const PlateButton* button : buttons) {
        const QSizeF place = button->captionSize();
        const double high = std::max(metrics.tightBoundingRect(button->text()).height(), 1.0);
        const double wide = std::max(metrics.horizontalAdvance(button->text()), 1.0);
        limit = std::min({limit, place.height() * 0.72 / high * kProbe, place.width() / wide * kProbe});
    }
    return limit;
}

QString sideWord(PlateSide side, bool chinese)
{
    switch (side) {
    case PlateSide::Left:
        return chinese ? u" 左"_s : u" left"_s;
    case PlateSide::Right:
        return chinese ? u" 右"_s : u" right"_s;
    case PlateSide::None:
        break;
    }
    return {};
}
} // namespace

PanelCore::PanelCore(QWidget* panel, const PanelShape& shape)
    : mShape(shape), mPanel(panel), mFrame(new QFrame(panel)), mFont(panel->font())
{
    panel->setMinimumSize(shape.width, shape.height);
    mFrame->setObjectName("frame"_L1);
    for (int i = 0; i < int(shape.buttons.size()); ++i) {
        addButton(i);
        addIcon(i);
    }
    connect(&mClicks, &ClickTiming::clicked, this, [this](QAbstractButton* button, const QString& which) {
        const auto at = std::find(mButtons.begin(), mButtons.end(), button);
        emit clicked(int(at - mButtons.begin()), which);
    });
    setLanguage(u"English"_s);
}

void PanelCore::addButton(int index)
{
    const PanelButton& row = mShape.buttons[std::size_t(index)];
    auto* button = new PlateButton(mFrame, mShape.style, row.tone);
    button->setObjectName("PushButton"_L1 + QLatin1StringView(row.name));
    button->setCheckable(!row.momentary);
    button->setAutoExclusive(row.exclusive);
    mExclusive |= row.exclusive ? 1u << index : 0u;
    if (row.momentary) {
        connect(button, &QPushButton::clicked, this, [this, index] { emit changed(index, u"1"_s); });
    }
    // Not clicked(): assistive technology toggles a button without a click.
    connect(button, &QPushButton::toggled, this, [this, index](bool checked) { buttonToggled(index, checked); });
    if (row.mouseEvents) {
        mClicks.watch(button);
    }
    mButtons.push_back(button);
}

void PanelCore::addIcon(int index)
{
    const PanelButton& row = mShape.buttons[std::size_t(index)];
    PlateIcon* icon = nullptr;
    if (row.icon) {
        icon = new PlateIcon(QString::fromLatin1(row.icon), mFrame);
        icon->setObjectName(u"Item%1Label"_s.arg(index + 1));
        connect(mButtons.back(), &QPushButton::toggled, icon, &PlateIcon::setLit);
    }
    mIcons.push_back(icon);
}

/// False if there was nothing to switch.
bool PanelCore::switchTo(int index, bool on)
{
    const unsigned bit = 1u << index;
    if ((mExclusive & bit) != 0) {
        if (!on) {
            return false;
        }
        mState &= ~mExclusive; // the buttons of the set see to their own looks
    }
    mState = on ? mState | bit : mState & ~bit;
    mButtons[std::size_t(index)]->setChecked(on);
    return true;
}

void PanelCore::setState(const QString& button, const QString& state, bool tell)
{
    const int index = indexOf(mShape, button);
    if (index < 0) {
        return;
    }
    if (mShape.selector) {
        const bool another = !isOn(index);
        setOn(index, true, tell && another);
    } else if (switchTo(index, state.toInt() != 0) && tell) {
        emit changed(index, state);
    }
}

void PanelCore::setOn(int index, bool on, bool tell)
{
    if (index >= 0 && index < count() && switchTo(index, on) && tell) {
        emit changed(index, on ? u"1"_s : u"0"_s);
    }
}

QString PanelCore::getState(const QString& button) const
{
    if (!mShape.selector) {
        return isOn(indexOf(mShape, button)) ? u"1"_s : u"0"_s;
    }
    for (int i = 0; i < count(); ++i) {
        if (isOn(i)) {
            return nameOf(i);
        }
    }
    return {};
}

void PanelCore::buttonToggled(int index, bool checked)
{
    // Switched from here, and known already.
    if (isOn(index) != checked) {
        setOn(index, checked, true);
    }
}

void PanelCore::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1) {
        return;
    }
    mChinese = language == "Chinese"_L1;
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        mButtons[i]->setText(QString::fromUtf8(mChinese ? mShape.buttons[i].chinese : mShape.buttons[i].english));
    }
    nameButtons();
    fitFont();
}

void PanelCore::setFont(const QFont& font)
{
    mFont = font;
    fitFont();
}

void PanelCore::setAccessibleName(const QString& prefix)
{
    mAccessiblePrefix = prefix;
    mPanel->QWidget::setAccessibleName(prefix);
    nameButtons();
}

void PanelCore::nameButtons()
{
    const QString before = mAccessiblePrefix.isEmpty() ? QString() : mAccessiblePrefix + u' ';
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        mButtons[i]->setAccessibleName(before + mButtons[i]->text() + sideWord(mShape.buttons[i].side, mChinese));
    }
}

void PanelCore::layout()
{
    mFrame->setGeometry(mPanel->rect());
    LampPlace lamps = LampPlace::Left;
    for (int i = 0; i < count(); ++i) {
        const PanelPlace place = panelPlace(mShape, i, mPanel->size());
        mButtons[std::size_t(i)]->setGeometry(place.plate);
        if (QWidget* icon = mIcons[std::size_t(i)]) {
            icon->setGeometry(place.icon);
        }
        if (lampPlaceFor(place.plate.size()) == LampPlace::Foot) {
            lamps = LampPlace::Foot;
        }
    }
    for (PlateButton* button : mButtons) {
        button->setLampPlace(lamps);
    }
    mLaidOut = true;
    fitFont();
}

void PanelCore::fitFont()
{
    if (!mLaidOut) {
        return;
    }
    const QRect plate = mButtons.front()->rect();
    const GlobalFont& fonts = GlobalFont::instance();
    const int fitted = count() == 2 ? fonts.pointSizeForHeight(mFont, plate.height())
                                    : fonts.pointSizeForRect(mFont, mButtons.front()->text(), plate);
    QFont font = mFont;
    font.setPointSize(std::max(fitted - 1, 1));
    const double told = QFontInfo(font).pixelSize();
    constexpr double kReadable = 9;
    font.setPixelSize(std::max(int(inkPixelSize(mFont, mButtons, std::max(told, kReadable))), 1));
    for (PlateButton* button : mButtons) {
        button->setFont(font);
    }
}
} // namespace quillon
