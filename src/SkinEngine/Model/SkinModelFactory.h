#pragma once

#include "SkinEngine/Document/SkinParser.h"
#include "SkinEngine/Model/SkinCollection.h"
#include "SkinEngine/Model/SkinModel.h"
#include "SkinEngine/Model/SkinModelContext.h"
#include "containers/NamedAttributes.h"
#include "core/Command.h"
#include "core/DocumentPlace.h"
#include "core/MessageLog.h"
#include "datamodel/objects/CaptureParam.h"

#include <memory>
#include <string>
#include <vector>

namespace Vorin::AppEngine {

/// Fills a model from the element "MODEL" and what it holds: the handler of these elements in a
/// model file, in a skin, and in the items of collections. Belongs to the thread of the model.
///
/// For a file: `LoadModelFile`. In a larger document:
///  1. `RegisterPrePassHandlers`, a pass: what is referred to becomes known
///  2. `RegisterHandlers`, a pass: objects are made, links are noted
///  3. `Link`, which the end of "MODEL" runs, or the owner
class CSkinModelFactory {
public:
    using CLinkCommand = Core::TIReturnCommand<bool>;

    /// All outlive the factory.
    CSkinModelFactory(Core::IMessageLog& messageLog, CSkinParser& skinParser, CSkinModel& skinModel,
                      const CSkinModelServices& services);

    /// For an item of a collection of `parentModel`.
    CSkinModelFactory(Core::IMessageLog& messageLog, CSkinParser& skinParser, CSkinModel& skinModel,
                      std::shared_ptr<CSkinModelContext> sharedContext, CSkinModel& parentModel);
    ~CSkinModelFactory();

    CSkinModelFactory(const CSkinModelFactory&) = delete;
    CSkinModelFactory& operator=(const CSkinModelFactory&) = delete;

    /// A text that stands for `$name$` in every file that is loaded.
    void AddVariable(const char* name, const char* value) { variables.SetValue(name, value); }

    /// Makes the actions of a type; a factory of that type is replaced.
    void RegisterActionFactory(const char* type, std::unique_ptr<ICustomActionFactory> factory);

    /// Reads a model file. With `preParse` a pass before the first main pass finds out what is
    /// referred to, and nothing else is made; without, everything is. False when anything was
    /// wrong, which is then in the log.
    bool LoadModelFile(const char* path, bool preParse);

    void RegisterPrePassHandlers();
    void RegisterHandlers();

    /// Connects what was made, and enables the model. False when anything could not be connected.
    bool Link();

    /// Adds identifiers, parted by ";", that stand in the element at hand.
    void AddPersistentObjects(const char* list) { AddIds(persistentIds, list); }
    void AddExposedObjects(const char* list) { AddIds(exposedIds, list); }

    // For the elements.

    Core::IMessageLog& GetLog() { return log; }
    CSkinParser& GetParser() { return parser; }
    CSkinModel& GetModel() { return model; }
    const std::shared_ptr<CSkinModelContext>& GetContext() const { return context; }
    IObjectsUsage& GetUsage() { return context->usage; }
    const CSkinModelServices& GetServices() const { return context->services; }
    bool IsItem() const { return parent != nullptr; }

    /// Logs, and gives false.
    bool LogError(const std::string& text);
    void LogWarning(const std::string& text);

    /// The object of an identifier, in this model or in those around it.
    Runtime::IDynamicObject* FindObject(const char* id) const;

    /// Commands that `Link` runs once, in their order: first those that connect collections, then
    /// those that set their counts, then all others.
    void AddPreLinkCommand(std::unique_ptr<CLinkCommand> command);
    void AddCountCommand(std::unique_ptr<CLinkCommand> command);
    void AddLinkCommand(std::unique_ptr<CLinkCommand> command);

    /// The collection whose element is open; null when it has failed. `Take` leaves none.
    void SetPendingCollection(CSkinCollectionBase* collection) { pendingCollection = collection; }
    CSkinCollectionBase* TakePendingCollection();

    /// The attributes of the collection that a pre-pass is recording.
    void SetRecordedAttributes(const Containers::IConstNamedAttributes& attributes);
    Containers::CNamedAttributes TakeRecordedAttributes();

    /// Tells the skin whether its window is up; null while nothing asks for it.
    Objects::CCaptureParam* GetAliveParam() { return aliveParam; }
    void SetAliveParam(Objects::CCaptureParam* param) { aliveParam = param; }

private:
    /// An identifier out of a list, and where it stands.
    struct CListedId {
        std::string id;
        Core::CDocumentPlace place;
    };
    using Commands = std::vector<std::unique_ptr<CLinkCommand>>;

    void AddIds(std::vector<CListedId>& ids, const char* list);
    void LogInfo(const char* text);
    bool ParseFile(const char* path, const char* information, bool isPrePass);
    static bool RunCommands(Commands& commands);
    void StoreObjectsInformation();

    Core::IMessageLog& log;
    CSkinParser& parser;
    CSkinModel& model;
    CSkinModel* parent = nullptr;
    std::shared_ptr<CSkinModelContext> context;
    Commands preLinkCommands;
    Commands countCommands;
    Commands linkCommands;
    std::vector<CListedId> persistentIds;
    std::vector<CListedId> exposedIds;
    bool preParsed = false;
    Containers::CNamedAttributes variables;
    CSkinCollectionBase* pendingCollection = nullptr;
    Containers::CNamedAttributes recordedAttributes;
    Objects::CCaptureParam* aliveParam = nullptr;
};

/// The identifiers in a list, parted by ";", without blanks around them; empty ones are left out.
std::vector<std::string> SplitIds(const char* list);

} // namespace Vorin::AppEngine
