#include "console/settings/ScrollArea.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>

namespace quillon
{

namespace
{

constexpr int kBarWidth = 10; // pixels

/// A bar without buttons: a slider on the ground of the page.
class SlimBar final : public QScrollBar
{
public:
    explicit SlimBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent)
    {
        setAttribute(Qt::WA_Hover);
        setContextMenuPolicy(Qt::NoContextMenu);
    }
    QSize sizeHint() const override { return {kBarWidth, kBarWidth}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRectF slider = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(isSliderDown() || underMouse() ? QColor(120, 120, 120) : QColor(84, 84, 84));
        painter.drawRoundedRect(slider.adjusted(2, 1, -2, -1), 3, 3);
    }
};

} // namespace

SettingsScroll::SettingsScroll(QWidget* page)
{
    QPalette ground = palette();
    ground.setColor(QPalette::Window, QColor(31, 31, 31));
    setPalette(ground);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // its rows have it, and it follows them
    setContextMenuPolicy(Qt::NoContextMenu);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBar(new SlimBar(this));
    setWidgetResizable(true);
    setWidget(page);
}

} // namespace quillon
