// Any bytes as a skin document. Form feeds divide them into the root document and the files that it
// may include by the names b.xml, c.xml and so on. One parser reads them all: nothing of a document
// stays behind, and one that fails says why.
#include "SkinEngine/Document/SkinElements.h"
#include "SkinEngine/Document/SkinParser.h"
#include "SkinEngine/Document/XMLReading.h"
#include "containers/MemMessageLog.h"
#include "fuzz/Explore.h"
#include "tests/files/TemporaryFolder.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;

class CSkinFuzz {
public:
    CSkinFuzz() { Register(); }

    void Run(std::string_view bytes) {
        const TestFiles::CTemporaryFolder folder;
        char name[] = "a.xml";
        for (std::size_t begin = 0; begin <= bytes.size() && name[0] <= 'd'; ++name[0]) {
            const std::size_t end = std::min(bytes.find('\f', begin), bytes.size());
            folder.Write(name, bytes.substr(begin, end - begin));
            begin = end + 1;
        }
        Parse(folder.Path("a.xml"));
    }

private:
    using Attributes = Containers::IConstNamedAttributes;

    void Register() {
        parser.GetBudget().SetMaximumElements(2000); // a million would only take its time
        parser.ResetHandlers();
        for (const std::string_view element : GetSkinElements()) {
            const std::string name(element);
            parser.RegisterStartHandler(
                name.c_str(), new Core::TArgReturnCommand<CSkinFuzz, bool, const Attributes&>(
                                  this, &CSkinFuzz::OnStart));
            parser.RegisterEndHandler(
                name.c_str(), new Core::TReturnCommand<CSkinFuzz, bool>(this, &CSkinFuzz::OnEnd));
        }
    }

    void Parse(const std::string& path) {
        log.Clear();
        parser.ClearFileChecks();
        parser.AddVariable("v", "1");
        const bool isSound = parser.Parse(path.c_str());
        Fuzz::Require(isSound || log.GetCount() > 0);
        Fuzz::Require(log.GetPlace().IsNowhere());
    }

    bool OnStart(const Attributes& /*attributes*/) { return true; }
    bool OnEnd() { return true; }

    CoreUtilities::CMemMessageLog log;
    CSkinParser parser{&log};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CXMLLibraryUse library; // once is enough
    static CSkinFuzz fuzz;
    fuzz.Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
