#include "Commands.h"

#include "Messages.h"
#include "ModelSession.h"
#include "Numbers.h"

#include <cstdio>
#include <functional>
#include <string_view>
#include <utility>

namespace Workbench {

namespace {

constexpr const char* kModelHelp =
    R"(usage: ondara model FILE [--let NAME=VALUE]... [options] OPERATION...

Loads a model of the skin language, and does something with it, one operation after the other:

  get ID         print the value of a parameter or text, the count of a collection: ID = VALUE
  set ID=VALUE   set it
  text ID        print the value as it reads as text
  type ID=TEXT   set the value that a typed text means
  eval ID X [Y]  print the value of a curve, or of a surface
  capture ID     hold an object, as a user does who drags it
  release ID     let go of it
  run ID         run an action
  wait MS        let time pass on the model's clock, which stands still otherwise
  events ID      from here on print "ID changed" for each change
  list           print every object: KIND ID
  save FILE      write the values of the persistent objects
  load FILE      read them

  --let NAME=VALUE  give a variable a value before the document begins
  --used-only       make only what the document itself refers to, as a skin does
  --quiet           leave out messages that are mere information

Messages go to the standard error as FILE:LINE: error: TEXT (or warning, or info); FILE is relative
to the folder of the document. The exit status is 1 when there was an error.
)";

using Operation = std::function<COutcome(CModelSession&)>;

struct CModelRequest {
    std::string document;
    CModelSession::Variables variables;
    std::vector<Operation> operations;
    bool usedOnly = false;
    bool quiet = false;
    bool help = false;
};

/// The words of the command line with one look ahead, which tells whether "eval" has a second
/// number.
class CModelWords {
public:
    explicit CModelWords(CArguments& arguments) {
        while (arguments.Next()) {
            words.push_back(arguments.Get());
        }
    }

    bool IsAtEnd() const { return next == words.size(); }
    const std::string& Peek() const { return words[next]; }
    std::string Take() { return words[next++]; }

    COutcome TakeFor(const std::string& operation, const char* what, std::string& word) {
        if (IsAtEnd()) {
            return COutcome::WrongUsage(operation + ": " + what +
                                        " has to follow; see ondara model --help");
        }
        word = Take();
        return {};
    }

private:
    std::vector<std::string> words;
    std::size_t next = 0;
};

using IdOperation = COutcome (CModelSession::*)(const std::string&);
using AssignOperation = COutcome (CModelSession::*)(const std::string&, const std::string&);

struct CNamedIdOperation {
    std::string_view name;
    const char* what;
    IdOperation run;
};

constexpr CNamedIdOperation kIdOperations[] = {
    {"get", "an identifier", &CModelSession::Get},
    {"text", "an identifier", &CModelSession::PrintText},
    {"capture", "an identifier", &CModelSession::Capture},
    {"release", "an identifier", &CModelSession::Release},
    {"run", "an identifier", &CModelSession::RunAction},
    {"events", "an identifier", &CModelSession::PrintEvents},
    {"save", "a file", &CModelSession::SaveState},
    {"load", "a file", &CModelSession::LoadState},
};

COutcome TakeIdOperation(CModelWords& words, const CNamedIdOperation& named,
                         CModelRequest& request) {
    std::string id;
    COutcome outcome = words.TakeFor(std::string(named.name), named.what, id);
    if (outcome) {
        request.operations.emplace_back(
            [id, run = named.run](CModelSession& session) { return (session.*run)(id); });
    }
    return outcome;
}

COutcome TakeAssignment(CModelWords& words, const std::string& name, AssignOperation run,
                        CModelRequest& request) {
    std::string text;
    if (COutcome outcome = words.TakeFor(name, "ID=VALUE", text); !outcome) {
        return outcome;
    }
    std::string id;
    std::string value;
    if (!SplitAssignment(text, id, value)) {
        return COutcome::WrongUsage(name + " " + text + ": say ID=VALUE");
    }
    request.operations.emplace_back(
        [=](CModelSession& session) { return (session.*run)(id, value); });
    return {};
}

COutcome TakeEval(CModelWords& words, CModelRequest& request) {
    std::string id;
    std::string text;
    if (COutcome outcome = words.TakeFor("eval", "an identifier", id); !outcome) {
        return outcome;
    }
    if (COutcome outcome = words.TakeFor("eval", "a number", text); !outcome) {
        return outcome;
    }
    double x = 0.0;
    double y = 0.0;
    if (!ParseNumber(text, x)) {
        return COutcome::WrongUsage("eval " + id + " " + text + ": say numbers");
    }
    const bool hasY = !words.IsAtEnd() && ParseNumber(words.Peek(), y);
    if (hasY) {
        words.Take();
    }
    request.operations.emplace_back(
        [=](CModelSession& session) { return session.Evaluate(id, x, y, hasY); });
    return {};
}

COutcome TakeWait(CModelWords& words, CModelRequest& request) {
    constexpr double kMostMilliseconds = 3'600'000.0;
    std::string text;
    if (COutcome outcome = words.TakeFor("wait", "a time in milliseconds", text); !outcome) {
        return outcome;
    }
    double milliseconds = 0.0;
    if (!ParseNumber(text, milliseconds) || milliseconds < 0.0 ||
        milliseconds > kMostMilliseconds) {
        return COutcome::WrongUsage("wait " + text +
                                    ": say milliseconds, from 0 to an hour's 3600000");
    }
    request.operations.emplace_back(
        [=](CModelSession& session) { return session.Wait(milliseconds); });
    return {};
}

COutcome TakeOperation(CModelWords& words, CModelRequest& request) {
    const std::string name = words.Take();
    for (const CNamedIdOperation& named : kIdOperations) {
        if (named.name == name) {
            return TakeIdOperation(words, named, request);
        }
    }
    if (name == "set") {
        return TakeAssignment(words, name, &CModelSession::Set, request);
    }
    if (name == "type") {
        return TakeAssignment(words, name, &CModelSession::Type, request);
    }
    if (name == "eval") {
        return TakeEval(words, request);
    }
    if (name == "wait") {
        return TakeWait(words, request);
    }
    if (name == "list") {
        request.operations.emplace_back([](CModelSession& session) { return session.List(); });
        return {};
    }
    return COutcome::WrongUsage(name + ": there is no such operation; see ondara model --help");
}

COutcome TakeLetOption(CModelWords& words, CModelRequest& request) {
    std::string text;
    if (COutcome outcome = words.TakeFor("--let", "NAME=VALUE", text); !outcome) {
        return outcome;
    }
    std::string name;
    std::string value;
    if (!SplitAssignment(text, name, value)) {
        return COutcome::WrongUsage("--let " + text + ": say NAME=VALUE");
    }
    request.variables.emplace_back(name, value);
    return {};
}

COutcome TakeModelWord(CModelWords& words, CModelRequest& request) {
    const std::string& word = words.Peek();
    if (word.empty() || word.front() != '-') {
        if (!request.document.empty()) {
            return TakeOperation(words, request);
        }
        request.document = words.Take();
        return {};
    }
    const std::string option = words.Take();
    if (option == "--help" || option == "-h") {
        request.help = true;
    } else if (option == "--used-only") {
        request.usedOnly = true;
    } else if (option == "--quiet") {
        request.quiet = true;
    } else if (option == "--let") {
        return TakeLetOption(words, request);
    } else {
        return COutcome::WrongUsage(option + ": is not understood; see ondara model --help");
    }
    return {};
}

COutcome RunModelRequest(const CModelRequest& request) {
    CModelSession session;
    const bool isLoaded =
        session.Load(request.document, request.variables, request.usedOnly, request.quiet);
    for (const Operation& operation : request.operations) {
        if (COutcome outcome = operation(session); !outcome) {
            return outcome;
        }
    }
    const bool isSound = isLoaded && !session.HasErrors();
    return isSound ? COutcome() : COutcome::BadInput(""); // the messages say it all
}

} // namespace

COutcome RunModel(CArguments& arguments) {
    CModelWords words(arguments);
    CModelRequest request;
    while (!words.IsAtEnd() && !request.help) {
        if (COutcome outcome = TakeModelWord(words, request); !outcome) {
            return outcome;
        }
    }
    if (request.help) {
        std::fputs(kModelHelp, stdout);
        return {};
    }
    if (request.document.empty()) {
        return COutcome::WrongUsage("FILE: say which model; see ondara model --help");
    }
    return RunModelRequest(request);
}

} // namespace Workbench
