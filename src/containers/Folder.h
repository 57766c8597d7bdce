#pragma once

#include "containers/CharString.h"

#include <cassert>
#include <memory>
#include <utility>
#include <vector>

namespace Vorin::Containers {

/// A node of a tree: a name, child folders, and items seen as `T`.
///
/// Indices run from 0 to the count less one. What is handed out stays with the folder.
template <class T>
class IFolder {
public:
    virtual const char* GetName() const = 0;
    virtual int GetFolderCount() const = 0;
    virtual IFolder<T>& GetFolder(int index) = 0;
    virtual const IFolder<T>& GetFolder(int index) const = 0;
    virtual int GetItemCount() const = 0;
    virtual const T& GetItem(int index) const = 0;
    virtual ~IFolder() = default;
};

/// A folder that owns its children and keeps items of type `S`, seen as `T`.
///
/// Its destructor destroys the children and the items. One thread.
template <class S, class T>
class Folder : public virtual IFolder<T> {
public:
    explicit Folder(const char* folderName) : name(folderName) {}

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const char* GetName() const override { return name.Get(); }
    int GetFolderCount() const override { return static_cast<int>(folders.size()); }
    Folder& GetFolder(int index) override { return *folders[Checked(index, folders.size())]; }
    const Folder& GetFolder(int index) const override {
        return *folders[Checked(index, folders.size())];
    }
    int GetItemCount() const override { return static_cast<int>(items.size()); }
    const T& GetItem(int index) const override { return items[Checked(index, items.size())]; }

    /// Appends an empty child, which stays with this folder.
    Folder& AddFolder(const char* childName) {
        folders.push_back(std::make_unique<Folder>(childName));
        return *folders.back();
    }

    void AddItem(S item) { items.push_back(std::move(item)); }

private:
    static std::size_t Checked(int index, std::size_t count) {
        assert(0 <= index && static_cast<std::size_t>(index) < count);
        static_cast<void>(count);
        return static_cast<std::size_t>(index);
    }

    CCharString name;
    std::vector<std::unique_ptr<Folder>> folders;
    std::vector<S> items;
};

} // namespace Vorin::Containers
