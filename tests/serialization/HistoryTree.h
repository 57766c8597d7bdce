#pragma once

#include "serialization/IncrementalHistoryManager.h"

#include <bit>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Vorin::Serialization {

struct CTree;

/// Bytes, apart from text.
struct CBlob {
    std::string bytes;
    bool operator==(const CBlob&) const = default;
};

/// A tree as a value of a tree.
struct CBox {
    CBox(CTree tree);
    std::vector<CTree> one;
};

using CTreeValue = std::variant<bool, int, float, double, std::string, CBlob, CBox>;

/// Named values of all types, in plain containers.
struct CTree {
    std::map<std::string, CTreeValue> values;
    int record = 0; // for a test to tell copies apart; no part of the value

    CTreeValue& operator[](const std::string& name) {
        return values.try_emplace(name).first->second;
    }
    CTree& Sub(const std::string& name) { return std::get<CBox>(values.at(name)).one.front(); }
    const CTreeValue* Find(const std::string& name) const {
        const auto found = values.find(name);
        return found != values.end() ? &found->second : nullptr;
    }
};

inline CBox::CBox(CTree tree) : one{std::move(tree)} {}

inline const CTree* TreeOf(const CTreeValue* value) {
    const auto* box = value ? std::get_if<CBox>(value) : nullptr;
    return box ? &box->one.front() : nullptr;
}

/// Equal to the bit: the two zeros differ.
inline bool operator==(const CTree& a, const CTree& b);
inline bool operator==(const CBox& a, const CBox& b) { return a.one.front() == b.one.front(); }
inline bool IsSameToTheBit(const CTreeValue& a, const CTreeValue& b) {
    if (a.index() != b.index()) {
        return false;
    }
    if (const auto* number = std::get_if<double>(&a)) {
        return std::bit_cast<std::uint64_t>(*number) ==
               std::bit_cast<std::uint64_t>(std::get<double>(b));
    }
    if (const auto* number = std::get_if<float>(&a)) {
        return std::bit_cast<std::uint32_t>(*number) ==
               std::bit_cast<std::uint32_t>(std::get<float>(b));
    }
    return a == b;
}
inline bool operator==(const CTree& a, const CTree& b) {
    auto other = b.values.begin();
    for (const auto& [name, value] : a.values) {
        if (other == b.values.end() || other->first != name ||
            !IsSameToTheBit(value, other->second)) {
            return false;
        }
        ++other;
    }
    return other == b.values.end();
}

/// Writes a tree as it stands, and reads one back: every name of the given ones that is there, of
/// whatever type. What a tolerant stream lacks stays, what another one lacks goes.
class CTreeSerializer : public virtual ISerializable {
public:
    CTreeSerializer(CTree& serializedTree, const std::vector<std::string>& knownNames)
        : tree(&serializedTree), names(&knownNames) {}

    bool Serialize(IWriteDataStream& stream) const override {
        bool done = true;
        for (const auto& [name, value] : tree->values) {
            done = Write(stream, name.c_str(), value) && done;
        }
        return done;
    }

    bool DeSerialize(const IReadDataStream& stream) override {
        for (const std::string& name : *names) {
            if (stream.Exists(name.c_str())) {
                Read(stream, name);
            } else if (!stream.IsTolerant()) {
                tree->values.erase(name);
            }
        }
        return true;
    }

private:
    bool Write(IWriteDataStream& stream, const char* name, const CTreeValue& value) const {
        switch (value.index()) {
        case 0:
            return stream.WriteBool(name, std::get<bool>(value));
        case 1:
            return stream.WriteInt(name, std::get<int>(value));
        case 2:
            return stream.WriteFloat(name, std::get<float>(value));
        case 3:
            return stream.WriteDouble(name, std::get<double>(value));
        case 4:
            return stream.WriteString(name, std::get<std::string>(value).c_str());
        case 5: {
            const std::string& bytes = std::get<CBlob>(value).bytes;
            return stream.WriteData(name, bytes.data(), static_cast<int>(bytes.size()));
        }
        default: {
            CTree copy = *TreeOf(&value);
            return stream.WriteObject(name, CTreeSerializer(copy, *names));
        }
        }
    }

    template <class T>
    bool ReadNumber(const IReadDataStream& stream, const std::string& name,
                    bool (IReadDataStream::*read)(const char*, T&) const) {
        T value{};
        const bool done = (stream.*read)(name.c_str(), value);
        if (done) {
            (*tree)[name] = value;
        }
        return done;
    }

    void Read(const IReadDataStream& stream, const std::string& name) {
        if (ReadNumber(stream, name, &IReadDataStream::ReadBool) ||
            ReadNumber(stream, name, &IReadDataStream::ReadInt) ||
            ReadNumber(stream, name, &IReadDataStream::ReadFloat) ||
            ReadNumber(stream, name, &IReadDataStream::ReadDouble)) {
            return;
        }
        char* text = nullptr;
        if (stream.ReadString(name.c_str(), text)) {
            const std::unique_ptr<char[]> owned(text);
            (*tree)[name] = std::string(text ? text : "");
            return;
        }
        void* data = nullptr;
        int size = 0;
        if (stream.ReadData(name.c_str(), data, size)) {
            const std::unique_ptr<char[]> owned(static_cast<char*>(data));
            (*tree)[name] = CBlob{std::string(owned.get(), static_cast<std::size_t>(size))};
            return;
        }
        if (!TreeOf(tree->Find(name))) {
            (*tree)[name] = CBox(CTree{});
        }
        CTreeSerializer sub(tree->Sub(name), *names);
        static_cast<void>(stream.ReadObject(name.c_str(), sub));
    }

    CTree* tree;
    const std::vector<std::string>* names;
};

/// Counts the three events of a history and keeps their order: h, u and r for each.
class CHistoryEvents {
public:
    explicit CHistoryEvents(IHistoryManager& watched) : history(watched) {
        history.GetHistoryChangedEvents().Connect(onHistory);
        history.GetUndoChangedEvents().Connect(onUndo);
        history.GetRedoChangedEvents().Connect(onRedo);
    }
    ~CHistoryEvents() {
        history.GetHistoryChangedEvents().Disconnect(onHistory);
        history.GetUndoChangedEvents().Disconnect(onUndo);
        history.GetRedoChangedEvents().Disconnect(onRedo);
    }
    CHistoryEvents(const CHistoryEvents&) = delete;
    CHistoryEvents& operator=(const CHistoryEvents&) = delete;

    /// What came since the last call.
    std::string Take() { return std::exchange(log, {}); }

private:
    void OnHistory() { log += 'h'; }
    void OnUndo() { log += 'u'; }
    void OnRedo() { log += 'r'; }

    IHistoryManager& history;
    std::string log;
    Core::TCommand<CHistoryEvents> onHistory{this, &CHistoryEvents::OnHistory};
    Core::TCommand<CHistoryEvents> onUndo{this, &CHistoryEvents::OnUndo};
    Core::TCommand<CHistoryEvents> onRedo{this, &CHistoryEvents::OnRedo};
};

/// How many snapshots stand before the current one, by the links from each to the one before it.
inline int CountPrevious(const CIncrementalHistoryManager& history) {
    int count = 0;
    for (const auto* entry = history.GetCurrent(); entry && entry->GetPrevious();
         entry = entry->GetPrevious()) {
        ++count;
    }
    return count;
}

} // namespace Vorin::Serialization
