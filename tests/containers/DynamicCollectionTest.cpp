#include "containers/DynamicCollection.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;
using Vorin::CoreUtilities::TDynamicCollection;

class INamed {
public:
    virtual ~INamed() = default;
    virtual std::string GetName() const = 0;
    virtual void SetName(const std::string& name) = 0;
};

class CNamed : public INamed {
public:
    CNamed() = default;
    explicit CNamed(const std::string& ownName) : name(ownName) {}
    std::string GetName() const override { return name; }
    void SetName(const std::string& newName) override { name = newName; }
    int number = 0;

private:
    std::string name = "new";
};

TEST(DynamicCollectionTest, ItemsAreSeenAsTheirInterface) {
    TDynamicCollection<CNamed, INamed> collection;
    collection.Add(CNamed("first"));
    collection.Add(CNamed("second"));
    IVector<INamed>& vector = collection;
    EXPECT_EQ(vector.GetCount(), 2);
    vector.Get(1).SetName("changed");
    const IConstVector<INamed>& readOnly = vector;
    EXPECT_EQ(readOnly.Get(0).GetName(), "first");
    EXPECT_EQ(readOnly.Get(1).GetName(), "changed");
}

TEST(DynamicCollectionTest, TypedAccessGivesTheConcreteItem) {
    TDynamicCollection<CNamed, INamed> collection;
    collection.SetCount(2);
    collection.At(1).number = 5;
    EXPECT_EQ(&collection.Get(1), &collection.At(1));
    collection.Add(CNamed("third"));
    EXPECT_EQ(collection.At(1).number, 5);
}

TEST(DynamicCollectionTest, ReadOnlyFormHandsOutConstItems) {
    TDynamicCollection<CNamed, INamed, IConstVector<INamed>> collection;
    collection.Add(CNamed("only"));
    const IConstVector<INamed>& vector = collection;
    EXPECT_EQ(vector.Get(0).GetName(), "only");
}

TEST(DynamicCollectionTest, ItemsThatLeftDoNotComeBack) {
    TDynamicCollection<CNamed, INamed> collection;
    collection.SetCount(3);
    collection.Get(2).SetName("old");
    collection.SetCount(2);
    collection.SetCount(3);
    EXPECT_EQ(collection.Get(2).GetName(), "new");
}

TEST(DynamicCollectionTest, NegativeCountsCountAsZero) {
    TDynamicCollection<CNamed, INamed> collection;
    collection.SetCount(3);
    collection.SetCount(std::numeric_limits<int>::min());
    EXPECT_EQ(collection.GetCount(), 0);
}

} // namespace
