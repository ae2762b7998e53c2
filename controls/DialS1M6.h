#pragma once

#include "controls/dial/DialCore.h"
#include "controls/dial/DialLaw.h"

#include <QWidget>

/// Dial for a level in dB, with steps that grow as the level falls, drawn with pictures. Setters emit nothing. GUI thread.
class DialS1M6 : public QWidget, public quillon::ValueControlHost
{
    Q_OBJECT
public:
    explicit DialS1M6(QWidget* parent = nullptr);

    float value() const { return mLaw.value(); }
    float defaultValue() const { return mLaw.defaultValue(); }

    /// Clamped to the range.
    void setValue(float value);
    /// Ignored outside the range.
    void setDefault(float value);
    /// Steps of 0.5 dB from threshold1 up, 1 from threshold2, 2 from threshold3, which is the minimum as well. Ignored unless they
    /// descend from max. A default that falls outside becomes the minimum; the value stays as it is.
    void setLadder(int max, int threshold1, int threshold2, int threshold3);
    /// The arc grows from the top instead of from the start of the sweep.
    void setCentreArc(bool on);
    /// Kept for callers that treat all dials alike: the pictures of this look always show the arc.
    void setArcVisible(bool visible);
    void setTextVisible(bool visible);
    void setPlusInfinity(bool on);
    void setMinusInfinity(bool on);
    void setFont(const QFont& font);

    quillon::ValueControl& valueControl() override { return mCore; }

signals:
    /// The user has changed the value.
    void valueChanged(float value);

protected:
    bool event(QEvent* event) override;

private:
    quillon::LadderDialLaw mLaw;
    quillon::DialCore mCore;
};
