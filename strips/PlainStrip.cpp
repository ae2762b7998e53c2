#include "strips/PlainStrip.h"

#include "strips/CaptionLabel.h"

using namespace Qt::StringLiterals;

namespace quillon
{

PlainStrip::PlainStrip(QSize minimum, const QString& objectName, QWidget* parent)
    : QWidget(parent), WorkspaceObserver(objectName), mBody(this),
      mEngine(*this, [this](const QString& attribute, const QString& value) { raise(attribute, value); })
{
    setObjectName(objectName);
    setMinimumSize(minimum);
    declareName();
}

CaptionLabel* PlainStrip::addCaption(const char* objectName, const Place& place, const StripText& text)
{
    auto* label = new CaptionLabel(this);
    label->setCaption(text.in(false));
    mBody.adopt(label, objectName, place);
    mBody.onFont([label](const QFont& font) { label->setFace(font); });
    mBody.onLanguage([this, label, text](const QString&) { label->setCaption(text.in(mBody.isChinese())); });
    return label;
}

void PlainStrip::setStripEnabled(bool enabled)
{
    mEngine.setStripEnabled(enabled);
    armClose();
}

DeviceSetter PlainStrip::deviceSetter(QStringView attribute)
{
    if (attribute == u"Plug") {
        return [this](const QVariant& missing) { setOverlayVisible(missing.toBool()); };
    }
    return mEngine.deviceSetter(attribute);
}

void PlainStrip::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mBody.onAppSettingsChanged(attribute, value);
}

void PlainStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    mBody.layout();
}

} // namespace quillon
