#pragma once

#include "serialization/XmlBaseDataObject.h"
#include "serialization/XmlDocHolder.h"

namespace Vorin::Serialization {

/// A whole XML document as a data object: what state chunks, presets and settings are.
///
/// A new one is an empty document, ready to be written. A document that is refused (not well
/// formed, another root, over a limit, with a document type) leaves no root: until the next load
/// every read and write is false, so that the reader keeps its state.
class CXmlDataObject : public CXmlDocHolder, public CXmlBaseDataObject {
public:
    CXmlDataObject(const char* documentRootTag, EXmlMode documentMode);

    /// From a block of memory of UTF-8 text, without a final zero in `size`.
    bool Parse(const void* data, int size);
    bool LoadFile(const char* path);

    /// Back to the empty document.
    bool New();

private:
    bool Take(bool isLoaded);

    const Containers::CCharString rootTag;
};

} // namespace Vorin::Serialization
