#pragma once

namespace Vorin::Core {

/// Something that listens to another object and can let go of it.
class IDisconnect {
public:
    virtual void Disconnect() = 0;
    virtual ~IDisconnect() = default;
};

} // namespace Vorin::Core
