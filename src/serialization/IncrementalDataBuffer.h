#pragma once

#include "serialization/DataBuffer.h"

namespace Vorin::Serialization {

class CIncrementalMemDataObject;

/// One typed value of a snapshot, whose objects are `CIncrementalMemDataObject`s: what the undo
/// history holds instead of a `CDataBuffer`. One thread.
class CIncrementalDataBuffer final : public CTypedBuffer {
public:
    ~CIncrementalDataBuffer() override { Free(); }

    bool GetObject(IDeSerialize& object) const override;

    /// The object held, which stays the buffer's; null for other types and for an empty buffer.
    const CIncrementalMemDataObject* GetMemObject() const;

    /// Holds all of `object`, compared with nothing.
    bool SetObject(const ISerialize& object) override;

    /// Has `object` write itself into a new object that is compared with the one in `previous`.
    /// `unchanged` becomes true when everything written was there before; it is false when
    /// `previous` is null or holds no object. When `object` fails, the buffer is left empty.
    bool SetObject(const ISerialize& object, const CIncrementalDataBuffer* previous,
                   bool& unchanged);

    /// Holds what a reader of `from` lacks of `to`.
    void SetDifference(const CIncrementalMemDataObject& from, const CIncrementalMemDataObject& to);

private:
    void DeleteObject(void* object) override;
};

} // namespace Vorin::Serialization
