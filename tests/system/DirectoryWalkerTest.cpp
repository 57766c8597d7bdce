#include "system/DirectoryWalker.h"

#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace Vorin::System {
namespace {

class DirectoryWalkerTest : public ::testing::Test {
protected:
    DirectoryWalkerTest() {
        folder.Write("one", "x");
        folder.Write("two.preset", "x");
        std::filesystem::create_directory(folder.Path("folder"));
    }

    static std::multiset<std::string> Names(CDirectoryWalker& walker) {
        std::multiset<std::string> names;
        for (; !walker.IsAtEnd(); walker.Next()) {
            names.insert(walker.GetValue());
        }
        return names;
    }

    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.GetPath();
};

TEST_F(DirectoryWalkerTest, GivesEveryEntryOnceTheDotsIncluded) {
    CDirectoryWalker walker(path.c_str());
    EXPECT_EQ(Names(walker),
              (std::multiset<std::string>{".", "..", "folder", "one", "two.preset"}));
}

TEST_F(DirectoryWalkerTest, StaysAtTheEnd) {
    CDirectoryWalker walker(path.c_str());
    Names(walker);
    walker.Next();
    EXPECT_TRUE(walker.IsAtEnd());
    EXPECT_EQ(walker.GetValue(), nullptr);
}

TEST_F(DirectoryWalkerTest, ResetOpensThePathAnew) {
    CDirectoryWalker walker(path.c_str());
    walker.Next();
    folder.Write("three", "x");
    walker.Reset();
    EXPECT_EQ(Names(walker),
              (std::multiset<std::string>{".", "..", "folder", "one", "three", "two.preset"}));
    walker.Reset();
    EXPECT_EQ(Names(walker).size(), 6u);
}

TEST_F(DirectoryWalkerTest, MayBeDroppedHalfWay) {
    const auto walker = std::make_unique<CDirectoryWalker>(path.c_str());
    walker->Next();
    EXPECT_FALSE(walker->IsAtEnd());
}

TEST_F(DirectoryWalkerTest, WhatCannotBeOpenedHasNoEntries) {
    CDirectoryWalker missing(folder.Path("missing").c_str());
    EXPECT_TRUE(missing.IsAtEnd());
    missing.Next();
    missing.Reset();
    EXPECT_TRUE(missing.IsAtEnd());
    EXPECT_TRUE(CDirectoryWalker(folder.Path("one").c_str()).IsAtEnd());
    EXPECT_TRUE(CDirectoryWalker(nullptr).IsAtEnd());
}

} // namespace
} // namespace Vorin::System
