#pragma once

#include <QString>

namespace quillon
{

/// What a field must know of a strip in it, of whatever family.
class FieldMember
{
public:
    virtual ~FieldMember() = default;
    /// The name under which the field and its add box know the strip. Not its object name.
    virtual QString channelName() const = 0;
    /// The strip was shown in its field (true) or hidden from it.
    virtual void setStripEnabled(bool enabled) = 0;
    virtual bool isStripEnabled() const = 0;
};

} // namespace quillon
