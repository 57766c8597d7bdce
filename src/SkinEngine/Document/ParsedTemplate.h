#pragma once

#include "SkinEngine/Document/ParserElementHandler.h"
#include "serialization/Serializable.h"

namespace Vorin::AppEngine {

/// A replay of a template that waits for the content of the instantiating element.
class IParsedTemplateInstance {
public:
    /// Goes on. True when the instance has finished.
    virtual bool Resume() = 0;
    virtual ~IParsedTemplateInstance() = default;
};

/// Recorded elements that can be replayed any number of times, each time with other parameters.
/// Needs no parser. [gui]
class IParsedTemplate {
public:
    /// Replays into `handler`, with `$name$` replaced by what `parameters`, or else the defaults of
    /// the template, say. Null when the replay ran to its end. Otherwise it stands at the place for
    /// the inner content, and the caller owns the rest; template and handler outlive it.
    virtual IParsedTemplateInstance*
    Instantiate(const Containers::IConstNamedAttributes& parameters,
                IParserElementHandler* handler) = 0;

    /// How many replays are inside each other now; one that waits does not count.
    virtual int GetInstancesCount() const = 0;

    virtual ~IParsedTemplate() = default;
};

/// The templates of a document by their ids.
class IParsedTemplatesMap : public virtual Serialization::ISerializable {
public:
    /// Null for an unknown id. The map keeps it.
    virtual IParsedTemplate* Get(const char* name) const = 0;

    /// The same, out of the map; the caller owns it.
    virtual IParsedTemplate* Detach(const char* name) = 0;
};

} // namespace Vorin::AppEngine
