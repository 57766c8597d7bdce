#include "system/DataFolders.h"

#include "files/Obstacles.h"
#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <dlfcn.h>
#include <pwd.h>
#include <unistd.h>

namespace Vorin::System {
namespace {

using TestFiles::CEnvironment;
using TestFiles::CTemporaryFolder;

/// Tests on a folder that holds a module's file, with an environment that leads nowhere else.
class DataFoldersTest : public ::testing::Test {
protected:
    DataFoldersTest() {
        Make("lib/plug");
        folder.Write("lib/plug/ondara-mini.so", "");
    }

    std::string Make(const std::string& name) const {
        std::filesystem::create_directories(folder.Path(name));
        return folder.Path(name);
    }
    std::string Shipped(const char* vendor = "Halvane") const {
        return DataFolders::GetShippedFolder(module.c_str(), vendor).Get();
    }
    std::string User(const char* vendor = "Halvane") const {
        return DataFolders::GetUserFolder(module.c_str(), vendor).Get();
    }

    CTemporaryFolder folder;
    const std::string module = folder.Path("lib/plug/ondara-mini.so");
    const CEnvironment dataDirs{"XDG_DATA_DIRS", folder.Path("one") + ":" + folder.Path("two")};
    const CEnvironment dataHome{"XDG_DATA_HOME", folder.Path("own")};
};

/// Whose lines tell which file lies at which addresses.
std::string ModuleByTheKernel(std::uintptr_t address) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        unsigned long begin = 0;
        unsigned long end = 0;
        int pathAt = 0;
        if (std::sscanf(line.c_str(), "%lx-%lx %*s %*s %*s %*s %n", &begin, &end, &pathAt) == 2 &&
            begin <= address && address < end) {
            return line.substr(static_cast<std::size_t>(pathAt));
        }
    }
    return {};
}

TEST_F(DataFoldersTest, TheModuleIsTheFileThatHoldsTheAddress) {
    static int ours = 0;
    const void* theirs = dlsym(RTLD_DEFAULT, "gnu_get_libc_version"); // no sanitizer replaces it
    ASSERT_NE(theirs, nullptr);
    const std::string program = DataFolders::GetModuleFile(&ours).Get();
    const std::string library = DataFolders::GetModuleFile(theirs).Get();
    EXPECT_EQ(program, std::filesystem::read_symlink("/proc/self/exe").string());
    EXPECT_EQ(library, ModuleByTheKernel(reinterpret_cast<std::uintptr_t>(theirs)));
    EXPECT_NE(library, program);
}

TEST_F(DataFoldersTest, AnAddressInNoModuleHasNone) {
    const auto heap = std::make_unique<int>(0);
    EXPECT_TRUE(DataFolders::GetModuleFile(heap.get()).IsEmpty());
    EXPECT_TRUE(DataFolders::GetModuleFile(nullptr).IsEmpty());
}

TEST_F(DataFoldersTest, TheFolderIsNamedForTheModuleWithoutItsExtension) {
    EXPECT_STREQ(DataFolders::GetFolderName("/a/ondara-mini.so").Get(), "ondara-mini data");
    EXPECT_STREQ(DataFolders::GetFolderName("/a.b/plug").Get(), "plug data");
    EXPECT_STREQ(DataFolders::GetFolderName("plug.2.so").Get(), "plug.2 data");
    EXPECT_TRUE(DataFolders::GetFolderName("").IsEmpty());
    EXPECT_TRUE(DataFolders::GetFolderName(nullptr).IsEmpty());
    EXPECT_TRUE(DataFolders::GetFolderName("/a/").IsEmpty());
}

TEST_F(DataFoldersTest, ShippedDataAreLookedForBesideTheModuleThenInSharedFolders) {
    const std::string beside = folder.Path("lib/plug/ondara-mini data");
    EXPECT_EQ(Shipped(), beside); // nothing there: where it should be
    EXPECT_EQ(Shipped(), beside);
    Make("two/ondara-mini data"); // not below the vendor
    EXPECT_EQ(Shipped(), beside);
    const std::string two = Make("two/Halvane/ondara-mini data");
    EXPECT_EQ(Shipped(), two);
    const std::string one = Make("one/Halvane/ondara-mini data");
    EXPECT_EQ(Shipped(), one);
    const std::string share = Make("lib/share/Halvane/ondara-mini data");
    EXPECT_EQ(Shipped(), share);
    folder.Write("lib/plug/ondara-mini data", "a file");
    EXPECT_EQ(Shipped(), share);
    std::filesystem::remove(beside);
    Make("lib/plug/ondara-mini data");
    EXPECT_EQ(Shipped(), beside);
}

TEST_F(DataFoldersTest, SystemFoldersThatAreNotAbsoluteDoNotCount) {
    const std::string good = Make("good/Halvane/ondara-mini data");
    const CEnvironment dirs("XDG_DATA_DIRS", ":relative::" + folder.Path("good") + ":");
    EXPECT_EQ(Shipped(), good);
}

TEST_F(DataFoldersTest, WithoutAModuleThereIsNoFolder) {
    for (const char* file : {static_cast<const char*>(nullptr), "", "ondara-mini.so"}) {
        EXPECT_TRUE(DataFolders::GetShippedFolder(file, "Halvane").IsEmpty());
    }
    EXPECT_TRUE(DataFolders::GetUserFolder(nullptr, "Halvane").IsEmpty());
    EXPECT_TRUE(DataFolders::GetUserFolder("", "Halvane").IsEmpty());
}

TEST_F(DataFoldersTest, TheVendorNeverLeadsOutOfTheFolder) {
    EXPECT_EQ(User(nullptr), folder.Path("own/ondara-mini data"));
    EXPECT_EQ(User(""), folder.Path("own/ondara-mini data"));
    EXPECT_EQ(User("/Halvane"), folder.Path("own/Halvane/ondara-mini data"));
}

TEST_F(DataFoldersTest, TheUsersDataAreWhereTheDesktopSays) {
    EXPECT_EQ(User(), folder.Path("own/Halvane/ondara-mini data"));
}

TEST_F(DataFoldersTest, TheUsersDataAreElseInTheHome) {
    const CEnvironment home("HOME", folder.Path("home"));
    const std::string expected = folder.Path("home/.local/share/Halvane/ondara-mini data");
    for (const char* value : {"", "relative"}) {
        const CEnvironment data("XDG_DATA_HOME", value);
        EXPECT_EQ(User(), expected);
    }
    const CEnvironment data("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(User(), expected);
}

TEST_F(DataFoldersTest, TheHomeIsElseThatOfThePasswordDatabase) {
    const CEnvironment data("XDG_DATA_HOME", std::nullopt);
    const CEnvironment home("HOME", std::nullopt);
    const passwd* entry = getpwuid(geteuid());
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(User(), std::string(entry->pw_dir) + "/.local/share/Halvane/ondara-mini data");
}

TEST_F(DataFoldersTest, CreateMakesAFolderWithItsParents) {
    EXPECT_TRUE(DataFolders::Create(folder.Path("a/b/c").c_str()));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path("a/b/c")));
    EXPECT_TRUE(DataFolders::Create(folder.Path("a/b/c").c_str()));
    EXPECT_TRUE(DataFolders::Create(folder.Path("a/d/").c_str()));
}

TEST_F(DataFoldersTest, CreateIsFalseWhereNoFolderCanBe) {
    EXPECT_FALSE(DataFolders::Create(module.c_str()));
    EXPECT_FALSE(DataFolders::Create((module + "/below").c_str()));
    EXPECT_FALSE(DataFolders::Create("/dev/null/below"));
    EXPECT_FALSE(DataFolders::Create("relative"));
    EXPECT_FALSE(DataFolders::Create(""));
    EXPECT_FALSE(DataFolders::Create(nullptr));
    EXPECT_FALSE(std::filesystem::exists("relative"));
}

TEST_F(DataFoldersTest, CreateIsFalseInAProtectedFolder) {
    const TestFiles::CWithoutRights anybody;
    EXPECT_FALSE(DataFolders::Create(folder.Path("lib/new/below").c_str()));
}

TEST_F(DataFoldersTest, NothingIsInNoFolder) {
    EXPECT_STREQ(DataFolders::Join("/a", "b").Get(), "/a/b");
    EXPECT_STREQ(DataFolders::Join("/a/", "b").Get(), "/a/b");
    EXPECT_TRUE(DataFolders::Join("", "b").IsEmpty());
    EXPECT_TRUE(DataFolders::Join(nullptr, "b").IsEmpty());
    EXPECT_TRUE(DataFolders::Join("/a", "").IsEmpty());
}

} // namespace
} // namespace Vorin::System
