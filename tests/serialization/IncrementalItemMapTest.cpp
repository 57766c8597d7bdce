#include "serialization/IncrementalItemMap.h"

#include <map>
#include <memory>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

CIncrementalItemPtr MakeItem(const std::string& name, int value) {
    auto buffer = std::make_unique<CIncrementalDataBuffer>();
    EXPECT_TRUE(buffer->SetInt(value));
    return CIncrementalItemPtr(new CIncrementalItem(name.c_str(), std::move(buffer)));
}

IIncrementalItem* Find(const CIncrementalItemMap& map, const std::string& name) {
    return map.Find(CIncrementalKey(name.c_str()));
}

std::map<std::string, int> ContentOf(const CIncrementalItemMap& map) {
    std::map<std::string, int> content;
    for (const IIncrementalItem* item : map.GetItems()) {
        int value = 0;
        EXPECT_TRUE(item->GetValue().buffer->GetInt(value));
        EXPECT_TRUE(content.emplace(item->GetValue().name.Get(), value).second);
    }
    EXPECT_EQ(map.GetCount(), static_cast<int>(content.size()));
    return content;
}

void Fill(CIncrementalItemMap& map, const CIncrementalItemMap& source) {
    for (IIncrementalItem* item : source.GetItems()) {
        map.Insert(CIncrementalItemPtr::Share(item));
    }
}

TEST(IncrementalItemMapTest, ANewMapIsEmpty) {
    const CIncrementalItemMap map;
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(Find(map, "a"), nullptr);
    EXPECT_TRUE(map.GetItems().empty());
}

TEST(IncrementalItemMapTest, NamesOfOneHashStandApartInOrderOfTheName) {
    CIncrementalItemMap map;
    // c1 * 5 + c2 is 538 for both.
    ASSERT_EQ(CIncrementalKey("b0").hash, CIncrementalKey("a5").hash);
    map.Insert(MakeItem("b0", 1));
    map.Insert(MakeItem("a5", 2));
    EXPECT_EQ(ContentOf(map), (std::map<std::string, int>{{"a5", 2}, {"b0", 1}}));
    EXPECT_STREQ(map.GetItems()[0]->GetValue().name.Get(), "a5");
    map.Remove("b0");
    EXPECT_EQ(Find(map, "b0"), nullptr);
    EXPECT_NE(Find(map, "a5"), nullptr);
}

TEST(IncrementalItemMapTest, AHundredNamesOfOneHashAreFoundAndRemoved) {
    CIncrementalItemMap map;
    std::map<std::string, int> expected;
    for (int i = 0; i < 128; ++i) { // seven pairs of "b0" or "a5": every text has one hash
        std::string name;
        for (int bit = 0; bit < 7; ++bit) {
            name += (i >> bit & 1) != 0 ? "b0" : "a5";
        }
        map.Insert(MakeItem(name, i));
        expected[name] = i;
    }
    map.Insert(MakeItem("other", -1));
    expected["other"] = -1;
    EXPECT_EQ(ContentOf(map), expected);
    while (!expected.empty()) {
        map.Remove(expected.begin()->first.c_str());
        expected.erase(expected.begin());
        ASSERT_EQ(ContentOf(map), expected);
    }
}

TEST(IncrementalItemMapTest, ASharedPartIsCopiedBeforeEitherMapChanges) {
    CIncrementalItemMap first;
    for (int i = 0; i < 200; ++i) {
        first.Insert(MakeItem("value" + std::to_string(i), i));
    }
    CIncrementalItemMap second;
    Fill(second, first);
    second.ShareWith(first);
    const auto before = ContentOf(first);
    ASSERT_EQ(ContentOf(second), before);

    second.Insert(MakeItem("value7", -7));
    second.Remove("value8");
    second.Insert(MakeItem("new", 1));
    EXPECT_EQ(ContentOf(first), before);
    const auto changed = ContentOf(second);
    first.Remove("value9");
    first.Clear();
    EXPECT_EQ(ContentOf(second), changed);
    EXPECT_EQ(changed.at("value7"), -7);
    EXPECT_EQ(changed.count("value8"), 0U);
    EXPECT_EQ(changed.at("value9"), 9);
}

TEST(IncrementalItemMapTest, AnItemLivesAsLongAsAMapHoldsIt) {
    const CIncrementalItemPtr item = MakeItem("a", 1);
    {
        CIncrementalItemMap first;
        CIncrementalItemMap second;
        first.Insert(item);
        second.Insert(item);
        EXPECT_EQ(item->GetRefCount(), 3);
        first.Remove("a");
        EXPECT_EQ(item->GetRefCount(), 2);
        second.Insert(MakeItem("a", 2));
        EXPECT_EQ(item->GetRefCount(), 1);
        first.Insert(item);
    }
    EXPECT_EQ(item->GetRefCount(), 1);
}

// After any changes the shape is that of the same items inserted in order into a new map: sharing
// with such a map then leaves no own node, so that the item is held by one leaf alone.
TEST(IncrementalItemMapTest, TheShapeFollowsFromTheItemsAlone) {
    std::mt19937 random(11);
    CIncrementalItemMap map;
    for (int step = 0; step < 5000; ++step) {
        const std::string name = std::to_string(random() % 300);
        if (random() % 2 == 0) {
            map.Insert(MakeItem(name, static_cast<int>(random() % 10)));
        } else {
            map.Remove(name.c_str());
        }
        if (step % 50 != 0) {
            continue;
        }
        CIncrementalItemMap fresh;
        Fill(fresh, map);
        fresh.ShareWith(map);
        for (const IIncrementalItem* item : map.GetItems()) {
            ASSERT_EQ(item->GetRefCount(), 1) << "at step " << step;
        }
    }
}

TEST(IncrementalItemMapTest, RandomChangesOfThreeSharingMapsStayApart) {
    std::mt19937 random(7);
    CIncrementalItemMap maps[3];
    std::map<std::string, int> expected[3];
    for (int step = 0; step < 20000; ++step) {
        const std::size_t index = random() % 3;
        const std::string name = std::to_string(random() % 100);
        switch (random() % 8) {
        case 0:
        case 1:
            maps[index].Remove(name.c_str());
            expected[index].erase(name);
            break;
        case 2: {
            const std::size_t other = random() % 3;
            if (other != index && random() % 10 == 0) { // becomes a sharing copy
                maps[index].Clear();
                Fill(maps[index], maps[other]);
                expected[index] = expected[other];
            }
            maps[index].ShareWith(maps[other]);
            break;
        }
        default: {
            const int value = static_cast<int>(random() % 5);
            maps[index].Insert(MakeItem(name, value));
            expected[index][name] = value;
        }
        }
        if (step % 20 == 0) {
            for (int i = 0; i < 3; ++i) {
                ASSERT_EQ(ContentOf(maps[i]), expected[i]) << "at step " << step;
            }
        }
    }
}

} // namespace
