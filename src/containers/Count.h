#pragma once

namespace Vorin::Containers {

/// A collection that knows how many items it has.
class IConstCount {
public:
    virtual int GetCount() const = 0;
    virtual ~IConstCount() = default;
};

/// A collection whose number of items can be set.
class ICount : public virtual IConstCount {
public:
    virtual void SetCount(int count) = 0;
};

} // namespace Vorin::Containers
