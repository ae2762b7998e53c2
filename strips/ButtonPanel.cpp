#include "strips/ButtonPanel.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon
{

ButtonPanel::ButtonPanel(const PanelShape& shape, QWidget* parent) : PanelFace(shape, parent)
{
    setMinimumSize(shape.width, shape.height);
    connect(&mCore, &PanelCore::changed, this,
            [this](int index, const QString& state) { emit stateChanged(mCore.nameOf(index), state); });
}

void ButtonPanel::setObjectNames(std::span<const char* const> names)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        findChild<QPushButton*>(u"PushButton"_s + mCore.nameOf(static_cast<int>(i)))->setObjectName(QLatin1StringView(names[i]));
    }
}

} // namespace quillon
