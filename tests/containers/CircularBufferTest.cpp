#include "containers/CircularBuffer.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace Vorin::Core {
namespace {

std::vector<int> Newest(const TCircularBuffer<int>& buffer, int count) {
    std::vector<int> values;
    for (int n = 0; n < count; ++n) {
        values.push_back(buffer.GetBehind(n));
    }
    return values;
}

TEST(CircularBufferTest, RoundsItsSizeUpToAPowerOfTwo) {
    struct {
        int asked;
        int size;
    } const cases[] = {{0, 1},       {1, 2},         {2, 2},         {3, 4},         {4, 4},
                       {1023, 1024}, {1024, 1024},   {1025, 2048},   {13230, 16384}, {44100, 65536},
                       {-5, 1},      {65536, 65536}, {65537, 131072}};
    for (const auto& one : cases) {
        TCircularBuffer<float> buffer;
        buffer.SetSize(one.asked);
        EXPECT_EQ(buffer.GetCount(), one.size) << one.asked;
    }
}

TEST(CircularBufferTest, HasNoRoomBeforeItsFirstSize) {
    EXPECT_EQ(TCircularBuffer<int>().GetCount(), 0);
}

TEST(CircularBufferTest, TakesItsSizeAsACountToo) {
    TCircularBuffer<int> buffer;
    Containers::ICount& count = buffer;
    count.SetCount(5);
    EXPECT_EQ(count.GetCount(), 8);
}

TEST(CircularBufferTest, KeepsItsContentWhenTheSizeStays) {
    TCircularBuffer<int> buffer;
    buffer.SetSize(4);
    for (int i = 1; i <= 6; ++i) {
        buffer.Push(i);
    }
    buffer.SetSize(3);
    EXPECT_EQ(Newest(buffer, 4), (std::vector<int>{6, 5, 4, 3}));
}

TEST(CircularBufferTest, ReadsTheValueBehindTheNewestAndWrapsTheDistance) {
    TCircularBuffer<int> buffer;
    buffer.SetSize(4);
    buffer.Fill(-1);
    buffer.Push(10);
    buffer.Push(11);
    EXPECT_EQ(Newest(buffer, 6), (std::vector<int>{11, 10, -1, -1, 11, 10}));
}

TEST(CircularBufferTest, StaysUsableWhenItShrinks) {
    TCircularBuffer<int> buffer;
    buffer.SetSize(64);
    buffer.Fill(0);
    for (int i = 0; i < 50; ++i) {
        buffer.Push(i);
    }
    buffer.SetSize(2);
    buffer.Fill(0);
    buffer.Push(7);
    EXPECT_EQ(Newest(buffer, 2), (std::vector<int>{7, 0}));
}

TEST(CircularBufferTest, CopiesToAnIndependentBuffer) {
    TCircularBuffer<int> buffer;
    buffer.SetSize(4);
    buffer.Fill(0);
    buffer.Push(1);
    TCircularBuffer<int> copy(buffer);
    buffer.Push(2);
    EXPECT_EQ(Newest(copy, 2), (std::vector<int>{1, 0}));
    copy.Push(3);
    EXPECT_EQ(Newest(buffer, 2), (std::vector<int>{2, 1}));
    copy = buffer;
    EXPECT_EQ(Newest(copy, 3), (std::vector<int>{2, 1, 0}));
}

TEST(CircularBufferTest, CopiesABufferOfOneValue) {
    TCircularBuffer<int> buffer;
    buffer.SetSize(0);
    buffer.Push(5);
    const TCircularBuffer<int> copy(buffer);
    EXPECT_EQ(copy.GetCount(), 1);
    EXPECT_EQ(copy.GetBehind(0), 5);
}

TEST(CircularBufferTest, CopiesABufferThatHasNoSize) {
    const TCircularBuffer<int> empty;
    TCircularBuffer<int> copy(empty);
    EXPECT_EQ(copy.GetCount(), 0);
    copy.SetSize(8);
    copy = empty;
    EXPECT_EQ(copy.GetCount(), 0);
    copy.SetSize(2);
    copy.Fill(4);
    EXPECT_EQ(Newest(copy, 2), (std::vector<int>{4, 4}));
}

// Runs of values beside single writes with a read each.
TEST(CircularBufferTest, PushesRunsAsItPushesSingleValues) {
    std::mt19937 random(3);
    for (const int size : {1, 2, 4, 8, 256}) {
        TCircularBuffer<int> runs;
        runs.SetSize(size == 1 ? 0 : size);
        runs.Fill(-1);
        TCircularBuffer<int> singles(runs);
        ASSERT_EQ(runs.GetCount(), size);
        int next = 0;
        for (int round = 0; round < 400; ++round) {
            const int count = static_cast<int>(random() % 300);
            const int distance = static_cast<int>(random() % static_cast<unsigned>(size + 1));
            std::vector<int> values;
            std::vector<int> expected;
            for (int i = 0; i < count; ++i) {
                values.push_back(++next);
                // Read before the write: the value `distance` before this one may be the very one
                // whose place it takes.
                const int behind = distance == 0 ? next : singles.GetBehind(distance - 1);
                singles.Push(next);
                expected.push_back(behind);
            }
            std::vector<int> room(static_cast<std::size_t>(count));
            const int* const seen =
                runs.PushAndGetDelayed(values.data(), count, distance, room.data());
            ASSERT_EQ(std::vector<int>(seen, seen + count), expected)
                << "size " << size << ", distance " << distance;
            ASSERT_EQ(Newest(runs, size), Newest(singles, size)) << "size " << size;
        }
    }
}

} // namespace
} // namespace Vorin::Core
