#include "ModelSession.h"

#include "Messages.h"
#include "Numbers.h"
#include "Printable.h"

#include "SkinEngine/Model/OpenUrlAction.h"
#include "datamodel/ParamDataToText.h"
#include "datamodel/objects/ParamRange.h"
#include "serialization/XmlDataObject.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace Workbench {

using namespace Vorin;
using namespace Vorin::AppEngine;
using namespace Vorin::DataModel::Objects;

namespace {

constexpr const char* kStateRoot = "Model";

void PrintResult(const std::string& id, const std::string& value) {
    std::printf("%s = %s\n", Printable(id).c_str(), Printable(value).c_str());
}

std::string NumberText(double value) {
    std::string text;
    AppendNumber(text, value);
    return text;
}

} // namespace

class CModelSession::CChangePrinter {
public:
    CChangePrinter(std::string objectId, CModelObject& watchedObject,
                   Core::IEventProvider& changeEvents)
        : id(std::move(objectId)), use(watchedObject, [this] { events = nullptr; }),
          events(&changeEvents) {
        events->Connect(changed);
    }
    ~CChangePrinter() {
        if (events) {
            events->Disconnect(changed);
        }
    }

    CChangePrinter(const CChangePrinter&) = delete;
    CChangePrinter& operator=(const CChangePrinter&) = delete;

private:
    void OnChanged() { std::printf("%s changed\n", Printable(id).c_str()); }

    const std::string id;
    CObjectUse use;
    Core::IEventProvider* events; // null once the object has gone
    Core::TCommand<CChangePrinter> changed{this, &CChangePrinter::OnChanged};
};

CModelSession::CModelSession() = default;

CModelSession::~CModelSession() {
    printers.clear();
    model.Disconnect();
}

template <class I>
I* CModelSession::Find(const std::string& id) const {
    return FindModelObject<I>(model.GetObjects(), id.c_str());
}

bool CModelSession::Load(const std::string& path, const Variables& variables, bool usedOnly,
                         bool quiet) {
    document = path;
    isQuiet = quiet;
    CSkinParser parser(&log);
    const CSkinModelServices services{.timers = timers,
                                      .clock = clock,
                                      .openUrl = [this](const char* url) { return OpenUrl(url); },
                                      .itemLog = &log};
    CSkinModelFactory factory(log, parser, model, services);
    factory.RegisterActionFactory("OpenUrl", std::make_unique<COpenURLActionFactory>());
    for (const auto& [name, value] : variables) {
        factory.AddVariable(name.c_str(), value.c_str());
    }
    const bool isLoaded = factory.LoadModelFile(path.c_str(), usedOnly);
    FlushMessages();
    return isLoaded;
}

bool CModelSession::OpenUrl(const char* url) {
    std::printf("open %s\n", Printable(url).c_str());
    return true;
}

void CModelSession::FlushMessages() {
    if (isQuiet) {
        log.Remove(Core::kInfoMessage);
    }
    hasErrors = hasErrors || log.GetCount(Core::kErrorMessage) > 0;
    std::fflush(stdout); // on a terminal the two come in order
    PrintMessages(log, document);
    log.Clear();
}

COutcome CModelSession::CannotDo(const std::string& id, const char* operation) const {
    const auto* object = dynamic_cast<CModelObject*>(model.GetObjects().Get(id.c_str()));
    if (!object) {
        return COutcome::BadInput(id + ": the model has no such object; list names those it has");
    }
    return COutcome::BadInput(id + ": " + operation + " does not work with an object of the kind " +
                              GetModelObjectKindName(object->GetKind()));
}

COutcome CModelSession::CannotWrite(const std::string& id, const char* operation) const {
    // Each operation that writes works with every param and string that can be written.
    if (Find<IConstCaptureParam>(id) || Find<IConstCaptureString>(id)) {
        return COutcome::BadInput(id + ": " + operation +
                                  " does not work with what can only be read");
    }
    return CannotDo(id, operation);
}

COutcome CModelSession::Get(const std::string& id) {
    if (const auto* param = Find<IConstCaptureParam>(id)) {
        PrintResult(id, NumberText(param->GetValue()));
    } else if (const auto* string = Find<IConstCaptureString>(id)) {
        PrintResult(id, string->GetValue());
    } else if (const auto* collection = Find<DataModel::IConstCollection>(id)) {
        PrintResult(id, std::to_string(collection->GetCount()));
    } else {
        return CannotDo(id, "get");
    }
    return {};
}

COutcome CModelSession::Set(const std::string& id, const std::string& value) {
    if (auto* string = Find<ICaptureString>(id)) {
        string->SetValue(value.c_str());
        FlushMessages();
        return {};
    }
    auto* param = Find<ICaptureParam>(id);
    auto* collection = Find<DataModel::ICollection>(id);
    if (!param && !collection) {
        return CannotWrite(id, "set");
    }
    double number = 0.0;
    if (!ParseNumber(value, number)) {
        return COutcome::BadInput(id + ": \"" + value + "\" is not a number");
    }
    if (param) {
        param->SetValue(number);
    } else {
        collection->SetCount(static_cast<int>(std::clamp(number, 0.0, 2147483647.0)));
    }
    FlushMessages();
    return {};
}

COutcome CModelSession::PrintText(const std::string& id) {
    if (const auto* param = Find<IConstCaptureParam>(id)) {
        Containers::CCharString text;
        param->GetInfo().GetValueToText().ValueToText(param->GetValue(), text);
        PrintResult(id, text.Get());
        return {};
    }
    return Find<IConstCaptureString>(id) ? Get(id) : CannotDo(id, "text");
}

COutcome CModelSession::Type(const std::string& id, const std::string& text) {
    if (Find<ICaptureString>(id)) {
        return Set(id, text);
    }
    auto* param = Find<ICaptureParam>(id);
    if (!param) {
        return CannotWrite(id, "type");
    }
    CParamDataToText dataToText;
    dataToText.SetInfo(param->GetInfo());
    double value = 0.0;
    if (!dataToText.TextToValue(text.c_str(), value) || std::isnan(value)) {
        return COutcome::BadInput(id + ": \"" + text + "\" cannot be read as a value");
    }
    param->SetValue(value);
    FlushMessages();
    return {};
}

COutcome CModelSession::Evaluate(const std::string& id, double x, double y, bool hasY) {
    if (const auto* curve = Find<IConstCaptureCurve>(id)) {
        if (hasY) {
            return COutcome::BadInput(id + ": a curve is evaluated at one number");
        }
        PrintResult(id, NumberText(curve->GetValue().Evaluate(x)));
        return {};
    }
    const auto* surface = Find<IConstCaptureSurface>(id);
    if (!surface) {
        return CannotDo(id, "eval");
    }
    if (!hasY) {
        return COutcome::BadInput(id + ": a surface is evaluated at two numbers");
    }
    PrintResult(id, NumberText(surface->GetValue().Evaluate(x, y)));
    return {};
}

COutcome CModelSession::SetCaptured(const std::string& id, bool capture) {
    auto* held = dynamic_cast<Core::ICapture*>(Find<ICaptureParam>(id));
    if (!held) {
        held = dynamic_cast<Core::ICapture*>(Find<ICaptureString>(id));
    }
    if (!held) {
        held = dynamic_cast<Core::ICapture*>(Find<ICaptureCurve>(id));
    }
    if (!held) {
        held = dynamic_cast<Core::ICapture*>(Find<ICaptureSurface>(id));
    }
    if (!held) {
        return CannotWrite(id, capture ? "capture" : "release");
    }
    if (capture) {
        held->Capture();
    } else {
        held->Release();
    }
    FlushMessages();
    return {};
}

COutcome CModelSession::Capture(const std::string& id) { return SetCaptured(id, true); }
COutcome CModelSession::Release(const std::string& id) { return SetCaptured(id, false); }

COutcome CModelSession::RunAction(const std::string& id) {
    auto* action = Find<IConstAction>(id);
    if (!action) {
        return CannotDo(id, "run");
    }
    action->Execute();
    FlushMessages();
    return {};
}

COutcome CModelSession::Wait(double milliseconds) {
    constexpr std::int64_t kStep = System::nanosecondsPerMillisecond;
    auto left = static_cast<std::int64_t>(std::llround(milliseconds * double{kStep}));
    for (; left > 0; left -= kStep) {
        clock.AdvanceNanoseconds(std::min(left, kStep));
        loop.Pump();
    }
    FlushMessages();
    return {};
}

Core::IEventProvider* CModelSession::FindChangeEvents(const std::string& id) const {
    Runtime::IDynamicObject* object = model.GetObjects().Get(id.c_str());
    if (auto* param = CastModelObject<IConstCaptureParam>(object)) {
        return &param->GetValueChangedEvents();
    }
    if (auto* string = CastModelObject<IConstCaptureString>(object)) {
        return &string->GetValueChangedEvents();
    }
    if (auto* curve = CastModelObject<IConstCaptureCurve>(object)) {
        return &curve->GetValueChangedEvents();
    }
    if (auto* surface = CastModelObject<IConstCaptureSurface>(object)) {
        return &surface->GetValueChangedEvents();
    }
    if (auto* collection = CastModelObject<DataModel::IConstCollection>(object)) {
        return &collection->GetCountChangedEvents();
    }
    return nullptr;
}

COutcome CModelSession::PrintEvents(const std::string& id) {
    Core::IEventProvider* events = FindChangeEvents(id);
    auto* object = dynamic_cast<CModelObject*>(model.GetObjects().Get(id.c_str()));
    if (!events || !object) {
        return CannotDo(id, "events");
    }
    printers.emplace_back(id, *object, *events);
    return {};
}

COutcome CModelSession::List() {
    std::vector<std::string> lines;
    for (const auto& entry : model.GetObjects().GetEntries()) {
        const auto& object = dynamic_cast<CModelObject&>(*entry.object);
        lines.push_back(std::string(GetModelObjectKindName(object.GetKind())) + " " + entry.id);
    }
    std::sort(lines.begin(), lines.end());
    for (const std::string& line : lines) {
        std::puts(Printable(line).c_str());
    }
    return {};
}

COutcome CModelSession::SaveState(const std::string& path) {
    Serialization::CXmlDataObject state(kStateRoot, Serialization::kXmlAttributes);
    if (!model.Serialize(state)) {
        return COutcome::BadInput(path + ": the state does not fit into a document");
    }
    if (!state.SaveFile(path.c_str())) {
        return COutcome::BadInput(path + ": cannot be written");
    }
    return {};
}

COutcome CModelSession::LoadState(const std::string& path) {
    if (access(path.c_str(), R_OK) != 0) {
        return COutcome::BadInput(path + ": cannot be read: " + std::strerror(errno));
    }
    Serialization::CXmlDataObject state(kStateRoot, Serialization::kXmlAttributes);
    if (!state.LoadFile(path.c_str())) {
        return COutcome::BadInput(path + ": cannot be read, or is no state that save has written");
    }
    model.SetEnabled(false);
    const bool isTaken = model.DeSerialize(state);
    model.SetEnabled(true);
    FlushMessages();
    return isTaken ? COutcome()
                   : COutcome::BadInput(path + ": is no state that save has written, or holds "
                                               "a value that no object can have; the model is as "
                                               "it was");
}

} // namespace Workbench
