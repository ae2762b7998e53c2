#include "strips/PanelRows.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

const QStringList kMicrophones{u"Mic1"_s, u"Mic35"_s, u"MicHP"_s};

} // namespace

StripRow switchRow(const PanelPort& panel, const QString& button)
{
    return {.key = button,
            .initial = [] { return 0; },
            .read = [&panel, button] { return panel.isOn(button) ? 1 : 0; },
            .show = [&panel, button](const StripValue& value) { panel.set(button, std::get<int>(value) != 0, false); },
            .sends = {button}};
}

StripRow choiceRow(const PanelPort& panel, const QString& key, const QStringList& buttons)
{
    return {.key = key,
            .form = ValueForm::Text,
            .initial = [first = buttons.front()] { return first; },
            .read =
                [&panel, buttons] {
                    if (QString selected = panel.getState({}); selected.isEmpty() || buttons.contains(selected)) {
                        return selected;
                    }
                    for (const QString& button : buttons) {
                        if (panel.isOn(button)) {
                            return button;
                        }
                    }
                    return QString();
                },
            .show =
                [&panel, buttons](const StripValue& value) {
                    if (const QString& button = std::get<QString>(value); buttons.contains(button)) {
                        panel.setState(button, u"1"_s, false);
                    }
                },
            .sends = {key}};
}

StripRow microphoneRow(const PanelPort& panel)
{
    return choiceRow(panel, u"MIC"_s, kMicrophones);
}

bool isMicrophone(const QString& button)
{
    return kMicrophones.contains(button);
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
