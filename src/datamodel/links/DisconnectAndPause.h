#pragma once

#include "core/Disconnect.h"

namespace Vorin::DataModel {

/// Something that follows another object, can let go of it, and can rest for a while.
class IDisconnectAndPause : public virtual Core::IDisconnect {
public:
    virtual void SetPaused(bool pause) = 0;
};

} // namespace Vorin::DataModel
