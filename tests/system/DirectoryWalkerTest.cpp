#include "system/DirectoryWalker.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>

namespace Vorin::System {
namespace {

class DirectoryWalkerTest : public ::testing::Test {
protected:
    DirectoryWalkerTest() {
        std::string name = (std::filesystem::temp_directory_path() / "walkerXXXXXX").string();
        directory = mkdtemp(name.data());
        Make("one");
        Make("two.preset");
        std::filesystem::create_directory(directory / "folder");
    }
    ~DirectoryWalkerTest() override { std::filesystem::remove_all(directory); }

    void Make(const char* name) { std::ofstream(directory / name) << "x"; }

    static std::multiset<std::string> Names(CDirectoryWalker& walker) {
        std::multiset<std::string> names;
        for (; !walker.IsAtEnd(); walker.Next()) {
            names.insert(walker.GetValue());
        }
        return names;
    }

    std::filesystem::path directory;
};

TEST_F(DirectoryWalkerTest, GivesEveryEntryOnceTheDotsIncluded) {
    CDirectoryWalker walker(directory.c_str());
    EXPECT_EQ(Names(walker),
              (std::multiset<std::string>{".", "..", "folder", "one", "two.preset"}));
}

TEST_F(DirectoryWalkerTest, StaysAtTheEnd) {
    CDirectoryWalker walker(directory.c_str());
    Names(walker);
    walker.Next();
    EXPECT_TRUE(walker.IsAtEnd());
    EXPECT_EQ(walker.GetValue(), nullptr);
}

TEST_F(DirectoryWalkerTest, ResetOpensThePathAnew) {
    CDirectoryWalker walker(directory.c_str());
    walker.Next();
    Make("three");
    walker.Reset();
    EXPECT_EQ(Names(walker),
              (std::multiset<std::string>{".", "..", "folder", "one", "three", "two.preset"}));
    walker.Reset();
    EXPECT_EQ(Names(walker).size(), 6u);
}

TEST_F(DirectoryWalkerTest, MayBeDroppedHalfWay) {
    const auto walker = std::make_unique<CDirectoryWalker>(directory.c_str());
    walker->Next();
    EXPECT_FALSE(walker->IsAtEnd());
}

TEST_F(DirectoryWalkerTest, WhatCannotBeOpenedHasNoEntries) {
    CDirectoryWalker missing((directory / "missing").c_str());
    EXPECT_TRUE(missing.IsAtEnd());
    missing.Next();
    missing.Reset();
    EXPECT_TRUE(missing.IsAtEnd());
    EXPECT_TRUE(CDirectoryWalker((directory / "one").c_str()).IsAtEnd());
    EXPECT_TRUE(CDirectoryWalker(nullptr).IsAtEnd());
}

} // namespace
} // namespace Vorin::System
