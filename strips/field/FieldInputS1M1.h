#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/field/FieldInputBase1.h"
#include "workspace/WorkspaceObserver.h"

#include <QList>
#include <QStringList>

/// The row of input strips with its solo count, kept in the workspace. It is loaded before its strips, which wait silently from
/// then on for their own load. GUI thread.
class FieldInputS1M1 final : public FieldInputBase1, public WorkspaceObserver, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit FieldInputS1M1(const QString& objectName, QWidget* parent = nullptr);

    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    FieldInputS1M1& setWidgetList(const QList<InputBase*>& strips);
    /// Channel names that a new workspace shows; all strips without this.
    FieldInputS1M1& setVisibleListDefault(const QStringList& names);
    int soloCount() const { return mSoloCount; }

    void loadSettings() override;
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

private slots:
    void in_widgetBase_attributeChanged(QString objectName, QString attribute, QString value);
    void in_widgetList_attributeChanged(QString objectName, QString attribute, QString value);

private:
    void changeSoloCount(const QString& strip, bool soloed);
    bool anySoloBut(const QString& strip) const;

    int mSoloCount = 0;
    QList<InputBase*> mStripList;
    QStringList mVisibleDefault;
    bool mVisibleDefaultSet = false;
};
