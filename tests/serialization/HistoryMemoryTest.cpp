#include "serialization/HistoryMemory.h"

#include <map>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

class HistoryMemoryTest : public testing::TestWithParam<CBigRootShape> {
protected:
    static const CHistoryCost& GetCost() {
        static std::map<std::string, CHistoryCost> costs;
        const CBigRootShape& shape = GetParam();
        const auto known = costs.find(shape.name);
        return known != costs.end()
                   ? known->second
                   : costs.emplace(shape.name, MeasureHistory(shape)).first->second;
    }
};

TEST_P(HistoryMemoryTest, ASnapshotWithoutAChangeLeavesNothingAllocated) {
    EXPECT_EQ(GetCost().unchanged.blocks, 0);
    EXPECT_EQ(GetCost().unchanged.bytes, 0);
    // The counter does count: a value is an item, its name, its buffer and what that holds.
    EXPECT_GT(GetCost().first.blocks, 4 * CBigRoot::kValueCount);
}

TEST_P(HistoryMemoryTest, AThousandChangesHoldLessThanThreeSnapshotsAndAKilobyteEach) {
    EXPECT_EQ(GetCost().entryCount, 1 + CHistoryCost::kChangeCount);
    EXPECT_LT(GetCost().GetRatio(), 1.0) << GetCost().GetBytesPerChange() << " bytes a change";
}

TEST_P(HistoryMemoryTest, NothingStaysAllocatedAfterTheHistory) {
    EXPECT_EQ(GetCost().left.blocks, 0);
    EXPECT_EQ(GetCost().left.bytes, 0);
}

INSTANTIATE_TEST_SUITE_P(, HistoryMemoryTest, testing::ValuesIn(GetBigRootShapes()),
                         [](const auto& made) { return std::string(made.param.name); });

} // namespace
