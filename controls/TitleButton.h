#pragma once

#include <QPushButton>

namespace quillon
{

/// A button of a title bar. Tab reaches it; a click does not take the focus to it. Its sign is drawn: as a picture it would be the
/// only one that a start has to read.
class TitleButton : public QPushButton
{
    Q_OBJECT
public:
    enum class Sign { Minimize, Close };

    TitleButton(Sign sign, QWidget* bar);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Sign mSign;
};

} // namespace quillon
