#pragma once

namespace Vorin::Core {

/// Something that works at a period, in milliseconds.
class IRefreshTime {
public:
    virtual void SetRefreshTime(int milliseconds) = 0;
    virtual int GetRefreshTime() const = 0;
    virtual ~IRefreshTime() = default;
};

} // namespace Vorin::Core
