#pragma once

#include "app/AppSettingsSubject.h"

namespace quillon
{
class SettingsRows;
}

/// The "ASIO" page of the settings: what the audio driver is set to. A choice goes to the driver; one that it refuses is taken
/// back. The setters show and stay silent. GUI thread.
class WidgetAudio1 final : public QWidget, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit WidgetAudio1(QWidget* parent = nullptr);

    /// The supported rates in Hz. None is selected if current is not among them.
    void setSampleRates(const QList<int>& rates, int current);
    /// The supported sizes in samples. None is selected if current is not among them.
    void setBufferSizes(const QList<int>& sizes, int current);
    void setSafeMode(bool on);

    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    /// The driver has taken over ("SettingsAudio", "SampleRate", "BufferSize" or "SafeMode", value).
    void attributeChanged(QString objectName, QString attribute, QString value);

private:
    void rowEdited(int row, const QString& value);

    quillon::SettingsRows* mRows;
};
