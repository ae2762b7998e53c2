#pragma once

#include "equalizer/editor/BandTexts.h"
#include "equalizer/window/FlatButton.h"

#include <QColor>

#include <array>

namespace quillon
{

/// What of an equalizer's curves is shown: five switches for curves, and the form of three of them.
enum class CurveView { Target, Source, EachFilter, Combined, Filtered, FilteredType };
inline constexpr std::size_t kCurveViews = 6;

struct CurveViewRow {
    const char* name; // of the button, and of the curve that it stands for
    const char* attribute;
    BandText text;
    BandText checkedText;
    QColor colour;
    Qt::PenStyle line; // of its curves; Qt::NoPen: it has none
};

/// In the order of CurveView.
const std::array<CurveViewRow, kCurveViews>& curveViewRows();

/// A switch with a word in the colour of its curve. While it is on a piece of that curve's line stands below it. GUI thread.
class CurveButton final : public FlatButton
{
    Q_OBJECT
public:
    CurveButton(const CurveViewRow& row, QWidget* parent);

    void setChinese(bool chinese);
    /// The longest that it says in the present language.
    QString longestText() const;

protected:
    void paintFace(QPainter& painter) override;

private:
    void showText();

    const CurveViewRow& mRow;
    bool mChinese = false;
};

/// The row of the six. GUI thread.
class CurveButtons : public QWidget
{
    Q_OBJECT
public:
    explicit CurveButtons(QWidget* parent);

    bool isChecked(CurveView view) const { return button(view)->isChecked(); }
    /// Silent.
    void setChecked(CurveView view, bool on);
    void setChinese(bool chinese);
    /// The face; the size follows from the row.
    void setFace(const QFont& face);

signals:
    /// By the user.
    void clicked(quillon::CurveView view, bool on);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    CurveButton* button(CurveView view) const { return mButtons[std::size_t(view)]; }
    void layoutButtons();

    std::array<CurveButton*, kCurveViews> mButtons{};
    QFont mFace;
    bool mSilent = false;
};

} // namespace quillon
