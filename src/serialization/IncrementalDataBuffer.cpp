#include "serialization/IncrementalDataBuffer.h"

#include "serialization/IncrementalMemDataObject.h"

#include <memory>

namespace Vorin::Serialization {

void CIncrementalDataBuffer::DeleteObject(void* object) {
    delete static_cast<CIncrementalMemDataObject*>(object);
}

const CIncrementalMemDataObject* CIncrementalDataBuffer::GetMemObject() const {
    return static_cast<const CIncrementalMemDataObject*>(GetObjectPointer());
}

bool CIncrementalDataBuffer::GetObject(IDeSerialize& object) const {
    const CIncrementalMemDataObject* held = GetMemObject();
    return held && object.DeSerialize(*held);
}

bool CIncrementalDataBuffer::SetObject(const ISerialize& object) {
    bool unchanged = false;
    return SetObject(object, nullptr, unchanged);
}

bool CIncrementalDataBuffer::SetObject(const ISerialize& object,
                                       const CIncrementalDataBuffer* previous, bool& unchanged) {
    auto written =
        std::make_unique<CIncrementalMemDataObject>(previous ? previous->GetMemObject() : nullptr);
    const bool done = object.Serialize(*written);
    unchanged = done && written->IsUnchanged();
    Free();
    if (done) {
        written->ShareWithPrevious();
        // What was compared with may go before this object does, and is of no more use here.
        written->Detach();
        SetObjectPointer(written.release());
    }
    return done;
}

void CIncrementalDataBuffer::SetDifference(const CIncrementalMemDataObject& from,
                                           const CIncrementalMemDataObject& to) {
    auto difference = std::make_unique<CIncrementalMemDataObject>();
    difference->FillDifference(from, to);
    SetObjectPointer(difference.release());
}

} // namespace Vorin::Serialization
