#pragma once

#include "strips/ControlPorts.h"

#include <QObject>
#include <QPointer>
#include <optional>

class AutoGainS1M1;

namespace quillon
{

class StripHead;

/// What a strip with an AUTO button does around the dialog: gain to 0 for the measurement, the measured gain or the old one after
/// it. Held by the strip. The dialog is made when it is first asked for. GUI thread.
class AutoGainLink : public QObject
{
    Q_OBJECT
public:
    /// The strip's side of it.
    struct Host {
        ValuePort dial;
        std::function<void(float)> gainChanged;           // as if the user had turned the dial
        std::function<void(float)> storeGain;             // into the workspace only
        std::function<std::optional<float>()> storedGain; // nothing while the strip's page is not the one shown
    };

    AutoGainLink(QWidget* strip, Host host);

    /// Shows the dialog over the console window and applies its result. Blocks in an event loop, in which the strip may be
    /// destroyed: false then, and nothing of the strip may be touched any more.
    bool run(const StripHead& head);
    /// Hears what the single bar of that meter is fed, which is fed no longer than this lives.
    void listenTo(MeterPort& meter);
    /// A meter reading in tenths of a dB; readings above 1 are none.
    void setLevel(int tenthsOfDb);
    void setFont(const QFont& font);
    void setLanguage(const QString& language);

private slots:
    void in_mAutoGain_attributeChanged(const QString& attribute, const QString& value);

private:
    AutoGainS1M1* dialog();

    QWidget* mStrip;
    Host mHost;
    QPointer<AutoGainS1M1> mAutoGain;
    QFont mFont;
    QString mLanguage;
};

/// The gain that lifts a measured peak, in tenths of a dB, to -5 dB.
float autoGainFor(int peakTenthsOfDb);

} // namespace quillon
