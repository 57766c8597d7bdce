#pragma once

#include "serialization/DataStream.h"
#include "serialization/IncrementalItemMap.h"

namespace Vorin::Serialization {

/// One snapshot of the undo history, or an object inside of one: a data object in memory that is
/// compared with the snapshot before it as it is written, and shares with it what is the same.
///
/// Values are held and read as in a `CMemDataObject`: nothing is converted. Only what is written is
/// compared: a name that the one before holds and that is not written any more counts for nothing,
/// though it is not here then. One thread.
class CIncrementalMemDataObject final : public virtual IReadWriteDataStream {
public:
    /// `previousSnapshot` stays the caller's; it outlives this object, or `Detach` is called first.
    explicit CIncrementalMemDataObject(const CIncrementalMemDataObject* previousSnapshot = nullptr,
                                       bool isTolerant = false);

    CIncrementalMemDataObject(const CIncrementalMemDataObject&) = delete;
    CIncrementalMemDataObject& operator=(const CIncrementalMemDataObject&) = delete;

    bool IsTolerant() const override { return tolerant; }
    bool ReadBool(const char* name, bool& value) const override;
    bool ReadInt(const char* name, int& value) const override;
    bool ReadFloat(const char* name, float& value) const override;
    bool ReadDouble(const char* name, double& value) const override;
    bool ReadString(const char* name, char*& value) const override;
    bool ReadData(const char* name, void*& data, int& size) const override;
    bool ReadObject(const char* name, IDeSerialize& object) const override;
    bool Exists(const char* name) const override { return Find(name) != nullptr; }

    bool WriteBool(const char* name, const bool& value) override;
    bool WriteInt(const char* name, const int& value) override;
    bool WriteFloat(const char* name, const float& value) override;
    bool WriteDouble(const char* name, const double& value) override;
    bool WriteString(const char* name, const char* value) override;
    bool WriteData(const char* name, const void* data, int size) override;
    bool WriteObject(const char* name, const ISerialize& object) override;
    bool Remove(const char* name) override;

    /// Lets go of all values: what is written next is compared afresh.
    bool Clear() override;

    int GetCount() const { return items.GetCount(); }

    /// Whether all that was written since the last `Clear` is the same in the snapshot before;
    /// false without one.
    bool IsUnchanged() const { return unchanged; }

    const CIncrementalMemDataObject* GetPrevious() const { return previous; }

    /// From here on nothing stands before this snapshot.
    void Detach();

    /// Saves memory once all is written: the map of values shares its parts with that of the
    /// snapshot before. Neither object changes.
    void ShareWithPrevious();

    /// Becomes what `to` holds and `from` lacks or holds otherwise, with the objects inside cut
    /// down alike. Tolerant when something was left out as being the same: a reader then keeps what
    /// it does not find. False, and nothing is done, unless one stands directly before the other.
    bool SetDifference(const CIncrementalMemDataObject& from, const CIncrementalMemDataObject& to);

    /// The same of two objects that need not be neighbours.
    void FillDifference(const CIncrementalMemDataObject& from, const CIncrementalMemDataObject& to);

    /// The shared record of a value, valid as long as this object holds it; null for none.
    const IIncrementalItem* GetItem(const char* name) const;

private:
    const CIncrementalDataBuffer* Find(const char* name) const;
    IIncrementalItem* FindPrevious(const CIncrementalKey& key) const;
    bool InsertDifference(IIncrementalItem& item, IIncrementalItem* before);

    template <class Set, class... Value>
    bool WriteValue(const char* name, Set set, const Value&... value);

    const CIncrementalMemDataObject* previous; // may be null
    CIncrementalItemMap items;
    bool unchanged;
    bool tolerant;
};

} // namespace Vorin::Serialization
