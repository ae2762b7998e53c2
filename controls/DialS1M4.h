#pragma once

#include "controls/dial/DialFace.h"

#include <QWidget>

/// Dial for a level in dB, with steps that grow as the level falls, drawn as a ring around a disc. Setters emit nothing. GUI
/// thread.
class DialS1M4 : public QWidget, public quillon::LadderDialFace
{
    Q_OBJECT
public:
    explicit DialS1M4(QWidget* parent = nullptr);
    using quillon::LadderDialFace::setFont;

signals:
    /// The user has changed the value.
    void valueChanged(float value);

protected:
    bool event(QEvent* event) override;
};
