#include "strips/output/OutputS1M4.h"

#include "controls/PushButtonGroups.h"
#include "equalizer/CurveFiles.h"
#include "strips/PanelRows.h"
#include "workspace/WorkspaceSubject.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using quillon::StripValue;

namespace
{

constexpr quillon::RouteShape kShape = quillon::singleRouteShape({2.0F, 82.5F, 46.5F, 0.0F});
constexpr quillon::Place kEqualizer{51.5F, 82.5F, 46.5F, 0.0F};

} // namespace

OutputS1M4::OutputS1M4(const QString& objectName, QWidget* parent) : OutputBase(kShape, objectName, parent)
{
    auto* group = new PushButtonGroupS1M10(this);
    mEqualizer = quillon::panelPort(group);
    body().adopt(mEqualizer, "widgetPushButtonGroup2", kEqualizer);
    connect(group, &PushButtonGroupS1M10::stateChanged, this, &OutputS1M4::in_widgetPushButtonGroup2_stateChanged);
    connect(group, &PushButtonGroupS1M10::mouseClickEvent, this, &OutputS1M4::in_widgetPushButtonGroup2_stateChanged);
    mViews = {{u"StateTarget"_s, 0, {}, -1},   {u"StateSource"_s, 0, {}, -1},   {u"StateEachFilter"_s, 0, {}, -1},
              {u"StateCombined"_s, 1, {}, -1}, {u"StateFiltered"_s, 0, {}, -1}, {u"FilteredType"_s, 0, {}, -1}};
    for (std::size_t i = 0; i < mViews.size(); ++i) {
        mViews[i].row = engine().add({.key = u"EQ"_s + mViews[i].attribute,
                                      .form = quillon::ValueForm::Integer,
                                      .initial = [initial = mViews[i].initial] { return initial; },
                                      .show =
                                          [this, i](const StripValue& value) {
                                              if (mViews[i].show) {
                                                  mViews[i].show(std::get<int>(value) != 0);
                                              }
                                          }});
    }
    engine().setHooks({.fresh = [this] { raise(u"EQ"_s, u"Off"_s); }, .shown = [this] { loadCurves(); }});
}

void OutputS1M4::in_widgetPushButtonGroup2_stateChanged(const QString& button, const QString& state)
{
    const QString event = button == "EQ"_L1 ? quillon::windowEvent(state) : QString();
    if (!event.isEmpty()) {
        raise(u"EQ"_s, event);
    }
}

void OutputS1M4::in_equalizer_attributeChanged(const QString&, const QString& attribute, const QString& value)
{
    if (!hasStore()) {
        return; // said while another page is shown, whose workspace is open
    }
    for (const View& view : mViews) {
        if (attribute == view.attribute) {
            engine().store(view.row, value.toInt());
        }
    }
    for (const Curve& curve : mCurves) {
        if (attribute != QLatin1StringView(curve.attribute)) {
            continue;
        }
        if (const QString path = curvePath(curve); !path.isEmpty() && !quillon::storeCurveCache(value, path)) {
            qWarning("OutputS1M4::in_equalizer_attributeChanged //failed to copy curve file");
        }
    }
}

/// Empty while no workspace is open.
QString OutputS1M4::curvePath(const Curve& curve) const
{
    const QString workspace = WorkspaceSubject::instance().filePath();
    return workspace.isEmpty()
               ? QString()
               : quillon::curveCachePath(QFileInfo(workspace).absolutePath(), objectName(), QLatin1StringView(curve.name));
}

void OutputS1M4::loadCurves()
{
    std::array<bool, 2> exists{};
    for (std::size_t i = 0; i < mCurves.size(); ++i) {
        const QString path = curvePath(mCurves[i]);
        exists[i] = mCurves[i].import && !path.isEmpty() && quillon::hasCurveCache(path);
    }
    for (std::size_t i = 0; i < mCurves.size(); ++i) {
        if (exists[i]) {
            mCurves[i].import(curvePath(mCurves[i]));
        }
    }
}

quillon::DeviceSetter OutputS1M4::deviceSetter(QStringView attribute)
{
    if (attribute == u"EQ") {
        return [this](const QVariant& on) { setEQ(on.toBool()); };
    }
    return OutputBase::deviceSetter(attribute);
}
