#pragma once

#include "controls/FocusMarked.h"

#include <QPushButton>

class QPainter;

namespace quillon
{

/// A checkable button that is flat until the pointer or the keyboard comes to it. Return is left to the window. GUI thread.
class FlatButton : public FocusMarked<QPushButton>
{
    Q_OBJECT
public:
    explicit FlatButton(QWidget* parent);

protected:
    virtual void paintFace(QPainter& painter) = 0;

    void paintEvent(QPaintEvent* event) override;
};

/// One with a picture, and another one while it is checked. GUI thread.
class PictureButton final : public FlatButton
{
    Q_OBJECT
public:
    /// Names of resources.
    PictureButton(const QString& picture, const QString& checked, QWidget* parent);

protected:
    void paintFace(QPainter& painter) override;
};

} // namespace quillon
