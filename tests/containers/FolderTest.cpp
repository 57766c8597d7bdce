#include "containers/Folder.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

/// All that a folder shows, as one text.
std::string Describe(const IFolder<int>& folder) {
    std::string text = folder.GetName();
    for (int index = 0; index < folder.GetItemCount(); ++index) {
        text += ' ' + std::to_string(folder.GetItem(index));
    }
    for (int index = 0; index < folder.GetFolderCount(); ++index) {
        text += " (" + Describe(folder.GetFolder(index)) + ")";
    }
    return text;
}

TEST(FolderTest, TreeOfFoldersAndItemsReadsInOrder) {
    Folder<int, int> root("root");
    root.AddItem(1);
    Folder<int, int>& bass = root.AddFolder("bass");
    bass.AddItem(2);
    bass.AddFolder("deep").AddItem(3);
    root.AddFolder("empty");
    root.AddItem(4);
    EXPECT_EQ(Describe(root), "root 1 4 (bass 2 (deep 3)) (empty)");
}

TEST(FolderTest, ChildrenStayWhereTheyAreWhenMoreAreAdded) {
    Folder<int, int> root("root");
    Folder<int, int>* first = &root.AddFolder("first");
    for (int count = 0; count < 100; ++count) {
        root.AddFolder("more");
    }
    EXPECT_EQ(&root.GetFolder(0), first);
}

TEST(FolderTest, DestructorDestroysChildrenAndItems) {
    const auto item = std::make_shared<int>(1);
    using Tree = Folder<std::shared_ptr<int>, std::shared_ptr<int>>;
    {
        Tree root("root");
        root.AddItem(item);
        root.AddFolder("child").AddFolder("grandchild").AddItem(item);
        EXPECT_EQ(item.use_count(), 3);
    }
    EXPECT_EQ(item.use_count(), 1);
}

} // namespace
