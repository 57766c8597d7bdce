#pragma once

#include "core/EventProvider.h"
#include "core/Geometry.h"
#include "serialization/Serializable.h"

namespace Vorin::Audio::Plugin {

class IPresetsManager;

/// The display of a plug-in, as the host's side knows it. [gui]
///
/// It is opened and closed any number of times; its state lives on in between, and is part of a
/// preset. A state that it refuses has changed nothing.
class IPluginGUI : public virtual Serialization::ISerializable {
public:
    /// Borrowed; outlives the display.
    virtual void SetPresetsManager(IPresetsManager& manager) = 0;

    /// Builds the display inside a window of the host's, not yet shown. Null is a window of our
    /// own.
    virtual void Open(void* parentWindow) = 0;
    virtual void Show(bool show) = 0;
    virtual void Close() = 0;

    /// In pixels; known once it is open.
    virtual Core::C2DSize GetSize() const = 0;
    virtual Core::IEventProvider& GetSizeChangedEvents() = 0;

    /// Called around the restoring of a state, so that nothing reacts to one half read. [any]
    virtual void BeginLoad() = 0;
    virtual void EndLoad() = 0;
};

} // namespace Vorin::Audio::Plugin
