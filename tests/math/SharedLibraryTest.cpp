#include "math/Function.h"
#include "math/RegisteredFunctions.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace Vorin::Math {
namespace {

TEST(SharedLibraryTest, ALibraryThatIsLoadedMakesEveryClass) {
    void* library = dlopen(FUNCTIONS_PLUGIN, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    using Makes = int (*)(const char*, const char*);
    const auto makes = reinterpret_cast<Makes>(dlsym(library, "FunctionsPluginMakes"));
    ASSERT_NE(makes, nullptr) << dlerror();
    EXPECT_GE(GetRegisteredFunctions().size(), 73u);
    for (const CRegisteredFunction& registered : GetRegisteredFunctions()) {
        EXPECT_EQ(makes(registered.classId, registered.interfaceId), 1) << registered.classId;
    }
    EXPECT_EQ(makes("{nobody}", kFunctionInterface), -1);
    EXPECT_EQ(dlclose(library), 0);
}

TEST(SharedLibraryTest, ALibraryThatIsUnloadedLeavesNothingBehind) {
    void* library = dlopen(FUNCTIONS_PLUGIN, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_EQ(dlclose(library), 0);
    EXPECT_EQ(dlopen(FUNCTIONS_PLUGIN, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

} // namespace
} // namespace Vorin::Math
