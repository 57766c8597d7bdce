// What the data objects add to the XML library under them: a state document through them and
// directly, and one object with many keys.
#include "bench/Ratio.h"
#include "serialization/XmlDataObject.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <tinyxml2.h>

namespace {

using namespace Vorin::Serialization;

constexpr int kObjects = 100;
constexpr int kValues = 20; // of each object

double ValueOf(int object, int value) { return (object * kValues + value) / 7.0; }

std::string Numbered(const char* word, int number) {
    std::string name(word);
    name += std::to_string(number);
    return name;
}

struct CNames {
    CNames() {
        for (int i = 0; i < std::max(kObjects, kValues); ++i) {
            objects.push_back(Numbered("object", i));
            values.push_back(Numbered("p", i));
        }
    }
    std::vector<std::string> objects;
    std::vector<std::string> values;
};

const CNames& Names() {
    static const CNames names;
    return names;
}

class CState : public ISerializable {
public:
    bool Serialize(IWriteDataStream& stream) const override {
        bool done = true;
        for (object = 0; object < kObjects; ++object) {
            done = stream.WriteObject(Names().objects[Index(object)].c_str(), CPart(*this)) && done;
        }
        return done;
    }

    bool DeSerialize(const IReadDataStream& stream) override {
        bool done = true;
        for (object = 0; object < kObjects; ++object) {
            CPart part(*this);
            done = stream.ReadObject(Names().objects[Index(object)].c_str(), part) && done;
        }
        return done;
    }

    double sum = 0; // of what was read

private:
    static std::size_t Index(int number) { return static_cast<std::size_t>(number); }

    class CPart : public ISerializable {
    public:
        explicit CPart(const CState& whole) : state(whole) {}
        bool Serialize(IWriteDataStream& stream) const override {
            bool done = true;
            for (int i = 0; i < kValues; ++i) {
                done = stream.WriteDouble(Names().values[Index(i)].c_str(),
                                          ValueOf(state.object, i)) &&
                       done;
            }
            return done;
        }
        bool DeSerialize(const IReadDataStream& stream) override {
            bool done = true;
            for (int i = 0; i < kValues; ++i) {
                double value = 0;
                done = stream.ReadDouble(Names().values[Index(i)].c_str(), value) && done;
                const_cast<CState&>(state).sum += value;
            }
            return done;
        }

    private:
        const CState& state;
    };

    mutable int object = 0;
};

/// Writes the state to text and reads it back.
class CDataObjectSide {
public:
    explicit CDataObjectSide(EXmlMode documentMode) : mode(documentMode) {}

    double Run() {
        CState state;
        CXmlDataObject written("Root", mode);
        state.Serialize(written);
        Vorin::Containers::CCharString text;
        written.SaveString(text);
        CXmlDataObject read("Root", mode);
        read.Parse(text.Get(), text.GetLength());
        state.DeSerialize(read);
        return state.sum;
    }

private:
    EXmlMode mode;
};

/// The same document with the library alone.
class CDirectSide {
public:
    explicit CDirectSide(EXmlMode documentMode) : mode(documentMode) {}

    double Run() {
        tinyxml2::XMLDocument written;
        Build(written);
        tinyxml2::XMLPrinter printer;
        written.Print(&printer);
        tinyxml2::XMLDocument read;
        read.Parse(printer.CStr());
        return Sum(read);
    }

private:
    void Build(tinyxml2::XMLDocument& document) const {
        document.InsertEndChild(document.NewDeclaration());
        tinyxml2::XMLElement* root = document.NewElement("Root");
        document.InsertEndChild(root);
        for (int i = 0; i < kObjects; ++i) {
            auto* object = root->InsertNewChildElement(Names().objects[std::size_t(i)].c_str());
            for (int j = 0; j < kValues; ++j) {
                const char* name = Names().values[std::size_t(j)].c_str();
                char text[48];
                std::snprintf(text, sizeof(text), "%.20g", ValueOf(i, j));
                if (mode == kXmlAttributes) {
                    object->SetAttribute(name, text);
                } else {
                    object->InsertNewChildElement(name)->SetText(text);
                }
            }
        }
    }

    double Sum(const tinyxml2::XMLDocument& document) const {
        double sum = 0;
        const tinyxml2::XMLElement* root = document.RootElement();
        for (int i = 0; i < kObjects; ++i) {
            const auto* object = root->FirstChildElement(Names().objects[std::size_t(i)].c_str());
            for (int j = 0; j < kValues; ++j) {
                const char* name = Names().values[std::size_t(j)].c_str();
                sum +=
                    std::strtod(mode == kXmlAttributes ? object->Attribute(name)
                                                       : object->FirstChildElement(name)->GetText(),
                                nullptr);
            }
        }
        return sum;
    }

    EXmlMode mode;
};

/// One object with many keys, each written, replaced and read.
class CKeysSide {
public:
    explicit CKeysSide(int keysCount) : count(keysCount) {
        for (int i = 0; i < count; ++i) {
            keys.push_back(Numbered("key", i));
        }
    }

    double Run() {
        CXmlDataObject object("Root", kXmlElements);
        int sum = 0;
        for (int round = 0; round < 2; ++round) {
            for (const std::string& key : keys) {
                object.WriteInt(key.c_str(), round);
            }
        }
        for (const std::string& key : keys) {
            int value = 0;
            object.ReadInt(key.c_str(), value);
            sum += value;
        }
        return sum;
    }

private:
    int count;
    std::vector<std::string> keys;
};

template <class Side, EXmlMode mode>
void BM_State(benchmark::State& state) {
    Side side(mode);
    for (auto _ : state) {
        benchmark::DoNotOptimize(side.Run());
    }
}
BENCHMARK(BM_State<CDataObjectSide, kXmlAttributes>);
BENCHMARK(BM_State<CDirectSide, kXmlAttributes>);
BENCHMARK(BM_State<CDataObjectSide, kXmlElements>);
BENCHMARK(BM_State<CDirectSide, kXmlElements>);

void BM_Keys(benchmark::State& state) {
    CKeysSide side(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(side.Run());
    }
}
BENCHMARK(BM_Keys)->Arg(1000)->Arg(10000);

template <class Side, class Peer>
double MeasureRatio(Side side, int rounds, Peer peer, int peerRounds) {
    return Bench::MeasureRatio([&] { benchmark::DoNotOptimize(side.Run()); }, rounds,
                               [&] { benchmark::DoNotOptimize(peer.Run()); }, peerRounds);
}

} // namespace

int main(int argc, char** argv) {
    for (const EXmlMode mode : {kXmlAttributes, kXmlElements}) {
        if (CDataObjectSide(mode).Run() != CDirectSide(mode).Run()) {
            std::fprintf(stderr, "the two sides read different values\n");
            return 1;
        }
    }
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    Bench::PrintRatio(
        "xml_state_attributes",
        MeasureRatio(CDataObjectSide(kXmlAttributes), 10, CDirectSide(kXmlAttributes), 10), 3.0);
    Bench::PrintRatio(
        "xml_state_elements",
        MeasureRatio(CDataObjectSide(kXmlElements), 10, CDirectSide(kXmlElements), 10), 3.0);
    // Ten times the keys: a tenth of it is the time of a key.
    Bench::PrintRatio("xml_keys_10000_to_1000",
                      MeasureRatio(CKeysSide(10000), 1, CKeysSide(1000), 10) / 10.0, 2.0);
    return 0;
}
