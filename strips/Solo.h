#pragma once

#include <QString>
#include <QWidget>

/// Solo and mute of a strip, over the count of soloed strips that its field keeps. Solo is done by muting: while the count is not
/// 0, each strip of the field is muted exactly when it is not soloed, and gets its own mute back when the last solo goes. GUI
/// thread.
class Solo : public QWidget
{
    Q_OBJECT
public:
    /// The field's count; it must outlive the strip. Without one the count is 0.
    void setSoloCount(int* count) { mSoloCount = count; }
    /// The count moved between 0 and 1.
    void soloCountChanged();
    /// Changes between one button pair for both channels and a pair for each; the field's count follows.
    void setLinked(bool linked);
    bool isLinked() const { return mLinked; }

    /// The buttons. "load" sets one silently, "set" as if it was clicked. A strip with one pair has no left and right: those do
    /// nothing and read false.
    virtual void loadSolo(bool on) = 0;
    virtual void loadSoloLeft(bool on) = 0;
    virtual void loadSoloRight(bool on) = 0;
    virtual void loadMute(bool on) = 0;
    virtual void loadMuteLeft(bool on) = 0;
    virtual void loadMuteRight(bool on) = 0;
    virtual void setSolo(bool on) = 0;
    virtual void setSoloLeft(bool on) = 0;
    virtual void setSoloRight(bool on) = 0;
    virtual void setMute(bool on) = 0;
    virtual void setMuteLeft(bool on) = 0;
    virtual void setMuteRight(bool on) = 0;
    virtual bool getSolo() const = 0;
    virtual bool getSoloLeft() const = 0;
    virtual bool getSoloRight() const = 0;
    virtual bool getMute() const = 0;
    virtual bool getMuteLeft() const = 0;
    virtual bool getMuteRight() const = 0;

signals:
    /// A solo was taken (true) or released. Listeners must be connected directly: the count is read again when this returns.
    void soloStateChanged(QString objectName, bool state);

protected:
    explicit Solo(QWidget* parent = nullptr) : QWidget(parent) {}

    /// The solo button was clicked. Always true.
    bool doSolo();
    bool doSoloLeft();
    bool doSoloRight();
    /// The mute button moved. False when the solo of the field moved it, which is no choice of the user's.
    bool doMute();
    bool doMuteLeft();
    bool doMuteRight();
    /// Takes over the state of a workspace, silently.
    void initSoloState(bool linked, bool solo, bool soloLeft, bool soloRight, bool mute, bool muteLeft, bool muteRight);

private:
    struct Side; // one pair of buttons
    static const Side kMain;
    static const Side kLeft;
    static const Side kRight;

    bool solo(const Side& side);
    bool mute(const Side& side);
    void follow(const Side& side);
    bool isSoloing() const { return mSoloCount && *mSoloCount != 0; }

    int* mSoloCount = nullptr;
    bool mLinked = true;
    bool mMuteSaved = false;
    bool mMuteSavedLeft = false;
    bool mMuteSavedRight = false;
};
