#include "console/ducking/DuckingMap.h"

#include "console/ducking/TextFit.h"
#include "controls/group/PlateButton.h"
#include "strips/StripBody.h"

#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct Source {
    const char* name;
    StripText text;
};
constexpr Source kSources[DuckingMap::kRows]{
    {"AUX", {"AUX", "AUX"}},
    {"BT", {"BT", "蓝牙"}},
    {"OTGIN", {"OTG", "OTG"}},
    {"Playback1_2", {"Playback 1/2", "Playback 1/2"}},
    {"Playback3_4", {"Playback 3/4", "Playback 3/4"}},
    {"Playback5_6", {"Playback 5/6", "Playback 5/6"}},
    {"Playback7_8", {"Playback 7/8", "Playback 7/8"}},
    {"Playback9_10", {"Playback 9/10", "Playback 9/10"}},
};
constexpr int kUpperFirst = 4; // the first row that a device with one playback pair lacks

struct Microphone {
    const char* name;
    const char* text;
};
constexpr Microphone kMicrophones[DuckingMap::kColumns]{{"IN1", "IN 1"}, {"IN2", "IN 2"}};

// In percent of the width, and of a row's height.
constexpr float kLabelWidth = 44;
constexpr float kPlateWidth = 26;
constexpr float kPlateHeight = 78;
constexpr float kTallest = 1.25F; // of a row among eight, where fewer share the height

} // namespace

DuckingMap::DuckingMap(QWidget* parent) : QWidget(parent)
{
    for (int r = 0; r < kRows; ++r) {
        Row& row = mRows[static_cast<std::size_t>(r)];
        const QString name = QLatin1StringView(kSources[r].name);
        row.label = new QLabel(this);
        row.label->setObjectName("label"_L1 + name);
        row.label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        QPalette colors = row.label->palette();
        colors.setColor(QPalette::WindowText, {205, 205, 205});
        row.label->setPalette(colors);
        for (int c = 0; c < kColumns; ++c) {
            auto* plate = new PlateButton(this, PlateStyle::Flat);
            plate->setObjectName("pushButton"_L1 + key(c, r));
            plate->setCheckable(true);
            plate->setLampPlace(LampPlace::Left);
            plate->setText(QLatin1StringView(kMicrophones[c].text));
            // Not clicked(): assistive technology toggles a button without a click.
            connect(plate, &QPushButton::toggled, this, [this, c, r] { emit switched(c, r); });
            row.plates[static_cast<std::size_t>(c)] = plate;
        }
    }
    setChinese(false);
}

QString DuckingMap::key(int column, int row)
{
    return QLatin1StringView(kMicrophones[column].name) + QLatin1StringView(kSources[row].name);
}

bool DuckingMap::isOn(int column, int row) const
{
    return mRows[static_cast<std::size_t>(row)].plates[static_cast<std::size_t>(column)]->isChecked();
}

void DuckingMap::setOn(int column, int row, bool on)
{
    PlateButton* plate = mRows[static_cast<std::size_t>(row)].plates[static_cast<std::size_t>(column)];
    const QSignalBlocker silent(plate);
    plate->setChecked(on);
}

void DuckingMap::setUpperPlaybackVisible(bool visible)
{
    mUpperVisible = visible;
    for (std::size_t r = kUpperFirst; r < kRows; ++r) {
        mRows[r].label->setVisible(visible);
        for (PlateButton* plate : mRows[r].plates) {
            plate->setVisible(visible);
        }
    }
    layoutRows();
}

void DuckingMap::setChinese(bool chinese)
{
    for (int r = 0; r < kRows; ++r) {
        const Row& row = mRows[static_cast<std::size_t>(r)];
        const QString text = kSources[r].text.in(chinese);
        row.label->setText(text);
        for (PlateButton* plate : row.plates) {
            plate->setAccessibleName(text + u' ' + plate->text());
        }
    }
    fitTexts();
}

void DuckingMap::setFace(const QFont& font)
{
    mFace = font;
    fitTexts();
}

void DuckingMap::resizeEvent(QResizeEvent* event)
{
    layoutRows();
    QWidget::resizeEvent(event);
}

void DuckingMap::showEvent(QShowEvent* event)
{
    fitTexts();
    QWidget::showEvent(event);
}

void DuckingMap::layoutRows()
{
    const auto percent = [this](float share) { return static_cast<int>(static_cast<float>(width()) * share / 100); };
    const int shown = mUpperVisible ? kRows : kUpperFirst;
    const auto full = static_cast<float>(height()) / kRows;
    const float step = std::min(static_cast<float>(height()) / static_cast<float>(shown), full * kTallest);
    const int plateHeight = static_cast<int>(full * kPlateHeight / 100);
    for (int r = 0; r < kRows; ++r) {
        const Row& row = mRows[static_cast<std::size_t>(r)];
        const int top = static_cast<int>(step * static_cast<float>(r)) + (static_cast<int>(step) - plateHeight) / 2;
        row.label->setGeometry(0, top, percent(kLabelWidth), plateHeight);
        for (int c = 0; c < kColumns; ++c) {
            const int left = width() - percent(kPlateWidth) * (kColumns - c) - percent(2) * (kColumns - 1 - c);
            row.plates[static_cast<std::size_t>(c)]->setGeometry(left, top, percent(kPlateWidth), plateHeight);
        }
    }
    fitTexts();
}

void DuckingMap::fitTexts()
{
    if (!isVisible()) {
        return; // measured when it is shown: the start of the program has no time for it
    }
    std::vector<FitText> labels;
    std::vector<FitText> plates;
    for (const Row& row : mRows) {
        // A little lower than its row: rows of text that touch read badly.
        labels.push_back({row.label, row.label->text(), {row.label->width(), row.label->height() * 7 / 10}});
        for (PlateButton* plate : row.plates) {
            plates.push_back({plate, plate->text(), layoutPlate(plate->size(), LampPlace::Left).caption.size().toSize()});
        }
    }
    fitTogether(mFace, labels);
    fitTogether(mFace, plates);
}

} // namespace quillon
