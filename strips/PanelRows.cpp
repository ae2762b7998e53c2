#include "strips/PanelRows.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

const std::array kMicrophones{u"Mic1"_s, u"Mic35"_s, u"MicHP"_s};

} // namespace

StripRow switchRow(const PanelPort& panel, const QString& button)
{
    return {.key = button,
            .initial = [] { return 0; },
            .read = [&panel, button] { return panel.isOn(button) ? 1 : 0; },
            .show = [&panel, button](const StripValue& value) { panel.set(button, std::get<int>(value) != 0, false); },
            .sends = {button}};
}

StripRow microphoneRow(const PanelPort& panel)
{
    return {.key = u"MIC"_s,
            .form = ValueForm::Text,
            .initial = [] { return kMicrophones.front(); },
            .read =
                [&panel] {
                    if (QString selected = panel.getState({}); selected.isEmpty() || isMicrophone(selected)) {
                        return selected;
                    }
                    for (const QString& button : kMicrophones) {
                        if (panel.isOn(button)) {
                            return button;
                        }
                    }
                    return QString();
                },
            .show =
                [&panel](const StripValue& value) {
                    if (const QString& button = std::get<QString>(value); isMicrophone(button)) {
                        panel.setState(button, u"1"_s, false);
                    }
                },
            .sends = {u"MIC"_s}};
}

bool isMicrophone(const QString& button)
{
    return std::ranges::find(kMicrophones, button) != kMicrophones.end();
}

QString windowEvent(const QString& state)
{
    if (state == "RightButtonSingle"_L1 || state == "LeftButtonDouble"_L1) {
        return u"Show"_s;
    }
    if (state == "1"_L1) {
        return u"On"_s;
    }
    return state == "0"_L1 ? u"Off"_s : QString();
}

} // namespace quillon
