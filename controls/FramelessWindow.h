#pragma once

#include <QColor>
#include <QDialog>
#include <QFont>
#include <QPixmap>
#include <QPointer>

class QLabel;
class QPushButton;
class QVBoxLayout;

/// Base of all secondary windows: a dialog that draws its own frame, title bar and shadow, and that is moved and resized
/// by the mouse. Escape acts as the close button. GUI thread.
class FramelessWindow : public QDialog
{
    Q_OBJECT
public:
    /// The buttons of a title bar: flags, combinable as a mask.
    enum WindowButtonType { Min = 1, Close = 2 };

    explicit FramelessWindow(QWidget* parent = nullptr);
    ~FramelessWindow() override;

    /// Takes body over and shows it under the title bar; the body before it is deleted later. Null empties the window.
    void setBody(QWidget* body);
    QWidget* body() const { return mBody; }

    /// Shares of title bar and body in the height, at least 0 each.
    void setStretch(int title, int body);
    void setMovable(bool movable) { mMovable = movable; }
    void setResizable(bool resizable) { mResizable = resizable; }
    /// On: only the corner at the bottom right resizes, and width follows height in the ratio of the minimum size.
    void setKeepAspect(bool keep);
    /// Blur and margin around the frame in pixels; below 0 counts as 0.
    void setShadowRadius(int radius);
    void setShadowEnabled(bool enabled);
    void setTitleTextColor(const QColor& color);
    void setTitleBackground(const QColor& color);
    void setBodyBackground(const QColor& color);
    /// 0 and 2 start the title at the left, 1 centres it on the bar; other values leave the label where it stands.
    void setTitleAlignment(int alignment);
    /// A mask of WindowButtonType.
    void setButtons(int mask);
    /// 0: title bar and border. 1: body only.
    void setLook(int look);
    /// Another parent, with the window still a window of its own.
    void setParentWindow(QWidget* parent);
    /// What the close button passes to done(), whatever done() was called with last.
    int result() const { return mResult; }

    void reject() override;

signals:
    void buttonClicked(WindowButtonType button);

protected:
    /// Called while dragging: delta is the way of the pointer since the press, in global pixels.
    virtual void moveTo(QPointF delta);

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

    int mResult = 0;

private slots:
    void in_mButtonMin_clicked();
    void in_mButtonClose_clicked();

private:
    class ContentFrame;

    void buildTitleBar();
    void applyStretch();
    void restyleTitle();
    void layoutTitleBar();
    void nameButtons();
    void focusBody();
    void hoverMoved(QPointF position, QPointF globalPosition);
    void hitTest(QPointF position);
    void resizeBy(QPointF delta);
    void endDrag();

    int mLook = 0;
    QColor mTextColor{161, 161, 161};
    QColor mTitleBackground{31, 31, 31};
    QColor mBodyBackground{31, 31, 31};
    QFont mTitleFont;
    int mShadowRadius = 20;
    QPoint mShadowOffset;
    QColor mShadowColor{31, 31, 31};
    bool mShadowEnabled = true;
    bool mMovable = true;
    bool mResizable = true;
    bool mKeepAspect = false;
    int mTitleAlignment = 1;
    int mButtonMask = Close;
    int mTitleStretch = 1;
    int mBodyStretch = 10;
    int mCornerRadius = 0;
    bool mPressed = false;
    bool mResizing = false;
    QPointF mPressPosition;
    QRect mPressGeometry;
    int mEdges = 0;
    int mFixedEdges = 0;
    int mEdgeMargin = 30;

    QVBoxLayout* mOuterLayout = nullptr;
    QVBoxLayout* mFrameLayout = nullptr;
    QVBoxLayout* mBodyLayout = nullptr;
    ContentFrame* mFrame = nullptr;
    QWidget* mTitleBar = nullptr;
    QLabel* mTitleLabel = nullptr;
    QPushButton* mButtonMin = nullptr;
    QPushButton* mButtonClose = nullptr;
    QPointer<QWidget> mBody;
    QPixmap mShadow;
};
