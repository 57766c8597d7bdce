#include "SkinEngine/Document/FilePaths.h"

#include "DocumentTest.h"

namespace DocumentTests {
namespace {

TEST(FilePathsTest, AreNormalized) {
    EXPECT_EQ(NormalizePath("a//b/./c/../d.xml"), "a/b/d.xml");
    EXPECT_EQ(NormalizePath("./a.xml"), "a.xml");
    EXPECT_EQ(NormalizePath("../a/../../b.xml"), "../../b.xml");
    EXPECT_EQ(NormalizePath("/../a"), "/a");
    EXPECT_EQ(NormalizePath(""), "");
}

TEST(FilePathsTest, HaveTheFolderUpToTheLastSlash) {
    EXPECT_EQ(GetFolder("/a/b.xml"), "/a/");
    EXPECT_EQ(GetFolder("b.xml"), "");
    EXPECT_EQ(GetFolder("/b.xml"), "/");
}

TEST(FilePathsTest, AreSeenFromAFolder) {
    EXPECT_EQ(GetRelativePath("/a/b/c.xml", "/a/"), "b/c.xml");
    EXPECT_EQ(GetRelativePath("/a/c.xml", "/a/b/"), "../c.xml");
    EXPECT_EQ(GetRelativePath("c.xml", ""), "c.xml");
    EXPECT_EQ(GetRelativePath("/c.xml", "a/"), "/c.xml") << "no way leads from one to the other";
}

TEST(FilePathsTest, OfAttributesAreResolvedAgainstTheBase) {
    const Containers::CNamedAttributes attributes = Attributes(
        {{"file", "./x/../y.png"}, {"rooted", "/z.png"}, {"outside", "../w.png"}, {"empty", ""}});
    EXPECT_EQ(ResolveFilePath(attributes, "file", "/a/b/"), "/a/b/y.png");
    EXPECT_EQ(ResolveFilePath(attributes, "rooted", "/a/b/"), "/z.png");
    EXPECT_EQ(ResolveFilePath(attributes, "outside", "/a/b/"), "/a/w.png");
    EXPECT_EQ(ResolveFilePath(attributes, "file", ""), "y.png");
    EXPECT_EQ(ResolveFilePath(attributes, "empty", "/a/b/"), "/a/b/");
    EXPECT_EQ(ResolveFilePath(attributes, "absent", "/a/b/"), std::nullopt);
}

} // namespace
} // namespace DocumentTests
