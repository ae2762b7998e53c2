#include "strips/LinkButton.h"

#include "app/GlobalFont.h"

using namespace Qt::StringLiterals;

namespace quillon
{

LinkButton::LinkButton(QWidget* parent) : PlateButton(parent)
{
    setText(u"Link"_s);
    setCheckable(true);
    setMinimumSize(24, 14); // the ratio
}

void LinkButton::setFace(const QFont& font)
{
    mFace = font;
    refit();
}

void LinkButton::resizeEvent(QResizeEvent* event)
{
    PlateButton::resizeEvent(event);
    refit();
}

void LinkButton::refit()
{
    QFont fitted = mFace;
    fitted.setPixelSize(GlobalFont::instance().pixelSizeForRect(mFace, text(), QRect(QPoint(), captionSize().toSize())));
    setFont(fitted);
}

} // namespace quillon
