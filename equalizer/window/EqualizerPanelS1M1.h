#pragma once

#include "equalizer/EqualizerTool.h"
#include "equalizer/editor/EqWidgetItemData.h"
#include "equalizer/window/CurveButtons.h"
#include "equalizer/window/CurveMenu.h"

#include <QWidget>

#include <memory>

class ChartFace;
class EqualizerControllerS1M1;

namespace quillon
{
class FlatToolButton;
}

/// The inside of an equalizer's window: curves above, bands below, and the switches of the curves. It holds the curves' tool and
/// keeps chart and bands in step with it. What comes from outside is shown and told to nobody. GUI thread.
class EqualizerPanelS1M1 : public QWidget
{
    Q_OBJECT
public:
    explicit EqualizerPanelS1M1(QWidget* parent = nullptr);
    ~EqualizerPanelS1M1() override;

    /// The name under which the panel speaks, and its bands with their number behind it.
    void setObjectName(const QString& name);

    // A switch, with what the user's click on it does to the curves.
    void setStateTarget(bool on) { setState(quillon::CurveView::Target, on); }
    void setStateSource(bool on) { setState(quillon::CurveView::Source, on); }
    void setStateEachFilter(bool on) { setState(quillon::CurveView::EachFilter, on); }
    void setStateCombined(bool on) { setState(quillon::CurveView::Combined, on); }
    void setStateFiltered(bool on) { setState(quillon::CurveView::Filtered, on); }
    /// On: compensated, off: raw.
    void setFilteredType(bool on) { setState(quillon::CurveView::FilteredType, on); }

    /// How many bands there are; see EqualizerControllerS1M1::setItemCount. An imported set may have more.
    void setItemCount(qint32 count);
    /// A field of a band, from 1. The curves follow with refreshBands().
    void setItemAttribute(const QString& number, const QString& attribute, const QString& value);
    void refreshBands();
    /// In dB.
    void setPreGain(double preGain);
    /// Puts a measured response in the place of the target or the source. An empty path asks the user. Returns the path, or an
    /// empty string when nothing was imported.
    QString importTarget(const QString& path) { return importCurve(quillon::CurveView::Target, path); }
    QString importSource(const QString& path) { return importCurve(quillon::CurveView::Source, path); }

    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);
    void setFont(const QFont& font);
    /// Of the bands' columns; ignored unless above 0.
    void setScaleFactor(double factor);
    /// Who asks the user for a file, in place of a file dialog.
    void setFileChooser(EqualizerTool::FileChooser chooser) { mTool->setFileChooser(std::move(chooser)); }

signals:
    /// By the user. objectName: of this, or of a band ("EQ_HP@3").
    void attributeChanged(const QString& objectName, const QString& attribute, const QString& value);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void join();
    void applyBands(const QList<EqWidgetItemData>& bands);
    void setState(quillon::CurveView view, bool on);
    void showView(quillon::CurveView view);
    void showForm(quillon::CurveView view);
    void showSum();
    QString importCurve(quillon::CurveView view, const QString& path);
    void run(quillon::CurveMenu::Item item);
    void tellImport(quillon::CurveView view, const QString& attribute);
    void importFilters();
    void layoutParts();
    void fitAxes();

    std::shared_ptr<EqualizerTool> mTool; // outlives a file dialog in which the panel goes
    QFont mLabelFont;
    qint32 mCount = 0;
    quillon::CurveButtons* mButtons;
    quillon::FlatToolButton* mToolButton;
    QWidget* mFrameHead;
    QPushButton* mHead;
    ChartFace* mChart;
    EqualizerControllerS1M1* mController;
    quillon::CurveMenu* mMenu;
};
