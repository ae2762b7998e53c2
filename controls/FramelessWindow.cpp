#include "controls/FramelessWindow.h"

#include "app/GlobalFont.h"
#include "controls/FrameEdges.h"
#include "controls/FramelessShadow.h"
#include "controls/TitleButton.h"

#include <QHoverEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

static constexpr Qt::WindowFlags kFlags = Qt::Dialog | Qt::FramelessWindowHint;

/// Paints border, body and title ground. Style sheets would do it too, but one on the window is resolved anew by every child
/// at every step of a resize.
class FramelessWindow::ContentFrame : public QFrame
{
public:
    explicit ContentFrame(FramelessWindow* window) : QFrame(window), mWindow(window) { setObjectName("contentWidget"_L1); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (mWindow->mLook != 0) {
            return;
        }
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath outline;
        outline.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), mWindow->mCornerRadius, mWindow->mCornerRadius);
        painter.fillPath(outline, mWindow->mBodyBackground);
        painter.setClipPath(outline);
        painter.fillRect(mWindow->mTitleBar->geometry().adjusted(-1, -1, 1, 0), mWindow->mTitleBackground);
        painter.setClipping(false);
        painter.strokePath(outline, QPen(QColor(70, 70, 70), 1));
    }

private:
    FramelessWindow* mWindow;
};

FramelessWindow::FramelessWindow(QWidget* parent) : QDialog(parent, kFlags)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_Hover);
    setMinimumSize(100, 100);
    mTitleFont = font();

    mOuterLayout = new QVBoxLayout(this);
    mOuterLayout->setContentsMargins(mShadowRadius, mShadowRadius, mShadowRadius, mShadowRadius);
    mOuterLayout->setSpacing(0);
    mFrame = new ContentFrame(this);
    mOuterLayout->addWidget(mFrame);
    mFrameLayout = new QVBoxLayout(mFrame);
    mFrameLayout->setContentsMargins(1, 1, 1, 1);
    mFrameLayout->setSpacing(0);
    buildTitleBar();
    mFrameLayout->addWidget(mTitleBar);
    mBodyLayout = new QVBoxLayout;
    mBodyLayout->setContentsMargins(0, 0, 0, 0);
    mFrameLayout->addLayout(mBodyLayout);
    setBody(nullptr);
    applyStretch();
    restyleTitle();
    nameButtons();
}

FramelessWindow::~FramelessWindow() = default;

void FramelessWindow::buildTitleBar()
{
    mTitleBar = new QWidget(mFrame);
    mTitleBar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    mTitleBar->installEventFilter(this);
    mTitleLabel = new QLabel(mTitleBar);
    mTitleLabel->setAlignment(Qt::AlignCenter);
    mButtonMin = new quillon::TitleButton(quillon::TitleButton::Sign::Minimize, mTitleBar);
    mButtonClose = new quillon::TitleButton(quillon::TitleButton::Sign::Close, mTitleBar);
    mButtonMin->hide();
    connect(mButtonMin, &QPushButton::clicked, this, &FramelessWindow::in_mButtonMin_clicked);
    connect(mButtonClose, &QPushButton::clicked, this, &FramelessWindow::in_mButtonClose_clicked);
    connect(this, &QWidget::windowTitleChanged, mTitleLabel, &QLabel::setText);
}

void FramelessWindow::setBody(QWidget* body)
{
    if (body && body == mBody) {
        return;
    }
    if (mBody) {
        mBodyLayout->removeWidget(mBody);
        mBody->hide();
        mBody->deleteLater();
    }
    // An empty body holds the place: without one the title bar would fill the window.
    mBody = body ? body : new QWidget;
    mBodyLayout->addWidget(mBody);
    mBody->show();
}

void FramelessWindow::setStretch(int title, int body)
{
    mTitleStretch = std::max(title, 0);
    mBodyStretch = std::max(body, 0);
    applyStretch();
}

void FramelessWindow::applyStretch()
{
    mFrameLayout->setStretch(0, mTitleStretch);
    mFrameLayout->setStretch(1, mBodyStretch);
}

void FramelessWindow::setKeepAspect(bool keep)
{
    mKeepAspect = keep;
    mFixedEdges = keep ? quillon::RightEdge | quillon::BottomEdge : 0;
}

void FramelessWindow::setShadowRadius(int radius)
{
    mShadowRadius = std::max(radius, 0);
    mEdgeMargin = mShadowRadius + 10;
    mOuterLayout->setContentsMargins(mShadowRadius, mShadowRadius, mShadowRadius, mShadowRadius);
    mShadow = {};
    update();
}

void FramelessWindow::setShadowEnabled(bool enabled)
{
    mShadowEnabled = enabled;
    update();
}

void FramelessWindow::setTitleTextColor(const QColor& color)
{
    mTextColor = color;
    restyleTitle();
}

void FramelessWindow::setTitleBackground(const QColor& color)
{
    mTitleBackground = color;
    mFrame->update();
}

void FramelessWindow::setBodyBackground(const QColor& color)
{
    mBodyBackground = color;
    mFrame->update();
}

void FramelessWindow::setTitleAlignment(int alignment)
{
    mTitleAlignment = alignment;
    mTitleLabel->setAlignment(alignment == 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    layoutTitleBar();
}

void FramelessWindow::setButtons(int mask)
{
    mButtonMask = mask;
    mButtonMin->setVisible(mask & Min);
    mButtonClose->setVisible(mask & Close);
    layoutTitleBar();
}

void FramelessWindow::setLook(int look)
{
    mLook = look;
    mTitleBar->setVisible(look == 0);
    const int border = look == 0 ? 1 : 0;
    mFrameLayout->setContentsMargins(border, border, border, border);
    mFrame->update();
}

void FramelessWindow::setParentWindow(QWidget* parent)
{
    setParent(parent, kFlags);
}

void FramelessWindow::restyleTitle()
{
    mTitleLabel->setStyleSheet(u"background:transparent; color: %1;"_s.arg(mTextColor.name()));
}

void FramelessWindow::layoutTitleBar()
{
    const int height = mTitleBar->height();
    const int width = mTitleBar->width();
    const int side = int(height * 0.9);
    const int gap = int(height * 0.1);
    const int least = mButtonClose->minimumHeight();
    const int buttonWidth = least > 0 ? mButtonClose->minimumWidth() * side / least : side;
    int left = width;
    for (QPushButton* button : {mButtonClose, mButtonMin}) {
        if (!button->isHidden()) {
            left -= buttonWidth + gap;
            button->setGeometry(left, (height - side) / 2, buttonWidth, side);
        }
    }
    if (mTitleAlignment == 1) {
        mTitleLabel->setGeometry(width - left, 0, std::max(width - 2 * (width - left), 0), height);
    } else if (mTitleAlignment == 0 || mTitleAlignment == 2) {
        mTitleLabel->setGeometry(2 * gap, 0, std::max(left - 4 * gap, 0), height);
    }
    mTitleFont.setPixelSize(std::max(GlobalFont::instance().pixelSizeForHeight(mTitleFont, mTitleLabel->height()) * 90 / 100, 1));
    mTitleLabel->setFont(mTitleFont);
    mCornerRadius = int(height * 0.2);
    mFrame->update();
}

void FramelessWindow::nameButtons()
{
    const bool chinese = QSettings().value("Language"_L1).toString() == "Chinese"_L1;
    mButtonMin->setAccessibleName(chinese ? u"最小化"_s : u"Minimise"_s);
    mButtonClose->setAccessibleName(chinese ? u"关闭"_s : u"Close"_s);
}

/// A window opens with the first field of its body focused, never with its close button; Tab comes to those last.
void FramelessWindow::focusBody()
{
    if (focusWidget()) {
        return;
    }
    QWidget* widget = nextInFocusChain();
    while (widget != this && !(mBody->isAncestorOf(widget) && (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled())) {
        widget = widget->nextInFocusChain();
    }
    widget->setFocus(Qt::ActiveWindowFocusReason);
}

void FramelessWindow::moveTo(QPointF delta)
{
    move(int(std::round(mPressGeometry.x() + delta.x())), int(std::round(mPressGeometry.y() + delta.y())));
}

void FramelessWindow::hoverMoved(QPointF position, QPointF globalPosition)
{
    if (!mPressed) {
        hitTest(position);
        return;
    }
    const QPointF delta = globalPosition - mPressPosition;
    if (mResizing) {
        resizeBy(delta);
    } else if (mMovable) {
        moveTo(delta);
    }
}

void FramelessWindow::hitTest(QPointF position)
{
    if (!mResizable) {
        return;
    }
    mEdges = quillon::edgesAt(position, size(), mEdgeMargin);
    if (mFixedEdges != 0 && mEdges != mFixedEdges) {
        mEdges = 0;
    }
    if (const auto cursor = quillon::cursorFor(mEdges)) {
        setCursor(*cursor);
    } else {
        unsetCursor();
    }
}

void FramelessWindow::resizeBy(QPointF delta)
{
    const QSize least = minimumSize();
    QRect to = quillon::withEdgesMoved(mPressGeometry, mEdges, delta, least);
    if (mKeepAspect && mFixedEdges != 0 && least.height() > 0) {
        to.setWidth(to.height() * least.width() / least.height());
    }
    move(to.topLeft());
    resize(to.size());
}

void FramelessWindow::endDrag()
{
    mPressed = false;
    mResizing = false;
    mEdges = 0;
    unsetCursor();
}

void FramelessWindow::in_mButtonMin_clicked()
{
    showMinimized();
    emit buttonClicked(Min);
}

void FramelessWindow::in_mButtonClose_clicked()
{
    const QPointer<FramelessWindow> alive(this);
    done(mResult);
    if (alive) {
        emit buttonClicked(Close);
    }
}

void FramelessWindow::reject()
{
    in_mButtonClose_clicked();
}

bool FramelessWindow::event(QEvent* event)
{
    if (event->type() == QEvent::HoverMove) {
        const auto* hover = static_cast<QHoverEvent*>(event);
        hoverMoved(hover->position(), hover->globalPosition());
    }
    return QDialog::event(event);
}

bool FramelessWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mTitleBar && event->type() == QEvent::Resize) {
        layoutTitleBar();
    }
    return QDialog::eventFilter(watched, event);
}

void FramelessWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QDialog::mousePressEvent(event);
        return;
    }
    mPressed = true;
    mPressPosition = event->globalPosition();
    mPressGeometry = geometry();
    mResizing = mEdges != 0 && mResizable;
}

void FramelessWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        endDrag();
    } else {
        QDialog::mouseReleaseEvent(event);
    }
}

void FramelessWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !(mButtonMask & Close)) {
        event->ignore();
        return;
    }
    QDialog::keyPressEvent(event);
}

void FramelessWindow::paintEvent(QPaintEvent*)
{
    if (!mShadowEnabled || mShadowRadius == 0) {
        return;
    }
    const qreal ratio = devicePixelRatioF();
    if (mShadow.isNull() || mShadow.devicePixelRatio() != ratio) {
        mShadow = quillon::shadowTile(mShadowRadius, mShadowColor, ratio);
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    quillon::paintShadow(painter, mFrame->geometry().translated(mShadowOffset), mShadow, mShadowRadius);
}

void FramelessWindow::showEvent(QShowEvent* event)
{
    nameButtons();
    focusBody();
    QDialog::showEvent(event);
}

void FramelessWindow::hideEvent(QHideEvent* event)
{
    endDrag();
    QDialog::hideEvent(event);
}

void FramelessWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange && mTitleBar) {
        mTitleFont = font();
        layoutTitleBar();
    }
    QDialog::changeEvent(event);
}
