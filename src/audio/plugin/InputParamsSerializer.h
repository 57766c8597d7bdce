#pragma once

#include "audio/plugin/HostParam.h"
#include "serialization/DataStream.h"
#include "serialization/Serializable.h"

#include <vector>

namespace Vorin::Audio::Plugin {

/// The values of all host inputs as an object: an int "count", then doubles "p0", "p1", ...
class CInputParamsSerializer : public virtual Serialization::ISerialize {
public:
    explicit CInputParamsSerializer(const IHostParams& savedParams) : params(savedParams) {}
    bool Serialize(Serialization::IWriteDataStream& stream) const override;

private:
    const IHostParams& params;
};

/// Reads them into a list, which the user stores once the whole document has proved fit.
///
/// A value that is missing keeps the current one. False for a value that is there and is no finite
/// number, and for a count that is none or promises more than there is.
class CInputParamsDeSerializer : public virtual Serialization::IDeSerialize {
public:
    /// Starts with the values as they are now.
    explicit CInputParamsDeSerializer(const IHostParams& currentParams);
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

    /// One per host input.
    const std::vector<double>& GetValues() const { return values; }

private:
    std::vector<double> values;
};

} // namespace Vorin::Audio::Plugin
