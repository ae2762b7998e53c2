#pragma once

#include "update/UpdaterBase.h"

/// Replaces the program: starts the setup inside a downloaded archive and ends the application, so that its files can be replaced.
class UpdaterSoftware : public UpdaterBase
{
    Q_OBJECT
public:
    /// The version of this program, as all comparisons take it: as text, so a release number keeps to one digit per field.
    static const QString& programVersion();

    static UpdaterSoftware& instance();
    UpdaterSoftware();

    void update(const QString& path) override;

private:
    bool start(const QString& path);
};
