#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/field/FieldMixerBase1.h"
#include "workspace/WorkspaceObserver.h"

/// The row of mixer strips, one mix at a time, with solo count and visible strips of each mix, kept in the workspace. It is loaded
/// before its strips, which wait silently from then on for their own load. GUI thread.
class FieldMixerS1M1 final : public FieldMixerBase1, public WorkspaceObserver, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit FieldMixerS1M1(const QString& objectName, QWidget* parent = nullptr);

    /// The mixes, once and before the strips. visible: channel names that a new workspace shows.
    FieldMixerS1M1& setMixTable(const quillon::Mixes& mixes);
    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    FieldMixerS1M1& setWidgetList(const QList<MixerBase*>& strips);
    /// Key of the mix that is shown.
    QString mix() const { return mMixes.empty() ? QString() : mMixes[mCurrent].key; }
    int soloCount() const { return mMixes.empty() ? 0 : mMixes[mCurrent].soloCount; }
    /// The colour of a mix by its name ("Mix A"); an invalid one for any other name.
    QColor colourOf(const QString& name) const;

    void loadSettings() override;
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

private slots:
    void in_widgetBase_attributeChanged(QString objectName, QString attribute, QString value);
    void in_widgetList_attributeChanged(QString objectName, QString attribute, QString value);

private:
    quillon::Mix& current() { return mMixes[mCurrent]; }
    void writeDefaults();
    void selectMix(const QString& key);
    void showMix();
    void changeSoloCount(bool soloed);
    bool anySolo() const;
    void emitSave(const QString& key, const QString& value);

    quillon::Mixes mMixes;
    std::vector<QStringList> mVisibleDefaults; // of each mix
    std::size_t mCurrent = 0;
    QList<MixerBase*> mStripList;
};
