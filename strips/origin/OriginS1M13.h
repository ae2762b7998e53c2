#pragma once

#include "strips/origin/OriginBase.h"

class ToolButtonS1M1;

/// An output with a source out of a menu, gain and mute. The device takes the gain for each side.
class OriginS1M13 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M13(const QString& objectName, QWidget* parent = nullptr);

    /// The source of a fresh workspace.
    OriginS1M13& setAudioSourceDefault(const QString& source);
    /// Adds a section with its sources to the menu.
    OriginS1M13& setAudioSourceList(const QString& section, const QStringList& sources);
    /// Off where the routing is fixed: the menu is hidden and no source is sent.
    OriginS1M13& setAudioSourceVisible(bool visible);

private:
    ToolButtonS1M1* mSource;
    QString mSourceDefault;
    bool mSourceVisible = true;
};
