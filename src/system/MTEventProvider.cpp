#include "system/MTEventProvider.h"

namespace Vorin::System {

void CMTEventProvider::Notify() {
    const Core::CAutoLock held(lock);
    CEventProvider::Notify();
}

} // namespace Vorin::System
