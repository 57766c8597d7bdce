#include "SkinEngine/Document/DefineParser.h"

#include "SkinEngine/Document/NamedItems.h"
#include "serialization/NamedAttributesSerializers.h"

#include <cstring>

namespace Vorin::AppEngine {

using Containers::CNamedAttributes;
using Containers::IConstNamedAttributes;

namespace {

constexpr const char* kBaseType = "base_type";

} // namespace

bool CDefineParser::Serialize(Serialization::IWriteDataStream& stream) const {
    return WriteNamedItems(stream, definitions, [](const CNamedAttributes& attributes) {
        return Serialization::CNamedAttributesSerializer(attributes);
    });
}

bool CDefineParser::DeSerialize(const Serialization::IReadDataStream& stream) {
    TNameMap<CNamedAttributes> read;
    const bool isRead = ReadNamedItems(stream, read, [](CNamedAttributes& attributes) {
        return Serialization::CNamedAttributesDeSerializer(attributes);
    });
    if (isRead) {
        definitions.swap(read);
    }
    return isRead;
}

void CDefineParser::Define(const char* name, const IConstNamedAttributes& attributes) {
    const bool isReplaced = definitions.erase(name) > 0;
    AddDefinition(name, attributes);
    if (isReplaced) {
        LogMessage(Core::kWarningMessage, std::string(name) +
                                              ": this element has already been defined. The new "
                                              "definition overrides the previous one.");
    }
}

bool CDefineParser::AddDefinition(const char* name, const IConstNamedAttributes& attributes) {
    const char* base = attributes.GetValue(kBaseType);
    if (!base) {
        LogMessage(Core::kErrorMessage,
                   std::string(name) +
                       ": invalid definition, the mandatory 'base_type' attribute is not defined");
        return false;
    }
    if (std::strcmp(base, name) == 0) {
        LogMessage(Core::kErrorMessage,
                   std::string(name) +
                       ": base_type cannot be the same as the defined element name.");
        return false;
    }
    definitions[name].Set(attributes);
    return true;
}

bool CDefineParser::ExpandElement(const char* name,
                                  Containers::INamedAttributes& attributes) const {
    const auto found = definitions.find(std::string_view(name));
    if (found == definitions.end()) {
        return false;
    }
    found->second.ForEach([&attributes](const char* attribute, const char* value) {
        if (!attributes.GetValue(attribute)) {
            attributes.SetValue(attribute, value);
        }
    });
    return true;
}

const char* CDefineParser::GetBaseType(const char* name) const {
    const auto found = definitions.find(std::string_view(name));
    return found == definitions.end() ? nullptr : found->second.GetValue(kBaseType);
}

void CDefineParser::Undefine(const char* name) { definitions.erase(name); }

void CDefineParser::LogMessage(Core::EMessageType type, const std::string& text) {
    if (log) {
        log->Log(type, text.c_str(), 0);
    }
}

} // namespace Vorin::AppEngine
