#pragma once

#include "strips/output/OutputBase.h"

#include <QPointer>

/// HP OUT with its equalizer: the button, and the view settings of the equalizer's window, which stand in the workspace of this
/// strip.
class OutputS1M4 final : public OutputBase
{
    Q_OBJECT
public:
    explicit OutputS1M4(const QString& objectName, QWidget* parent = nullptr);

    /// The window of the equalizer, once. Its settings are kept from then on, and given back to it at each load.
    template<class Window> void setEqualizer(Window* window);
    /// The device has the equalizer on: shown, not sent back.
    void setEQ(bool on) { mEqualizer.set(QStringLiteral("EQ"), on, false); }

    quillon::DeviceSetter deviceSetter(QStringView attribute) override;

protected slots:
    void in_widgetPushButtonGroup2_stateChanged(const QString& button, const QString& state);
    void in_equalizer_attributeChanged(const QString& objectName, const QString& attribute, const QString& value);

private:
    struct View {
        QString attribute; // "StateTarget"; kept under "EQStateTarget"
        int initial;
        std::function<void(bool)> show;
        quillon::StripEngine::RowId row;
    };

    quillon::PanelPort mEqualizer;
    std::vector<View> mViews;
};

template<class Window> void OutputS1M4::setEqualizer(Window* window)
{
    // In the order of mViews.
    const std::array setters{&Window::setStateTarget,   &Window::setStateSource,   &Window::setStateEachFilter,
                             &Window::setStateCombined, &Window::setStateFiltered, &Window::setFilteredType};
    for (std::size_t i = 0; i < setters.size(); ++i) {
        mViews[i].show = [shown = QPointer<Window>(window), setter = setters[i]](bool on) {
            if (shown) {
                (shown->*setter)(on);
            }
        };
    }
    connect(window, &Window::attributeChanged, this, &OutputS1M4::in_equalizer_attributeChanged);
}
