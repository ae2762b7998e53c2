#include "controls/group/GroupCore.h"

#include "app/GlobalFont.h"
#include "controls/group/PlateButton.h"

#include <QFontMetricsF>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{
namespace
{
QRect onPixels(const PlateRect& plate, QSize size)
{
    const int left = qRound(plate.x * size.width());
    const int top = qRound(plate.y * size.height());
    const int right = qRound((plate.x + plate.width) * size.width());
    const int bottom = qRound((plate.y + plate.height) * size.height());
    return {left, top, std::max(right - left, 1), std::max(bottom - top, 1)};
}

/// The pixel size at which every caption still fits a plate by the height of its ink, clear of the lamp; at most limit.
///
/// A fit by line height leaves room for descenders that no caption has; on a plate eight pixels high that is the difference
/// between a caption and a smear.
double inkPixelSize(QFont font, const QStringList& captions, QSize plate, double limit)
{
    constexpr int kProbe = 40;
    font.setPixelSize(kProbe);
    const QFontMetricsF metrics(font);
    double wide = 1;
    double high = 1;
    for (const QString& caption : captions) {
        wide = std::max(wide, metrics.horizontalAdvance(caption));
        high = std::max(high, metrics.tightBoundingRect(caption).height());
    }
    return std::min({plate.height() * 0.66 / high * kProbe, plate.width() * 0.82 / wide * kProbe, limit});
}
} // namespace

GroupCore::GroupCore(QWidget* group, const GroupShape& shape) : mShape(shape), mGroup(group), mFrame(new PlatePicture(group))
{
    Q_ASSERT(shape.imageByState.size() ==
             (shape.kind == GroupKind::Selector ? shape.buttons.size() + 1 : 1u << shape.buttons.size()));
    group->setMinimumSize(shape.width, shape.height);
    mFrame->setObjectName("frame"_L1);
    for (unsigned state = 0; state < shape.imageByState.size(); ++state) {
        mStyleByState.insert(
            state, u":/Image/PushButtonGroup/%1_%2.png"_s.arg(QLatin1StringView(shape.family)).arg(shape.imageByState[state]));
    }
    for (std::size_t i = 0; i < shape.buttons.size(); ++i) {
        auto* button = new PlateButton(mFrame, lampAtFoot(shape));
        button->setObjectName("PushButton"_L1 + QLatin1StringView(shape.buttons[i].name));
        button->setAutoExclusive(shape.kind == GroupKind::Selector);
        connect(button, &QPushButton::clicked, this, [this, i](bool checked) { buttonClicked(int(i), checked); });
        if (shape.buttons[i].mouseEvents) {
            mClicks.watch(button);
        }
        mButtons.push_back(button);
    }
    connect(&mClicks, &ClickTiming::clicked, this, [this](QAbstractButton* button, const QString& which) {
        const auto at = std::find(mButtons.begin(), mButtons.end(), button);
        emit mouseClickEvent(QLatin1StringView(mShape.buttons[std::size_t(at - mButtons.begin())].name), which);
    });
    mFont = group->font();
    setLanguage(u"English"_s);
    showState();
}

int GroupCore::indexOf(const QString& button) const
{
    for (std::size_t i = 0; i < mShape.buttons.size(); ++i) {
        if (button == QLatin1StringView(mShape.buttons[i].name)) {
            return int(i);
        }
    }
    return -1;
}

void GroupCore::setState(const QString& button, const QString& state, bool emitSignal)
{
    const int index = indexOf(button);
    if (index < 0) {
        return;
    }
    const auto at = std::size_t(index);
    if (mShape.kind == GroupKind::Selector) {
        const bool changed = mSelected != button;
        mState = unsigned(index) + 1;
        mSelected = button;
        mButtons[at]->setChecked(true);
        showState();
        if (changed && emitSignal) {
            emit stateChanged(button, u"1"_s);
        }
        return;
    }
    const unsigned bit = 1u << index;
    mState &= ~bit;
    if (state.toInt() != 0) {
        mState |= bit;
    }
    showState();
    mButtons[at]->setChecked((mState & bit) != 0);
    if (emitSignal) {
        emit stateChanged(button, state);
    }
}

QString GroupCore::getState(const QString& button) const
{
    if (mShape.kind == GroupKind::Selector) {
        return mSelected;
    }
    const int index = indexOf(button);
    return index >= 0 && isLit(mShape, mState, index) ? u"1"_s : u"0"_s;
}

void GroupCore::buttonClicked(int index, bool checked)
{
    setState(QLatin1StringView(mShape.buttons[std::size_t(index)].name), checked ? u"1"_s : u"0"_s, true);
}

void GroupCore::showState()
{
    mFrame->setPicture(mStyleByState.value(mState));
}

void GroupCore::setLanguage(const QString& language)
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

void GroupCore::setFont(const QFont& font)
{
    mFont = font;
    fitFont();
}

void GroupCore::setAccessibleName(const QString& prefix)
{
    mAccessiblePrefix = prefix;
    mGroup->QWidget::setAccessibleName(prefix);
    nameButtons();
}

void GroupCore::nameButtons()
{
    for (PlateButton* button : mButtons) {
        button->setAccessibleName(mAccessiblePrefix.isEmpty() ? button->text() : mAccessiblePrefix + u' ' + button->text());
    }
}

void GroupCore::layout()
{
    mFrame->setGeometry(mGroup->rect());
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        mButtons[i]->setGeometry(onPixels(plateRect(mShape, int(i)), mGroup->size()));
    }
    fitFont();
}

void GroupCore::fitFont()
{
    const QRect plate = mButtons.front()->rect();
    const GlobalFont& fonts = GlobalFont::instance();
    const int fitted = mButtons.size() == 2 ? fonts.pointSizeForHeight(mFont, plate.height())
                                            : fonts.pointSizeForRect(mFont, mButtons.front()->text(), plate);
    QStringList captions;
    for (const PlateButton* button : mButtons) {
        captions << button->text();
    }
    QFont font = mFont;
    font.setPointSize(std::max(fitted - 1, 1));
    const double told = QFontInfo(font).pixelSize();
    constexpr double kReadable = 9;
    const double limit = inkPixelSize(mFont, captions, plate.size(), std::max(told, kReadable));
    font.setPixelSize(std::max(int(limit), 1));
    for (PlateButton* button : mButtons) {
        button->setFont(font);
    }
}
} // namespace quillon
