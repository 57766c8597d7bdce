#include "core/Dirty.h"

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

TEST(DirtyTest, IsSetAndCleared) {
    CDirty dirty;
    EXPECT_FALSE(dirty.IsDirty());
    dirty.SetDirty();
    dirty.SetDirty();
    EXPECT_TRUE(dirty.IsDirty());
    dirty.ClearDirty();
    EXPECT_FALSE(dirty.IsDirty());
}

} // namespace
