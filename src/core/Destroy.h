#pragma once

namespace Vorin::Core {

/// An owned thing of no further interface: it can only be destroyed.
class IDestroy {
public:
    virtual ~IDestroy() = default;
};

/// An owned thing of which nothing at all is known.
class IVoid : public virtual IDestroy {};

} // namespace Vorin::Core
