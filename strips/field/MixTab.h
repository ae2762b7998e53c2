#pragma once

#include "controls/FocusMarked.h"

#include <QRadioButton>

namespace quillon
{

/// The name of a mix beside a field's title: one of them is selected, in the colour of its mix and underlined. A press selects; the
/// arrow keys go from one to the next. GUI thread.
class MixTab : public FocusMarked<QRadioButton>
{
    Q_OBJECT
public:
    /// objectName: the mix as workspace and device have it.
    MixTab(const QString& objectName, const QString& name, const QColor& colour, QWidget* parent);

    /// Width that it takes in a row of this height.
    int widthFor(int height) const;

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QColor mColour;
};

} // namespace quillon
