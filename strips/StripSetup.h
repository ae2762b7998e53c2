#pragma once

#include "strips/StripEngine.h"
#include "strips/StripHead.h"

#include <QFont>
#include <QObject>
#include <QString>

namespace quillon
{

/// What every kind of strip takes from the page that it stands on, before it is loaded. Self, the base of the kind, has an mBody
/// and an mEngine, and tells isStripEnabled(). Each call gives the strip back, so that a page writes a chain. GUI thread.
template<class Self> class StripSetup
{
public:
    Self& setChannelName(const QString& name)
    {
        self().mBody.setChannelName(name);
        return self();
    }
    /// What the channel is called in Chinese until the user names it.
    Self& setChineseName(const QString& name)
    {
        self().mBody.head().setChineseName(name);
        return self();
    }
    Self& setFont(const QFont& font)
    {
        self().mBody.setFont(font);
        return self();
    }
    Self& setCloseEnabled(bool on)
    {
        mCloseEnabled = on;
        armClose();
        return self();
    }
    Self& setSaveEvents(bool on)
    {
        self().mEngine.setSaveEvents(on);
        return self();
    }
    Self& setNameEditable(bool editable)
    {
        self().mBody.head().setNameEditable(editable);
        return self();
    }
    /// The plug of this source is missing: a translucent sheet over the top of the strip.
    Self& setOverlayVisible(bool visible)
    {
        self().mBody.head().setOverlayVisible(visible);
        return self();
    }

protected:
    explicit StripSetup(bool closeEnabled = false) : mCloseEnabled(closeEnabled) {}

    /// Adds the row of the name, which stands before all others, and joins the name and the close button of the head.
    void declareName()
    {
        Self& strip = self();
        mNameRow = strip.mEngine.add({.key = QStringLiteral("ChannelName"),
                                      .form = ValueForm::Text,
                                      .initial = [&strip] { return strip.channelName(); },
                                      .read = [&strip] { return strip.mBody.head().name(); },
                                      .show =
                                          [&strip](const StripValue& value) {
                                              strip.mBody.head().showName(std::get<QString>(value));
                                              strip.mBody.rename();
                                          }});
        QObject::connect(&strip.mBody.head(), &StripHead::nameEdited, &strip, [this, &strip] {
            strip.mEngine.changed(mNameRow);
            strip.mBody.rename();
        });
        // The field matches on the channel's name, in the first place of the event.
        QObject::connect(&strip.mBody.head(), &StripHead::closeClicked, &strip, [&strip] {
            emit strip.attributeChanged(strip.channelName(), QStringLiteral("Hide"), QStringLiteral("1"));
        });
    }
    /// A strip that is not shown has no use for its close button.
    void armClose() { self().mBody.head().setCloseArmed(mCloseEnabled && self().isStripEnabled()); }

private:
    Self& self() { return static_cast<Self&>(*this); }

    StripEngine::RowId mNameRow = -1;
    bool mCloseEnabled;
};

} // namespace quillon
