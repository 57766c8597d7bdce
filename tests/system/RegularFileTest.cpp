#include "system/RegularFile.h"

#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include <sys/stat.h>

namespace Vorin::System {
namespace {

using TestFiles::CTemporaryFolder;

TEST(RegularFileTest, IsReadPieceByPieceToItsEnd) {
    const CTemporaryFolder folder;
    const std::string path = folder.Path("letters");
    folder.Write("letters", "abcdefg");
    CRegularFile file(path.c_str());
    EXPECT_EQ(file.GetKind(), CRegularFile::EKind::kRegular);
    EXPECT_EQ(file.GetSize(), 7);
    char piece[4] = {};
    std::size_t count = 99;
    EXPECT_TRUE(file.Read(piece, 4, count));
    EXPECT_EQ(std::string(piece, count), "abcd");
    EXPECT_TRUE(file.Read(piece, 4, count));
    EXPECT_EQ(std::string(piece, count), "efg");
    EXPECT_TRUE(file.Read(piece, 4, count));
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(file.GetError(), 0);
}

TEST(RegularFileTest, IsReadWholeUpToALimit) {
    const CTemporaryFolder folder;
    const std::string path = folder.Path("letters");
    folder.Write("letters", "abcdefg");
    std::string content = "before";
    EXPECT_TRUE(CRegularFile(path.c_str()).ReadAll(content, 7));
    EXPECT_EQ(content, "abcdefg");
    CRegularFile longer(path.c_str());
    EXPECT_FALSE(longer.ReadAll(content, 6));
    EXPECT_EQ(longer.GetError(), 0);
    CRegularFile none(folder.Path("none").c_str());
    EXPECT_FALSE(none.ReadAll(content, 7));
    EXPECT_EQ(none.GetProblem(), "cannot be read: No such file or directory");
}

TEST(RegularFileTest, AFolderIsNotRead) {
    const CTemporaryFolder folder;
    CRegularFile file(folder.Path("").c_str());
    char piece[4] = {};
    std::size_t count = 99;
    EXPECT_EQ(file.GetKind(), CRegularFile::EKind::kFolder);
    EXPECT_FALSE(file.Read(piece, 4, count));
    EXPECT_EQ(count, 0U);
}

TEST(RegularFileTest, APipeNeitherWaitsNorIsRead) {
    const CTemporaryFolder folder;
    const std::string path = folder.Path("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    CRegularFile file(path.c_str());
    char piece[4] = {};
    std::size_t count = 99;
    EXPECT_EQ(file.GetKind(), CRegularFile::EKind::kOther);
    EXPECT_FALSE(file.Read(piece, 4, count));
}

TEST(RegularFileTest, WhatIsNotThereSaysSo) {
    const CTemporaryFolder folder;
    EXPECT_EQ(CRegularFile(folder.Path("none").c_str()).GetError(), ENOENT);
    EXPECT_EQ(CRegularFile(folder.Path("none").c_str()).GetKind(), CRegularFile::EKind::kNone);
    EXPECT_EQ(CRegularFile(nullptr).GetError(), ENOENT);
}

} // namespace
} // namespace Vorin::System
