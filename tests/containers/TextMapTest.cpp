#include "containers/TextMap.h"

#include <map>
#include <random>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

using Map = TTextMap<int>;

TEST(TextMapTest, EmptyKeyLandsInBucketZero) {
    Map map;
    map.Obtain("").value = 5;
    EXPECT_EQ(map.GetBucket(""), 0);
    ASSERT_NE(map.Find(""), nullptr);
    EXPECT_EQ(map.Find("")->value, 5);
    EXPECT_EQ(map.GetFirst(), map.Find("")); // the walk begins at bucket 0
}

TEST(TextMapTest, BucketIsTheHashModuloTheCount) {
    Map map;
    map.Obtain("a");
    ASSERT_EQ(map.GetBucketCount(), 17);
    EXPECT_EQ(map.GetBucket("a"), 97 % 17);
    EXPECT_EQ(map.GetBucket("\xff"), static_cast<int>(0xffffffffu % 17u));
}

TEST(TextMapTest, KeysOfOneHashAreKeptApart) {
    // 'b' * 5 + 'a' = 'a' * 5 + 'f' = 587.
    Map map;
    map.Obtain("ba").value = 1;
    map.Obtain("af").value = 2;
    ASSERT_EQ(GetTextHash("ba"), GetTextHash("af"));
    EXPECT_EQ(map.Find("ba")->value, 1);
    EXPECT_EQ(map.Find("af")->value, 2);
    EXPECT_TRUE(map.Remove("ba"));
    EXPECT_EQ(map.Find("ba"), nullptr);
    EXPECT_EQ(map.Find("af")->value, 2);
}

TEST(TextMapTest, EmptyMapFindsAndRemovesNothing) {
    Map map;
    EXPECT_EQ(map.Find("x"), nullptr);
    EXPECT_FALSE(map.Remove("x"));
    EXPECT_EQ(map.GetFirst(), nullptr);
    EXPECT_EQ(map.GetBucket("x"), 0);
}

TEST(TextMapTest, GrowsAndKeepsEntriesInPlace) {
    Map map;
    map.Obtain("first").value = -1;
    const Map::CEntry* first = map.Find("first");
    for (int number = 0; number < 1000; ++number) {
        map.Obtain(std::to_string(number).c_str()).value = number;
    }
    EXPECT_EQ(map.GetCount(), 1001);
    EXPECT_GE(map.GetBucketCount(), 1000);
    EXPECT_EQ(map.Find("first"), first);
    for (int number = 0; number < 1000; ++number) {
        ASSERT_EQ(map.Find(std::to_string(number).c_str())->value, number);
    }
}

TEST(TextMapTest, WalkMeetsEveryEntryOnce) {
    Map map;
    for (int number = 0; number < 100; ++number) {
        map.Obtain(std::to_string(number).c_str());
    }
    std::set<std::string> met;
    int steps = 0;
    for (const Map::CEntry* entry = map.GetFirst(); entry; entry = map.GetNext(entry)) {
        met.insert(entry->key.Get());
        ++steps;
    }
    EXPECT_EQ(steps, 100);
    EXPECT_EQ(met.size(), 100u);
}

TEST(TextMapTest, KeyOfTheEntryItselfCanRemoveIt) {
    Map map;
    map.Obtain("key that is long enough for the heap");
    EXPECT_TRUE(map.Remove(map.GetFirst()->key.Get()));
    EXPECT_EQ(map.GetCount(), 0);
}

TEST(TextMapTest, CopiesAreIndependent) {
    Map map;
    map.Obtain("a").value = 1;
    Map copy(map);
    copy.Obtain("a").value = 2;
    copy.Obtain("b").value = 3;
    EXPECT_EQ(map.GetCount(), 1);
    EXPECT_EQ(map.Find("a")->value, 1);
    map = copy;
    EXPECT_EQ(map.Find("b")->value, 3);
    map.Clear();
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(copy.GetCount(), 2);
}

TEST(TextMapTest, AgreesWithAnOrderedMapOverRandomOperations) {
    std::mt19937 random(20240229);
    Map map;
    std::map<std::string, int> twin;
    for (int operation = 0; operation < 20000; ++operation) {
        std::string key;
        for (auto length = random() % 4; length > 0; --length) {
            key += static_cast<char>(1 + random() % 255);
        }
        key.resize(key.size() > 2 ? 1 : key.size());
        if (random() % 3 == 0) {
            ASSERT_EQ(map.Remove(key.c_str()), twin.erase(key) == 1);
        } else {
            map.Obtain(key.c_str()).value = operation;
            twin[key] = operation;
        }
        ASSERT_EQ(map.GetCount(), static_cast<int>(twin.size()));
    }
    for (const auto& [key, value] : twin) {
        ASSERT_NE(map.Find(key.c_str()), nullptr);
        EXPECT_EQ(map.Find(key.c_str())->value, value);
    }
}

} // namespace
