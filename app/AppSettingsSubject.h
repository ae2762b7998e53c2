#pragma once

#include <QAnyStringView>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

/// A widget that follows language and scale. The last base class of those who use it.
class AppSettingsObserver
{
public:
    virtual ~AppSettingsObserver() = default;
    /// A setting by its key, straight from the store.
    virtual QVariant settingValue(QAnyStringView key);
    /// attribute is "Language" or "ScaleFactor"; objectName is empty.
    virtual void onAppSettingsChanged(QString objectName, QString attribute, QString value) = 0;
};

/// The process-wide settings: identity, defaults, and the fan-out of language and scale factor. GUI thread.
class AppSettingsSubject : public QObject
{
    Q_OBJECT
public:
    static AppSettingsSubject& instance();

    /// Wipes a store of another layout once and writes the missing defaults. Always true.
    bool init();

    AppSettingsSubject& addObserver(AppSettingsObserver* observer);
    AppSettingsSubject& addObservers(const QList<AppSettingsObserver*>& observers);
    AppSettingsSubject& removeAllObservers();

    /// Stores the value and tells listeners and observers, also when nothing changed.
    AppSettingsSubject& changeLanguage(const QString& value);
    AppSettingsSubject& changeScaleFactor(const QString& value);

    /// The console window, null until a device is up: what popups centre themselves on.
    QWidget* mainWindow() const { return mMainWindow; }
    void setMainWindow(QWidget* window) { mMainWindow = window; }

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

private:
    AppSettingsSubject();
    void change(const QString& key, const QString& value);

    QPointer<QWidget> mMainWindow;
    QList<AppSettingsObserver*> mObservers;
};
