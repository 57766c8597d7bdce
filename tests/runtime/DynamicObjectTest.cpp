#include "runtime/DynamicObject.h"

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;
using namespace Vorin::Runtime;

class CPart : public virtual IDynamicObject {
public:
    explicit CPart(int& livingCount) : living(livingCount) { ++living; }
    ~CPart() override { --living; }

private:
    int& living;
};

TEST(DynamicObjectTest, AttachedObjectsAreFoundByName) {
    int living = 0;
    CPart left(living);
    CPart right(living);
    CDynamicObject object;
    EXPECT_TRUE(object.SetObject("left", &left, kDontOwn));
    EXPECT_TRUE(object.SetObject("right", &right, kDontOwn));
    EXPECT_EQ(object.GetObject("left"), &left);
    const CDynamicObject& constObject = object;
    EXPECT_EQ(constObject.GetObject("right"), &right);
    EXPECT_EQ(object.GetObject("Left"), nullptr);
    EXPECT_EQ(object.GetObject(nullptr), nullptr);
    EXPECT_EQ(object.GetObjectCount(), 2);
}

TEST(DynamicObjectTest, OwnedObjectsDieWithTheDictionaryOrWhenReplaced) {
    int living = 0;
    CPart mine(living);
    {
        CDynamicObject object;
        object.SetObject("a", new CPart(living), kOwn);
        object.SetObject("a", new CPart(living), kOwn);
        EXPECT_EQ(living, 2);
        object.SetObject("b", new CPart(living), kOwn);
        object.SetObject("c", &mine, kDontOwn);
        EXPECT_EQ(living, 3);
    }
    EXPECT_EQ(living, 1);
}

TEST(DynamicObjectTest, RemoveLetsGoOfTheObject) {
    int living = 0;
    CDynamicObject object;
    object.SetObject("a", new CPart(living), kOwn);
    EXPECT_TRUE(object.RemoveObject("a"));
    EXPECT_EQ(living, 0);
    EXPECT_FALSE(object.RemoveObject("a"));
    EXPECT_FALSE(object.RemoveObject(nullptr));
    object.SetObject("a", new CPart(living), kOwn);
    EXPECT_TRUE(object.SetObject("a", nullptr, kOwn));
    EXPECT_EQ(living, 0);
    EXPECT_EQ(object.GetObjectCount(), 0);
}

TEST(DynamicObjectTest, NullNameAttachesNothing) {
    int living = 0;
    CPart part(living);
    CDynamicObject object;
    EXPECT_FALSE(object.SetObject(nullptr, &part, kOwn));
    EXPECT_EQ(object.GetObjectCount(), 0);
    EXPECT_EQ(living, 1);
}

} // namespace
