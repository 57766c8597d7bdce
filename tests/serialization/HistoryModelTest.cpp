// The history against a plain twin of it: a list of full copies, nothing shared, walked at random.

#include "serialization/HistoryTree.h"

#include <random>
#include <set>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

// "b0" and "a5" have one hash.
const std::vector<std::string> kNames = {"a", "b", "c", "d", "e", "f", "g", "h", "a5", "b0", "c4"};
constexpr int kDeepest = 3;

bool AreEqualValues(const CTreeValue& a, const CTreeValue& b) { return a == b; }

/// What the history has to do, on full copies.
class CPlainHistory {
public:
    CPlainHistory(CTree& watchedRoot, int limit, bool isPartial)
        : root(watchedRoot), maxCount(limit), partial(isPartial) {}

    bool CanUndo() const { return current > 0; }
    bool CanRedo() const { return current + 1 < GetCount(); }
    int GetCount() const { return static_cast<int>(entries.size()); }
    int GetCurrentIndex() const { return current; }
    const CTree& GetCurrent() const { return entries[static_cast<std::size_t>(current)]; }

    void TakeSnapshot() {
        const bool couldUndo = CanUndo();
        const bool couldRedo = CanRedo();
        bool unchanged = false;
        CTree entry = Record(root, entries.empty() ? nullptr : &GetCurrent(), unchanged);
        if (unchanged) {
            return;
        }
        entries.resize(static_cast<std::size_t>(current + 1));
        entries.push_back(std::move(entry));
        ++current;
        if (maxCount >= 0 && GetCount() > maxCount) {
            entries.erase(entries.begin());
            --current;
        }
        events += 'h';
        if (!couldUndo && CanUndo()) {
            events += 'u';
        }
        if (couldRedo) {
            events += 'r';
        }
    }

    void UpdateCurrent() {
        if (entries.empty()) {
            TakeSnapshot();
            return;
        }
        bool unchanged = false;
        const CTree* before =
            current > 0 ? &entries[static_cast<std::size_t>(current - 1)] : nullptr;
        entries[static_cast<std::size_t>(current)] = Record(root, before, unchanged);
    }

    void Undo() {
        if (!CanUndo()) {
            return;
        }
        const bool couldRedo = CanRedo();
        MoveTo(current - 1);
        events += CanUndo() ? "" : "u";
        events += couldRedo ? "" : "r";
    }

    void Redo() {
        if (!CanRedo()) {
            return;
        }
        const bool couldUndo = CanUndo();
        MoveTo(current + 1);
        events += CanRedo() ? "" : "r";
        events += couldUndo ? "" : "u";
    }

    void Clear() {
        events += CanRedo() ? "r" : "";
        events += CanUndo() ? "u" : "";
        entries.clear();
        current = -1;
    }

    std::string events;

private:
    // The copy of `now` that the history keeps: what is the same as before stays as it was, and an
    // object that only lost names counts as the same.
    CTree Record(const CTree& now, const CTree* before, bool& unchanged) {
        CTree copy;
        copy.record = ++lastRecord;
        unchanged = before != nullptr;
        for (const auto& [name, value] : now.values) {
            const CTreeValue* valueBefore = before ? before->Find(name) : nullptr;
            bool isSame = false;
            CTreeValue recorded = value;
            if (const CTree* tree = TreeOf(&value)) {
                recorded = CBox(Record(*tree, TreeOf(valueBefore), isSame));
            } else {
                isSame = valueBefore && AreEqualValues(value, *valueBefore);
            }
            copy[name] = isSame ? *valueBefore : recorded;
            unchanged = unchanged && isSame;
        }
        return copy;
    }

    void MoveTo(int target) {
        const CTree& from = GetCurrent();
        current = target;
        if (partial) {
            ApplyDifference(root, from, GetCurrent());
        } else {
            root = GetCurrent();
        }
    }

    static void ApplyDifference(CTree& target, const CTree& from, const CTree& to) {
        bool leftOut = false;
        std::set<std::string> given;
        for (const auto& [name, value] : to.values) {
            const CTreeValue* valueBefore = from.Find(name);
            const CTree* tree = TreeOf(&value);
            const CTree* treeBefore = TreeOf(valueBefore);
            const bool isSame = tree && treeBefore
                                    ? tree->record == treeBefore->record
                                    : valueBefore && AreEqualValues(value, *valueBefore);
            if (isSame) {
                leftOut = true;
                continue;
            }
            given.insert(name);
            if (!tree || !treeBefore) {
                target[name] = value;
                continue;
            }
            if (!TreeOf(target.Find(name))) {
                target[name] = CBox(CTree{});
            }
            ApplyDifference(target.Sub(name), *treeBefore, *tree);
        }
        if (!leftOut) {
            std::erase_if(target.values,
                          [&given](const auto& item) { return given.count(item.first) == 0; });
        }
    }

    CTree& root;
    const int maxCount;
    const bool partial;
    std::vector<CTree> entries;
    int current = -1;
    int lastRecord = 0;
};

/// Random changes of a tree, from few values so that many come back.
class CRandomChanges {
public:
    explicit CRandomChanges(std::uint32_t seed) : random(seed) {}

    int Roll(int sides) { return static_cast<int>(random() % static_cast<std::uint32_t>(sides)); }

    void Set(CTree& tree, int depth = 1) {
        CTreeValue& value = tree[GetName()];
        auto* box = std::get_if<CBox>(&value);
        if (box && Roll(4) != 0) {
            Set(box->one.front(), depth + 1);
        } else {
            value = MakeValue(depth);
        }
    }

    void Remove(CTree& tree) {
        const std::string name = GetName();
        CTreeValue* value = tree.Find(name) ? &tree[name] : nullptr;
        if (TreeOf(value) && Roll(4) != 0) {
            Remove(tree.Sub(name));
        } else {
            tree.values.erase(name);
        }
    }

private:
    const std::string& GetName() {
        return kNames[static_cast<std::size_t>(Roll(static_cast<int>(kNames.size())))];
    }

    CTreeValue MakeValue(int depth) {
        switch (Roll(depth < kDeepest ? 9 : 6)) {
        case 0:
            return Roll(2) == 0;
        case 1:
            return Roll(3);
        case 2:
            return static_cast<float>(Roll(3));
        case 3:
            return Roll(4) == 0 ? -0.0 : static_cast<double>(Roll(3));
        case 4:
            return std::string(static_cast<std::size_t>(Roll(3)), 'x');
        case 5:
            return CBlob{std::string(static_cast<std::size_t>(Roll(3)), '\0')};
        default: {
            CTree tree;
            for (int i = Roll(5); i > 0; --i) {
                Set(tree, depth + 1);
            }
            return CBox(tree);
        }
        }
    }

    std::mt19937 random;
};

struct CCase {
    const char* name;
    bool isPartial;
    int maxCount;
    std::uint32_t seed;
};

/// The real history and the plain one, each with a root of its own, through the same steps.
class CBothHistories {
public:
    explicit CBothHistories(const CCase& parameters)
        : changes(parameters.seed), plain(plainRoot, parameters.maxCount, parameters.isPartial) {
        history.SetMaxCount(parameters.maxCount);
        history.SetPartialRestore(parameters.isPartial);
    }

    void Step() {
        const int roll = changes.Roll(1000);
        if (roll < 420) {
            changes.Set(root);
            plainRoot = root;
        } else if (roll < 500) {
            changes.Remove(root);
            plainRoot = root;
        } else if (roll < 650) {
            history.TakeSnapshot();
            plain.TakeSnapshot();
        } else if (roll < 720) {
            history.UpdateCurrent();
            plain.UpdateCurrent();
        } else if (roll < 870) {
            undone += history.CanUndo() ? 1 : 0;
            history.Undo();
            plain.Undo();
        } else if (roll < 997) {
            redone += history.CanRedo() ? 1 : 0;
            history.Redo();
            plain.Redo();
        } else {
            history.Clear();
            plain.Clear();
        }
    }

    void Check() {
        ASSERT_EQ(history.CanUndo(), plain.CanUndo());
        ASSERT_EQ(history.CanRedo(), plain.CanRedo());
        ASSERT_EQ(history.GetCount(), plain.GetCount());
        ASSERT_EQ(events.Take(), std::exchange(plain.events, {}));
        ASSERT_TRUE(root == plainRoot);
        if (plain.GetCount() == 0) {
            ASSERT_EQ(history.GetCurrent(), nullptr);
            return;
        }
        ASSERT_EQ(CountPrevious(history), plain.GetCurrentIndex());
        CTree held;
        ASSERT_TRUE(CTreeSerializer(held, kNames).DeSerialize(*history.GetCurrent()));
        ASSERT_TRUE(held == plain.GetCurrent());
    }

    int undone = 0;
    int redone = 0;

private:
    CRandomChanges changes;
    CTree root;
    CTree plainRoot;
    CTreeSerializer serializer{root, kNames};
    CIncrementalHistoryManager history{&serializer};
    CHistoryEvents events{history};
    CPlainHistory plain;
};

class HistoryModelTest : public testing::TestWithParam<CCase> {};

TEST_P(HistoryModelTest, TenThousandRandomStepsEndWhereFullCopiesEnd) {
    CBothHistories both(GetParam());
    for (int step = 0; step < 10000; ++step) {
        both.Step();
        both.Check();
        ASSERT_FALSE(HasFatalFailure()) << "at step " << step;
    }
    EXPECT_GT(both.undone, 500);
    EXPECT_GT(both.redone, 250);
}

INSTANTIATE_TEST_SUITE_P(, HistoryModelTest,
                         testing::Values(CCase{"Full", false, -1, 1}, CCase{"Partial", true, -1, 2},
                                         CCase{"FullAtMostFive", false, 5, 3},
                                         CCase{"PartialAtMostFive", true, 5, 4},
                                         CCase{"PartialAtMostTwo", true, 2, 5}),
                         [](const auto& made) { return std::string(made.param.name); });

} // namespace
