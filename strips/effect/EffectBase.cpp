#include "strips/effect/EffectBase.h"

#include "strips/ButtonPanel.h"

using namespace Qt::StringLiterals;
using quillon::StripValue;
using quillon::ValueForm;

EffectBase::EffectBase(const quillon::EffectShape& shape, const QString& objectName, QWidget* parent)
    : PlainStrip(shape.minimum, objectName, parent), mShape(shape)
{
    setNameEditable(false);
}

void EffectBase::addModes(const quillon::PanelShape& panel, const char* objectName, const quillon::Place& place,
                          std::span<const char* const> names)
{
    auto* group = new quillon::ButtonPanel(panel, this);
    group->setObjectNames(names);
    connect(group, &quillon::ButtonPanel::stateChanged, this, [this](const QString& button, const QString& state) {
        const bool leavesBypass = button == bypass() && state == "0"_L1;
        setType(leavesBypass ? mLastType : button);
    });
    mPanels.push_back(quillon::panelPort(group));
    body().adopt(mPanels.back(), objectName, place);
}

void EffectBase::declareModes(const std::function<StripValue(std::size_t)>& wanted)
{
    mTypeRow = engine().add({.key = QString::fromLatin1(mShape.typeKey),
                             .form = ValueForm::Text,
                             .initial = [this] { return bypass(); },
                             .read = [this] { return mType; },
                             .show = [this](const StripValue& value) { follow(std::get<QString>(value)); },
                             .sends = {QString::fromLatin1(mShape.typeKey)}});
    for (std::size_t i = 0; i < mShape.modes.size(); ++i) {
        quillon::StripRow row{.key = QString::fromLatin1(mShape.modes[i].key),
                              .form = ValueForm::Integer,
                              .initial = [initial = mShape.modes[i].initial] { return initial; },
                              .read = [this, i] { return level(i); }};
        if (wanted) {
            row.wanted = [wanted, i] { return wanted(i); };
            row.sends = {QString::fromLatin1(mShape.levelKey)};
        }
        mLevelRows.push_back(engine().add(std::move(row)));
    }
}

void EffectBase::declareLoad(std::function<void()> loading)
{
    engine().setHooks({.shown = [this, loading = std::move(loading)] {
        if (!mShape.modes.empty()) { // a panel of several effects sees to their modes itself
            // A bypass out of a file has left no mode: the first one takes its place.
            mLastType = mType == bypass() ? nameOf(0) : mType;
            showMode();
        }
        showTitle();
        if (loading) {
            loading();
        }
    }});
}

std::size_t EffectBase::indexOf(const QString& type) const
{
    std::size_t i = 0;
    while (i < mShape.modes.size() && type != QLatin1StringView(mShape.modes[i].name)) {
        ++i;
    }
    return i;
}

std::size_t EffectBase::mode() const
{
    return indexOf(mType);
}

int EffectBase::level(std::size_t mode) const
{
    return mode < mLevelRows.size() ? std::get<int>(engine().stored(mLevelRows[mode])) : 0;
}

void EffectBase::setType(const QString& type)
{
    follow(type);
    engine().changed(mTypeRow, type);
}

void EffectBase::follow(const QString& type)
{
    if (type == bypass()) {
        // The bypass goes on showing the setting that it covers.
        if (engine().isLoaded() && mType != bypass()) {
            engine().store(mLevelRows.back(), level(indexOf(mLastType)));
        }
    } else {
        mLastType = type;
    }
    mType = type;
    showMode();
}

void EffectBase::showMode()
{
    const std::size_t current = mode();
    const bool known = current < mShape.modes.size(); // of a mode of another console it is only known that it is no bypass
    for (const quillon::PanelPort& panel : mPanels) {
        for (std::size_t i = 0; i < mShape.modes.size(); ++i) {
            if (known || nameOf(i) == bypass()) {
                panel.set(nameOf(i), i == current, false);
            }
        }
    }
    for (QWidget* dial : mDials) {
        dial->setEnabled(mType != bypass());
    }
    mShowLevel(level(current), known ? mShape.modes[current].initial : 0);
}

void EffectBase::levelChanged(int level)
{
    if (const std::size_t current = mode(); current < mLevelRows.size()) {
        engine().changed(mLevelRows[current], level);
    }
}

void EffectBase::showTitle()
{
    // A fresh workspace names the strip after its channel; the panel then shows what it is.
    quillon::StripHead& head = body().head();
    if (const QString name = loadValue(u"ChannelName"_s).toString(); name.isEmpty() || name == channelName()) {
        head.showName(mShape.title.in(body().isChinese()));
        body().rename();
    }
}

void EffectBase::onAppSettingsChanged(QString objectName, QString attribute, QString value)
{
    PlainStrip::onAppSettingsChanged(objectName, attribute, value);
    showTitle();
}

void EffectBase::raise(const QString& attribute, const QString& value)
{
    const auto echoes = [&](const char* key) { return attribute == u"Save_"_s + QLatin1StringView(key); };
    for (std::size_t i = 0; i < mShape.modes.size(); ++i) {
        if (echoes(mShape.modes[i].key)) {
            if (i == mode()) { // listeners hear of one level, that of the mode
                PlainStrip::raise(u"Save_"_s + QLatin1StringView(mShape.levelKey), value);
            }
            return;
        }
    }
    PlainStrip::raise(attribute, value);
}
