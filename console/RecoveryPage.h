#pragma once

#include "console/picture/R47_PrivateWidget6.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

/// The page of a device that the driver sees but whose HID channel does not answer: a picture of it, a notice,
/// and two ways to new firmware.
class RecoveryPage : public QWidget
{
    Q_OBJECT
public:
    explicit RecoveryPage(QWidget* parent = nullptr);

    /// "English" or "Chinese"; any other value changes nothing.
    void setLanguage(const QString& language);

signals:
    void onlineRequested();
    void manualRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showLanguage();

    QString mLanguage;
    QString mShownLanguage;
    R47_PrivateWidget6 mPicture;
    QLabel mNotice;
    QPushButton mOnline;
    QPushButton mManual;
};
