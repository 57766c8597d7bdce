#include "SkinEngine/Model/SkinModelState.h"

#include "datamodel/DynamicPropertyValue.h"
#include "serialization/ItemSerialization.h"
#include "serialization/MemDataObject.h"
#include "serialization/TypeSerializer.h"

#include <cmath>
#include <set>

namespace Vorin::AppEngine {

namespace {

using Serialization::IReadDataStream;
using Serialization::IWriteDataStream;
using Entry = ISkinDynamicObjectsDictionary::Entry;

constexpr int kStateVersion = 1;

/// A part of the state that a function writes.
template <class Function>
class TStatePart : public virtual Serialization::ISerialize {
public:
    explicit TStatePart(Function writeFunction) : write(std::move(writeFunction)) {}
    bool Serialize(IWriteDataStream& stream) const override { return write(stream); }

private:
    Function write;
};

/// A part of the state that a function reads.
template <class Function>
class TStatePartReader : public virtual Serialization::IDeSerialize {
public:
    explicit TStatePartReader(Function readFunction) : read(std::move(readFunction)) {}
    bool DeSerialize(const IReadDataStream& stream) override {
        isFit = read(stream);
        return isFit;
    }

    /// True also when there was nothing to read.
    bool IsFit() const { return isFit; }

private:
    Function read;
    bool isFit = true;
};

template <class Function>
bool ReadStatePart(const IReadDataStream& stream, const char* key, Function read) {
    TStatePartReader<Function> reader(std::move(read));
    stream.ReadObject(key, reader);
    return reader.IsFit();
}

std::string GetCountKey(const char* id) { return std::string(id) + ".count"; }

/// What is to be done once all of a state was found to be fit.
using Actions = std::vector<std::function<void()>>;

// How each kind is written and read. `Read` is false for a value that is there and is not fit, and
// says how an object is to take one that is.

struct CParamStateKind {
    using Interface = Objects::ICaptureParam;

    static void Write(IWriteDataStream& stream, const char* key, Interface& object) {
        stream.WriteDouble(key, object.GetValue());
    }
    static bool Read(const IReadDataStream& stream, const char* key,
                     std::function<void(Interface&)>& take) {
        double value = 0.0;
        if (!stream.ReadDouble(key, value)) {
            return true;
        }
        take = [value](Interface& object) { object.SetValue(value); };
        return std::isfinite(value);
    }
};

struct CStringStateKind {
    using Interface = Objects::ICaptureString;

    static void Write(IWriteDataStream& stream, const char* key, Interface& object) {
        stream.WriteString(key, object.GetValue());
    }
    static bool Read(const IReadDataStream& stream, const char* key,
                     std::function<void(Interface&)>& take) {
        Containers::CCharString text;
        if (Serialization::ReadItem(stream, key, text)) {
            take = [text](Interface& object) { object.SetValue(text.Get()); };
        }
        return true;
    }
};

/// Curves, surfaces and properties: objects that travel with their type.
template <class I, class F>
struct TObjectStateKind {
    using Interface = I;

    static void Write(IWriteDataStream& stream, const char* key, Interface& object) {
        stream.WriteObject(key, Serialization::CTypeSerializer(&object.GetValue()));
    }
    static bool Read(const IReadDataStream& stream, const char* key,
                     std::function<void(Interface&)>& take) {
        auto reader = std::make_shared<Serialization::TRuntimeDeSerializer<F>>();
        // An object that nobody here can make stands for a class that is not there any more.
        if (stream.ReadObject(key, *reader) && reader->Get()) {
            take = [reader](Interface& object) { object.SetValue(*reader->Get()); };
        }
        return true;
    }
};

template <class Kind>
bool WriteStateKind(IWriteDataStream& stream, const char* part, const char* prefix,
                    const std::vector<Entry>& entries) {
    const TStatePart writer([&](IWriteDataStream& inner) {
        for (const Entry& entry : entries) {
            if (auto* object = CastModelObject<typename Kind::Interface>(entry.object)) {
                Kind::Write(inner, (std::string(prefix) + entry.id).c_str(), *object);
            }
        }
        return true;
    });
    return stream.WriteObject(part, writer);
}

/// An action finds its object by name: what another one sets off may take it away.
template <class Kind>
bool ReadStateKind(const IReadDataStream& stream, const char* part, const char* prefix,
                   const CDynamicObjectsDictionary& persistent, Actions& actions) {
    using Interface = typename Kind::Interface;
    return ReadStatePart(stream, part, [&](const IReadDataStream& inner) {
        bool isFit = true;
        for (const Entry& entry : persistent.GetEntries()) {
            if (!CastModelObject<Interface>(entry.object)) {
                continue;
            }
            const std::string id = entry.id;
            std::function<void(Interface&)> take;
            isFit = Kind::Read(inner, (prefix + id).c_str(), take) && isFit;
            if (take) {
                actions.push_back([&persistent, id, take] {
                    if (auto* object = CastModelObject<Interface>(persistent.GetOwn(id.c_str()))) {
                        take(*object);
                    }
                });
            }
        }
        return isFit;
    });
}

using CCurveStateKind = TObjectStateKind<Objects::ICaptureCurve, Math::IFunction>;
using CSurfaceStateKind = TObjectStateKind<Objects::ICaptureSurface, Math::IBinaryFunction>;
using CPropertyStateKind =
    TObjectStateKind<Objects::ICaptureProperty, Objects::IDynamicPropertyValue>;

bool WriteStateCounts(IWriteDataStream& stream, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        if (auto* collection = CastModelObject<DataModel::ICollection>(entry.object)) {
            stream.WriteInt(GetCountKey(entry.id).c_str(), collection->GetCount());
        }
    }
    return true;
}

} // namespace

bool CSkinModel::CState::Serialize(IWriteDataStream& stream) const {
    const std::vector<Entry> entries = persistent.GetEntries();
    const TStatePart counts(
        [&](IWriteDataStream& inner) { return WriteStateCounts(inner, entries); });
    return stream.WriteInt("version", kStateVersion) &&
           WriteStateKind<CParamStateKind>(stream, "params", "p", entries) &&
           WriteStateKind<CCurveStateKind>(stream, "curves", "c", entries) &&
           WriteStateKind<CSurfaceStateKind>(stream, "surfaces", "s", entries) &&
           WriteStateKind<CStringStateKind>(stream, "strings", "s", entries) &&
           stream.WriteObject("collectionCounts", counts) &&
           WriteStateKind<CPropertyStateKind>(stream, "properties", "p", entries);
}

bool CSkinModel::CState::DeSerialize(const IReadDataStream& stream) {
    int version = 0;
    if (!stream.ReadInt("version", version)) {
        return stream.IsTolerant();
    }
    Serialization::CMemDataObject before;
    Serialize(before);
    if (Read(stream)) {
        return true;
    }
    Read(before);
    return false;
}

bool CSkinModel::CState::Read(const IReadDataStream& stream) {
    return ReadCounts(stream) && ReadValues(stream);
}

/// A count makes items, in which there may be collections with counts of their own: goes on until
/// no new collection turns up.
bool CSkinModel::CState::ReadCounts(const IReadDataStream& stream) {
    return ReadStatePart(stream, "collectionCounts", [this](const IReadDataStream& counts) {
        std::set<std::string> done;
        for (bool isNewFound = true; isNewFound;) {
            isNewFound = false;
            for (const std::string& id : GetCollections()) {
                auto* collection =
                    CastModelObject<DataModel::ICollection>(persistent.GetOwn(id.c_str()));
                int count = 0;
                if (!collection || !done.insert(id).second ||
                    !counts.ReadInt(GetCountKey(id.c_str()).c_str(), count)) {
                    continue;
                }
                if (count < 0) {
                    return false;
                }
                collection->SetCount(count);
                isNewFound = true;
            }
        }
        return true;
    });
}

/// By name: the objects may change with each count that is set.
std::vector<std::string> CSkinModel::CState::GetCollections() const {
    std::vector<std::string> ids;
    for (const Entry& entry : persistent.GetEntries()) {
        if (CastModelObject<DataModel::ICollection>(entry.object)) {
            ids.emplace_back(entry.id);
        }
    }
    return ids;
}

/// Twice: where both ends of a link are persistent, the source may come behind its target.
bool CSkinModel::CState::ReadValues(const IReadDataStream& stream) {
    Actions actions;
    const bool isFit =
        ReadStateKind<CParamStateKind>(stream, "params", "p", persistent, actions) &&
        ReadStateKind<CCurveStateKind>(stream, "curves", "c", persistent, actions) &&
        ReadStateKind<CSurfaceStateKind>(stream, "surfaces", "s", persistent, actions) &&
        ReadStateKind<CStringStateKind>(stream, "strings", "s", persistent, actions) &&
        ReadStateKind<CPropertyStateKind>(stream, "properties", "p", persistent, actions);
    for (int round = 0; isFit && round < 2; ++round) {
        for (const auto& action : actions) {
            action();
        }
    }
    return isFit;
}

bool CSkinModel::Serialize(IWriteDataStream& stream) const {
    return stream.WriteObject("state", CState(persistentObjects));
}

bool CSkinModel::DeSerialize(const IReadDataStream& stream) {
    CState state(persistentObjects);
    return stream.ReadObject("state", state) || stream.IsTolerant();
}

} // namespace Vorin::AppEngine
