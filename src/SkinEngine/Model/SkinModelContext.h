#pragma once

#include "SkinEngine/Document/NameMap.h"
#include "SkinEngine/Model/CustomActionFactory.h"
#include "SkinEngine/Model/ObjectsUsage.h"
#include "SkinEngine/Model/RetiredItems.h"
#include "SkinEngine/Model/ScriptHost.h"
#include "core/MessageLog.h"
#include "system/Clock.h"
#include "system/TimerProvider.h"

#include <functional>
#include <memory>

namespace Vorin::AppEngine {

/// What a model needs of the program around it. Nothing is owned; all of it outlives the model.
struct CSkinModelServices {
    /// Drives what moves by itself, on the thread of the model.
    System::ITimerProvider& timers;
    const System::IClock& clock = System::GetMonotonicClock();

    /// Shows a document to the user; false when it cannot be opened.
    std::function<bool(const char* url)> openUrl = nullptr;

    IScriptHost* scriptHost = nullptr;

    /// Takes errors and warnings of the items of collections, which otherwise nobody sees.
    Core::IMessageLog* itemLog = nullptr;
};

/// What a model and the items of its collections have in common. Lives as long as one of them does:
/// an item may be made long after the document was read.
struct CSkinModelContext {
    /// A document of strangers can ask for any number of items: this many live at once, those of
    /// collections in items counted with the others.
    static constexpr int kMaxItems = 20000;

    explicit CSkinModelContext(const CSkinModelServices& modelServices)
        : services(modelServices), retiredItems(modelServices.timers) {}

    const CSkinModelServices services;
    CObjectsUsage usage;
    TNameMap<std::unique_ptr<ICustomActionFactory>> actionFactories;
    int itemsCount = 0;
    int itemsElements = 0; ///< that they were expanded from; at most SkinLimits::kExpandedElements
    Core::IMessageLog* log = nullptr; ///< of what is made: that of the load, then `itemLog`
    CRetiredItems retiredItems;
};

} // namespace Vorin::AppEngine
