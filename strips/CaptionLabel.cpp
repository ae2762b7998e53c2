#include "strips/CaptionLabel.h"

#include "app/GlobalFont.h"

namespace quillon
{

namespace
{

constexpr QColor kCaptionColor{190, 190, 190};

} // namespace

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent)
{
    setAlignment(Qt::AlignCenter);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, kCaptionColor);
    setPalette(colors);
}

void CaptionLabel::setCaption(const QString& text)
{
    setText(text);
    fit();
}

void CaptionLabel::setFace(const QFont& font)
{
    mFace = font;
    fit();
}

void CaptionLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    fit();
}

void CaptionLabel::fit()
{
    QFont font = mFace;
    font.setPointSize(GlobalFont::instance().pointSizeForRect(mFace, text(), rect()));
    setFont(font);
}

} // namespace quillon
