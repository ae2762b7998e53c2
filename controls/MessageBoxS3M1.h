#pragma once

#include "controls/FramelessWindow.h"

/// A modal window around any body. With a MessageBoxWidget as body each answer ends it, with the result told there; closed it
/// gives 0. GUI thread.
class MessageBoxS3M1 : public FramelessWindow
{
    Q_OBJECT
public:
    /// Takes body over.
    explicit MessageBoxS3M1(QWidget* body, QWidget* parent = nullptr);

    /// Puts the box over the middle of window. width and height are shares of the window's height.
    void placeOver(const QWidget* window, double width, double height);

protected:
    void showEvent(QShowEvent* event) override;
};
