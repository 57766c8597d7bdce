#pragma once

#include "SkinEngine/Model/ModelObject.h"
#include "core/Command.h"

#include <functional>
#include <utility>

namespace Vorin::AppEngine {

/// Stands for a connection to an object: runs a function when that object goes first. Whichever of
/// the two goes first, the other one is let go of.
class CObjectUse {
public:
    CObjectUse(CModelObject& usedObject, std::function<void()> letGoFunction)
        : object(&usedObject), letGo(std::move(letGoFunction)) {
        object->GetReleaseEvents().Connect(released);
    }
    ~CObjectUse() { Leave(); }

    CObjectUse(const CObjectUse&) = delete;
    CObjectUse& operator=(const CObjectUse&) = delete;

private:
    void Leave() {
        if (object) {
            object->GetReleaseEvents().Disconnect(released);
            object = nullptr;
        }
    }

    void OnReleased() {
        Leave();
        letGo();
    }

    CModelObject* object; // null once it has gone
    std::function<void()> letGo;
    Core::TCommand<CObjectUse> released{this, &CObjectUse::OnReleased};
};

} // namespace Vorin::AppEngine
