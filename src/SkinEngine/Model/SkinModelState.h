#pragma once

#include "SkinEngine/Model/SkinModel.h"

namespace Vorin::AppEngine {

/// The values of the persistent objects of a model: "version", then objects "params", "curves",
/// "surfaces", "strings", "collectionCounts" and "properties". Under each stands, by the identifier
/// behind the letter of its kind, a value; a count by the identifier and ".count".
class CSkinModel::CState : public virtual Serialization::ISerializable {
public:
    /// What is persistent, which outlives the state.
    explicit CState(const CDynamicObjectsDictionary& persistentObjects)
        : persistent(persistentObjects) {}

    /// A function that the media cannot hold, as when it is too deep, is left out.
    bool Serialize(Serialization::IWriteDataStream& stream) const override;

    /// Counts first, since they make the items that other values belong to. When a value is not
    /// fit, what stood before is put back: false.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

private:
    bool Read(const Serialization::IReadDataStream& stream);
    bool ReadCounts(const Serialization::IReadDataStream& stream);
    bool ReadValues(const Serialization::IReadDataStream& stream);
    std::vector<std::string> GetCollections() const;

    const CDynamicObjectsDictionary& persistent;
};

} // namespace Vorin::AppEngine
