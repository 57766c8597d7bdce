#include "system/FileReplacement.h"

#include "files/Obstacles.h"
#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <sys/stat.h>

namespace Vorin::System {
namespace {

using TestFiles::CFullDisk;
using TestFiles::CTemporaryFolder;
using TestFiles::CWithoutRights;

class FileReplacementTest : public ::testing::Test {
protected:
    int Write(const std::string& name, const std::string& bytes) const {
        return FileReplacement::Write(folder.Path(name).c_str(), bytes.data(), bytes.size());
    }
    int Check(const std::string& name) const {
        return FileReplacement::Check(folder.Path(name).c_str());
    }

    void GiveToAnybody(const std::string& name) const {
        if (geteuid() == 0) {
            ASSERT_EQ(chown(folder.Path(name).c_str(), CWithoutRights::GetUser(), -1U), 0);
        }
    }
    void SetRights(const std::string& name, mode_t mode) const {
        ASSERT_EQ(chmod(folder.Path(name).c_str(), mode), 0);
    }
    mode_t GetRights(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(stat(folder.Path(name).c_str(), &status), 0);
        return status.st_mode & 0777;
    }

    CTemporaryFolder folder;
};

TEST_F(FileReplacementTest, MakesAFileAndLeavesNothingElse) {
    EXPECT_EQ(Check("file"), 0);
    EXPECT_TRUE(folder.List().empty());
    EXPECT_EQ(Write("file", std::string("a\0b\n", 4)), 0);
    EXPECT_EQ(folder.Read("file"), std::string("a\0b\n", 4));
    EXPECT_EQ(folder.List().size(), 1U);
}

TEST_F(FileReplacementTest, ReplacesAFileByALongerAShorterAndAnEmptyOne) {
    for (const std::size_t size : {3U, 1000000U, 10U, 0U}) {
        EXPECT_EQ(Write("file", std::string(size, 'x')), 0);
        EXPECT_EQ(folder.Read("file"), std::string(size, 'x'));
    }
    EXPECT_EQ(folder.List().size(), 1U);
}

TEST_F(FileReplacementTest, LeavesTheOldFileWhenTheDiskIsFull) {
    ASSERT_EQ(Write("file", "old"), 0);
    {
        const CFullDisk full(100);
        EXPECT_EQ(Write("file", std::string(101, 'x')), EFBIG);
        EXPECT_EQ(Write("other", std::string(101, 'x')), EFBIG);
        EXPECT_EQ(Write("file", std::string(100, 'y')), 0);
    }
    EXPECT_EQ(folder.Read("file"), std::string(100, 'y'));
    EXPECT_EQ(folder.List().size(), 1U);
}

TEST_F(FileReplacementTest, RefusesAFolderADeviceAndWhatIsNowhere) {
    std::filesystem::create_directory(folder.Path("folder"));
    folder.Write("file", "x");
    EXPECT_EQ(Write("folder", "x"), EISDIR);
    EXPECT_EQ(Check("folder"), EISDIR);
    EXPECT_EQ(Write("folder/", "x"), EISDIR);
    EXPECT_EQ(Write("missing/file", "x"), ENOENT);
    EXPECT_EQ(Check("missing/file"), ENOENT);
    EXPECT_EQ(Write("file/file", "x"), ENOTDIR);
    EXPECT_EQ(Write(std::string(300, 'n'), "x"), ENAMETOOLONG);
    EXPECT_EQ(FileReplacement::Write("/dev/full", "x", 1), EINVAL);
    EXPECT_EQ(FileReplacement::Check("/dev/full"), EINVAL);
    EXPECT_EQ(FileReplacement::Write("", "x", 1), ENOENT);
    EXPECT_EQ(FileReplacement::Write(nullptr, "x", 1), EINVAL);
    EXPECT_EQ(FileReplacement::Check(nullptr), EINVAL);
    EXPECT_EQ(FileReplacement::Write(folder.Path("file").c_str(), nullptr, 1), EINVAL);
    EXPECT_EQ(folder.Read("file"), "x");
    EXPECT_EQ(folder.List().size(), 2U);
}

TEST_F(FileReplacementTest, TakesANameAsLongAsNamesGet) {
    EXPECT_EQ(Write(std::string(255, 'n'), "x"), 0);
    EXPECT_EQ(folder.Read(std::string(255, 'n')), "x");
}

TEST_F(FileReplacementTest, GivesANewFileTheRightsOfAnyNewFile) {
    const mode_t before = umask(027);
    EXPECT_EQ(Write("file", "x"), 0);
    umask(before);
    EXPECT_EQ(GetRights("file"), 0640U);
}

TEST_F(FileReplacementTest, KeepsTheRightsOfTheFileReplaced) {
    folder.Write("file", "old");
    for (const mode_t mode : {0600U, 0664U, 0755U}) {
        SetRights("file", mode);
        EXPECT_EQ(Write("file", "new"), 0);
        EXPECT_EQ(GetRights("file"), mode);
    }
}

TEST_F(FileReplacementTest, LeavesAProtectedFile) {
    std::filesystem::create_directory(folder.Path("own"));
    folder.Write("own/file", "old");
    SetRights("own/file", 0444);
    GiveToAnybody("own/file");
    GiveToAnybody("own");
    const CWithoutRights anybody;
    EXPECT_EQ(Write("own/file", "new"), EACCES);
    EXPECT_EQ(Check("own/file"), EACCES);
    EXPECT_EQ(folder.Read("own/file"), "old");
}

TEST_F(FileReplacementTest, ReplacesAFileThatNobodyCanReadByOneThatItsOwnerCan) {
    std::filesystem::create_directory(folder.Path("own"));
    folder.Write("own/file", "old");
    SetRights("own/file", 0);
    GiveToAnybody("own/file");
    GiveToAnybody("own");
    const CWithoutRights anybody;
    EXPECT_EQ(Write("own/file", "new"), 0);
    EXPECT_EQ(folder.Read("own/file"), "new");
    EXPECT_EQ(GetRights("own/file"), 0600U);
}

TEST_F(FileReplacementTest, WritesNothingIntoAProtectedFolder) {
    std::filesystem::create_directory(folder.Path("own"));
    folder.Write("own/file", "old");
    SetRights("own", 0555);
    GiveToAnybody("own");
    {
        const CWithoutRights anybody;
        EXPECT_EQ(Write("own/file", "new"), EACCES);
        EXPECT_EQ(Write("own/other", "new"), EACCES);
    }
    EXPECT_EQ(folder.List().size(), 2U);
    EXPECT_EQ(folder.Read("own/file"), "old");
}

TEST_F(FileReplacementTest, ReplacesTheFileBehindALink) {
    folder.Write("real", "old");
    std::filesystem::create_symlink("real", folder.Path("link"));
    EXPECT_EQ(Write("link", "new"), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Read("real"), "new");
}

TEST_F(FileReplacementTest, PutsAFileWhereALinkLeadsNowhere) {
    std::filesystem::create_symlink("missing", folder.Path("link"));
    EXPECT_EQ(Write("link", "new"), 0);
    EXPECT_EQ(folder.Read("link"), "new");
}

TEST_F(FileReplacementTest, ShowsReadersWholeFilesAloneWhileThreadsWrite) {
    const std::string one(20000, '1');
    const std::string two(10000, '2');
    ASSERT_EQ(Write("file", one), 0);
    std::atomic<int> writing{2};
    const auto write = [&](const std::string& bytes) {
        for (int turn = 0; turn < 50; ++turn) {
            EXPECT_EQ(Write("file", bytes), 0);
        }
        --writing;
    };
    std::thread first(write, one);
    std::thread second(write, two);
    do {
        const std::string read = folder.Read("file");
        EXPECT_TRUE(read == one || read == two);
    } while (writing > 0);
    first.join();
    second.join();
    EXPECT_EQ(folder.List().size(), 1U);
}

} // namespace
} // namespace Vorin::System
