#pragma once

#include "Outcome.h"

#include "SkinEngine/Model/SkinModelFactory.h"
#include "containers/MemMessageLog.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <list>
#include <string>
#include <utility>
#include <vector>

namespace Workbench {

/// A model that lives on a clock of its own, and what can be done with it. Results go to the
/// standard output, messages to the standard error.
class CModelSession {
public:
    using Variables = std::vector<std::pair<std::string, std::string>>;

    CModelSession();
    ~CModelSession();

    /// Reads the document. False when anything was wrong; what could be made is there all the same.
    /// With `usedOnly` only what the document refers to is made. `quiet` leaves out information.
    bool Load(const std::string& path, const Variables& variables, bool usedOnly, bool quiet);

    /// Whether a message so far was an error, also one of what an operation has set off.
    bool HasErrors() const { return hasErrors; }

    // Each names what it was asked for when it cannot be done.
    COutcome Get(const std::string& id);
    COutcome Set(const std::string& id, const std::string& value);
    COutcome PrintText(const std::string& id);
    COutcome Type(const std::string& id, const std::string& text);
    COutcome Evaluate(const std::string& id, double x, double y, bool hasY);
    COutcome Capture(const std::string& id);
    COutcome Release(const std::string& id);
    COutcome RunAction(const std::string& id);
    COutcome Wait(double milliseconds);
    COutcome PrintEvents(const std::string& id);
    COutcome List();
    COutcome SaveState(const std::string& path);
    COutcome LoadState(const std::string& path);

private:
    /// Prints a line at each change of an object.
    class CChangePrinter;

    template <class I>
    I* Find(const std::string& id) const;
    Vorin::Core::IEventProvider* FindChangeEvents(const std::string& id) const;
    COutcome SetCaptured(const std::string& id, bool capture);
    COutcome CannotDo(const std::string& id, const char* operation) const;
    COutcome CannotWrite(const std::string& id, const char* operation) const;
    bool OpenUrl(const char* url);
    void FlushMessages();

    Vorin::CoreUtilities::CMemMessageLog log;
    Vorin::System::CManualClock clock;
    Vorin::System::CRunLoop loop{clock};
    Vorin::System::CRunLoopTimerProvider timers{loop};
    Vorin::AppEngine::CSkinModel model;
    std::list<CChangePrinter> printers;
    std::string document;
    bool isQuiet = false;
    bool hasErrors = false;
};

} // namespace Workbench
