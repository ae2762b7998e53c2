#pragma once

#include "app/AppSettingsSubject.h"
#include "console/head/FieldHeadBase2.h"

/// The bar of the Easy page. To the outside it tells ("SystemSettings", "Clicked", "1"). GUI thread.
class FieldHeadS1M2 final : public FieldHeadBase2, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit FieldHeadS1M2(const QString& objectName, QWidget* parent = nullptr) : FieldHeadBase2(objectName, parent) {}

    /// "Language".
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

protected:
    void in_item_attributeChanged(const QString& objectName, const QString& attribute, const QString& value) override;
};
