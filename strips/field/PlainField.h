#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/StripBody.h"
#include "strips/field/FieldBase.h"
#include "workspace/WorkspaceObserver.h"

#include <functional>
#include <optional>
#include <vector>

namespace quillon
{

/// A field without solo: which of its strips are visible is all that it keeps in the workspace. It is loaded before its strips,
/// which wait silently from then on for their own load. GUI thread.
class PlainField : public FieldBase, public WorkspaceObserver, public AppSettingsObserver
{
    Q_OBJECT
public:
    /// Channel names that a new workspace shows; all strips without this.
    PlainField& setVisibleListDefault(const QStringList& names);

    void loadSettings() override;
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

protected:
    PlainField(const StripText& title, const QString& objectName, QWidget* parent, Qt::Orientation orientation = Qt::Horizontal);

    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    template<class Strip> void takeStrips(const QList<Strip*>& strips, bool closable);

    /// The title in the language of the window.
    virtual QString title() { return mTitle.in(mIsChinese); }

protected slots:
    void in_widgetBase_attributeChanged(QString objectName, QString attribute, QString value);

private:
    const StripText mTitle;
    std::vector<std::function<void()>> mSuspends; // one a strip
    std::optional<QStringList> mVisibleDefault;
    bool mIsChinese = false;
};

template<class Strip> void PlainField::takeStrips(const QList<Strip*>& strips, bool closable)
{
    for (Strip* strip : strips) {
        mSuspends.push_back([strip] { strip->suspend(); });
    }
    setStrips(strips, closable);
}

} // namespace quillon
