#pragma once

#include "SkinEngine/Document/ParsedTemplate.h"
#include "containers/NamedAttributes.h"
#include "core/DocumentPlace.h"
#include "serialization/Serializable.h"

#include <memory>
#include <string>
#include <vector>

namespace Vorin::AppEngine {

class CTemplateNode;

/// What `$name$` stands for in one replay: what the call gives, over the defaults of the template.
class CTemplateParameters {
public:
    CTemplateParameters(const Containers::IConstNamedAttributes& givenParameters,
                        const Containers::CNamedAttributes& templateDefaults)
        : defaults(templateDefaults) {
        given.Set(givenParameters);
    }

    /// Null for an unknown name.
    const char* Find(const char* name) const {
        const char* value = given.GetValue(name);
        return value ? value : defaults.GetValue(name);
    }

private:
    Containers::CNamedAttributes given;
    const Containers::CNamedAttributes& defaults; // of the template, which outlives its replays
};

/// One element in the middle of a replay.
class CParsedTemplateNodeInstance {
public:
    CParsedTemplateNodeInstance(const CTemplateNode& replayedNode, IParserElementHandler* receiver)
        : handler(receiver), node(replayedNode) {}
    virtual ~CParsedTemplateNodeInstance() = default;

    CParsedTemplateNodeInstance(const CParsedTemplateNodeInstance&) = delete;
    CParsedTemplateNodeInstance& operator=(const CParsedTemplateNodeInstance&) = delete;

    /// Starts the element or goes on in it. True when it has ended; otherwise the replay waits
    /// somewhere inside for the inner content.
    virtual bool Run(const CTemplateParameters& parameters);

protected:
    /// The rest of the children, up to one that waits. False when one does.
    bool RunChildren(const CTemplateParameters& parameters);

    IParserElementHandler* handler;
    const CTemplateNode& node;

private:
    void Start(const CTemplateParameters& parameters);

    std::size_t nextChild = 0;
    bool isStarted = false;
    std::unique_ptr<CParsedTemplateNodeInstance> pausedChild;
};

/// An element of a template, with what it holds.
class CTemplateNode : public virtual Serialization::ISerializable {
public:
    CTemplateNode() = default;
    CTemplateNode(const char* elementName, const Containers::IConstNamedAttributes& given,
                  const Core::CDocumentPlace& elementPlace);

    bool Serialize(Serialization::IWriteDataStream& stream) const override;

    /// Replays the node. Null when that ran to its end, else what waits, for the caller to own.
    virtual CParsedTemplateNodeInstance* CreateInstance(const CTemplateParameters& parameters,
                                                        IParserElementHandler* handler) const;

    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

    std::string name;
    Containers::CNamedAttributes attributes;
    std::vector<std::unique_ptr<CTemplateNode>> children;
    Core::CDocumentPlace place;

protected:
    virtual bool IsInnerContent() const { return false; }
};

/// Where the content of the instantiating element goes.
class CTemplateContentNode : public CTemplateNode {
public:
    using CTemplateNode::CTemplateNode;

    /// Only waits.
    CParsedTemplateNodeInstance* CreateInstance(const CTemplateParameters& parameters,
                                                IParserElementHandler* handler) const override;

protected:
    bool IsInnerContent() const override { return true; }
};

/// A whole template. Emits no element of its own; its attributes are the defaults of the
/// parameters.
class CTemplateRootNode : public CTemplateNode, public IParsedTemplate {
public:
    CTemplateRootNode() = default;

    /// Takes the attributes of the "TEMPLATE" element but for its "id".
    CTemplateRootNode(const Containers::IConstNamedAttributes& given,
                      const Core::CDocumentPlace& elementPlace);

    IParsedTemplateInstance* Instantiate(const Containers::IConstNamedAttributes& parameters,
                                         IParserElementHandler* handler) override;
    int GetInstancesCount() const override { return instancesCount; }

private:
    int instancesCount = 0;
};

} // namespace Vorin::AppEngine
