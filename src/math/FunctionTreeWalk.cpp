#include "math/FunctionTreeWalk.h"

#include "serialization/DataStream.h"

namespace Vorin::Math {

namespace {

/// A medium that keeps nothing: a compound that writes itself to it shows its parts.
class CWalkStream : public virtual Serialization::IWriteDataStream {
public:
    explicit CWalkStream(const FunctionTreeVisit& treeVisit) : visit(treeVisit) {}

    bool WriteBool(const char*, const bool&) override { return true; }
    bool WriteInt(const char*, const int&) override { return true; }
    bool WriteFloat(const char*, const float&) override { return true; }
    bool WriteDouble(const char*, const double&) override { return true; }
    bool WriteString(const char*, const char*) override { return true; }
    bool WriteData(const char*, const void*, int) override { return true; }
    bool WriteObject(const char*, const Serialization::ISerialize& object) override {
        if (visit(object)) {
            static_cast<void>(object.Serialize(*this)); // a part that fails is left out
        }
        return true;
    }
    bool Remove(const char*) override { return true; }
    bool Clear() override { return true; }

private:
    const FunctionTreeVisit& visit;
};

} // namespace

void WalkFunctionTree(const Serialization::ISerialize& root, const FunctionTreeVisit& visit) {
    CWalkStream stream(visit);
    stream.WriteObject("", root);
}

} // namespace Vorin::Math
