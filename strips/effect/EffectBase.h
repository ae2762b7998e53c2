#pragma once

#include "controls/group/PanelShape.h"
#include "strips/PlainStrip.h"

#include <span>

namespace quillon
{

/// A mode of an effect: its name to the device, the key of its level, and the level of a fresh workspace.
struct EffectMode {
    const char* name;
    const char* key;
    int initial;
};

/// An effect as data. The last mode is the bypass.
struct EffectShape {
    QSize minimum;
    StripText title;
    const char* typeKey;  // of the mode, to the workspace and to the device
    const char* levelKey; // of the level, to listeners
    std::span<const EffectMode> modes;
};

} // namespace quillon

/// The panel of one of the device's effects: a mode, each mode with a level of its own, and a bypass that remembers the mode it
/// left. GUI thread.
class EffectBase : public quillon::PlainStrip
{
    Q_OBJECT
public:
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

protected:
    EffectBase(const quillon::EffectShape& shape, const QString& objectName, QWidget* parent);

    /// Adds mode buttons. names: object names, by button.
    void addModes(const quillon::PanelShape& panel, const char* objectName, const quillon::Place& place,
                  std::span<const char* const> names);
    /// Adds a dial of the effect, off in bypass.
    template<class Dial>
    Dial* addDial(Dial* dial, const char* objectName, const quillon::Place& place, const quillon::StripText& meaning);
    /// Declares a dial's own row: what it shows is kept and sent under this name, in whole numbers.
    template<class Dial> void declareDial(Dial* dial, const QString& name, int initial);
    /// The dial of the mode's level.
    template<class Dial> void setLevelDial(Dial* dial);
    /// Declares the mode and the levels. wanted makes the value of a level's row for the device, from the mode's index; without it
    /// the rows are kept only.
    void declareModes(const std::function<quillon::StripValue(std::size_t)>& wanted = {});
    /// Declares what follows from a load. The last call of a member's constructor.
    void declareLoad(std::function<void()> loading = {});
    /// Shows the name, or what the effect is while it has none of its own.
    void showTitle();

    /// Index of the mode, or that of no mode.
    std::size_t mode() const;
    /// Level of a mode as it is kept; 0 for an unknown one.
    int level(std::size_t mode) const;
    void raise(const QString& attribute, const QString& value) override;

private:
    void setType(const QString& type);
    void follow(const QString& type);
    void showMode();
    void levelChanged(int level);
    std::size_t indexOf(const QString& type) const;
    QString nameOf(std::size_t mode) const { return QString::fromLatin1(mShape.modes[mode].name); }
    QString bypass() const { return nameOf(mShape.modes.size() - 1); }

    const quillon::EffectShape& mShape;
    std::vector<quillon::PanelPort> mPanels;
    std::vector<QWidget*> mDials;
    std::function<void(int level, int initial)> mShowLevel;
    quillon::StripEngine::RowId mTypeRow = -1;
    std::vector<quillon::StripEngine::RowId> mLevelRows;
    QString mType;
    QString mLastType; // the last mode that is not the bypass
};

template<class Dial>
Dial* EffectBase::addDial(Dial* dial, const char* objectName, const quillon::Place& place, const quillon::StripText& meaning)
{
    body().adopt(quillon::ValuePort{.widget = dial, .setFont = [dial](const QFont& font) { dial->setFont(font); }}, objectName,
                 place, meaning);
    mDials.push_back(dial);
    return dial;
}

template<class Dial> void EffectBase::declareDial(Dial* dial, const QString& name, int initial)
{
    dial->setDefault(static_cast<float>(initial));
    const auto row = engine().add(
        {.key = name,
         .form = quillon::ValueForm::Integer,
         .initial = [initial] { return initial; },
         .read = [dial] { return static_cast<int>(dial->value()); },
         .show = [dial](const quillon::StripValue& value) { dial->setValue(static_cast<float>(std::get<int>(value))); },
         .sends = {name}});
    connect(dial, &Dial::valueChanged, this, [this, row] { engine().changed(row); });
}

template<class Dial> void EffectBase::setLevelDial(Dial* dial)
{
    mShowLevel = [dial](int level, int initial) {
        dial->setDefault(static_cast<float>(initial));
        dial->setValue(static_cast<float>(level));
    };
    connect(dial, &Dial::valueChanged, this, [this](float value) { levelChanged(static_cast<int>(value)); });
}
