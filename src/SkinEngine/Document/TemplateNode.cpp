#include "SkinEngine/Document/TemplateNode.h"

#include "SkinEngine/Document/VariableSubstitution.h"
#include "serialization/DataStream.h"
#include "serialization/ItemName.h"
#include "serialization/ItemSerialization.h"
#include "serialization/NamedAttributesSerializers.h"

namespace Vorin::AppEngine {

using Containers::CNamedAttributes;
using Containers::IConstNamedAttributes;

namespace {

/// Says that a node is the place for the inner content; other nodes have no such value.
constexpr const char* kInnerContentKey = "innerContent";

/// A node of either kind, read by what stands in the stream.
class CReadNode : public virtual Serialization::IDeSerialize {
public:
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        bool isContent = false;
        node = stream.ReadBool(kInnerContentKey, isContent) && isContent
                   ? std::make_unique<CTemplateContentNode>()
                   : std::make_unique<CTemplateNode>();
        return node->DeSerialize(stream);
    }
    std::unique_ptr<CTemplateNode> node;
};

/// Waits for the content of the instantiating element, once.
class CParsedTemplateContentNodeInstance : public CParsedTemplateNodeInstance {
public:
    using CParsedTemplateNodeInstance::CParsedTemplateNodeInstance;
    bool Run(const CTemplateParameters& /*parameters*/) override { return true; }
};

/// Replaces what the parameters know, in every value. Values without a reference cost a look.
void FillIn(CNamedAttributes& attributes, const CTemplateParameters& parameters) {
    std::string name;
    std::string result;
    const auto find = [&](std::string_view reference) {
        name = reference;
        return parameters.Find(name.c_str());
    };
    attributes.ForEachValue([&](Containers::CCharString& value) {
        if (SubstituteVariables(value.Get(), result, find)) {
            value = result.c_str();
        }
    });
}

} // namespace

/// The replay of a whole template.
class CParsedTemplateRootNodeInstance : public CParsedTemplateNodeInstance,
                                        public IParsedTemplateInstance {
public:
    CParsedTemplateRootNodeInstance(const CTemplateRootNode& replayedRoot,
                                    const IConstNamedAttributes& given,
                                    IParserElementHandler* receiver)
        : CParsedTemplateNodeInstance(replayedRoot, receiver),
          parameters(given, replayedRoot.attributes) {}

    bool Resume() override { return RunChildren(parameters); }

private:
    const CTemplateParameters parameters;
};

bool CParsedTemplateNodeInstance::Run(const CTemplateParameters& parameters) {
    if (!isStarted) {
        Start(parameters);
    }
    if (!RunChildren(parameters)) {
        return false;
    }
    handler->SetElementPlace(node.place);
    handler->OnElementEnd(node.name.c_str());
    return true;
}

bool CParsedTemplateNodeInstance::RunChildren(const CTemplateParameters& parameters) {
    if (pausedChild) {
        if (!pausedChild->Run(parameters)) {
            return false;
        }
        pausedChild.reset();
    }
    while (nextChild < node.children.size() && !handler->IsStopped()) {
        const CTemplateNode& child = *node.children[nextChild++];
        pausedChild.reset(child.CreateInstance(parameters, handler));
        if (pausedChild) {
            return false;
        }
    }
    return true;
}

void CParsedTemplateNodeInstance::Start(const CTemplateParameters& parameters) {
    isStarted = true;
    CNamedAttributes attributes(node.attributes);
    FillIn(attributes, parameters);
    handler->SetElementPlace(node.place);
    // A failing element does not end the replay.
    static_cast<void>(handler->OnElementStart(node.name.c_str(), attributes));
}

CTemplateNode::CTemplateNode(const char* elementName, const IConstNamedAttributes& given,
                             const Core::CDocumentPlace& elementPlace)
    : name(elementName), place(elementPlace) {
    attributes.Set(given);
}

bool CTemplateNode::Serialize(Serialization::IWriteDataStream& stream) const {
    bool done =
        stream.WriteString("name", name.c_str()) &&
        stream.WriteObject("attributes", Serialization::CNamedAttributesSerializer(attributes)) &&
        (!IsInnerContent() || stream.WriteBool(kInnerContentKey, true)) &&
        stream.WriteInt("childrenCount", static_cast<int>(children.size()));
    for (std::size_t i = 0; done && i < children.size(); ++i) {
        done = stream.WriteObject(Serialization::ItemName("child", static_cast<int>(i)).Get(),
                                  *children[i]);
    }
    return done;
}

CParsedTemplateNodeInstance* CTemplateNode::CreateInstance(const CTemplateParameters& parameters,
                                                           IParserElementHandler* handler) const {
    auto instance = std::make_unique<CParsedTemplateNodeInstance>(*this, handler);
    return instance->Run(parameters) ? nullptr : instance.release();
}

bool CTemplateNode::DeSerialize(const Serialization::IReadDataStream& stream) {
    Containers::CCharString readName;
    CNamedAttributes readAttributes;
    Serialization::CNamedAttributesDeSerializer attributesReader(readAttributes);
    int count = 0;
    if (!Serialization::ReadItem(stream, "name", readName) ||
        !stream.ReadObject("attributes", attributesReader) ||
        !stream.ReadInt("childrenCount", count) || count < 0 ||
        count > Serialization::kMaximumItems) {
        return false;
    }
    std::vector<std::unique_ptr<CTemplateNode>> readChildren;
    for (int i = 0; i < count; ++i) {
        CReadNode child;
        if (!stream.ReadObject(Serialization::ItemName("child", i).Get(), child)) {
            return false;
        }
        readChildren.push_back(std::move(child.node));
    }
    name = readName.Get();
    attributes.Set(readAttributes);
    children.swap(readChildren);
    return true;
}

CParsedTemplateNodeInstance*
CTemplateContentNode::CreateInstance(const CTemplateParameters& /*parameters*/,
                                     IParserElementHandler* handler) const {
    return new CParsedTemplateContentNodeInstance(*this, handler);
}

CTemplateRootNode::CTemplateRootNode(const IConstNamedAttributes& given,
                                     const Core::CDocumentPlace& elementPlace)
    : CTemplateNode("", given, elementPlace) {
    attributes.Remove("id");
}

IParsedTemplateInstance* CTemplateRootNode::Instantiate(const IConstNamedAttributes& parameters,
                                                        IParserElementHandler* handler) {
    auto instance = std::make_unique<CParsedTemplateRootNodeInstance>(*this, parameters, handler);
    ++instancesCount;
    const bool isFinished = instance->Resume();
    --instancesCount;
    return isFinished ? nullptr : instance.release();
}

} // namespace Vorin::AppEngine
