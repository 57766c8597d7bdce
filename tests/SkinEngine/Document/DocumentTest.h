#pragma once

#include "SkinEngine/Document/SkinParser.h"
#include "containers/MemMessageLog.h"
#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace DocumentTests {

using namespace Vorin;
using namespace Vorin::AppEngine;
using Lines = std::vector<std::string>;

/// `<NAME a="1" b="2">`, attributes sorted by name.
inline std::string TagText(const char* name, const Containers::IConstNamedAttributes& attributes) {
    std::map<std::string, std::string> sorted;
    const std::unique_ptr<Containers::IConstIterator<Containers::CNamedAttribute>> iterator(
        attributes.CreateIterator());
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        sorted[iterator->Get().GetName()] = iterator->Get().GetValue();
    }
    std::string text = std::string("<") + name;
    for (const auto& [attribute, value] : sorted) {
        text += " " + attribute + "=\"" + value + "\"";
    }
    return text + ">";
}

inline Containers::CNamedAttributes
Attributes(const std::vector<std::pair<std::string, std::string>>& values) {
    Containers::CNamedAttributes attributes;
    for (const auto& [name, value] : values) {
        attributes.SetValue(name.c_str(), value.c_str());
    }
    return attributes;
}

/// FILE:LINE: error: TEXT, as the workbench prints it.
inline Lines MessageLines(const CoreUtilities::CMemMessageLog& log) {
    static const char* const kWords[] = {"error", "warning", "info"};
    Lines lines;
    for (const auto& record : log.GetRecords()) {
        lines.push_back(std::string(record.place.GetFile()) + ":" +
                        std::to_string(record.place.GetLine()) + ": " + kWords[record.type] + ": " +
                        record.text);
    }
    return lines;
}

/// Tests that parse documents out of a folder of their own. The elements A, B and C are known and
/// leave their tags in `stream`; FAIL fails, and LOG logs the error in its "text".
class CDocumentTest : public ::testing::Test {
public:
    // The handlers.
    bool OnStart(const Containers::IConstNamedAttributes& attributes) {
        stream += TagText(parser.GetCurrentElementName(), attributes);
        return true;
    }
    bool OnEnd() {
        stream += std::string("</") + parser.GetCurrentElementName() + ">";
        return true;
    }
    bool OnFail(const Containers::IConstNamedAttributes& /*attributes*/) { return false; }
    bool OnLog(const Containers::IConstNamedAttributes& attributes) {
        log.Log(Core::kErrorMessage, attributes.GetValue("text"), 0);
        return true;
    }

protected:
    CDocumentTest() { Reset(); }

    /// Makes the parser ready for a pass.
    void Reset() {
        parser.ResetHandlers();
        for (const char* name : {"A", "B", "C"}) {
            Register(name, &CDocumentTest::OnStart, &CDocumentTest::OnEnd);
        }
        Register("FAIL", &CDocumentTest::OnFail, nullptr);
        Register("LOG", &CDocumentTest::OnLog, nullptr);
        stream.clear();
        log.Clear();
    }

    using Start = bool (CDocumentTest::*)(const Containers::IConstNamedAttributes&);
    using End = bool (CDocumentTest::*)();

    void Register(const char* name, Start start, End end) {
        parser.RegisterStartHandler(
            name,
            new Core::TArgReturnCommand<CDocumentTest, bool,
                                        const Containers::IConstNamedAttributes&>(this, start));
        if (end) {
            parser.RegisterEndHandler(name,
                                      new Core::TReturnCommand<CDocumentTest, bool>(this, end));
        }
    }

    bool Parse(const std::string& text) {
        folder.Write("main.xml", text);
        return parser.Parse(Path("main.xml").c_str());
    }

    std::string Path(const std::string& name) const { return folder.Path(name); }
    Lines Messages() const { return MessageLines(log); }

    TestFiles::CTemporaryFolder folder;
    CoreUtilities::CMemMessageLog log;
    CSkinParser parser{&log};
    std::string stream;
};

} // namespace DocumentTests
