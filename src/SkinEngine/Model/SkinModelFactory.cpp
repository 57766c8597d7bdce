#include "SkinEngine/Model/SkinModelFactory.h"

#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/ModelElement.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Vorin::AppEngine {

namespace {

class CElementStartCommand final
    : public Core::TIArgReturnCommand<bool, const Containers::IConstNamedAttributes&> {
public:
    using Function = bool (*)(CModelElement&);

    CElementStartCommand(CSkinModelFactory& modelFactory, Function startFunction,
                         const CElementKind& elementKind)
        : factory(modelFactory), function(startFunction), kind(elementKind) {}

    bool Execute(const Containers::IConstNamedAttributes& attributes) override {
        CModelElement element(factory, attributes, kind);
        return function(element) && !element.HasFailed();
    }

private:
    CSkinModelFactory& factory;
    Function function;
    const CElementKind& kind;
};

class CElementEndCommand final : public Core::TIReturnCommand<bool> {
public:
    using Function = bool (*)(CSkinModelFactory&);

    CElementEndCommand(CSkinModelFactory& modelFactory, Function endFunction)
        : factory(modelFactory), function(endFunction) {}

    bool Execute() override { return function(factory); }

private:
    CSkinModelFactory& factory;
    Function function;
};

/// What every element does in the pre-pass: declares the identifiers that it refers to.
bool DeclareElement(CModelElement& element) {
    const CElementKind& kind = element.GetKind();
    for (const std::string& attribute : SplitIds(kind.usedIds)) {
        for (const std::string& id : SplitIds(element.Get(attribute.c_str()))) {
            element.GetUsage().Declare(id.c_str());
        }
    }
    // Must be there even when nothing refers to it.
    if (element.IsTrue("persistent") || element.IsTrue("exposed")) {
        element.GetUsage().Declare(element.GetId());
    }
    return !kind.declare || kind.declare(element);
}

/// Lets go of retired items with the model: they may keep the context alive that keeps them.
class CContextKeeper {
public:
    explicit CContextKeeper(std::shared_ptr<CSkinModelContext> keptContext)
        : context(std::move(keptContext)) {}
    ~CContextKeeper() { context->retiredItems.Clear(); }

    CContextKeeper(const CContextKeeper&) = delete;
    CContextKeeper& operator=(const CContextKeeper&) = delete;

private:
    std::shared_ptr<CSkinModelContext> context;
};

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    return begin == std::string_view::npos
               ? std::string_view()
               : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

} // namespace

std::vector<std::string> SplitIds(const char* list) {
    std::vector<std::string> ids;
    std::string_view rest = list ? list : "";
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        const std::string_view id = TrimBlanks(rest.substr(0, end));
        if (!id.empty()) {
            ids.emplace_back(id);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return ids;
}

CSkinModelFactory::CSkinModelFactory(Core::IMessageLog& messageLog, CSkinParser& skinParser,
                                     CSkinModel& skinModel, const CSkinModelServices& services)
    : log(messageLog), parser(skinParser), model(skinModel),
      context(std::make_shared<CSkinModelContext>(services)) {
    model.SetLog(&log);
    context->log = &log;
    model.Own(std::make_unique<CContextKeeper>(context));
}

CSkinModelFactory::CSkinModelFactory(Core::IMessageLog& messageLog, CSkinParser& skinParser,
                                     CSkinModel& skinModel,
                                     std::shared_ptr<CSkinModelContext> sharedContext,
                                     CSkinModel& parentModel)
    : log(messageLog), parser(skinParser), model(skinModel), parent(&parentModel),
      context(std::move(sharedContext)) {
    model.SetLog(&log);
}

CSkinModelFactory::~CSkinModelFactory() {
    if (parent) {
        model.SetLog(nullptr);
    } else {
        context->log = GetServices().itemLog;
        model.SetLog(context->log);
    }
}

void CSkinModelFactory::RegisterActionFactory(const char* type,
                                              std::unique_ptr<ICustomActionFactory> factory) {
    context->actionFactories[type] = std::move(factory);
}

bool CSkinModelFactory::LoadModelFile(const char* path, bool preParse) {
    const char* slash = std::strrchr(path, '/');
    const Core::CPlaceScope scope(
        log, {std::make_shared<const std::string>(slash ? slash + 1 : path), 1});
    if (!preParse) {
        context->usage.Declare("*");
    } else if (!preParsed) {
        preParsed = ParseFile(path, "Pre-Parsing the model...", true);
        if (!preParsed) {
            return false;
        }
    }
    return ParseFile(path, "Parsing the model...", false);
}

bool CSkinModelFactory::ParseFile(const char* path, const char* information, bool isPrePass) {
    LogInfo(information);
    parser.ResetHandlers();
    parser.SetRootElement("MODEL");
    if (isPrePass) {
        RegisterPrePassHandlers();
    } else {
        RegisterHandlers();
    }
    const std::unique_ptr<Containers::IConstIterator<Containers::CNamedAttribute>> variable(
        static_cast<const Containers::CNamedAttributes&>(variables).CreateIterator());
    for (; !variable->IsAtEnd(); variable->Next()) {
        parser.AddVariable(variable->Get().GetName(), variable->Get().GetValue());
    }
    return parser.Parse(path) || LogError("Fatal error: model parsing failed");
}

void CSkinModelFactory::RegisterPrePassHandlers() {
    for (const CElementKind& kind : GetElementKinds()) {
        parser.RegisterStartHandler(kind.name,
                                    new CElementStartCommand(*this, &DeclareElement, kind));
        if (kind.declareEnd) {
            parser.RegisterEndHandler(kind.name, new CElementEndCommand(*this, kind.declareEnd));
        }
    }
}

void CSkinModelFactory::RegisterHandlers() {
    for (const CElementKind& kind : GetElementKinds()) {
        parser.RegisterStartHandler(kind.name, new CElementStartCommand(*this, kind.make, kind));
        if (kind.end) {
            parser.RegisterEndHandler(kind.name, new CElementEndCommand(*this, kind.end));
        }
    }
}

bool CSkinModelFactory::Link() {
    bool isLinked = !parent || model.AttachTo(*parent);
    LogInfo("Pre-Linking objects (managing dynamic collections)...");
    isLinked = RunCommands(preLinkCommands) && isLinked;
    LogInfo("Setting up collections count...");
    isLinked = RunCommands(countCommands) && isLinked;
    LogInfo("Linking objects...");
    isLinked = RunCommands(linkCommands) && isLinked;
    LogInfo("Storing objects information...");
    StoreObjectsInformation();
    if (!parent && GetServices().scriptHost) {
        GetServices().scriptHost->OnModelComplete(model);
    }
    LogInfo("Cleaning...");
    model.PauseLinks(false);
    model.SetEnabled(!parent || parent->IsEnabled());
    return isLinked;
}

/// What a command queues in turn is run too.
bool CSkinModelFactory::RunCommands(Commands& commands) {
    bool isDone = true;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        isDone = commands[i]->Execute() && isDone;
    }
    commands.clear();
    return isDone;
}

void CSkinModelFactory::StoreObjectsInformation() {
    for (const CListedId& listed : persistentIds) {
        const Core::CPlaceScope scope(log, listed.place);
        const char* id = listed.id.c_str();
        if (!model.SetPersistent(id) && !(parent && parent->SetPersistent(id))) {
            LogWarning(listed.id + ": cannot make object persistent (already persistent or "
                                   "unknown object).");
        }
    }
    for (const CListedId& listed : exposedIds) {
        const Core::CPlaceScope scope(log, listed.place);
        if (!model.SetExposed(listed.id.c_str())) {
            LogWarning(listed.id + ": cannot expose object (already exposed or unknown object).");
        }
    }
    persistentIds.clear();
    exposedIds.clear();
}

void CSkinModelFactory::AddIds(std::vector<CListedId>& ids, const char* list) {
    for (std::string& id : SplitIds(list)) {
        ids.push_back({std::move(id), log.GetPlace()});
    }
}

bool CSkinModelFactory::LogError(const std::string& text) {
    log.Log(Core::kErrorMessage, text.c_str(), 0);
    return false;
}

void CSkinModelFactory::LogWarning(const std::string& text) {
    log.Log(Core::kWarningMessage, text.c_str(), 0);
}

void CSkinModelFactory::LogInfo(const char* text) { log.Log(Core::kInfoMessage, text, 0); }

Runtime::IDynamicObject* CSkinModelFactory::FindObject(const char* id) const {
    Runtime::IDynamicObject* object = model.GetObjects().Get(id);
    for (const CSkinModel* around = parent; around && !object; around = around->GetParent()) {
        object = around->GetObjects().Get(id);
    }
    return object;
}

void CSkinModelFactory::AddPreLinkCommand(std::unique_ptr<CLinkCommand> command) {
    preLinkCommands.push_back(std::move(command));
}
void CSkinModelFactory::AddCountCommand(std::unique_ptr<CLinkCommand> command) {
    countCommands.push_back(std::move(command));
}
void CSkinModelFactory::AddLinkCommand(std::unique_ptr<CLinkCommand> command) {
    linkCommands.push_back(std::move(command));
}

CSkinCollectionBase* CSkinModelFactory::TakePendingCollection() {
    return std::exchange(pendingCollection, nullptr);
}

void CSkinModelFactory::SetRecordedAttributes(const Containers::IConstNamedAttributes& attributes) {
    recordedAttributes.Set(attributes);
}

Containers::CNamedAttributes CSkinModelFactory::TakeRecordedAttributes() {
    Containers::CNamedAttributes taken = recordedAttributes;
    recordedAttributes.Clear();
    return taken;
}

} // namespace Vorin::AppEngine
