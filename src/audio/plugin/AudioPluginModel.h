#pragma once

#include "core/Enable.h"
#include "serialization/DataStream.h"
#include "serialization/Serializable.h"

namespace Vorin::Audio::Plugin {

/// The named objects that an instance brings along beside its parameters, and their state.
///
/// There are none as yet: model documents are read by the skin engine. So the state is an empty
/// object, which keeps its place in the document.
class CAudioPluginModel : public Core::CEnable, public virtual Serialization::ISerializable {
public:
    bool Serialize(Serialization::IWriteDataStream&) const override { return true; }
    bool DeSerialize(const Serialization::IReadDataStream&) override { return true; }
};

} // namespace Vorin::Audio::Plugin
