#pragma once

namespace Vorin::Core {

/// Something that can be told to bring itself up to date.
class IUpdate {
public:
    virtual void Update() = 0;
    virtual ~IUpdate() = default;
};

} // namespace Vorin::Core
