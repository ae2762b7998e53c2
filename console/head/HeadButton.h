#pragma once

#include "controls/FocusMarked.h"

#include <QPushButton>

namespace quillon
{

/// The picture on a button of the bar.
enum class HeadPicture { Save, Download, Settings };

/// A button of the bar: a picture on the bar's own ground, with a plate under the pointer. GUI thread.
class HeadButton : public FocusMarked<QPushButton>
{
public:
    HeadButton(HeadPicture picture, QWidget* parent);

    /// There is nothing to do by hand: the picture is dimmed and ticked. The button still works.
    void setDone(bool done);
    bool isDone() const { return mDone; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const HeadPicture mPicture;
    QIcon mIcon; // of a picture that is a file
    bool mDone = false;
};

} // namespace quillon
