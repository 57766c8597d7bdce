#pragma once

#include "containers/NamedAttributes.h"

#include <xercesc/util/XercesDefs.hpp>

#include <string>

namespace Vorin::AppEngine {

/// The attributes of an element as the XML reader gives it.
class CXMLNamedAttributes : public Containers::CNamedAttributes {
public:
    /// Sets an attribute, in UTF-8. A null name or value does nothing.
    virtual void AddXMLAttribute(const XMLCh* qualifiedName, const XMLCh* value);

private:
    std::string nameText;
    std::string valueText;
};

/// The text of the XML reader in UTF-8, into `text`, whose memory is used again.
void TranscodeXMLText(const XMLCh* source, std::string& text);

} // namespace Vorin::AppEngine
