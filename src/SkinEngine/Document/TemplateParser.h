#pragma once

#include "SkinEngine/Document/NameMap.h"
#include "SkinEngine/Document/TemplateNode.h"
#include "core/MessageLog.h"

#include <deque>
#include <memory>
#include <string>

namespace Vorin::AppEngine {

/// Records elements as templates. Whoever feeds it says where a template begins and ends; inside,
/// elements of the root tag may be nested and are recorded like all others. [gui]
class CTemplateParser {
public:
    /// The templates by id.
    class CTemplatesMap : public virtual IParsedTemplatesMap {
    public:
        bool Serialize(Serialization::IWriteDataStream& stream) const override;

        /// On failure, what stood before stays.
        bool DeSerialize(const Serialization::IReadDataStream& stream) override;

        IParsedTemplate* Get(const char* name) const override;
        IParsedTemplate* Detach(const char* name) override;

        bool IsEmpty() const { return templates.empty(); }
        void Clear() { templates.clear(); }
        CTemplateRootNode& Add(const char* name, std::unique_ptr<CTemplateRootNode> root);

    private:
        TNameMap<std::unique_ptr<CTemplateRootNode>> templates;
    };

    /// A null tag is no tag. The log may be null, and outlives the parser.
    CTemplateParser(const char* rootTagName, const char* innerTagName,
                    Core::IMessageLog* messageLog);
    virtual ~CTemplateParser() = default;

    CTemplateParser(const CTemplateParser&) = delete;
    CTemplateParser& operator=(const CTemplateParser&) = delete;

    /// Begins a template with the id and the defaults in `attributes`. Without an id, and with one
    /// that is taken, it fails and what follows is not recorded.
    virtual bool OnTemplateStart(const Containers::IConstNamedAttributes& attributes);
    virtual bool OnTemplateEnd();

    virtual void OnElementStart(const char* name,
                                const Containers::IConstNamedAttributes& attributes);
    virtual void OnElementEnd(const char* name);

    virtual void AddTemplate(const char* id, const Containers::IConstNamedAttributes& attributes);

    /// Removes the templates and what is being recorded.
    void Clear();

    IParsedTemplatesMap& GetTemplates() { return map; }
    bool IsEmpty() const { return map.IsEmpty(); }

    /// Where what is recorded next stands.
    void SetElementPlace(const Core::CDocumentPlace& elementPlace) { place = elementPlace; }

    /// Whether an end tag of that name is that of the element recorded last.
    bool IsElementOpen(const char* name) const {
        return nodeStack.size() > 1 && nodeStack.back()->name == name;
    }

    /// Whether an end tag of that name is that of the template itself.
    bool IsOutermostEnd(const char* name) const;

private:
    void LogMessage(Core::EMessageType type, const std::string& text);

    CTemplatesMap map;
    Core::IMessageLog* log;
    std::deque<CTemplateNode*> nodeStack; // they are in the map
    const std::string rootTag;
    const std::string innerTag;
    bool innerContentSeen = false;
    int nesting = 0;
    Core::CDocumentPlace place;
};

} // namespace Vorin::AppEngine
