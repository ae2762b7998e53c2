#include "console/head/FieldHead.h"

#include "app/GlobalFont.h"
#include "console/head/ComboBoxS1M1.h"
#include "console/head/HeadButton.h"
#include "console/head/HeadGeometry.h"
#include "controls/BatteryS1M1.h"
#include "controls/ComboBoxS1M2.h"
#include "device/USBAudioAPI.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr double kBarShare = 0.068; // of the window's height
constexpr QColor kGround(31, 31, 31);
constexpr QColor kCaptionInk(161, 161, 161);

bool hasCaption(HeadKind kind)
{
    return kind == HeadKind::Selector || kind == HeadKind::Choice || kind == HeadKind::Battery;
}

HeadPicture pictureOf(HeadKind kind)
{
    return kind == HeadKind::Save ? HeadPicture::Save : kind == HeadKind::Download ? HeadPicture::Download : HeadPicture::Settings;
}

} // namespace

FieldHead::FieldHead(std::span<const HeadItem> items, const QString& objectName, QWidget* parent)
    : QWidget(parent), mItems(items), mFont(GlobalFont::instance().font())
{
    setObjectName(objectName);
    setMinimumSize(1, 1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (const HeadItem& item : items) {
        mWidgets.push_back(makeItem(item));
    }
    setLanguage(u"English"_s);
}

QWidget* FieldHead::makeItem(const HeadItem& item)
{
    const QString name = QString::fromLatin1(item.objectName);
    switch (item.kind) {
    case HeadKind::Logo:
        return nullptr;
    case HeadKind::Selector:
        mSelector = new ComboBoxS1M1(this);
        mSelector->setObjectName(name);
        connect(mSelector, &ComboBoxS1M1::attributeChanged, this,
                [this](const QString& object, const QString& attribute, const QString& value) {
                    in_item_attributeChanged(object, attribute, value);
                });
        return mSelector;
    case HeadKind::Choice:
        return makeChoice(name);
    case HeadKind::Battery:
        mBattery = new BatteryS1M1(this);
        mBattery->setObjectName(name);
        mBattery->setLevel(0);
        mBattery->setEnabled(false);
        return mBattery;
    default:
        return makeButton(item);
    }
}

QWidget* FieldHead::makeChoice(const QString& name)
{
    auto* box = new ComboBoxS1M2(this);
    box->setObjectName(name);
    box->setEnabled(false);
    connect(box, &ComboBoxS1M2::attributeChanged, this,
            [this](const QString& object, const QString& attribute, const QString& value) {
                in_item_attributeChanged(object, attribute, value);
            });
    mChoices.push_back({name, box, {}, 0});
    return box;
}

QWidget* FieldHead::makeButton(const HeadItem& item)
{
    auto* button = new HeadButton(pictureOf(item.kind), this);
    button->setObjectName(QString::fromLatin1(item.objectName));
    connect(button, &HeadButton::clicked, this,
            [this, button] { in_item_attributeChanged(button->objectName(), u"Clicked"_s, u"1"_s); });
    if (item.kind == HeadKind::Save) {
        mSave = button;
    }
    return button;
}

FieldHead::Choices* FieldHead::choicesOf(QStringView name)
{
    const auto found =
        std::find_if(mChoices.begin(), mChoices.end(), [name](const Choices& choices) { return choices.name == name; });
    return found == mChoices.end() ? nullptr : &*found;
}

void FieldHead::setChoices(QStringView name, const QList<int>& values, int current)
{
    Choices& choices = *choicesOf(name);
    choices.values = values;
    choices.current = current;
    QStringList texts;
    for (const int value : values) {
        texts += QString::number(value);
    }
    choices.box->setItems(texts, QString::number(current));
    choices.box->setEnabled(!values.isEmpty());
}

bool FieldHead::setStream(const QString& objectName, const QString& value)
{
    Choices* choices = choicesOf(objectName);
    if (choices == nullptr) {
        return false;
    }
    USBAudioAPI& driver = USBAudioAPI::instance();
    const unsigned number = value.toUInt();
    const bool done =
        choices == mChoices.data() ? driver.setSampleRateOfActiveDevice(number) : driver.setBufferSizeOfActiveDevice(number);
    if (done) {
        choices->current = int(number);
    } else {
        setChoices(objectName, QList<int>(choices->values), choices->current);
    }
    return true;
}

void FieldHead::setBattery(int level)
{
    const bool changed = !mBattery->isEnabled() || mBattery->level() != level;
    mBattery->setEnabled(true);
    mBattery->setLevel(level);
    if (changed) {
        update();
    }
}

void FieldHead::setCharging(bool charging)
{
    mBattery->setCharging(charging);
}

FieldHead& FieldHead::setFont(const QFont& font)
{
    mFont = font;
    if (mSelector != nullptr) {
        mSelector->setFont(font);
    }
    for (const Choices& choices : mChoices) {
        choices.box->setFont(font);
    }
    fitCaptions();
    update();
    return *this;
}

FieldHead& FieldHead::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1) {
        return *this;
    }
    mLanguage = language;
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        if (QWidget* widget = mWidgets[i]) {
            const QString text = mItems[i].text.in(language == "Chinese"_L1);
            widget->setAccessibleName(text);
            widget->setToolTip(hasCaption(mItems[i].kind) ? QString() : text);
        }
    }
    if (mSelector != nullptr) {
        mSelector->setLanguage(language);
    }
    describeSave();
    fitCaptions();
    update();
    return *this;
}

void FieldHead::setSaved(bool saved)
{
    mSave->setDone(saved);
    describeSave();
}

/// Not the picture alone tells it.
void FieldHead::describeSave()
{
    if (mSave == nullptr) {
        return;
    }
    constexpr StripText kSaved{"All changes are saved", "所有更改均已保存"};
    constexpr StripText kUnsaved{"There are unsaved changes", "有未保存的更改"};
    mSave->setAccessibleDescription((mSave->isDone() ? kSaved : kUnsaved).in(mLanguage == "Chinese"_L1));
}

void FieldHead::fit(int windowHeight)
{
    setFixedHeight(std::max(1, int(windowHeight * kBarShare)));
}

/// The battery tells its level above itself, since it is small.
QString FieldHead::captionOf(const HeadItem& item) const
{
    if (item.kind != HeadKind::Battery) {
        return item.text.in(mLanguage == "Chinese"_L1);
    }
    return mBattery->isEnabled() ? QString::number(mBattery->level()) + u'%' : u"--"_s;
}

/// One size for all captions, which is that of the one with the least room.
void FieldHead::fitCaptions()
{
    if (mPlaces.empty()) {
        return;
    }
    const GlobalFont& font = GlobalFont::instance();
    int pixels = 60;
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        if (hasCaption(mItems[i].kind)) {
            const QString text = mItems[i].kind == HeadKind::Battery ? u"100%"_s : captionOf(mItems[i]);
            pixels = std::min(pixels, font.pixelSizeForRect(mFont, text, QRect(QPoint(), captionPlace(mPlaces[i]).size())));
        }
    }
    mCaptionFont = mFont;
    mCaptionFont.setPixelSize(std::max(1, pixels));
}

void FieldHead::resizeEvent(QResizeEvent*)
{
    mPlaces = headColumns(size(), mItems);
    for (std::size_t i = 0; i < mItems.size(); ++i) {
        if (QWidget* widget = mWidgets[i]) {
            widget->setGeometry(hasCaption(mItems[i].kind) ? boxPlace(mPlaces[i]) : buttonPlace(mPlaces[i]));
        }
    }
    fitCaptions();
    mLogo = {};
}

void FieldHead::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kGround);
    painter.setFont(mCaptionFont);
    for (std::size_t i = 0; i < mPlaces.size(); ++i) {
        const HeadItem& item = mItems[i];
        if (item.kind == HeadKind::Logo) {
            const double ratio = devicePixelRatioF();
            const QSize room(mPlaces[i].width(), int(mPlaces[i].height() * 0.5));
            if (mLogo.isNull() || mLogo.devicePixelRatio() != ratio) {
                mLogo = QPixmap(u":/Icon/ZELMORALogo.png"_s).scaled(room * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
                mLogo.setDevicePixelRatio(ratio);
            }
            painter.drawPixmap(QPointF(mPlaces[i].left(), (height() - mLogo.height() / ratio) / 2), mLogo);
        } else if (hasCaption(item.kind)) {
            painter.setPen(kCaptionInk);
            const bool centred = item.kind == HeadKind::Battery;
            const QRect place = captionPlace(mPlaces[i]).adjusted(centred ? 0 : boxPlace(mPlaces[i]).height() / 3, 0, 0, 0);
            painter.drawText(place, Qt::AlignVCenter | (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::TextDontClip,
                             captionOf(item));
        }
    }
}

} // namespace quillon
