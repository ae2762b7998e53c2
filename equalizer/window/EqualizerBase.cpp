#include "equalizer/window/EqualizerBase.h"

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "controls/SvgPixmap.h"
#include "controls/TitleButton.h"
#include "equalizer/window/EqualizerPanelS1M1.h"
#include "equalizer/window/FlatButton.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;
using quillon::BandText;

namespace
{

constexpr int kMargin = 20; // around the frame, for the shadow
constexpr QSize kBaseSize{522 + 2 * kMargin, 425 + 2 * kMargin};
constexpr double kMaximumScale = 16;

// Shares of the window.
constexpr double kSideMargin = 0.04;
constexpr double kSideWidth = 0.161;
constexpr double kTitleHeight = 0.11;
constexpr double kGap = 0.015;
// Shares of the title bar's height.
constexpr double kSwitchSide = 0.4;
constexpr double kCloseSide = 0.35;
constexpr double kTitleText = 0.5;
constexpr double kTitleLetters = 0.9; // of the text's height
// Shares of a side pane's height.
constexpr double kLabelHeight = 0.085;
constexpr double kLabelLetters = 0.5; // of the label's height
constexpr double kControlsHeight = 0.89;

constexpr BandText kTitleTexts{"EQ", "均衡器"};
constexpr BandText kCloseName{"Close", "关闭"};
struct SideTexts {
    BandText label;
    BandText meter;
    BandText fader;
};
constexpr SideTexts kSideTexts[]{{{"INPUT", "输入"}, {"Input level", "输入电平"}, {"Input gain", "输入增益"}},
                                 {{"OUTPUT", "输出"}, {"Output level", "输出电平"}, {"Output gain", "输出增益"}}};

QLabel* newLabel(QWidget* parent, const QString& objectName, const QColor& colour)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setAlignment(Qt::AlignCenter);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, colour);
    label->setPalette(colours);
    return label;
}

/// The face at a share of the height, at most so large that the text fits the width.
void fit(QLabel* label, QFont face, double share)
{
    const QRect room(0, 0, label->width(), int(label->height() * share));
    face.setPixelSize(GlobalFont::instance().pixelSizeForRect(face, label->text(), room));
    label->setFont(face);
}

} // namespace

/// What all stands on.
class EqualizerBase::Ground : public QWidget
{
public:
    explicit Ground(const QString& picture) : mPicture(picture) {}

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, mPicture.at(size(), devicePixelRatioF())); }

private:
    quillon::SvgPixmap mPicture;
};

class EqualizerBase::Pane : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(22, 22, 22));
        painter.drawRoundedRect(rect(), 8, 8);
    }
};

EqualizerBase::EqualizerBase(const QString& background, QWidget* parent) : FramelessWindow(parent), mGround(new Ground(background))
{
    setShadowRadius(kMargin);
    setLook(1);
    // Tab goes from the title over the panel to the faders: in the order in which they are made.
    buildTitle();
    mMiddle = new Pane(mGround);
    mMiddle->setObjectName(u"widgetEqPane"_s);
    mPanel = new EqualizerPanelS1M1(mMiddle);
    mPanel->QObject::setObjectName(u"widgetEqPanel"_s);
    buildSides();
    connect(mPanel, &EqualizerPanelS1M1::attributeChanged, this, &EqualizerBase::attributeChanged);
    connect(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged, this,
            [this](const QString&, const QString& attribute, const QString& value) {
                if (attribute == "ModifyLanguage"_L1) {
                    setLanguage(value);
                }
            });
    mGround->installEventFilter(this);
    setBody(mGround);
    setMinimumSize(kBaseSize);
    resize(kBaseSize);
}

void EqualizerBase::buildTitle()
{
    mTop = new QWidget(mGround);
    mTop->setObjectName(u"widgetTop"_s);
    mSwitch = new quillon::PictureButton(u":/Icon/autoStartUnchecked.svg"_s, u":/Icon/autoStart.svg"_s, mTop);
    mSwitch->setObjectName(u"buttonSwitch"_s);
    mTitle = newLabel(mTop, u"labelTitle"_s, Qt::white);
    mClose = new quillon::TitleButton(quillon::TitleButton::Sign::Close, mTop);
    mClose->setObjectName(u"buttonClose"_s);
    connect(mSwitch, &QPushButton::toggled, this, [this](bool on) { setSwitch(on, true); });
    connect(mClose, &QPushButton::clicked, this, &QWidget::close);
}

void EqualizerBase::buildSides()
{
    static constexpr std::array<std::pair<const char*, const char*>, SideCount> kNames{
        {{"widgetLeft", "label"}, {"widgetRight", "label_2"}}};
    for (std::size_t i = 0; i < mSides.size(); ++i) {
        mSides[i].pane = new Pane(mGround);
        mSides[i].pane->setObjectName(QLatin1StringView(kNames[i].first));
        mSides[i].label = newLabel(mSides[i].pane, QLatin1StringView(kNames[i].second), {222, 222, 222});
    }
}

QWidget* EqualizerBase::adopt(QWidget* control, const char* objectName)
{
    control->setObjectName(QLatin1StringView(objectName));
    return control;
}

void EqualizerBase::setSwitch(bool on, bool sendEvent)
{
    {
        const QSignalBlocker silent(mSwitch);
        mSwitch->setChecked(on);
    }
    if (sendEvent) {
        raise(u"Switch"_s, on ? u"1"_s : u"0"_s);
    }
    mPanel->refreshBands();
}

void EqualizerBase::setStateTarget(bool on)
{
    mPanel->setStateTarget(on);
}

void EqualizerBase::setStateSource(bool on)
{
    mPanel->setStateSource(on);
}

void EqualizerBase::setStateEachFilter(bool on)
{
    mPanel->setStateEachFilter(on);
}

void EqualizerBase::setStateCombined(bool on)
{
    mPanel->setStateCombined(on);
}

void EqualizerBase::setStateFiltered(bool on)
{
    mPanel->setStateFiltered(on);
}

void EqualizerBase::setFilteredType(int type)
{
    mPanel->setFilteredType(type != 0);
}

QString EqualizerBase::importTargetFile(const QString& path)
{
    return mPanel->importTarget(path);
}

QString EqualizerBase::importSourceFile(const QString& path)
{
    return mPanel->importSource(path);
}

void EqualizerBase::setItemCount(qint32 count)
{
    mPanel->setItemCount(count);
}

void EqualizerBase::setItemAttribute(const QString& number, const QString& attribute, const QString& value)
{
    mPanel->setItemAttribute(number, attribute, value);
}

void EqualizerBase::setFileChooser(EqualizerTool::FileChooser chooser)
{
    mPanel->setFileChooser(std::move(chooser));
}

void EqualizerBase::setObjectName(const QString& name)
{
    QObject::setObjectName(name);
    mPanel->setObjectName(name);
    nameParts();
}

quillon::DeviceSetter EqualizerBase::deviceSetter(QStringView attribute)
{
    using Level = void (EqualizerBase::*)(int);
    using Gain = void (EqualizerBase::*)(float);
    static constexpr std::pair<QStringView, Level> kLevels[]{{u"MeterLeft", &EqualizerBase::setVolumeMeterInputLeft},
                                                             {u"MeterRight", &EqualizerBase::setVolumeMeterInputRight},
                                                             {u"Meter", &EqualizerBase::setVolumeMeterOutputLeft},
                                                             {u"OutputLeft", &EqualizerBase::setVolumeMeterOutputLeft},
                                                             {u"OutputRight", &EqualizerBase::setVolumeMeterOutputRight}};
    static constexpr std::pair<QStringView, Gain> kGains[]{{u"GainInput", &EqualizerBase::setGainInputLeft},
                                                           {u"GainOutput", &EqualizerBase::setGainOutputLeft}};
    if (attribute == u"Switch") {
        return [this](const QVariant& on) { setSwitch(on.toBool(), false); };
    }
    for (const auto& [name, set] : kLevels) {
        if (attribute == name) {
            return [this, setter = set](const QVariant& level) { (this->*setter)(level.toInt()); };
        }
    }
    for (const auto& [name, set] : kGains) {
        if (attribute == name) {
            return [this, setter = set](const QVariant& gain) { (this->*setter)(gain.toFloat()); };
        }
    }
    return {};
}

void EqualizerBase::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1) {
        return;
    }
    mChinese = language == "Chinese"_L1;
    mPanel->setLanguage(language);
    nameParts();
    fitTexts();
}

/// The title is that of all equalizers; the window's own tells which one it is.
void EqualizerBase::nameParts()
{
    const QString title = kTitleTexts.in(mChinese);
    mTitle->setText(title);
    setWindowTitle(title + u' ' + objectName().section(u'_', 1));
    mSwitch->setAccessibleName(title);
    mClose->setAccessibleName(kCloseName.in(mChinese));
    for (std::size_t i = 0; i < mSides.size(); ++i) {
        const SideTexts& texts = kSideTexts[i];
        mSides[i].label->setText(texts.label.in(mChinese));
        if (mSides[i].meter) {
            mSides[i].meter->setAccessibleName(texts.meter.in(mChinese));
        }
        if (QWidget* fader = mSides[i].fader) {
            fader->setAccessibleName(texts.fader.in(mChinese));
            fader->focusProxy()->setAccessibleName(texts.fader.in(mChinese));
        }
    }
}

void EqualizerBase::setFont(const QFont& font)
{
    mFace = font;
    QWidget::setFont(font);
    mPanel->setFont(font);
    for (const auto& set : mFontSetters) {
        set(font);
    }
    fitTexts();
}

void EqualizerBase::setScaleFactor(double factor)
{
    if (!(factor > 0 && factor <= kMaximumScale)) {
        return;
    }
    const QSize size(int(kBaseSize.width() * factor), int(kBaseSize.height() * factor));
    setMinimumSize(size);
    resize(size);
    mPanel->setScaleFactor(factor);
}

/// A wheel that no control takes goes no further than the ground, and moves nothing else.
bool EqualizerBase::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mGround) {
        switch (event->type()) {
        case QEvent::Wheel:
            return true;
        case QEvent::Resize:
            layoutParts();
            break;
        case QEvent::Show:
            fitTexts();
            break;
        default:
            break;
        }
    }
    return FramelessWindow::eventFilter(watched, event);
}

void EqualizerBase::layoutParts()
{
    const int gap = int(width() * kGap);
    const int margin = std::max(gap, int(width() * kSideMargin) - kMargin);
    const int side = int(width() * kSideWidth);
    const int title = int(mGround->height() * kTitleHeight);
    const QRect room(margin, title + gap, mGround->width() - 2 * margin, mGround->height() - title - 2 * gap);
    layoutTitle({0, 0, mGround->width(), title});
    mSides[Input].pane->setGeometry(room.x(), room.y(), side, room.height());
    mSides[Output].pane->setGeometry(room.right() + 1 - side, room.y(), side, room.height());
    mMiddle->setGeometry(room.adjusted(side + gap, 0, -side - gap, 0));
    mPanel->setGeometry(mMiddle->rect().adjusted(0, gap / 2, 0, -gap / 2));
    for (const SideParts& parts : mSides) {
        layoutSide(parts);
    }
    fitTexts();
}

void EqualizerBase::layoutTitle(const QRect& title)
{
    mTop->setGeometry(title);
    const int high = title.height();
    const auto put = [&](QWidget* widget, double share, auto left) {
        const int side = int(high * share);
        widget->setGeometry(left(side), (high - side) / 2, side, side);
    };
    const int margin = int(width() * kGap) + high / 8;
    put(mSwitch, kSwitchSide, [&](int) { return margin; });
    put(mClose, kCloseSide, [&](int side) { return title.width() - margin - side; });
    const int text = int(high * kTitleText);
    mTitle->setGeometry(high, (high - text) / 2, title.width() - 2 * high, text);
}

/// A meter alone stands in the middle, one beside a fader at its left.
void EqualizerBase::layoutSide(const SideParts& side) const
{
    const int wide = side.pane->width();
    const int label = int(side.pane->height() * kLabelHeight);
    const int high = int(side.pane->height() * kControlsHeight);
    side.label->setGeometry(0, 0, wide, label);
    const int half = wide / 2;
    if (side.meter) {
        side.meter->setGeometry(side.fader ? 0 : half / 2, label, half, high);
    }
    if (side.fader) {
        side.fader->setGeometry(half, label, wide - half, high);
    }
}

void EqualizerBase::fitTexts()
{
    if (!isVisible()) {
        return; // measured when it is shown
    }
    fit(mTitle, mFace, kTitleLetters);
    for (const SideParts& side : mSides) {
        fit(side.label, mFace, kLabelLetters);
    }
}
