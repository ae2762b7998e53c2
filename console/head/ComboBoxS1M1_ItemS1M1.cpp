#include "console/head/ComboBoxS1M1_ItemS1M1.h"

#include "controls/FocusMark.h"

#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

class DeleteButton final : public QPushButton
{
public:
    explicit DeleteButton(QWidget* parent) : QPushButton(parent)
    {
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::NoFocus); // the keyboard stays with the list until it is brought here
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        static const QIcon trash(u":/Icon/Trash.png"_s);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool lit = underMouse() || hasFocus();
        const QRectF plate = QRectF(rect()).adjusted(1, 1, -1, -1);
        if (lit) {
            painter.setPen(hasFocus() ? QPen(quillon::FocusMark::color(), 1.5) : QPen(Qt::NoPen));
            painter.setBrush(QColor(84, 84, 84));
            painter.drawRoundedRect(plate, 3, 3);
        }
        painter.setOpacity(lit ? 1.0 : 0.55);
        const int inset = height() / 5;
        trash.paint(&painter, rect().adjusted(inset, inset, -inset, -inset));
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Delete:
            click();
            break;
        case Qt::Key_Space:
            QPushButton::keyPressEvent(event);
            break;
        case Qt::Key_Left:
        case Qt::Key_Up:
        case Qt::Key_Down:
            leave();
            event->setAccepted(event->key() == Qt::Key_Left); // the list goes on with the other two
            break;
        default:
            event->ignore();
        }
    }
    bool focusNextPrevChild(bool) override
    {
        leave();
        return true;
    }

private:
    void leave()
    {
        QWidget* viewport = parentWidget()->parentWidget();
        viewport->parentWidget()->setFocus();
    }
};

} // namespace

ComboBoxS1M1_ItemS1M1::ComboBoxS1M1_ItemS1M1(const QString& name, QWidget* parent)
    : QWidget(parent), mName(name), mDelete(new DeleteButton(this))
{
    setMouseTracking(true); // the list follows the pointer through its rows
    mDelete->setObjectName(u"delete"_s);
    connect(mDelete, &QPushButton::clicked, this, [this] { emit deleteClicked(mName); });
    setLanguage(u"English"_s);
}

void ComboBoxS1M1_ItemS1M1::setCurrent(bool current)
{
    if (std::exchange(mCurrent, current) != current) {
        update();
    }
}

void ComboBoxS1M1_ItemS1M1::setLit(bool lit)
{
    if (std::exchange(mLit, lit) != lit) {
        update();
    }
}

void ComboBoxS1M1_ItemS1M1::setLanguage(const QString& language)
{
    const QString text = language == "Chinese"_L1 ? u"删除工作区"_s : u"Delete workspace"_s;
    mDelete->setAccessibleName(text + u' ' + mName);
    mDelete->setToolTip(text + u" (Del)"_s);
}

void ComboBoxS1M1_ItemS1M1::focusDelete()
{
    mDelete->setFocus(Qt::TabFocusReason);
}

void ComboBoxS1M1_ItemS1M1::resizeEvent(QResizeEvent*)
{
    mDelete->setGeometry(width() - height() - height() / 6, 0, height(), height());
}

void ComboBoxS1M1_ItemS1M1::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int left = textLeft(height());
    if (mCurrent) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(quillon::FocusMark::color());
        painter.drawRoundedRect(QRectF(left * 0.35, height() * 0.25, left * 0.3, height() * 0.5), left * 0.15, left * 0.15);
    }
    const QRect room(left, 0, mDelete->x() - left, height());
    painter.setPen(mLit ? quillon::FocusMark::color() : QColor(222, 222, 222));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(mName, Qt::ElideRight, room.width()));
}
