#include "strips/field/FieldMixerS1M1.h"

#include "strips/mixer/MixerBase.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QString kMixer = u"Mixer"_s;
const QString kSoloState = u"SoloState"_s;
const QString kVisible = u"Visible"_s;

QString titleIn(const QString& language)
{
    if (language == "English"_L1) {
        return u"Mixer"_s;
    }
    return language == "Chinese"_L1 ? u"混音"_s : QString();
}

QString keyIn(const quillon::Mix& mix, const QString& key)
{
    return mix.key + u'_' + key;
}

} // namespace

FieldMixerS1M1::FieldMixerS1M1(const QString& objectName, QWidget* parent)
    : FieldMixerBase1(objectName, parent), WorkspaceObserver(objectName)
{
    setFieldTitle(titleIn(u"English"_s));
    connect(this, &FieldBase::attributeChanged, this, &FieldMixerS1M1::in_widgetBase_attributeChanged);
    connect(this, &FieldMixerBase1::mixPressed, this,
            [this](const QString& key) { emit attributeChanged(u"Mixer_All"_s, kMixer, key); });
}

FieldMixerS1M1& FieldMixerS1M1::setMixTable(const quillon::Mixes& mixes)
{
    mMixes = mixes;
    for (const quillon::Mix& mix : mMixes) {
        mVisibleDefaults.push_back(mix.visible);
    }
    setTabs(mMixes);
    selectTab(mCurrent);
    return *this;
}

FieldMixerS1M1& FieldMixerS1M1::setWidgetList(const QList<MixerBase*>& strips)
{
    mStripList = strips;
    for (MixerBase* strip : strips) {
        strip->setMixes(mMixes);
        // Before the base passes an event on: whoever hears of a solo finds the count changed.
        connect(strip, &MixerBase::attributeChanged, this, &FieldMixerS1M1::in_widgetList_attributeChanged);
    }
    setStrips(strips);
    return *this;
}

QColor FieldMixerS1M1::colourOf(const QString& name) const
{
    const auto found = std::ranges::find(mMixes, name, &quillon::Mix::name);
    return found == mMixes.end() ? QColor() : found->colour;
}

void FieldMixerS1M1::writeDefaults()
{
    saveValue(workspaceGroup(), true);
    saveValue(kMixer, mMixes.front().key);
    for (std::size_t i = 0; i < mMixes.size(); ++i) {
        saveValue(keyIn(mMixes[i], kSoloState), 0);
        saveValue(keyIn(mMixes[i], kVisible), mVisibleDefaults[i]);
    }
}

void FieldMixerS1M1::loadSettings()
{
    if (!hasValue(workspaceGroup())) {
        writeDefaults();
    }
    // The strips still hold the workspace before: showing and hiding them must neither be heard nor be counted.
    for (MixerBase* strip : std::as_const(mStripList)) {
        strip->suspend();
    }
    for (std::size_t i = 0; i < mMixes.size(); ++i) {
        quillon::Mix& mix = mMixes[i];
        const QString visible = keyIn(mix, kVisible);
        mix.soloCount = std::clamp(loadValue(keyIn(mix, kSoloState)).toInt(), 0, 2 * static_cast<int>(mStripList.size()));
        mix.visible = hasValue(visible) ? loadValue(visible).toStringList() : mVisibleDefaults[i];
    }
    const auto stored = std::ranges::find(mMixes, loadValue(kMixer).toString(), &quillon::Mix::key);
    mCurrent = stored == mMixes.end() ? 0 : static_cast<std::size_t>(stored - mMixes.begin());
    showMix();
    emitSave(keyIn(current(), kSoloState), QString::number(soloCount()));
}

void FieldMixerS1M1::selectMix(const QString& key)
{
    const auto found = std::ranges::find(mMixes, key, &quillon::Mix::key);
    if (found == mMixes.end() || key == mix()) {
        return;
    }
    mCurrent = static_cast<std::size_t>(found - mMixes.begin());
    saveValue(kMixer, key);
    showMix();
    emitSave(kMixer, key);
}

void FieldMixerS1M1::showMix()
{
    selectTab(mCurrent);
    // Each strip knows by its mix whether it stands in the row, so that nothing of the mix before can go to the new one.
    for (MixerBase* strip : std::as_const(mStripList)) {
        strip->setMix(mix());
    }
    setVisibleList(current().visible);
}

void FieldMixerS1M1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    const QString title = attribute == "Language"_L1 ? titleIn(value) : QString();
    if (!title.isEmpty()) {
        setFieldTitle(title);
        setAdditionLanguage(value);
    }
}

void FieldMixerS1M1::in_widgetBase_attributeChanged(QString, QString attribute, QString value)
{
    if (attribute == kMixer) {
        selectMix(value);
    } else if (attribute == kVisible) {
        current().visible = visibleList();
        saveValue(keyIn(current(), kVisible), current().visible);
        emitSave(keyIn(current(), kVisible), current().visible.join(u','));
    }
}

void FieldMixerS1M1::in_widgetList_attributeChanged(QString, QString attribute, QString value)
{
    if (attribute == "Solo"_L1) {
        changeSoloCount(value != "0"_L1);
    }
}

void FieldMixerS1M1::changeSoloCount(bool soloed)
{
    int& count = current().soloCount;
    const bool wasSoloing = count != 0;
    if (soloed) {
        // One strip at a time is between its forms, where it counts for both.
        count = std::min(count + 1, 2 * static_cast<int>(mStripList.size()) + 1);
    } else {
        // A count that came out of a file may be too high: where no solo is left, the field has to be set free.
        count = anySolo() ? std::max(count - 1, 0) : 0;
    }
    if (wasSoloing != (count != 0)) {
        for (MixerBase* strip : std::as_const(mStripList)) {
            strip->soloCountChanged();
        }
    }
    saveValue(keyIn(current(), kSoloState), count);
    emitSave(keyIn(current(), kSoloState), QString::number(count));
}

bool FieldMixerS1M1::anySolo() const
{
    return std::ranges::any_of(mStripList,
                               [](const MixerBase* strip) { return strip->isStripEnabled() && strip->solosTaken() != 0; });
}

void FieldMixerS1M1::emitSave(const QString& key, const QString& value)
{
    emit attributeChanged(u"Mixer_All"_s, u"Save_"_s + key, value);
}
