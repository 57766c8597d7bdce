#include "SkinEngine/Document/TemplateParser.h"

#include "SkinEngine/Document/NamedItems.h"

namespace Vorin::AppEngine {

using Containers::IConstNamedAttributes;

bool CTemplateParser::CTemplatesMap::Serialize(Serialization::IWriteDataStream& stream) const {
    return WriteNamedItems(
        stream, templates,
        [](const std::unique_ptr<CTemplateRootNode>& root) -> const Serialization::ISerialize& {
            return *root;
        });
}

bool CTemplateParser::CTemplatesMap::DeSerialize(const Serialization::IReadDataStream& stream) {
    TNameMap<std::unique_ptr<CTemplateRootNode>> read;
    const bool isRead = ReadNamedItems(
        stream, read, [](std::unique_ptr<CTemplateRootNode>& root) -> Serialization::IDeSerialize& {
            root = std::make_unique<CTemplateRootNode>();
            return *root;
        });
    if (isRead) {
        templates.swap(read);
    }
    return isRead;
}

IParsedTemplate* CTemplateParser::CTemplatesMap::Get(const char* name) const {
    const auto found = templates.find(std::string_view(name));
    return found == templates.end() ? nullptr : found->second.get();
}

IParsedTemplate* CTemplateParser::CTemplatesMap::Detach(const char* name) {
    const auto found = templates.find(std::string_view(name));
    if (found == templates.end()) {
        return nullptr;
    }
    IParsedTemplate* detached = found->second.release();
    templates.erase(found);
    return detached;
}

CTemplateRootNode& CTemplateParser::CTemplatesMap::Add(const char* name,
                                                       std::unique_ptr<CTemplateRootNode> root) {
    return *(templates[name] = std::move(root));
}

CTemplateParser::CTemplateParser(const char* rootTagName, const char* innerTagName,
                                 Core::IMessageLog* messageLog)
    : log(messageLog), rootTag(rootTagName ? rootTagName : ""),
      innerTag(innerTagName ? innerTagName : "") {}

bool CTemplateParser::OnTemplateStart(const IConstNamedAttributes& attributes) {
    const char* id = attributes.GetValue("id");
    if (!id) {
        LogMessage(Core::kErrorMessage, "id attribute missing in template definition.");
        return false;
    }
    if (map.Get(id)) {
        LogMessage(Core::kErrorMessage,
                   std::string("'") + id + "': " + "template already defined.");
        return false;
    }
    AddTemplate(id, attributes);
    return true;
}

bool CTemplateParser::OnTemplateEnd() {
    if (!nodeStack.empty()) {
        nodeStack.pop_back();
    }
    innerContentSeen = false;
    return true;
}

void CTemplateParser::OnElementStart(const char* name, const IConstNamedAttributes& attributes) {
    if (!rootTag.empty() && name == rootTag) {
        ++nesting;
    }
    if (nodeStack.empty()) {
        return;
    }
    const bool isInner = !innerTag.empty() && name == innerTag && nesting == 0;
    if (isInner && innerContentSeen) {
        LogMessage(Core::kWarningMessage,
                   innerTag + ": cannot be used multiple times within a TEMPLATE");
    }
    std::unique_ptr<CTemplateNode> node;
    if (isInner && !innerContentSeen) {
        innerContentSeen = true;
        node = std::make_unique<CTemplateContentNode>(name, attributes, place);
    } else {
        node = std::make_unique<CTemplateNode>(name, attributes, place);
    }
    CTemplateNode* added = node.get();
    nodeStack.back()->children.push_back(std::move(node));
    nodeStack.push_back(added);
}

void CTemplateParser::OnElementEnd(const char* name) {
    if (!nodeStack.empty()) {
        nodeStack.pop_back();
    }
    if (!rootTag.empty() && name == rootTag) {
        --nesting;
    }
}

void CTemplateParser::AddTemplate(const char* id, const IConstNamedAttributes& attributes) {
    nodeStack.push_back(&map.Add(id, std::make_unique<CTemplateRootNode>(attributes, place)));
}

void CTemplateParser::Clear() {
    nodeStack.clear();
    map.Clear();
    innerContentSeen = false;
    nesting = 0;
}

bool CTemplateParser::IsOutermostEnd(const char* name) const {
    return nodeStack.size() == 1 || (name == rootTag && nesting == 0);
}

void CTemplateParser::LogMessage(Core::EMessageType type, const std::string& text) {
    if (log) {
        log->Log(type, text.c_str(), 0);
    }
}

} // namespace Vorin::AppEngine
