#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/FieldMember.h"
#include "strips/StripBody.h"
#include "strips/StripEndpoint.h"
#include "strips/StripEngine.h"
#include "strips/StripSetup.h"
#include "workspace/WorkspaceObserver.h"

#include <QWidget>

namespace quillon
{
class CaptionLabel;

/// A strip that cannot be soloed: what it has beside its rows and controls. GUI thread.
class PlainStrip : public QWidget,
                   public StripEndpoint,
                   public FieldMember,
                   public WorkspaceObserver,
                   public AppSettingsObserver,
                   public StripSetup<PlainStrip>
{
    Q_OBJECT
public:
    using StripSetup<PlainStrip>::setFont;

    /// Sends each value that differs from what was sent last, while the strip is loaded.
    virtual void updateAttribute() { mEngine.updateAttribute(); }
    /// Until its workspace is loaded again the strip sends nothing.
    void suspend() { mEngine.suspend(); }

    QString channelName() const override { return mBody.head().channelName(); }
    void setStripEnabled(bool enabled) override;
    bool isStripEnabled() const override { return mEngine.isStripEnabled(); }
    DeviceSetter deviceSetter(QStringView attribute) override;
    void loadSettings() override { mEngine.load(); }
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    /// objectName: who the strip is to the device, and its group in the workspace.
    PlainStrip(QSize minimum, const QString& objectName, QWidget* parent);

    /// One event of the strip. Members that speak under other names pass it on in their way.
    virtual void raise(const QString& attribute, const QString& value) { emit attributeChanged(objectName(), attribute, value); }
    /// Adds a word of the panel.
    CaptionLabel* addCaption(const char* objectName, const Place& place, const StripText& text);

    StripBody& body() { return mBody; }
    StripEngine& engine() { return mEngine; }
    const StripEngine& engine() const { return mEngine; }

    void resizeEvent(QResizeEvent* event) override;

private:
    friend class StripSetup<PlainStrip>;

    StripBody mBody;
    StripEngine mEngine;
};

} // namespace quillon
