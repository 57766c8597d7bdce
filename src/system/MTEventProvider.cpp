#include "system/MTEventProvider.h"

namespace Vorin::System {

using Core::CAutoLock;
using Core::ICommand;

void CMTEventProvider::Connect(ICommand* command) {
    const CAutoLock held(lock);
    Core::CEventProvider::Connect(command);
}

void CMTEventProvider::Connect(ICommand& command) {
    const CAutoLock held(lock);
    Core::CEventProvider::Connect(command);
}

void CMTEventProvider::Disconnect(ICommand*& command, bool destroy) {
    const CAutoLock held(lock);
    Core::CEventProvider::Disconnect(command, destroy);
}

void CMTEventProvider::Disconnect(ICommand& command) {
    const CAutoLock held(lock);
    Core::CEventProvider::Disconnect(command);
}

void CMTEventProvider::Notify() {
    const CAutoLock held(lock);
    Core::CEventProvider::Notify();
}

} // namespace Vorin::System
