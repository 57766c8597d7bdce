#include "audio/plugin/InputParamsSerializer.h"

#include "audio/plugin/CountedItems.h"
#include "serialization/ItemName.h"

#include <cmath>

namespace Vorin::Audio::Plugin {

using namespace Serialization;

namespace {

constexpr char kParamsCount[] = "count";
constexpr char kValueWord[] = "p";

} // namespace

bool CInputParamsSerializer::Serialize(IWriteDataStream& stream) const {
    bool done = stream.WriteInt(kParamsCount, params.GetCount());
    for (int i = 0; i < params.GetCount(); ++i) {
        done &= stream.WriteDouble(ItemName(kValueWord, i).Get(), params.Get(i).GetValue());
    }
    return done;
}

CInputParamsDeSerializer::CInputParamsDeSerializer(const IHostParams& currentParams) {
    for (int i = 0; i < currentParams.GetCount(); ++i) {
        values.push_back(currentParams.Get(i).GetValue());
    }
}

bool CInputParamsDeSerializer::DeSerialize(const IReadDataStream& stream) {
    if (!IsCountFit(stream, kParamsCount, kValueWord, static_cast<int>(values.size()))) {
        return false;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Containers::CCharString name = ItemName(kValueWord, static_cast<int>(i));
        double value = 0.0;
        if (stream.ReadDouble(name.Get(), value)) {
            if (!std::isfinite(value)) {
                return false;
            }
            values[i] = value;
        } else if (stream.Exists(name.Get())) {
            return false;
        }
    }
    return true;
}

} // namespace Vorin::Audio::Plugin
