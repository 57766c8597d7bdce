#pragma once

#include "containers/NamedAttributes.h"
#include "core/DocumentPlace.h"

namespace Vorin::AppEngine {

/// Receives elements, whether they are read from a file or replayed from a template. [gui]
class IParserElementHandler {
public:
    /// False when the element has failed; whoever sends the elements goes on. The attributes are
    /// the caller's until the call returns; the handler may change them.
    virtual bool OnElementStart(const char* name,
                                Containers::IConstNamedAttributes& attributes) = 0;
    virtual bool OnElementEnd(const char* name) = 0;

    virtual ~IParserElementHandler() = default;

    /// Where the element of the next call stands. A replay tells it before each.
    virtual void SetElementPlace(const Core::CDocumentPlace& place) { static_cast<void>(place); }

    /// True once a limit is reached: nothing more is taken, and replays end.
    virtual bool IsStopped() const { return false; }
};

} // namespace Vorin::AppEngine
