#include "SkinEngine/Model/SkinCollection.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace ModelTests {
namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;

/// Writes down what happens to its items.
class CTestItemFactory : public ISkinCollectionItemFactory {
public:
    explicit CTestItemFactory(std::string& itemLog, int mostItems = 1000)
        : log(itemLog), limit(mostItems) {}

    int GetCount() const override { return static_cast<int>(items.size()); }
    void Reserve(int delta) override {
        for (int i = 0; i < delta; ++i) {
            items.emplace_back();
        }
    }
    bool CreateItem(int index, const Containers::IConstNamedAttributes& attributes) override {
        if (index >= limit) {
            return false;
        }
        items[static_cast<std::size_t>(index)] = std::make_unique<CItem>(*this, index);
        log += "+" + std::to_string(index);
        for (const char* name : {"item_id", "band", "a_item_id", "b_item_id"}) {
            if (const char* value = attributes.GetValue(name)) {
                log += std::string(" ") + name + "=" + value;
            }
        }
        log += ";";
        return true;
    }
    void DestroyItem(int index) override {
        items[static_cast<std::size_t>(index)].reset();
        log += "-" + std::to_string(index) + ";";
    }
    ISkinCollectionItem* GetItem(int index) override {
        return index < GetCount() ? items[static_cast<std::size_t>(index)].get() : nullptr;
    }
    void Release(int delta) override {
        for (int i = delta; i < 0; ++i) {
            items.pop_back();
        }
    }

private:
    class CItem : public ISkinCollectionItem {
    public:
        CItem(CTestItemFactory& owner, int itemIndex) : factory(owner), index(itemIndex) {}
        void Disconnect() override { factory.log += "x" + std::to_string(index) + ";"; }

    private:
        CTestItemFactory& factory;
        int index;
    };

    std::string& log;
    int limit;
    std::vector<std::unique_ptr<CItem>> items;
};

/// Writes the events of a collection into a log.
class CCountListener {
public:
    CCountListener(DataModel::IConstCollection& watchedCollection, std::string& eventLog)
        : collection(watchedCollection), log(eventLog) {
        collection.GetCountChangingEvents().Connect(changing);
        collection.GetCountChangedEvents().Connect(changed);
    }
    ~CCountListener() {
        collection.GetCountChangingEvents().Disconnect(changing);
        collection.GetCountChangedEvents().Disconnect(changed);
    }
    CCountListener(const CCountListener&) = delete;
    CCountListener& operator=(const CCountListener&) = delete;

private:
    void OnChanging(int count) { log += "to" + std::to_string(count) + ";"; }
    void OnChanged() { log += "now" + std::to_string(collection.GetCount()) + ";"; }

    DataModel::IConstCollection& collection;
    std::string& log;
    Core::TArgCommand<CCountListener, int> changing{this, &CCountListener::OnChanging};
    Core::TCommand<CCountListener> changed{this, &CCountListener::OnChanged};
};

class SkinCollectionTest : public ::testing::Test {
protected:
    std::string Take() { return std::exchange(log, std::string()); }

    void GiveFactory(CSkinCollectionBase& given, int limit = 1000) {
        given.SetItemFactory(std::make_unique<CTestItemFactory>(log, limit));
    }

    std::string log;
    CSkinCollection collection{"bands"};
};

TEST_F(SkinCollectionTest, MakesItsItemsWhenTheFactoryArrives) {
    EXPECT_EQ(collection.GetCount(), 0);
    collection.SetCount(2);
    EXPECT_EQ(collection.GetCount(), 2);
    EXPECT_EQ(Take(), "");
    GiveFactory(collection);
    EXPECT_EQ(Take(), "+0 item_id=bands[0];+1 item_id=bands[1];");
}

TEST_F(SkinCollectionTest, GrowsInRisingOrderBetweenItsEvents) {
    GiveFactory(collection);
    const CCountListener listener(collection, log);
    collection.SetCount(2);
    EXPECT_EQ(Take(), "to2;+0 item_id=bands[0];+1 item_id=bands[1];now2;");
}

TEST_F(SkinCollectionTest, DisconnectsAllItemsThatGoBeforeTheFirstIsDestroyed) {
    GiveFactory(collection);
    collection.SetCount(4);
    Take();
    const CCountListener listener(collection, log);
    collection.SetCount(1);
    EXPECT_EQ(Take(), "to1;x1;x2;x3;-1;-2;-3;now1;");
    EXPECT_EQ(collection.GetItemFactory()->GetCount(), 1);
}

TEST_F(SkinCollectionTest, TheSameCountFiresNothing) {
    GiveFactory(collection);
    collection.SetCount(2);
    Take();
    const CCountListener listener(collection, log);
    collection.SetCount(2);
    EXPECT_EQ(Take(), "");
}

TEST_F(SkinCollectionTest, TheItemNameReplacesItemId) {
    collection.SetItemName("band");
    GiveFactory(collection);
    collection.SetCount(1);
    EXPECT_EQ(Take(), "+0 band=bands[0];");
}

TEST_F(SkinCollectionTest, TheMaximumWinsWhereTheBoundsCross) {
    const auto clamped = [&](int min, int max, int count) {
        collection.SetBounds(min, max);
        collection.SetCount(count);
        return collection.GetCount();
    };
    EXPECT_EQ(clamped(0, 5, 9), 5);
    EXPECT_EQ(clamped(3, 5, 1), 3);
    EXPECT_EQ(clamped(7, 5, 1), 5);
    EXPECT_EQ(clamped(7, 5, 9), 5);
    EXPECT_EQ(clamped(0, 5, -1), 0);
    EXPECT_EQ(clamped(-4, 5, -9), 0);
    EXPECT_EQ(clamped(0, -1, 3), 0);
}

TEST_F(SkinCollectionTest, HasTheItemsThatCouldBeMade) {
    GiveFactory(collection, 3);
    collection.SetCount(10);
    EXPECT_EQ(collection.GetCount(), 3);
    EXPECT_EQ(collection.GetItemFactory()->GetCount(), 3);
    collection.SetCount(2);
    EXPECT_EQ(collection.GetCount(), 2);
}

TEST_F(SkinCollectionTest, LetsItsItemsGoInTheEnd) {
    {
        CSkinCollection mortal("m");
        GiveFactory(mortal);
        mortal.SetCount(2);
        Take();
        mortal.Disconnect();
        EXPECT_EQ(Take(), "x0;x1;");
    }
    EXPECT_EQ(Take(), "");
}

/// Sets a count from within an event.
class CCountSetter {
public:
    CCountSetter(CSkinCollection& setCollection, std::map<int, int> countAfterCount)
        : collection(setCollection), next(std::move(countAfterCount)) {
        collection.GetCountChangedEvents().Connect(changed);
    }
    ~CCountSetter() { collection.GetCountChangedEvents().Disconnect(changed); }
    CCountSetter(const CCountSetter&) = delete;
    CCountSetter& operator=(const CCountSetter&) = delete;

private:
    void OnChanged() {
        const auto found = next.find(collection.GetCount());
        if (found != next.end()) {
            collection.SetCount(found->second);
        }
    }

    CSkinCollection& collection;
    std::map<int, int> next;
    Core::TCommand<CCountSetter> changed{this, &CCountSetter::OnChanged};
};

TEST_F(SkinCollectionTest, ACountThatIsSetDuringAChangeIsFollowed) {
    GiveFactory(collection);
    const CCountSetter setter(collection, {{3, 1}});
    collection.SetCount(3);
    EXPECT_EQ(collection.GetCount(), 1);
    EXPECT_EQ(collection.GetItemFactory()->GetCount(), 1);
}

TEST_F(SkinCollectionTest, ACountThatNeverSettlesEnds) {
    GiveFactory(collection);
    const CCountSetter setter(collection, {{2, 1}, {1, 2}});
    collection.SetCount(2);
    EXPECT_EQ(collection.GetCount(), collection.GetItemFactory()->GetCount());
}

class ForEachSkinCollectionTest : public SkinCollectionTest {
protected:
    void ConnectBoth() {
        each.ConnectSource("a", a);
        each.ConnectSource("b", b);
    }

    CSkinCollection a{"a"};
    CSkinCollection b{"b"};
    CForEachSkinCollection each{"each"};
};

TEST_F(ForEachSkinCollectionTest, HasAsManyItemsAsItsSmallestSource) {
    a.SetCount(3);
    b.SetCount(5);
    EXPECT_EQ(each.GetCount(), 0);
    ConnectBoth();
    EXPECT_EQ(each.GetCount(), 3);
}

TEST_F(ForEachSkinCollectionTest, FollowsTheCountsOfItsSources) {
    GiveFactory(a);
    GiveFactory(b);
    GiveFactory(each);
    ConnectBoth();
    a.SetCount(3);
    EXPECT_EQ(each.GetCount(), 0);
    b.SetCount(5);
    EXPECT_EQ(each.GetCount(), 3);
    a.SetCount(7);
    EXPECT_EQ(each.GetCount(), 5);
    b.SetCount(0);
    EXPECT_EQ(each.GetCount(), 0);
}

TEST_F(ForEachSkinCollectionTest, AnItemKnowsTheItemsOfAllSources) {
    GiveFactory(a);
    GiveFactory(b);
    a.SetCount(2);
    b.SetCount(2);
    each.SetHeld(true);
    GiveFactory(each);
    ConnectBoth();
    Take();
    each.SetHeld(false);
    EXPECT_EQ(Take(), "+0 item_id=each[0] a_item_id=a[0] b_item_id=b[0];"
                      "+1 item_id=each[1] a_item_id=a[1] b_item_id=b[1];");
}

TEST_F(ForEachSkinCollectionTest, DisconnectsItsItemsBeforeThoseOfTheSourceGo) {
    GiveFactory(a);
    std::string eachLog;
    a.SetCount(3);
    each.ConnectSource("a", a);
    each.SetItemFactory(std::make_unique<CTestItemFactory>(log));
    Take();
    a.SetCount(1);
    // x1;x2; of the follower, then of the source, which destroys its own; the follower's go last.
    EXPECT_EQ(Take(), "x1;x2;x1;x2;-1;-2;x1;x2;-1;-2;");
}

TEST_F(ForEachSkinCollectionTest, WithoutSourcesItIsEmpty) {
    GiveFactory(each);
    EXPECT_EQ(each.GetCount(), 0);
    a.SetCount(2);
    each.ConnectSource("a", a);
    EXPECT_EQ(each.GetCount(), 2);
    each.DisconnectSource(a);
    EXPECT_EQ(each.GetCount(), 0);
    GiveFactory(a);
    a.SetCount(5);
    EXPECT_EQ(each.GetCount(), 0);
}

TEST_F(ForEachSkinCollectionTest, LetsGoOfItsSources) {
    GiveFactory(a);
    GiveFactory(each);
    a.SetCount(2);
    each.ConnectSource("a", a);
    Take();
    each.Disconnect();
    EXPECT_EQ(Take(), "x0;x1;");
    a.SetCount(5);
    EXPECT_EQ(each.GetCount(), 2);
}

} // namespace
} // namespace ModelTests
