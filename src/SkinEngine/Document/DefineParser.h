#pragma once

#include "SkinEngine/Document/NameMap.h"
#include "containers/NamedAttributes.h"
#include "core/MessageLog.h"
#include "serialization/Serializable.h"

namespace Vorin::AppEngine {

/// The definitions of a document: names of elements that stand for another one, its base type, with
/// attributes of their own. [gui]
class CDefineParser : public virtual Serialization::ISerializable {
public:
    explicit CDefineParser(Core::IMessageLog* messageLog) : log(messageLog) {}

    bool Serialize(Serialization::IWriteDataStream& stream) const override;

    /// Takes what "DEFINE" holds for `name`. One that stands is replaced, with a warning.
    virtual void Define(const char* name, const Containers::IConstNamedAttributes& attributes);

    /// On failure, what stood before stays.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

    /// Checks and stores. False, and nothing stored, for a definition without a base type of
    /// another name.
    virtual bool AddDefinition(const char* name,
                               const Containers::IConstNamedAttributes& attributes);

    void Clear() { definitions.clear(); }
    bool IsEmpty() const { return definitions.empty(); }

    /// Sets each attribute of the definition that `attributes` does not have. False for an unknown
    /// name.
    bool ExpandElement(const char* name, Containers::INamedAttributes& attributes) const;

    /// Null for an unknown name. Valid until the definitions change.
    const char* GetBaseType(const char* name) const;

    /// Does nothing for an unknown name.
    void Undefine(const char* name);

private:
    void LogMessage(Core::EMessageType type, const std::string& text);

    TNameMap<Containers::CNamedAttributes> definitions;
    Core::IMessageLog* log;
};

} // namespace Vorin::AppEngine
