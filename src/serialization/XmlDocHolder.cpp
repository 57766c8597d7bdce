#include "serialization/XmlDocHolder.h"

#include "serialization/KeyText.h"
#include "serialization/Limits.h"
#include "serialization/TextFile.h"
#include "serialization/XmlText.h"

#include <cstddef>
#include <cstring>

#include <tinyxml2.h>

namespace Vorin::Serialization {

namespace {

/// The library's printer with our own escapes: its own would lose white space. Counts what a reader
/// limits.
class CPrinter final : public tinyxml2::XMLPrinter {
public:
    using tinyxml2::XMLPrinter::Visit;
    using tinyxml2::XMLPrinter::VisitEnter;
    using tinyxml2::XMLPrinter::VisitExit;

    bool VisitEnter(const tinyxml2::XMLElement& element,
                    const tinyxml2::XMLAttribute* attribute) override {
        ++elements;
        ++depth;
        isTooLarge |= elements > kMaximumElements || depth > kMaximumDepth;
        OpenElement(element.Name());
        for (; attribute; attribute = attribute->Next()) {
            escaped.clear();
            AppendXmlAttribute(escaped, attribute->Value());
            Putc(' ');
            Write(attribute->Name(), std::strlen(attribute->Name()));
            Write("=\"", 2);
            Write(escaped.data(), escaped.size());
            Putc('"');
        }
        return !isTooLarge;
    }

    bool VisitExit(const tinyxml2::XMLElement& element) override {
        --depth;
        return tinyxml2::XMLPrinter::VisitExit(element);
    }

    bool Visit(const tinyxml2::XMLText& text) override {
        PushText(""); // closes the tag and keeps the text free of indents
        escaped.clear();
        AppendXmlContent(escaped, text.Value());
        Write(escaped.data(), escaped.size());
        return true;
    }

    bool IsTooLarge() const { return isTooLarge; }

private:
    std::string escaped;
    int elements = 0;
    int depth = 0;
    bool isTooLarge = false;
};

} // namespace

CXmlDocHolder::CXmlDocHolder() = default;
CXmlDocHolder::~CXmlDocHolder() = default;

bool CXmlDocHolder::ParseDocument(const void* data, int size, const char* rootTag) {
    root = nullptr;
    document.reset();
    const char* text = static_cast<const char*>(data);
    if (size <= 0 || !IsAcceptableXml(text, static_cast<std::size_t>(size))) {
        return false;
    }
    auto parsed = std::make_unique<tinyxml2::XMLDocument>();
    if (parsed->Parse(text, static_cast<std::size_t>(size)) != tinyxml2::XML_SUCCESS) {
        return false;
    }
    tinyxml2::XMLElement* found = parsed->RootElement();
    if (!found ||
        (rootTag && std::strcmp(found->Name(), CKeyText(rootTag, kXmlNameKey).Get()) != 0)) {
        return false;
    }
    document = std::move(parsed);
    root = found;
    return true;
}

bool CXmlDocHolder::LoadDocument(const char* path, const char* rootTag) {
    std::string text;
    if (!ReadTextFile(path, text)) {
        root = nullptr;
        document.reset();
        return false;
    }
    return ParseDocument(text.data(), static_cast<int>(text.size()), rootTag);
}

bool CXmlDocHolder::NewDocument(const char* rootTag) {
    root = nullptr;
    document.reset();
    if (!rootTag) {
        return false;
    }
    document = std::make_unique<tinyxml2::XMLDocument>();
    document->InsertEndChild(document->NewDeclaration("xml version=\"1.0\" encoding=\"utf-8\""));
    root = document->NewElement(CKeyText(rootTag, kXmlNameKey).Get());
    document->InsertEndChild(root);
    return true;
}

bool CXmlDocHolder::Print(std::string& text) const {
    if (!root) {
        return false;
    }
    CPrinter printer;
    document->Accept(&printer);
    if (printer.IsTooLarge() || printer.CStrSize() > kMaximumDocumentBytes + 1) {
        return false;
    }
    text.assign(printer.CStr(), static_cast<std::size_t>(printer.CStrSize()) - 1);
    return true;
}

bool CXmlDocHolder::SaveFile(const char* path) const {
    std::string text;
    return Print(text) && WriteTextFile(path, text);
}

bool CXmlDocHolder::SaveString(Containers::CCharString& text) const {
    std::string printed;
    if (!Print(printed)) {
        return false;
    }
    text = printed.c_str();
    return true;
}

} // namespace Vorin::Serialization
