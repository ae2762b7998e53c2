#pragma once

#include "controls/dial/DialFace.h"

#include <QWidget>

/// Dial with steps of 1, drawn as a ring around a disc. Values outside the range are ignored. Setters emit nothing. GUI thread.
class DialS1M3 : public QWidget, public quillon::PlainDialFace
{
    Q_OBJECT
public:
    explicit DialS1M3(QWidget* parent = nullptr);
    using quillon::PlainDialFace::setFont;

signals:
    /// The user has changed the value.
    void valueChanged(float value);

protected:
    bool event(QEvent* event) override;
};
