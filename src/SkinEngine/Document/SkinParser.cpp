// The document as a stream: files, places, limits, and the way of an element to its handler. The
// elements of the preprocessor are in Preprocessor.cpp.
#include "SkinEngine/Document/SkinParser.h"

#include "SkinEngine/Document/FilePaths.h"
#include "SkinEngine/Document/SkinFile.h"
#include "SkinEngine/Document/SkinLimits.h"
#include "SkinEngine/Document/StartTagLines.h"
#include "SkinEngine/Document/XMLNamedAttributes.h"
#include "SkinEngine/Document/XMLReading.h"
#include "serialization/DataStream.h"
#include "serialization/ItemSerialization.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include <unistd.h>

#include <new>
#include <optional>
#include <string_view>
#include <utility>

namespace Vorin::AppEngine {

using Containers::CNamedAttributes;
using Containers::IConstNamedAttributes;
using Core::CDocumentPlace;

namespace {

/// Leaves the XML reader; caught where the reader was called.
struct CStopReading {};

/// Keeps a variable of the parser over the reading of a file inside another one.
template <class T>
class TSaved {
public:
    TSaved(T& savedVariable, T newValue)
        : variable(savedVariable), saved(std::exchange(savedVariable, std::move(newValue))) {}
    ~TSaved() { variable = std::move(saved); }

    TSaved(const TSaved&) = delete;
    TSaved& operator=(const TSaved&) = delete;

private:
    T& variable;
    T saved;
};

} // namespace

struct CSkinParser::COpenFile {
    COpenFile(std::string_view content, const COpenFile* includer)
        : startTags(content), level(includer ? includer->level + 1 : 0) {}

    CStartTagLines startTags;
    const int level;            // 0 for the root document
    std::vector<int> openLines; // of the elements that are open in it
    int elements = 0;
    const xercesc::Locator* locator = nullptr;
};

CSkinParser::CSkinParser(Core::IMessageLog* messageLog)
    : log(messageLog), defines(messageLog),
      templates("TEMPLATE", "TEMPLATE_INNER_CONTENT", messageLog),
      repeat("REPEAT", nullptr, messageLog) {}

CSkinParser::~CSkinParser() = default;

void CSkinParser::ResetHandlers() {
    startHandlers.clear();
    endHandlers.clear();
    RegisterPreprocessor();
}

void CSkinParser::SetRootElement(const char* name) { rootElementName = name ? name : ""; }

bool CSkinParser::RegisterStartHandler(const char* name, CStartHandler* handler) {
    std::unique_ptr<CStartHandler> owned(handler);
    if (!name) {
        return false;
    }
    startHandlers[name] = std::move(owned);
    return true;
}

bool CSkinParser::RegisterEndHandler(const char* name, CEndHandler* handler) {
    std::unique_ptr<CEndHandler> owned(handler);
    if (!name) {
        return false;
    }
    endHandlers[name] = std::move(owned);
    return true;
}

void CSkinParser::AddVariable(const char* name, const char* value) {
    if (name && value) {
        variables[name] = value;
    }
}

bool CSkinParser::Parse(const char* path) {
    const CNumericLocaleScope numericLocale;
    // To initialise it takes longer than to read a small document, and there are several passes.
    if (!library || !library->IsReady()) {
        library = std::make_unique<CXMLLibraryUse>();
    }
    const CDocumentPlace placeBefore = log ? log->GetPlace() : CDocumentPlace();
    TNameMap<std::string> given = std::move(variables);
    Clear();
    variables = std::move(given);
    bool result = false;
    if (library->IsReady()) {
        const std::string rootFile = NormalizePath(path ? path : "");
        rootFilePath = GetFolder(rootFile);
        result = ParseFile(rootFile);
    } else {
        LogMessage(Core::kErrorMessage, "Unknown internal error");
    }
    Clear();
    if (log) {
        log->SetPlace(placeBefore);
    }
    return result;
}

void CSkinParser::Clear() {
    templateInstances.clear(); // before the templates that they replay
    defines.Clear();
    templates.Clear();
    repeat.Clear();
    repeatCount = repeatStart = 0;
    repeatIndexList.clear();
    repeatIndexName.clear();
    repeating = inDefine = inUndefine = inTemplate = rootSeen = false;
    recorder.reset();
    recordTag = nullptr;
    variables.clear();
    localVariables.clear();
    refusedElements.clear();
    includedOnce.clear();
    rootFilePath.clear();
    success = true;
    depth = defineNesting = recordDepth = 0;
    place = call = CDocumentPlace();
    stopped = false;
    budget.Reset();
}

bool CSkinParser::CheckFile(const std::string& path) {
    const auto known = fileChecks.find(path);
    const int result = known != fileChecks.end() ? known->second : ::access(path.c_str(), F_OK);
    if (known == fileChecks.end()) {
        fileChecks.emplace(path, result);
    }
    return result == 0;
}

bool CSkinParser::ParseFile(const std::string& path) {
    if (file && file->level == SkinLimits::kIncludesNested) {
        return Stop(path + ": included files are nested deeper than " +
                    std::to_string(SkinLimits::kIncludesNested) +
                    "; look for a file that includes itself, or use INCLUDE_ONCE");
    }
    const TSaved savedFile(currentFile, NormalizePath(path));
    const TSaved savedName(
        fileName, std::make_shared<const std::string>(GetRelativePath(currentFile, rootFilePath)));
    // What cannot be opened is the fault of the element that names it; only for the root document
    // is there none.
    if (!file) {
        StandAt(CDocumentPlace(fileName, 0));
    }
    if (!CheckFile(currentFile)) {
        LogMessage(Core::kErrorMessage, currentFile + ": file does not exist");
        return false;
    }
    std::string content;
    std::string problem;
    if (file && !Within(budget.TakeElements(SkinLimits::kFileCost))) {
        return false;
    }
    if (!ReadSkinFile(currentFile, content, problem)) {
        return Fail(currentFile + ": " + problem);
    }
    if (!Within(budget.TakeFile(currentFile, content.size()))) {
        return false;
    }
    const CDocumentPlace includedFrom = place;
    bool result = false;
    const char* invalid = nullptr;
    if (const int line = FindInvalidByte(content, invalid); line > 0) {
        LogReaderMessage(Core::kErrorMessage, "Fatal error line ", line, invalid);
        success = false;
    } else {
        result = ReadFile(currentFile, content);
    }
    StandAt(includedFrom);
    return result;
}

bool CSkinParser::ReadFile(const std::string& path, const std::string& content) {
    COpenFile opened(content, file);
    const TSaved savedFile(file, &opened);
    const TSaved savedCall(call, CDocumentPlace());
    try {
        const std::unique_ptr<xercesc::SAX2XMLReader> reader = CreateXMLReader(*this, [this] {
            StandAt(CDocumentPlace(fileName, GetReaderLine())); // past the head of the DOCTYPE
            Stop("a DOCTYPE is not allowed in a skin; remove it, and write out its entities");
            throw CStopReading();
        });
        const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(content.data()),
                                                content.size(), path.c_str());
        reader->parse(source);
        return success;
    } catch (const CStopReading&) {
        return false; // and the log says why
    } catch (const xercesc::OutOfMemoryException&) {
        return Fail("Out of memory");
    } catch (const std::bad_alloc&) {
        return Fail("Out of memory");
    } catch (...) {
        return Fail("Internal error");
    }
}

// -- What the XML reader sends -------------------------------------------------------------------

void CSkinParser::setDocumentLocator(const xercesc::Locator* documentLocator) {
    file->locator = documentLocator;
}

int CSkinParser::GetReaderLine() const {
    return file && file->locator ? static_cast<int>(file->locator->getLineNumber()) : 0;
}

void CSkinParser::startElement(const XMLCh* /*uri*/, const XMLCh* /*localName*/,
                               const XMLCh* qualifiedName,
                               const xercesc::Attributes& readAttributes) {
    const int begin = file->startTags.Next();
    const int line = begin > 0 ? begin : GetReaderLine();
    file->openLines.push_back(line);
    StandAt(CDocumentPlace(fileName, line));
    TranscodeXMLText(qualifiedName, currentElementName);
    const XMLSize_t count = readAttributes.getLength();
    if (count > static_cast<XMLSize_t>(SkinLimits::kAttributes)) {
        Stop(currentElementName + ": " +
             CSkinBudget::TooMany("more attributes", SkinLimits::kAttributes));
    } else if (static_cast<int>(file->openLines.size()) > SkinLimits::kFileDepth) {
        Stop(currentElementName + ": " +
             CSkinBudget::TooMany("elements of a file are nested deeper", SkinLimits::kFileDepth));
    } else if (++file->elements > SkinLimits::kFileElements) {
        Stop(CSkinBudget::TooMany("the file holds more elements", SkinLimits::kFileElements) +
             "; split it into several files");
    } else {
        CXMLNamedAttributes attributes;
        for (XMLSize_t i = 0; i < count; ++i) {
            attributes.AddXMLAttribute(readAttributes.getQName(i), readAttributes.getValue(i));
        }
        // The name may change under way, as one element brings in others.
        const std::string name = currentElementName;
        static_cast<void>(OnElementStart(name.c_str(), attributes));
    }
    if (stopped) {
        throw CStopReading();
    }
}

void CSkinParser::endElement(const XMLCh* /*uri*/, const XMLCh* /*localName*/,
                             const XMLCh* qualifiedName) {
    StandAt(CDocumentPlace(fileName, file->openLines.back()));
    file->openLines.pop_back();
    TranscodeXMLText(qualifiedName, currentElementName);
    const std::string name = currentElementName;
    static_cast<void>(OnElementEnd(name.c_str()));
    if (stopped) {
        throw CStopReading();
    }
}

void CSkinParser::warning(const xercesc::SAXParseException& exception) {
    LogReaderMessage(Core::kWarningMessage, "", exception);
}

void CSkinParser::error(const xercesc::SAXParseException& exception) {
    LogReaderMessage(Core::kErrorMessage, "line ", exception);
    success = false;
}

void CSkinParser::fatalError(const xercesc::SAXParseException& exception) {
    LogReaderMessage(Core::kErrorMessage, "Fatal error line ", exception);
    success = false;
}

void CSkinParser::LogReaderMessage(Core::EMessageType type, const char* prefix,
                                   const xercesc::SAXParseException& exception) {
    std::string message;
    if (exception.getMessage()) {
        TranscodeXMLText(exception.getMessage(), message);
    }
    LogReaderMessage(type, prefix, static_cast<int>(exception.getLineNumber()), message);
}

void CSkinParser::LogReaderMessage(Core::EMessageType type, const char* prefix, int line,
                                   const std::string& message) {
    StandAt(CDocumentPlace(fileName, line));
    LogMessage(type, prefix + std::to_string(line) + ": " + message + " (" + *fileName + ")");
}

// -- Places and messages -------------------------------------------------------------------------

void CSkinParser::StandAt(const CDocumentPlace& newPlace) {
    place = newPlace;
    if (log) {
        log->SetPlace(place);
    }
}

void CSkinParser::SetElementPlace(const CDocumentPlace& elementPlace) {
    StandAt(call.IsNowhere() ? elementPlace : elementPlace.CalledFrom(call));
}

void CSkinParser::LogMessage(Core::EMessageType type, const std::string& text) {
    if (log) {
        log->Log(type, text.c_str(), 0);
    }
}

bool CSkinParser::Fail(const std::string& text) {
    LogMessage(Core::kErrorMessage, text);
    success = false;
    return false;
}

bool CSkinParser::Stop(const std::string& text) {
    if (!stopped) {
        stopped = true;
        Fail(text);
    }
    return false;
}

bool CSkinParser::Within(const std::string& problem) { return problem.empty() || Stop(problem); }

// -- The way of an element -----------------------------------------------------------------------

bool CSkinParser::OnElementStart(const char* name, IConstNamedAttributes& attributes) {
    if (stopped || !Within(budget.TakeElements(1)) || !Within(budget.EnterLevel())) {
        return false;
    }
    if (auto* own = dynamic_cast<CNamedAttributes*>(&attributes)) {
        return Deliver(name, *own);
    }
    CNamedAttributes copy;
    copy.Set(attributes);
    return Deliver(name, copy);
}

bool CSkinParser::Deliver(const char* name, CNamedAttributes& attributes) {
    if (!Within(budget.TakeTexts(name, attributes))) {
        return false;
    }
    if (repeating) {
        repeat.SetElementPlace(place);
        repeat.OnElementStart(name, attributes);
        return true;
    }
    if (inDefine) {
        return Define(name, attributes);
    }
    if (inTemplate) {
        templates.SetElementPlace(place);
        templates.OnElementStart(name, attributes);
        return true;
    }
    if (inUndefine) {
        ++depth;
        ++defineNesting;
        defines.Undefine(name);
        return true;
    }
    // An element may be defined by another one that is defined too.
    std::string expanded;
    for (int chained = 0; CheckRoot(name); ++chained) {
        if (!defines.ExpandElement(name, attributes)) {
            return DeliverExpanded(name, attributes);
        }
        if (!Within(budget.TakeTexts(name, attributes))) {
            return false;
        }
        if (chained == SkinLimits::kDefinitionsChained) {
            return Stop(std::string(name) + ": definitions stand on each other " +
                        CSkinBudget::TooMany("deeper", SkinLimits::kDefinitionsChained) +
                        "; look for two with each other as base_type");
        }
        expanded = defines.GetBaseType(name);
        name = expanded.c_str();
    }
    refusedElements.push_back(budget.GetDepth()); // so that its end is refused too
    return false;
}

bool CSkinParser::Define(const char* name, CNamedAttributes& attributes) {
    ++depth;
    ++defineNesting;
    if (startHandlers.contains(std::string_view(name))) {
        return Fail(std::string(name) + ": you cannot redefine reserved elements. Please choose "
                                        "another name for your definition");
    }
    Substitute(attributes);
    defines.Define(name, attributes);
    return true;
}

bool CSkinParser::CheckRoot(const char* name) {
    if (rootElementName.empty()) {
        return true;
    }
    const bool isRootName = name == rootElementName;
    if (!std::exchange(rootSeen, true)) {
        return isRootName || Fail("Invalid file: root element must be '" + rootElementName + "'");
    }
    return !isRootName ||
           Fail("Invalid file: '" + rootElementName + "' is reserved for root element");
}

bool CSkinParser::DeliverExpanded(const char* name, CNamedAttributes& attributes) {
    Substitute(attributes);
    if (!templates.IsEmpty()) {
        if (IParsedTemplate* called = templates.GetTemplates().Get(name)) {
            return CallTemplate(*called, name, attributes);
        }
    }
    if (recorder && recordDepth >= 0) {
        ++recordDepth;
        recorder->SetElementPlace(place);
        recorder->OnElementStart(name, attributes);
        return true;
    }
    ++depth;
    const auto handler = startHandlers.find(std::string_view(name));
    if (handler == startHandlers.end()) {
        LogMessage(Core::kInfoMessage, "Skipping '" + std::string(name) + "': unknown tag");
        return true;
    }
    currentElementName = name;
    const bool result = handler->second->Execute(attributes);
    success = success && result;
    return result;
}

bool CSkinParser::CallTemplate(IParsedTemplate& called, const char* name,
                               CNamedAttributes& attributes) {
    constexpr int kMaximumInstances = 255;
    if (called.GetInstancesCount() > kMaximumInstances) {
        LogMessage(Core::kWarningMessage,
                   "Recursion detected: '" + std::string(name) +
                       " has been recursively instantiated more than 256 times.");
        success = false;
        templateInstances.push_back({});
        return false;
    }
    const CDocumentPlace callPlace = call.IsNowhere() ? place : call;
    std::unique_ptr<IParsedTemplateInstance> instance;
    {
        const TSaved savedCall(call, callPlace);
        ++depth;
        instance.reset(called.Instantiate(attributes, this));
        --depth;
    }
    DropLocalVariables();
    templateInstances.push_back({std::move(instance), callPlace});
    return true;
}

bool CSkinParser::OnElementEnd(const char* name) {
    if (stopped) {
        return false;
    }
    const int level = budget.GetDepth();
    budget.LeaveLevel();
    if (!refusedElements.empty() && refusedElements.back() == level) {
        refusedElements.pop_back();
        return true;
    }
    return DeliverEnd(name);
}

bool CSkinParser::DeliverEnd(const char* name) {
    // Not so the end of a template call whose content is being repeated: it was called before.
    if (repeating && repeat.IsElementOpen(name)) {
        repeat.OnElementEnd(name);
        return true;
    }
    if (inTemplate && !templates.IsOutermostEnd(name)) {
        templates.OnElementEnd(name);
        return true;
    }
    // What "DEFINE" holds has no end of its own.
    if (defineNesting > 0) {
        --defineNesting;
        --depth;
        DropLocalVariables();
        return true;
    }
    std::string expanded;
    for (int chained = 0; const char* base = defines.GetBaseType(name); ++chained) {
        if (chained == SkinLimits::kDefinitionsChained) {
            break;
        }
        expanded = base;
        name = expanded.c_str();
    }
    // A template in the making may already have the name of the element that it is made with.
    const bool isMaking = inTemplate && std::string_view(name) == "TEMPLATE";
    if (!isMaking && !templates.IsEmpty() && templates.GetTemplates().Get(name)) {
        ReturnToTemplate();
        return true;
    }
    if (recorder && recordDepth > 0) {
        --recordDepth;
        recorder->OnElementEnd(name);
        return true;
    }
    const bool result = CallEndHandler(name);
    --depth;
    DropLocalVariables();
    success = success && result;
    return result;
}

void CSkinParser::ReturnToTemplate() {
    if (templateInstances.empty()) {
        return;
    }
    CTemplateCall returned = std::move(templateInstances.back());
    templateInstances.pop_back();
    if (returned.instance) {
        const TSaved savedCall(call, returned.place);
        // The rest of the template is as deep as its beginning was; what was open around its inner
        // content ends now.
        if (Within(budget.EnterLevel())) {
            static_cast<void>(returned.instance->Resume());
        }
        budget.LeaveLevel();
    }
}

bool CSkinParser::CallEndHandler(const char* name) {
    const auto handler = endHandlers.find(std::string_view(name));
    if (handler == endHandlers.end()) {
        return true;
    }
    currentElementName = name;
    return handler->second->Execute();
}

// -- Recording -----------------------------------------------------------------------------------

void CSkinParser::StartRecording(void* tag) {
    if (recorder) {
        return;
    }
    recorder = std::make_unique<CTemplateParser>(nullptr, nullptr, nullptr);
    recorder->SetElementPlace(place);
    CNamedAttributes attributes;
    attributes.SetValue("id", "RecordedContent");
    static_cast<void>(recorder->OnTemplateStart(attributes));
    recordTag = tag;
    recordDepth = 0;
}

IParsedTemplate* CSkinParser::StopRecording(void** tag) {
    if (tag) {
        *tag = recordTag;
    }
    recordTag = nullptr;
    const std::unique_ptr<CTemplateParser> finished = std::move(recorder);
    if (!finished) {
        return nullptr;
    }
    static_cast<void>(finished->OnTemplateEnd());
    return finished->GetTemplates().Detach("RecordedContent");
}

// -- What later parsing needs --------------------------------------------------------------------

bool CSkinParser::CPublicState::Serialize(Serialization::IWriteDataStream& stream) const {
    return stream.WriteString("rootFilePath", parser.rootFilePath.c_str()) &&
           stream.WriteString("currentFile", parser.currentFile.c_str());
}

bool CSkinParser::CPublicState::DeSerialize(const Serialization::IReadDataStream& stream) {
    Containers::CCharString root;
    Containers::CCharString file;
    if (!Serialization::ReadItem(stream, "rootFilePath", root) ||
        !Serialization::ReadItem(stream, "currentFile", file)) {
        return false;
    }
    parser.rootFilePath = root.Get();
    parser.currentFile = file.Get();
    return true;
}

} // namespace Vorin::AppEngine
