// What a skin document costs on its way to the handlers: templates, repeats and variables that
// expand to ten thousand elements, against the XML library's bare parse of the text that they
// expand to.
#include "SkinEngine/Document/SkinParser.h"
#include "SkinEngine/Document/XMLReading.h"
#include "bench/Ratio.h"
#include "containers/MemMessageLog.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include <benchmark/benchmark.h>

namespace {

using namespace Vorin;
using Containers::CNamedAttribute;
using Containers::IConstNamedAttributes;

// A strip is a row with five elements in it, so 1,666 strips and the root make 9,997 elements.
constexpr const char* kDocument = R"(<SKIN>
  <VARIABLE id="width" formula="16*4"/>
  <DEFINE><LABEL base_type="TEXT" color="FFFFFF" font="Sans"/></DEFINE>
  <TEMPLATE id="STRIP" title="none" gap="2">
    <ROW id="$id$" spacing="$gap$">
      <LABEL value="$title$" width="$width$"/>
      <TEMPLATE_INNER_CONTENT/>
      <IMAGE_PARAM_KNOB param_id="$id$.gain" images_count="64" pixel_range="200"/>
      <PARAM_TEXT param_id="$id$.gain" width="$width$" height="20"/>
    </ROW>
  </TEMPLATE>
  <REPEAT count="34" index_name="i">
    <REPEAT count="49" index_name="j">
      <STRIP id="strip$i$_$j$" title="Strip $j$">
        <IMAGE image="strip.png" x="$i$" y="$j$"/>
        <PARAM id="strip$i$_$j$.gain" min="-60" max="12" default="0"/>
      </STRIP>
    </REPEAT>
  </REPEAT>
</SKIN>
)";

constexpr const char* kElements[] = {"SKIN",       "ROW",   "TEXT", "IMAGE_PARAM_KNOB",
                                     "PARAM_TEXT", "IMAGE", "PARAM"};

/// Takes the elements and does nothing with them but what it is told to.
class CSkinReceiver {
public:
    explicit CSkinReceiver(std::string* expandedText) : expanded(expandedText), parser(&log) {
        parser.ResetHandlers();
        for (const char* element : kElements) {
            parser.RegisterStartHandler(
                element,
                new Core::TArgReturnCommand<CSkinReceiver, bool, const IConstNamedAttributes&>(
                    this, &CSkinReceiver::OnStart));
            parser.RegisterEndHandler(element, new Core::TReturnCommand<CSkinReceiver, bool>(
                                                   this, &CSkinReceiver::OnEnd));
        }
    }

    bool Parse(const std::string& path) {
        count = 0;
        return parser.Parse(path.c_str()) && log.GetCount() == 0;
    }

    int GetCount() const { return count; }

private:
    bool OnStart(const IConstNamedAttributes& attributes) {
        ++count;
        if (expanded) {
            *expanded += std::string("<") + parser.GetCurrentElementName();
            const std::unique_ptr<Containers::IConstIterator<CNamedAttribute>> iterator(
                attributes.CreateIterator());
            for (; !iterator->IsAtEnd(); iterator->Next()) {
                *expanded += std::string(" ") + iterator->Get().GetName() + "=\"" +
                             iterator->Get().GetValue() + "\"";
            }
            *expanded += ">\n";
        }
        return true;
    }

    bool OnEnd() {
        if (expanded) {
            *expanded += std::string("</") + parser.GetCurrentElementName() + ">\n";
        }
        return true;
    }

    std::string* expanded;
    int count = 0;
    CoreUtilities::CMemMessageLog log;
    AppEngine::CSkinParser parser;
};

class CCountingHandler : public xercesc::DefaultHandler {
public:
    void startElement(const XMLCh* /*uri*/, const XMLCh* /*localName*/,
                      const XMLCh* /*qualifiedName*/,
                      const xercesc::Attributes& /*attributes*/) override {
        ++count;
    }
    int count = 0;
};

struct CSkinFile {
    CSkinFile()
        : path((std::filesystem::temp_directory_path() /
                ("skin_bench_" + std::to_string(std::random_device()()) + ".xml"))
                   .string()) {
        std::ofstream(path) << kDocument;
    }
    ~CSkinFile() { std::filesystem::remove(path); }
    CSkinFile(const CSkinFile&) = delete;
    CSkinFile& operator=(const CSkinFile&) = delete;

    const std::string path;
};

int ParseBare(const std::string& text) {
    CCountingHandler handler;
    const std::unique_ptr<xercesc::SAX2XMLReader> reader(
        xercesc::XMLReaderFactory::createXMLReader());
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    reader->parse(xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()),
                                             text.size(), "expanded"));
    return handler.count;
}

void Expand(benchmark::State& state) {
    const CSkinFile file;
    CSkinReceiver receiver(nullptr);
    for (auto _ : state) {
        benchmark::DoNotOptimize(receiver.Parse(file.path));
    }
    state.SetItemsProcessed(state.iterations() * receiver.GetCount());
}
BENCHMARK(Expand);

bool PrintSkinRatio() {
    const CSkinFile file;
    std::string expanded;
    if (!CSkinReceiver(&expanded).Parse(file.path)) {
        return false;
    }
    CSkinReceiver receiver(nullptr);
    int count = 0;
    const double ratio = Bench::MeasureRatio([&] { receiver.Parse(file.path); }, 4,
                                             [&] { count = ParseBare(expanded); }, 4);
    if (count != receiver.GetCount()) {
        return false;
    }
    std::printf("%d elements, %zu bytes expanded\n", count, expanded.size());
    Bench::PrintRatio("skin_expansion", ratio, 3);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const AppEngine::CXMLLibraryUse library; // for both, and not measured
    if (!library.IsReady() || !Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    return PrintSkinRatio() ? 0 : 1;
}
