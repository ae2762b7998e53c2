#include "console/ducking/R47_PrivateWidget1.h"

#include "console/ducking/DuckingMap.h"
#include "console/ducking/R47_PrivateWidget1_1.h"
#include "console/ducking/TextFit.h"
#include "controls/DialS1M5.h"
#include "controls/group/PlateButton.h"
#include "strips/StripBody.h"
#include "strips/StripLayout.h"

#include <QEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using quillon::DuckingMap;
using quillon::Place;
using quillon::StripText;
using quillon::StripValue;
using quillon::ValueForm;

namespace
{

constexpr QSize kBaseSize{700, 520}; // with the shadow

constexpr StripText kTitle{"Ducking", "闪避"};
constexpr StripText kMapTitle{"Ducking Map", "闪避映射"};

struct DialShape {
    const char* key;
    const char* chinese; // the English caption is the key
    const char* unit;
    float minimum;
    float maximum;
    float initial;
    float coarse; // by dragging
    float fine;   // by wheel and keys
    Place place;
};
constexpr DialShape kDials[]{
    {"Threshold", "闪避阈值", "dB", -60, -1, -30, 1, 1, {27.0F, 29.0F, 17.5F, 23.0F}},
    {"Attack", "启动时间", "ms", 0, 1000, 200, 50, 10, {45.5F, 29.0F, 17.5F, 23.0F}},
    {"Reduction", "闪避量", "dB", 1, 30, 16, 1, 1, {27.0F, 66.5F, 17.5F, 23.0F}},
    {"Release", "释放时间", "ms", 10, 2000, 1000, 50, 10, {45.5F, 66.5F, 17.5F, 23.0F}},
};
constexpr float kCaptionHeight = 5.5F; // over its dial, and the unit below, in percent of the window's body

constexpr Place kSwitch{27.0F, 5.0F, 36.0F, 11.0F};
constexpr Place kMapCaption{66.0F, 6.0F, 31.0F, 6.0F};
constexpr Place kMap{66.0F, 14.0F, 31.0F, 81.0F};

struct InputPlace {
    const char* objectName;
    const char* name;
    Place place;
};
constexpr InputPlace kInputs[]{{"Ducking_IN1", "IN 1", {3.0F, 5.0F, 10.0F, 90.0F}},
                               {"Ducking_IN2", "IN 2", {14.0F, 5.0F, 10.0F, 90.0F}}};

/// "MapIN1", "IN1WorkState": column 0 or 1.
QString forColumn(const char* before, int column, const char* after = "")
{
    return QLatin1StringView(before) + u"IN"_s + QString::number(column + 1) + QLatin1StringView(after);
}

QLabel* newLabel(QWidget* parent, const QString& objectName, const QColor& color)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setAlignment(Qt::AlignCenter);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, color);
    label->setPalette(colors);
    return label;
}

} // namespace

/// What all stands on.
class R47_PrivateWidget1::Ground : public QWidget
{
protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, mPicture.at(size(), devicePixelRatioF())); }

private:
    quillon::SvgPixmap mPicture{u":/Icon/duckingBackground.svg"_s};
};

R47_PrivateWidget1::R47_PrivateWidget1(QWidget* parent)
    : FramelessWindow(parent), WorkspaceObserver(u"Ducking"_s),
      mEngine(*this, [this](const QString& attribute, const QString& value) { raise(attribute, value); }), mGround(new Ground)
{
    setObjectName(u"Ducking"_s);
    buildControls();
    declareRows();
    mEngine.setStripEnabled(true);
    mGround->installEventFilter(this);
    setBody(mGround);
    setStretch(1, 11);
    setChinese(false);
    setMinimumSize(kBaseSize / 2);
    setKeepAspect(true);
    setScaleFactor(1);
}

void R47_PrivateWidget1::buildControls()
{
    mSwitch = new quillon::PlateButton(mGround);
    mSwitch->setObjectName(u"pushButtonDuckingSwitch"_s);
    mSwitch->setCheckable(true);
    mSwitch->setLampPlace(quillon::LampPlace::Left);
    connect(mSwitch, &QPushButton::toggled, this, [this](bool on) {
        showSwitch(on);
        changed(mSwitchRow);
    });
    for (std::size_t i = 0; i < mDials.size(); ++i) {
        const DialShape& shape = kDials[i];
        const QString name = QLatin1StringView(shape.key);
        auto* dial = new DialS1M5(mGround);
        dial->setObjectName("dial"_L1 + name);
        dial->setRange(shape.minimum, shape.maximum);
        dial->setDefault(shape.initial);
        dial->setValue(shape.initial);
        dial->setDragStep(shape.coarse);
        dial->setWheelStep(shape.fine);
        dial->setKeyStep(shape.fine);
        dial->setFitText(u"2000"_s);
        dial->setSignShown(shape.minimum < 0); // or no sign could be typed
        dial->setEditEnabled(true);
        dial->setEditPrecision(0);
        mDials[i] = {dial, newLabel(mGround, "label"_L1 + name, {205, 205, 205}),
                     newLabel(mGround, "labelUnit"_L1 + name, {140, 140, 140})};
        mDials[i].unit->setText(QLatin1StringView(shape.unit));
    }
    mMapCaption = newLabel(mGround, u"labelDuckingMap"_s, {205, 205, 205});
    mMap = new DuckingMap(mGround);
    mMap->setObjectName(u"widgetDuckingMap"_s);
    for (std::size_t i = 0; i < mInputs.size(); ++i) {
        mInputs[i] = new R47_PrivateWidget1_1(QLatin1StringView(kInputs[i].objectName), mGround);
        mInputs[i]->setChannelName(QLatin1StringView(kInputs[i].name));
    }
    showSwitch(false);
}

void R47_PrivateWidget1::declareRows()
{
    mEngine.add({.key = u"ChannelName"_s, .form = ValueForm::Text, .initial = [] { return u"IN 1+2"_s; }});
    for (std::size_t i = 0; i < mDials.size(); ++i) {
        const QString key = QLatin1StringView(kDials[i].key);
        DialS1M5* dial = mDials[i].dial;
        const auto row = mEngine.add({.key = key,
                                      .form = ValueForm::Decimal,
                                      .initial = [i] { return kDials[i].initial; },
                                      .read = [dial] { return dial->value(); },
                                      .show = [dial](const StripValue& value) { dial->setValue(std::get<float>(value)); },
                                      .sends = {key}});
        connect(dial, &DialS1M5::valueChanged, this, [this, row] { changed(row); });
    }
    mSwitchRow = mEngine.add({.key = u"DuckingSwitch"_s,
                              .initial = [] { return 0; },
                              .read = [this] { return mSwitch->isChecked() ? 1 : 0; },
                              .show = [this](const StripValue& value) { showSwitch(std::get<int>(value) != 0); },
                              .sends = {u"DuckingSwitch"_s}});
    std::array<std::array<quillon::StripEngine::RowId, DuckingMap::kRows>, DuckingMap::kColumns> rows{};
    for (int c = 0; c < DuckingMap::kColumns; ++c) {
        for (int r = 0; r < DuckingMap::kRows; ++r) {
            rows[std::size_t(c)][std::size_t(r)] =
                mEngine.add({.key = DuckingMap::key(c, r),
                             .initial = [] { return 0; },
                             .read = [this, c, r] { return mMap->isOn(c, r) ? 1 : 0; },
                             .show = [this, c, r](const StripValue& value) { mMap->setOn(c, r, std::get<int>(value) != 0); }});
        }
        mEngine.add({.form = ValueForm::Integer, .read = [this, c] { return mapOf(c); }, .sends = {forColumn("Map", c)}});
    }
    connect(mMap, &DuckingMap::switched, this,
            [this, rows](int column, int row) { changed(rows[std::size_t(column)][std::size_t(row)]); });
}

int R47_PrivateWidget1::mapOf(int column)
{
    int map = 0;
    for (int r = 0; r < DuckingMap::kRows; ++r) {
        map |= loadValue(DuckingMap::key(column, r)).toBool() ? 1 << r : 0;
    }
    return map;
}

void R47_PrivateWidget1::setDuckingSwitch(bool on, bool persist, bool notify)
{
    showSwitch(on);
    if (persist) {
        mEngine.changed(mSwitchRow);
    }
    mEngine.take(mSwitchRow, on);
    mWorkStale = mWorkStale || notify;
    tellWorkStates();
}

void R47_PrivateWidget1::changed(quillon::StripEngine::RowId row)
{
    mEngine.changed(row);
    tellWorkStates();
}

void R47_PrivateWidget1::loadSettings()
{
    mLoading = true;
    mEngine.load();
    mLoading = false;
    tellWorkStates();
}

void R47_PrivateWidget1::raise(const QString& attribute, const QString& value)
{
    if (attribute.startsWith("Save_"_L1)) {
        raiseSaved(attribute, value);
        return;
    }
    mWorkStale = mWorkStale || attribute == "DuckingSwitch"_L1 || attribute.startsWith("Map"_L1);
    emit attributeChanged(objectName(), attribute, value);
}

/// A switch of the map is told as the map of its microphone, in a load once for all eight.
void R47_PrivateWidget1::raiseSaved(const QString& attribute, const QString& value)
{
    if (attribute == "Save_Enable"_L1) {
        return; // a strip's, in its field
    }
    for (int c = 0; c < DuckingMap::kColumns; ++c) {
        if (attribute.startsWith(forColumn("Save_", c))) {
            if (!mLoading || attribute == "Save_"_L1 + DuckingMap::key(c, 0)) {
                emit attributeChanged(objectName(), forColumn("Save_Map", c), QString::number(mapOf(c)));
            }
            return;
        }
    }
    emit attributeChanged(objectName(), attribute, value);
}

void R47_PrivateWidget1::tellWorkStates()
{
    if (!std::exchange(mWorkStale, false)) {
        return;
    }
    for (int c = 0; c < DuckingMap::kColumns; ++c) {
        const bool works = mSwitch->isChecked() && mapOf(c) != 0;
        emit attributeChanged(objectName(), forColumn("", c, "WorkState"), works ? u"1"_s : u"0"_s);
    }
}

void R47_PrivateWidget1::showSwitch(bool on)
{
    const QSignalBlocker silent(mSwitch);
    mSwitch->setChecked(on);
    mSwitch->setText(on ? u"ON"_s : u"OFF"_s);
}

void R47_PrivateWidget1::setLayoutForMobile(bool flag)
{
    mMap->setUpperPlaybackVisible(flag);
}

void R47_PrivateWidget1::setMeterIN1(int tenthsOfDb)
{
    mInputs[0]->setVolumeMeter(tenthsOfDb);
}

void R47_PrivateWidget1::setMeterIN2(int tenthsOfDb)
{
    mInputs[1]->setVolumeMeter(tenthsOfDb);
}

quillon::DeviceSetter R47_PrivateWidget1::deviceSetter(QStringView attribute)
{
    if (attribute == u"DuckingSwitch") {
        return [this](const QVariant& on) { setDuckingSwitch(on.toBool(), false, true); };
    }
    if (attribute == u"MeterIN1") {
        return [this](const QVariant& level) { setMeterIN1(level.toInt()); };
    }
    if (attribute == u"MeterIN2") {
        return [this](const QVariant& level) { setMeterIN2(level.toInt()); };
    }
    return {};
}

void R47_PrivateWidget1::setScaleFactor(double factor)
{
    if (factor > 0) {
        resize(int(kBaseSize.width() * factor), int(kBaseSize.height() * factor));
    }
}

void R47_PrivateWidget1::setFont(const QFont& font)
{
    mFace = font;
    QWidget::setFont(font);
    for (const Dial& dial : mDials) {
        dial.dial->setFont(font);
    }
    for (R47_PrivateWidget1_1* input : mInputs) {
        input->setFont(font);
    }
    mMap->setFace(font);
    fitTexts();
}

void R47_PrivateWidget1::onAppSettingsChanged(QString objectName, QString attribute, QString value)
{
    if (attribute == "ScaleFactor"_L1) {
        setScaleFactor(value.toDouble());
    } else if (attribute == "Language"_L1 && (value == "English"_L1 || value == "Chinese"_L1)) {
        setChinese(value == "Chinese"_L1);
        for (R47_PrivateWidget1_1* input : mInputs) {
            input->onAppSettingsChanged(objectName, attribute, value);
        }
    }
}

void R47_PrivateWidget1::setChinese(bool chinese)
{
    setWindowTitle(kTitle.in(chinese));
    mSwitch->setAccessibleName(kTitle.in(chinese));
    mMapCaption->setText(kMapTitle.in(chinese));
    mMap->setAccessibleName(kMapTitle.in(chinese));
    for (std::size_t i = 0; i < mDials.size(); ++i) {
        const QString name = StripText{kDials[i].key, kDials[i].chinese}.in(chinese);
        mDials[i].caption->setText(name);
        mDials[i].dial->setAccessibleName(name + u" ("_s + QLatin1StringView(kDials[i].unit) + u')');
    }
    mMap->setChinese(chinese);
    fitTexts();
}

/// A wheel that no control takes goes no further than the ground, and moves nothing else.
bool R47_PrivateWidget1::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mGround && event->type() == QEvent::Wheel) {
        return true;
    }
    if (watched == mGround && event->type() == QEvent::Resize) {
        layoutBody();
    }
    if (watched == mGround && event->type() == QEvent::Show) {
        fitTexts();
    }
    return FramelessWindow::eventFilter(watched, event);
}

void R47_PrivateWidget1::layoutBody()
{
    const auto put = [this](QWidget* widget, const Place& place) {
        widget->setGeometry(quillon::placeRect(place, mGround->size(), widget->minimumSize()));
    };
    put(mSwitch, kSwitch);
    for (std::size_t i = 0; i < mDials.size(); ++i) {
        const Place& place = kDials[i].place;
        put(mDials[i].dial, place);
        put(mDials[i].caption, {place.x - 1, place.y - kCaptionHeight - 1, place.width + 2, kCaptionHeight});
        put(mDials[i].unit, {place.x, place.y + place.height, place.width, kCaptionHeight - 1});
    }
    put(mMapCaption, kMapCaption);
    put(mMap, kMap);
    for (std::size_t i = 0; i < mInputs.size(); ++i) {
        put(mInputs[i], kInputs[i].place);
    }
    fitTexts();
}

void R47_PrivateWidget1::fitTexts()
{
    if (!isVisible()) {
        return; // measured when it is shown
    }
    std::vector<quillon::FitText> captions{{mMapCaption, mMapCaption->text(), mMapCaption->size()}};
    std::vector<quillon::FitText> units;
    for (const Dial& dial : mDials) {
        captions.push_back({dial.caption, dial.caption->text(), dial.caption->size()});
        units.push_back({dial.unit, dial.unit->text(), dial.unit->size()});
    }
    quillon::fitTogether(mFace, captions);
    quillon::fitTogether(mFace, units);
    const quillon::PlateLayout plate = quillon::layoutPlate(mSwitch->size(), quillon::LampPlace::Left);
    const quillon::FitText onSwitch[]{{mSwitch, u"OFF"_s, plate.caption.size().toSize() * 7 / 10}};
    quillon::fitTogether(mFace, onSwitch);
}
