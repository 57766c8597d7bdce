// Any bytes as a model of the skin language. What could be made of them lives for a moment: each
// object is read, moved and held, time passes, and the state is saved and loaded. An object that a
// broken document leaves behind has to work like any other.
#include "SkinEngine/Document/SkinParser.h"
#include "SkinEngine/Document/XMLReading.h"
#include "SkinEngine/Model/OpenUrlAction.h"
#include "SkinEngine/Model/SkinModelFactory.h"
#include "containers/MemMessageLog.h"
#include "core/Capture.h"
#include "fuzz/Explore.h"
#include "serialization/MemDataObject.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"
#include "tests/files/TemporaryFolder.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;
using namespace Vorin::DataModel;
using namespace Vorin::DataModel::Objects;

/// A model's life, from the document to the end.
class CModelLife {
public:
    void Run(const std::string& path, bool isUsedOnly) {
        const bool isSound = Load(path, isUsedOnly);
        Fuzz::Require(isSound || log.GetCount(Core::kErrorMessage) > 0);
        PassTime();
        for (const double value : {0.5, -1e300, 3.0}) {
            for (const std::string& id : GetIds()) {
                Use(id.c_str(), value);
            }
            PassTime();
        }
        SaveAndLoad();
        PassTime();
        model.Disconnect();
    }

private:
    bool Load(const std::string& path, bool isUsedOnly) {
        CSkinParser parser(&log);
        parser.GetBudget().SetMaximumElements(2000); // a million would only take its time
        CSkinModelFactory factory(log, parser, model,
                                  {.timers = timers,
                                   .clock = clock,
                                   .openUrl = [](const char*) { return true; },
                                   .itemLog = &log});
        factory.RegisterActionFactory("OpenUrl", std::make_unique<COpenURLActionFactory>());
        return factory.LoadModelFile(path.c_str(), isUsedOnly);
    }

    void PassTime() {
        for (int i = 0; i < 5; ++i) {
            clock.AdvanceNanoseconds(7 * System::nanosecondsPerMillisecond);
            loop.Pump();
        }
    }

    /// Some of them: objects may come and go while others are used.
    std::vector<std::string> GetIds() const {
        std::vector<std::string> ids;
        for (const auto& entry : model.GetObjects().GetEntries()) {
            ids.emplace_back(entry.id);
            if (ids.size() == 50) {
                break;
            }
        }
        return ids;
    }

    void Use(const char* id, double value) {
        Runtime::IDynamicObject* object = model.GetObjects().Get(id);
        if (auto* param = CastModelObject<ICaptureParam>(object)) {
            UseHeld(id, *param, [value](ICaptureParam& held) { held.SetValue(value); });
        } else if (auto* text = CastModelObject<ICaptureString>(object)) {
            UseHeld(id, *text, [](ICaptureString& held) { held.SetValue("3"); });
        } else if (auto* curve = CastModelObject<IConstCaptureCurve>(object)) {
            curve->GetValue().Evaluate(value);
        } else if (auto* surface = CastModelObject<IConstCaptureSurface>(object)) {
            surface->GetValue().Evaluate(value, value);
        } else if (auto* action = CastModelObject<IConstAction>(object)) {
            action->Execute();
        } else if (auto* collection = CastModelObject<ICollection>(object)) {
            collection->SetCount(static_cast<int>(value > 0.0 ? value : 0.0));
        }
    }

    /// As a user does who drags it. What the change sets off may end the object.
    template <class I, class Change>
    void UseHeld(const char* id, I& object, Change change) {
        dynamic_cast<Core::ICapture&>(object).Capture();
        change(object);
        if (auto* left = FindModelObject<I>(model.GetObjects(), id)) {
            dynamic_cast<Core::ICapture&>(*left).Release();
        }
    }

    void SaveAndLoad() {
        Serialization::CMemDataObject state;
        Fuzz::Require(model.Serialize(state));
        model.SetEnabled(false);
        Fuzz::Require(model.DeSerialize(state));
        model.SetEnabled(true);
    }

    CoreUtilities::CMemMessageLog log;
    System::CManualClock clock;
    System::CRunLoop loop{clock};
    System::CRunLoopTimerProvider timers{loop};
    CSkinModel model;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CXMLLibraryUse library; // once is enough
    static const TestFiles::CTemporaryFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string path = folder.Write("main.model", bytes);
    for (const bool isUsedOnly : {false, true}) {
        CModelLife().Run(path, isUsedOnly);
    }
    return 0;
}
