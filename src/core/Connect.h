#pragma once

namespace Vorin::Core {

/// Something that can be bound to a `T`, which outlives the binding.
template <class T>
class TIConnect {
public:
    virtual void Connect(T& object) = 0;
    virtual ~TIConnect() = default;
};

} // namespace Vorin::Core
