#pragma once

#include "controls/dial/DialCore.h"
#include "controls/dial/DialLaw.h"

#include <QColor>
#include <QWidget>

class QLineEdit;

/// Dial with plain steps or a list of values, drawn with pictures; its value can be typed in after a press of the right
/// button. Setters emit nothing. GUI thread.
class DialS1M5 : public QWidget, public quillon::ValueControlHost
{
    Q_OBJECT
public:
    explicit DialS1M5(QWidget* parent = nullptr);
    ~DialS1M5() override;

    float value() const { return mLaw.value(); }
    float defaultValue() const { return mLaw.defaultValue(); }

    /// Clamped to the range. In list mode the pointer goes to the nearest entry; the value stays as told.
    void setValue(float value);
    /// Ignored outside the range, and in list mode with an empty list.
    void setDefault(float value);
    /// Ignored if min is above max. A default that falls outside becomes min; the value stays as it is.
    void setRange(float min, float max);
    /// Ascending; its ends become the range.
    void setValueList(const QList<float>& list);
    /// 0 continuous, 1 list; others are ignored.
    void setMode(int mode);
    /// The text that has to fit into the dial.
    void setFitText(const QString& text);
    /// Decimals shown, 0 to 4; others are ignored.
    void setPrecision(int decimals);
    /// Ignored unless above 0 and at most the range.
    void setDragStep(float step);
    void setKeyStep(float step);
    void setWheelStep(float step);
    /// The arc grows from the top instead of from the start of the sweep.
    void setCentreArc(bool on);
    /// Kept for callers that treat all dials alike: the pictures of this look always show the arc.
    void setArcVisible(bool visible);
    void setTextVisible(bool visible);
    void setSignShown(bool shown);
    void setPlusInfinity(bool on);
    void setMinusInfinity(bool on);
    void setFont(const QFont& font);
    /// Kept for callers that treat all dials alike: the pictures of this look stand on what is behind the dial.
    void setBackground(const QColor& color);
    /// On: the right button opens the editor. The validator is that of the range as it is now.
    void setEditEnabled(bool enabled);
    /// Decimals that can be typed, from 0. To be called after setEditEnabled, whose validator it replaces.
    void setEditPrecision(int decimals);

    quillon::ValueControl& valueControl() override { return mCore; }

signals:
    /// The user has changed the value.
    void valueChanged(float value);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void in_mLineEdit_editingFinished();

private:
    void openEditor();
    void placeEditor();
    void closeEditor();

    QLineEdit* mLineEdit = nullptr; // before what sends events while it is made
    quillon::PlainDialLaw mLaw;
    quillon::DialCore mCore;
    QColor mBackground{22, 22, 22};
    int mEditPrecision = 0;
    bool mEditEnabled = false;
    bool mEditing = false;
};
