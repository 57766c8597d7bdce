#include "serialization/XmlDataObject.h"

namespace Vorin::Serialization {

CXmlDataObject::CXmlDataObject(const char* documentRootTag, EXmlMode documentMode)
    : CXmlBaseDataObject(nullptr, documentMode), rootTag(documentRootTag) {
    New();
}

bool CXmlDataObject::Take(bool isLoaded) {
    SetElement(GetRoot());
    return isLoaded;
}

bool CXmlDataObject::Parse(const void* data, int size) {
    return Take(ParseDocument(data, size, rootTag.Get()));
}

bool CXmlDataObject::LoadFile(const char* path) { return Take(LoadDocument(path, rootTag.Get())); }

bool CXmlDataObject::New() { return Take(NewDocument(rootTag.Get())); }

} // namespace Vorin::Serialization
