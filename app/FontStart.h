#pragma once

class QWidget;

namespace quillon
{

/// Brings the fonts in two steps: the face of the first window before it is shown, the program's other faces and the fonts of the
/// system behind its first picture. Made before the application object; GUI thread.
class FontStart
{
public:
    FontStart();
    /// The first step. Where that face is missing, both.
    void load();
    /// The second step, once `window` has been painted.
    void completeAfter(const QWidget& window);

private:
    bool mComplete = false;
};

} // namespace quillon
