// The form that memory objects and function objects take in a document, from a document whose
// markup is right: so that the bytes reach what reads values, not the parser alone.
#include "fuzz/Explore.h"
#include "math/CircularLUTFunction.h"
#include "math/FunctionsOperation.h"
#include "serialization/MemDataObject.h"
#include "serialization/XmlDataObject.h"

#include <limits>
#include <memory>

namespace {

using namespace Vorin;
using namespace Vorin::Serialization;

using Circle = Math::TCircularLUTFunction<
    Math::TLookupTable<float, Math::TConstrainedSplineInterpolator<float, float>>>;

void Use(Math::IFunction& function) {
    for (const double x :
         {-1e30, -1.0, -0.25, 0.0, 0.5, 1.0, 1e30, std::numeric_limits<double>::quiet_NaN()}) {
        function.Evaluate(x);
    }
    if (auto* circle = dynamic_cast<Circle*>(&function)) {
        const float samples[5] = {};
        circle->Write(samples, 5);
        circle->WriteZeros(circle->GetCount());
    }
    const std::unique_ptr<Math::IFunction> clone(function.Clone());
    CMemDataObject memory;
    Fuzz::Require(clone->Serialize(memory));
    Fuzz::Require(clone->DeSerialize(memory));
}

void ReadAll(const IReadDataStream& stream) {
    CMemDataObject memory;
    if (memory.DeSerialize(stream)) {
        Fuzz::Explore(memory);
        CMemDataObject copied;
        Fuzz::Require(memory.Serialize(copied));
    }
    for (const char* key : {"f", "g"}) {
        TRuntimeDeSerializer<Math::IFunction> reader;
        if (stream.ReadObject(key, reader) && reader.Get()) {
            Use(*reader.Get());
        }
    }
    Circle circle;
    if (circle.DeSerialize(stream)) {
        Use(circle);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CXmlDataObject object("Root", kXmlElements);
    if (object.Parse(data, static_cast<int>(size))) {
        ReadAll(object);
    }
    return 0;
}
