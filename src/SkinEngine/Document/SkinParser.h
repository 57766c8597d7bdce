#pragma once

#include "SkinEngine/Document/DefineParser.h"
#include "SkinEngine/Document/NameMap.h"
#include "SkinEngine/Document/ParsedTemplate.h"
#include "SkinEngine/Document/ParserElementHandler.h"
#include "SkinEngine/Document/SkinBudget.h"
#include "SkinEngine/Document/TemplateParser.h"
#include "core/Command.h"
#include "core/MessageLog.h"

#include <xercesc/sax2/DefaultHandler.hpp>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Vorin::AppEngine {

class CXMLLibraryUse;

/// Runs the scripts of a document.
class IScriptEngine {
public:
    /// False when the script failed, which it has logged.
    virtual bool Run(const char* path, Core::IMessageLog* log) = 0;
    virtual ~IScriptEngine() = default;
};

/// Reads a skin document: an XML file and those it includes, as one stream of elements that go to
/// handlers registered by name. In between, the preprocessor: variables, definitions, templates,
/// repeats, includes. Handlers never see its elements, only what they expand to.
///
/// One pass is:
///  1. `ResetHandlers`, `SetRootElement`
///  2. `RegisterStartHandler`, `RegisterEndHandler`
///  3. `AddVariable`
///  4. `Parse`
///
/// The handlers stay for the next pass; variables, definitions and templates do not. A handler may
/// use the parser, but not `Parse` with it. Several parsers may run, each on its own thread. [gui]
///
/// The log's place follows the document: what a handler logs stands at its element, without a word
/// from the handler (`IMessageLog::GetPlace` to keep it for later). Replaying a template into the
/// parser, while nothing is parsed, does the same.
///
/// A parse that reaches a limit (SkinLimits.h) stops there: no further handler is called.
class CSkinParser : public xercesc::DefaultHandler, public virtual IParserElementHandler {
public:
    using CStartHandler = Core::TIArgReturnCommand<bool, const Containers::IConstNamedAttributes&>;
    using CEndHandler = Core::TIReturnCommand<bool>;

    /// What a document's content needs to be parsed later by another parser: the strings
    /// "rootFilePath" and "currentFile". Reading fails when one of them is missing.
    class CPublicState : public virtual Serialization::ISerializable {
    public:
        explicit CPublicState(CSkinParser& owner) : parser(owner) {}
        bool Serialize(Serialization::IWriteDataStream& stream) const override;
        bool DeSerialize(const Serialization::IReadDataStream& stream) override;

    private:
        CSkinParser& parser;
    };

    /// The log outlives the parser.
    explicit CSkinParser(Core::IMessageLog* messageLog);
    ~CSkinParser() override;

    CSkinParser(const CSkinParser&) = delete;
    CSkinParser& operator=(const CSkinParser&) = delete;

    /// Removes every handler but those of the preprocessor.
    void ResetHandlers();

    /// The name that the root element of the root document must have, and no other element may.
    /// Null or empty: any.
    void SetRootElement(const char* name);

    /// Takes over the handler, which replaces that of the same name. A null name destroys it and
    /// gives false.
    bool RegisterStartHandler(const char* name, CStartHandler* handler);
    bool RegisterEndHandler(const char* name, CEndHandler* handler);

    /// Sets a variable that the next pass begins with.
    void AddVariable(const char* name, const char* value);

    /// Reads the document to its end, whatever handlers say. True when no handler has failed and
    /// nothing was wrong with the document; what was is in the log.
    bool Parse(const char* path);

    /// The element being delivered; valid until the next one.
    const char* GetCurrentElementName() const { return currentElementName.c_str(); }

    CPublicState& GetPublicState() { return publicState; }

    /// The folder that the files of the document are relative to, with "/" at its end, or empty.
    /// See `ResolveFilePath`.
    const char* GetRootFilePath() const { return rootFilePath.c_str(); }

    /// Forgets which files exist: looked up once until then, over any number of passes.
    void ClearFileChecks() { fileChecks.clear(); }

    /// From the start handler of an element: what the element holds is recorded, expanded, instead
    /// of being delivered, until its end handler calls `StopRecording`. Does nothing while another
    /// recording runs. The tag is handed back; when the document breaks off before, the recording
    /// is dropped and the tag stays with the caller.
    void StartRecording(void* tag);

    /// What was recorded, for the caller to own; null when nothing was being recorded. `tag` may be
    /// null.
    IParsedTemplate* StopRecording(void** tag);

    /// Not owned. There is none to begin with, and "SCRIPT" is then ignored.
    void SetScriptEngine(IScriptEngine* engine) { scriptEngine = engine; }

    /// What was used since the parse began, and in replays after it.
    CSkinBudget& GetBudget() { return budget; }

    // IParserElementHandler: elements from files and templates alike.
    bool OnElementStart(const char* name, Containers::IConstNamedAttributes& attributes) override;
    bool OnElementEnd(const char* name) override;
    void SetElementPlace(const Core::CDocumentPlace& elementPlace) override;
    bool IsStopped() const override { return stopped; }

private:
    /// A file that is being read.
    struct COpenFile;

    /// A template call whose end tag is still to come.
    struct CTemplateCall {
        std::unique_ptr<IParsedTemplateInstance> instance; // null when nothing is left to replay
        Core::CDocumentPlace place;
    };

    struct CLocalVariable {
        int depth;
        std::string name;
    };

    // xercesc::DefaultHandler
    void setDocumentLocator(const xercesc::Locator* documentLocator) override;
    void startElement(const XMLCh* uri, const XMLCh* localName, const XMLCh* qualifiedName,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* uri, const XMLCh* localName, const XMLCh* qualifiedName) override;
    void warning(const xercesc::SAXParseException& exception) override;
    void error(const xercesc::SAXParseException& exception) override;
    void fatalError(const xercesc::SAXParseException& exception) override;

    // The elements of the preprocessor.
    void RegisterPreprocessor();
    bool OnIncludeStart(const Containers::IConstNamedAttributes& attributes);
    bool OnIncludeOnceStart(const Containers::IConstNamedAttributes& attributes);
    bool OnDefineStart(const Containers::IConstNamedAttributes& attributes);
    bool OnDefineEnd();
    bool OnUndefineStart(const Containers::IConstNamedAttributes& attributes);
    bool OnUndefineEnd();
    bool OnTemplateStart(const Containers::IConstNamedAttributes& attributes);
    bool OnTemplateEnd();
    bool OnVariableStart(const Containers::IConstNamedAttributes& attributes);
    bool OnLocalVariableStart(const Containers::IConstNamedAttributes& attributes);
    bool OnRepeatStart(const Containers::IConstNamedAttributes& attributes);
    bool OnRepeatEnd();
    bool OnScriptStart(const Containers::IConstNamedAttributes& attributes);

    void Clear();
    bool ParseFile(const std::string& path);
    bool ReadFile(const std::string& path, const std::string& content);
    bool CheckFile(const std::string& path);

    bool Deliver(const char* name, Containers::CNamedAttributes& attributes);
    bool DeliverExpanded(const char* name, Containers::CNamedAttributes& attributes);
    bool DeliverEnd(const char* name);
    bool Define(const char* name, Containers::CNamedAttributes& attributes);
    bool CheckRoot(const char* name);
    bool IsDefined(const char* name) const;
    bool CallTemplate(IParsedTemplate& called, const char* name,
                      Containers::CNamedAttributes& attributes);
    void ReturnToTemplate();
    bool CallEndHandler(const char* name);

    bool EvaluateFormula(const char* formula, double& value);
    bool FailFormula(const std::string& text);
    bool ReadInteger(const Containers::IConstNamedAttributes& attributes, const char* name,
                     int& value);
    void ReplayOnce(IParsedTemplate& body, const std::string& indexName, const std::string& index);
    void Substitute(Containers::CNamedAttributes& attributes);
    void DropLocalVariables();

    void LogMessage(Core::EMessageType type, const std::string& text);
    bool Fail(const std::string& text);
    bool Stop(const std::string& text);
    bool Within(const std::string& problem); // stops when there is one
    void StandAt(const Core::CDocumentPlace& newPlace);
    void LogReaderMessage(Core::EMessageType type, const char* prefix,
                          const xercesc::SAXParseException& exception);
    void LogReaderMessage(Core::EMessageType type, const char* prefix, int line,
                          const std::string& message);
    int GetReaderLine() const;

    std::unique_ptr<CXMLLibraryUse> library; // from the first parse on
    TNameMap<std::unique_ptr<CStartHandler>> startHandlers;
    TNameMap<std::unique_ptr<CEndHandler>> endHandlers;
    TNameMap<int> fileChecks; // what `access` gave
    Core::IMessageLog* log;
    bool success = true;
    std::string currentElementName;
    bool rootSeen = false;
    CDefineParser defines;
    CTemplateParser templates;
    CTemplateParser repeat;
    int repeatCount = 0;
    int repeatStart = 0;
    std::string repeatIndexList;
    std::string repeatIndexName;
    bool repeating = false;
    std::unique_ptr<CTemplateParser> recorder;
    void* recordTag = nullptr;
    int recordDepth = 0;
    bool inDefine = false;
    bool inUndefine = false;
    bool inTemplate = false;
    int defineNesting = 0; // elements open inside "DEFINE" or "UNDEFINE"
    TNameMap<std::string> variables;
    std::string rootElementName;
    std::string currentFile;
    std::string rootFilePath;
    std::set<std::string> includedOnce;
    std::vector<CTemplateCall> templateInstances;
    std::vector<CLocalVariable> localVariables;
    std::vector<int> refusedElements; // by the depth of the budget
    int depth = 0;
    IScriptEngine* scriptEngine = nullptr;
    CPublicState publicState{*this};

    // Where the document is.
    Core::CDocumentPlace place;
    Core::CDocumentPlace call; // that of the template being replayed, else nowhere
    std::shared_ptr<const std::string> fileName;
    COpenFile* file = nullptr; // the innermost; null when none is being read

    CSkinBudget budget;
    bool stopped = false;
};

} // namespace Vorin::AppEngine
