#include "Commands.h"

#include "Messages.h"
#include "Outcome.h"

#include "SkinEngine/Document/SkinElements.h"
#include "SkinEngine/Document/SkinParser.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string_view>
#include <utility>

namespace Workbench {

using namespace Vorin;
using namespace Vorin::AppEngine;
using Containers::CNamedAttribute;
using Containers::IConstNamedAttributes;

namespace {

constexpr const char* kSkinHelp =
    R"(usage: ondara skin expand FILE [--root NAME] [--elements A,B,...] [--let NAME=VALUE]...

Reads a skin document with the files it includes, and prints the elements that are left when
variables, definitions, templates and repeats have done their work.

  --root NAME         the root element must have this name, and no other element may
  --elements A,B,...  the elements that are known; by default all of the skin language
  --let NAME=VALUE    give a variable a value before the document begins
  --origins           with what comes out of a template, say where in the template it stands

Messages go to the standard error as FILE:LINE: error: TEXT (or warning, or info); FILE is relative
to the folder of the document. The exit status is 1 when the document failed.
)";

struct CSkinOptions {
    std::string document;
    std::string root;
    std::vector<std::string> elements;
    std::vector<std::pair<std::string, std::string>> variables;
    bool origins = false;
    bool help = false;
};

std::string EscapeXml(const std::string& text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            if (static_cast<unsigned char>(character) < ' ') {
                escaped += "&#" + std::to_string(static_cast<int>(character)) + ";";
            } else {
                escaped += character;
            }
        }
    }
    return escaped;
}

/// Prints each element that it is the handler of.
class CElementPrinter {
public:
    explicit CElementPrinter(CSkinParser& printedParser) : parser(printedParser) {}

    void Register(const std::string& element) {
        using CStart = Core::TArgReturnCommand<CElementPrinter, bool, const IConstNamedAttributes&>;
        using CEnd = Core::TReturnCommand<CElementPrinter, bool>;
        parser.RegisterStartHandler(element.c_str(), new CStart(this, &CElementPrinter::OnStart));
        parser.RegisterEndHandler(element.c_str(), new CEnd(this, &CElementPrinter::OnEnd));
    }

private:
    bool OnStart(const IConstNamedAttributes& attributes) {
        std::map<std::string, std::string> sorted;
        const std::unique_ptr<Containers::IConstIterator<CNamedAttribute>> iterator(
            attributes.CreateIterator());
        for (; !iterator->IsAtEnd(); iterator->Next()) {
            sorted[iterator->Get().GetName()] = iterator->Get().GetValue();
        }
        std::string line = "<" + std::string(parser.GetCurrentElementName());
        for (const auto& [name, value] : sorted) {
            line += " " + name + "=\"" + EscapeXml(value) + "\"";
        }
        Print(line + ">");
        ++depth;
        return true;
    }

    bool OnEnd() {
        // An end without a start: that of an element which was defined after it had begun.
        depth = std::max(depth - 1, 0);
        Print("</" + std::string(parser.GetCurrentElementName()) + ">");
        return true;
    }

    void Print(const std::string& line) const {
        std::printf("%s%s\n", std::string(static_cast<std::size_t>(2 * depth), ' ').c_str(),
                    line.c_str());
    }

    CSkinParser& parser;
    int depth = 0;
};

COutcome ParseElements(const std::string& text, std::vector<std::string>& elements) {
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string element = text.substr(begin, end - begin);
        const auto reserved = GetPreprocessorElements();
        if (std::find(reserved.begin(), reserved.end(), element) != reserved.end()) {
            return COutcome::WrongUsage(
                element + ": is an element of the preprocessor, and never comes out of it");
        }
        if (!element.empty()) {
            elements.push_back(element);
        }
        begin = end + 1;
    }
    return {};
}

COutcome ParseOption(CArguments& arguments, CSkinOptions& options) {
    const std::string option = arguments.Get();
    if (option == "--help" || option == "-h") {
        options.help = true;
        return {};
    }
    if (option == "--origins") {
        options.origins = true;
        return {};
    }
    if (option == "--root") {
        return arguments.TakeText(options.root);
    }
    std::string text;
    if (option == "--elements") {
        const COutcome outcome = arguments.TakeText(text);
        options.elements.clear();
        return outcome ? ParseElements(text, options.elements) : outcome;
    }
    if (option == "--let") {
        if (COutcome outcome = arguments.TakeText(text); !outcome) {
            return outcome;
        }
        std::string name;
        std::string value;
        if (!SplitAssignment(text, name, value)) {
            return COutcome::WrongUsage("--let " + text + ": say NAME=VALUE");
        }
        options.variables.emplace_back(name, value);
        return {};
    }
    return COutcome::WrongUsage(option + ": is not understood; see ondara skin --help");
}

COutcome ParseSkinOptions(CArguments& arguments, CSkinOptions& options) {
    std::vector<std::string> words;
    const auto known = GetSkinElements();
    options.elements.assign(known.begin(), known.end());
    while (arguments.Next() && !options.help) {
        if (!arguments.IsOption()) {
            words.push_back(arguments.Get());
        } else if (COutcome outcome = ParseOption(arguments, options); !outcome) {
            return outcome;
        }
    }
    if (options.help) {
        return {};
    }
    if (words.empty() || words[0] != "expand") {
        return COutcome::WrongUsage((words.empty() ? "skin" : words[0]) +
                                    ": say expand; see ondara skin --help");
    }
    if (words.size() != 2) {
        return COutcome::WrongUsage("expand: name one file; see ondara skin --help");
    }
    options.document = words[1];
    return {};
}

COutcome Expand(const CSkinOptions& options) {
    CoreUtilities::CMemMessageLog log;
    CSkinParser parser(&log);
    CElementPrinter printer(parser);
    parser.ResetHandlers();
    parser.SetRootElement(options.root.c_str());
    for (const std::string& element : options.elements) {
        printer.Register(element);
    }
    for (const auto& [name, value] : options.variables) {
        parser.AddVariable(name.c_str(), value.c_str());
    }
    const bool isParsed = parser.Parse(options.document.c_str());
    std::fflush(stdout); // main looks whether it worked
    PrintMessages(log, options.document, options.origins);
    return isParsed ? COutcome() : COutcome::BadInput(""); // the messages say it all
}

} // namespace

COutcome RunSkin(CArguments& arguments) {
    CSkinOptions options;
    if (COutcome outcome = ParseSkinOptions(arguments, options); !outcome) {
        return outcome;
    }
    if (options.help) {
        std::fputs(kSkinHelp, stdout);
        return {};
    }
    return Expand(options);
}

} // namespace Workbench
