#include "equalizer/editor/EqWidgetIem.h"

#include "app/GlobalFont.h"
#include "controls/ComboBoxS1M3.h"
#include "controls/DialS1M5.h"
#include "equalizer/editor/BandLayout.h"
#include "equalizer/editor/BandSwitch.h"
#include "equalizer/editor/BandTexts.h"

#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

const QList<float>& frequencies()
{
    static const QList<float> list{
        20,   21,   23,   25,   26,   28,    30,    32,    35,    37,    40,    43,    46,    49,    53,    56,    60,
        65,   69,   74,   80,   85,   91,    98,    105,   112,   121,   129,   138,   148,   159,   170,   182,   195,
        209,  224,  240,  258,  276,  296,   317,   340,   364,   390,   418,   448,   480,   514,   551,   590,   632,
        678,  726,  778,  834,  893,  957,   1026,  1099,  1178,  1262,  1352,  1449,  1552,  1664,  1783,  1910,  2047,
        2193, 2350, 2518, 2698, 2891, 3098,  3319,  3557,  3811,  4083,  4376,  4688,  5024,  5383,  5768,  6181,  6623,
        7096, 7604, 8148, 8730, 9355, 10024, 10741, 11509, 12332, 13214, 14159, 15172, 16257, 17419, 18665, 20000, 22000};
    return list;
}

const QList<float>& qualities()
{
    static const QList<float> list{0.1F,    0.104F,  0.112F,  0.119F,  0.125F,  0.135F,   0.1405F, 0.1563F, 0.1953F, 0.2F,
                                   0.2168F, 0.2293F, 0.2441F, 0.2679F, 0.3052F, 0.3433F,  0.3815F, 0.4239F, 0.4421F, 0.4768F,
                                   0.5395F, 0.596F,  0.68F,   0.707F,  0.903F,  1.1642F,  1.3206F, 1.4552F, 1.819F,  2.0213F,
                                   2.2737F, 2.412F,  2.5623F, 2.8422F, 3.1452F, 3.5527F,  3.8477F, 4.4409F, 4.9865F, 5.5511F,
                                   6.0724F, 6.9389F, 7.7348F, 8.6736F, 10.842F, 13.5525F, 15.0F};
    return list;
}

constexpr float kGainBound = 12; // dB
constexpr auto kFitText = "00.000"_L1;

void setUpListDial(DialS1M5* dial, const QList<float>& list, float start, int decimals)
{
    dial->setValueList(list);
    dial->setMode(quillon::PlainDialLaw::List);
    dial->setDefault(start);
    dial->setValue(start);
    dial->setPrecision(decimals);
    dial->setFitText(QString(kFitText));
    dial->setEditEnabled(true);
    dial->setEditPrecision(decimals);
}

void setUpGainDial(DialS1M5* dial)
{
    dial->setRange(-kGainBound, kGainBound);
    dial->setDefault(0);
    dial->setValue(0);
    dial->setDragStep(0.1F);
    dial->setKeyStep(1);
    dial->setWheelStep(0.5F);
    dial->setPrecision(1);
    dial->setFitText(QString(kFitText));
    dial->setSignShown(true); // or no sign could be typed
    dial->setCentreArc(true);
    dial->setEditEnabled(true);
    dial->setEditPrecision(1);
}

/// A number that a control can show, or none.
std::optional<float> finite(const QString& text)
{
    bool isNumber = false;
    const float number = text.toFloat(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

EqWidgetIem::EqWidgetIem(QWidget* parent) : QFrame(parent)
{
    buildControls();
    setupConnections();
    nameControls();
}

void EqWidgetIem::buildControls()
{
    mLabelNumber = new QLabel(this);
    mLabelNumber->setObjectName(u"labelNumber"_s);
    mLabelNumber->setAlignment(Qt::AlignCenter);
    mComboBoxType = new ComboBoxS1M3(this, 1.0, Qt::AlignCenter);
    mComboBoxType->setObjectName(u"comboBoxType"_s);
    QStringList types;
    for (const quillon::BandText& type : quillon::kBandTypes) {
        types += type.in(mChinese);
    }
    mComboBoxType->addItems(types); // one by one would fit the texts after each
    mDialGain = new DialS1M5(this);
    mDialGain->setObjectName(u"dialGain"_s);
    setUpGainDial(mDialGain);
    mDialFreq = new DialS1M5(this);
    mDialFreq->setObjectName(u"dialFreq"_s);
    setUpListDial(mDialFreq, frequencies(), 632, 0);
    mDialQ = new DialS1M5(this);
    mDialQ->setObjectName(u"dialQ"_s);
    setUpListDial(mDialQ, qualities(), 0.707F, 3);
    mCheckBoxSwitch = new quillon::BandSwitch(this);
    mCheckBoxSwitch->setObjectName(u"checkBoxSwitch"_s);
    showSwitch();
}

void EqWidgetIem::setupConnections()
{
    const auto number = [this](EqWidgetItemData::Change bit, const QString& name, float EqWidgetItemData::*field, DialS1M5* dial) {
        mHandlers[bit] = [this, bit, field](const QVariant& value) { take(field, value.toFloat(), bit); };
        mSetters[name] = [this, field, dial](const QString& value) {
            const std::optional<float> told = finite(value);
            if (told) {
                mData.*field = *told;
                dial->setValue(*told);
            }
            return told.has_value();
        };
        connect(dial, &DialS1M5::valueChanged, this, [this, bit](float value) { apply(bit, value); });
    };
    number(EqWidgetItemData::Gain, u"Gain"_s, &EqWidgetItemData::gain, mDialGain);
    number(EqWidgetItemData::Freq, u"Freq"_s, &EqWidgetItemData::frequency, mDialFreq);
    number(EqWidgetItemData::Q, u"Q"_s, &EqWidgetItemData::q, mDialQ);

    mHandlers[EqWidgetItemData::Type] = [this](const QVariant& value) { takeType(value.toString()); };
    mSetters[u"Type"_s] = [this](const QString& value) { return setType(value); };
    connect(mComboBoxType, &QComboBox::activated, this, [this](int type) { apply(EqWidgetItemData::Type, type); });

    mHandlers[EqWidgetItemData::Switch] = [this](const QVariant& value) {
        take(&EqWidgetItemData::enabled, value.toBool(), EqWidgetItemData::Switch);
        showSwitch();
    };
    mSetters[u"Switch"_s] = [this](const QString& value) {
        const std::optional<float> told = finite(value);
        mData.enabled = told ? *told != 0 : mData.enabled;
        showSwitch();
        return told.has_value();
    };
    // Not clicked(): assistive technology toggles a button without a click.
    connect(mCheckBoxSwitch, &QCheckBox::toggled, this, [this](bool on) { apply(EqWidgetItemData::Switch, on); });
}

/// The one way of a change by the user. What changes nothing is told as well.
void EqWidgetIem::apply(int bit, const QVariant& value)
{
    mHandlers.at(bit)(value);
    emit itemChanged(mIndex, EqWidgetItemData(mData)); // a listener may set another
    mData.changed = 0;
}

template<typename T> void EqWidgetIem::take(T EqWidgetItemData::*field, const T& value, EqWidgetItemData::Change bit)
{
    if (mData.*field == value) {
        return;
    }
    mData.*field = value;
    mData.changed |= bit;
}

void EqWidgetIem::takeType(const QString& type)
{
    take(&EqWidgetItemData::type, type, EqWidgetItemData::Type);
    if (mData.type == "1"_L1 || mData.type == "2"_L1) { // a pass filter has no gain
        mDialGain->setValue(mDialGain->defaultValue());
        take(&EqWidgetItemData::gain, mDialGain->value(), EqWidgetItemData::Gain);
    }
    showType();
}

/// A type that is none of the list leaves the box empty.
bool EqWidgetIem::setType(const QString& type)
{
    bool isNumber = false;
    const int row = type.toInt(&isNumber);
    if (isNumber) {
        mComboBoxType->setCurrentIndex(row);
        mData.type = QString::number(row);
        showType();
    }
    return isNumber;
}

/// The gain can be turned where the type has one.
void EqWidgetIem::showType()
{
    const int type = mComboBoxType->currentIndex();
    mDialGain->setEnabled(type != 1 && type != 2);
}

/// The number of a band that is off is dimmed.
void EqWidgetIem::showSwitch()
{
    const QSignalBlocker silent(mCheckBoxSwitch);
    mCheckBoxSwitch->setChecked(mData.enabled);
    QPalette colors = mLabelNumber->palette();
    const int grey = mData.enabled ? 222 : 120;
    colors.setColor(QPalette::WindowText, QColor(grey, grey, grey));
    mLabelNumber->setPalette(colors);
}

void EqWidgetIem::setItemData(const EqWidgetItemData& record)
{
    mData = record;
    mComboBoxType->setCurrentIndex(record.type.toInt());
    showType();
    mDialGain->setValue(record.gain);
    mDialFreq->setValue(record.frequency);
    mDialQ->setValue(record.q);
    showSwitch();
}

void EqWidgetIem::setAttribute(const QString& attribute, const QString& value)
{
    const auto setter = mSetters.find(attribute);
    if (setter != mSetters.end() && !setter->second(value)) {
        qWarning("EqWidgetIem::setAttribute // no number for [%ls]", qUtf16Printable(attribute));
    }
}

void EqWidgetIem::setIndex(qint32 index)
{
    if (index != mIndex) {
        mData.index = index; // else a record keeps the index that it came with
    }
    mIndex = index;
    nameControls();
}

void EqWidgetIem::setLanguage(const QString& language)
{
    if (language != "English"_L1 && language != "Chinese"_L1) {
        return;
    }
    mChinese = language == "Chinese"_L1;
    for (int i = 0; i < mComboBoxType->count(); ++i) {
        mComboBoxType->setItemText(i, quillon::kBandTypes[i].in(mChinese));
    }
    nameControls();
}

QList<QWidget*> EqWidgetIem::controls() const
{
    return {mComboBoxType, mDialGain, mDialFreq, mDialQ, mCheckBoxSwitch};
}

void EqWidgetIem::nameControls()
{
    const QString number = QString::number(mIndex + 1);
    mLabelNumber->setText(number);
    const QString band = quillon::kBandName.in(mChinese).arg(number);
    setAccessibleName(band);
    int row = 0;
    for (QWidget* control : controls()) {
        control->setAccessibleName(band + u' ' + quillon::kBandRows[row++].in(mChinese));
    }
}

void EqWidgetIem::setFont(const QFont& font)
{
    mLabelFont = font;
    mComboBoxType->setFont(font);
    for (DialS1M5* dial : {mDialGain, mDialFreq, mDialQ}) {
        dial->setFont(font);
    }
    fitNumber();
}

void EqWidgetIem::setScaleFactor(double factor)
{
    if (factor > 0) {
        mScaleFactor = factor;
        update();
    }
}

void EqWidgetIem::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    const quillon::BandLayout layout = quillon::layoutBand(size());
    mLabelNumber->setGeometry(layout.number);
    mComboBoxType->setGeometry(layout.type);
    mDialGain->setGeometry(layout.dials[0]);
    mDialFreq->setGeometry(layout.dials[1]);
    mDialQ->setGeometry(layout.dials[2]);
    mCheckBoxSwitch->setGeometry(layout.check);
    fitNumber();
}

void EqWidgetIem::fitNumber()
{
    if (!isVisible()) {
        return; // a resize comes with the showing
    }
    QFont font = mLabelFont;
    font.setPixelSize(GlobalFont::instance().pixelSizeForRect(font, u"88"_s, mLabelNumber->rect()));
    mLabelNumber->setFont(font);
}

void EqWidgetIem::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    fitNumber();
}

void EqWidgetIem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(52, 52, 52));
    painter.setBrush(QColor(32, 32, 32));
    const double radius = 4 * mScaleFactor;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}
