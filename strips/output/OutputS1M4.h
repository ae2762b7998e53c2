#pragma once

#include "strips/output/OutputBase.h"

#include <QPointer>
#include <array>

/// HP OUT with its equalizer: the button, and the view settings of the equalizer's window, which stand in the workspace of this
/// strip. The responses that the window imported are kept as files beside the workspace's.
class OutputS1M4 final : public OutputBase
{
    Q_OBJECT
public:
    explicit OutputS1M4(const QString& objectName, QWidget* parent = nullptr);

    /// The window of the equalizer, once. Its settings and responses are kept from then on, and given back to it at each load.
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

    struct Curve {
        const char* name;      // in the name of its file
        const char* attribute; // with the path that was chosen
        std::function<void(const QString&)> import;
    };

    QString curvePath(const Curve& curve) const;
    void loadCurves();

    quillon::PanelPort mEqualizer;
    std::vector<View> mViews;
    std::array<Curve, 2> mCurves{{{"Target", "TargetFile", {}}, {"Source", "SourceFile", {}}}};
};

template<class Window> void OutputS1M4::setEqualizer(Window* window)
{
    const auto guarded = [shown = QPointer<Window>(window)](auto call) {
        return [shown, call](const auto& value) {
            if (shown) {
                call(*shown, value);
            }
        };
    };
    // In the order of mViews.
    const std::array<std::function<void(bool)>, 6> setters{guarded([](Window& to, bool on) { to.setStateTarget(on); }),
                                                           guarded([](Window& to, bool on) { to.setStateSource(on); }),
                                                           guarded([](Window& to, bool on) { to.setStateEachFilter(on); }),
                                                           guarded([](Window& to, bool on) { to.setStateCombined(on); }),
                                                           guarded([](Window& to, bool on) { to.setStateFiltered(on); }),
                                                           guarded([](Window& to, bool on) { to.setFilteredType(on); })};
    for (std::size_t i = 0; i < setters.size(); ++i) {
        mViews[i].show = setters[i];
    }
    mCurves[0].import = guarded([](Window& to, const QString& path) { to.importTargetFile(path); });
    mCurves[1].import = guarded([](Window& to, const QString& path) { to.importSourceFile(path); });
    connect(window, &Window::attributeChanged, this, &OutputS1M4::in_equalizer_attributeChanged);
}
