#pragma once

#include "controls/group/PlateButton.h"

namespace quillon
{

/// The button that joins the two sides of a strip; checked while they are joined. Its caption fits itself to it. GUI thread.
class LinkButton : public PlateButton
{
    Q_OBJECT
public:
    explicit LinkButton(QWidget* parent);

    void setFace(const QFont& font);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void refit();

    QFont mFace;
};

} // namespace quillon
