// The raw disk of Windows. An open folder is its raw path: an open handle would keep others from
// renaming it and all folders above it.
#pragma once

#include "handle.h"
#include "patience.h"
#include "platform/raw_disk.h"

namespace platform::windows {

class WindowsFolder final : public RawFolder {
  public:
    explicit WindowsFolder(std::wstring path) : path_(std::move(path)) {}
    const std::wstring& path() const { return path_; }

  private:
    std::wstring path_;
};

class WindowsFile final : public RawFile {
  public:
    explicit WindowsFile(Handle handle) : handle_(std::move(handle)) {}
    HANDLE handle() const { return handle_.get(); }

  private:
    Handle handle_;
};

inline const std::wstring& pathOf(const RawFolder& folder) {
    return static_cast<const WindowsFolder&>(folder).path();
}

/// No entry has a name that is no text.
std::error_code findPath(const RawFolder& in, const std::string& name, std::wstring& path);
/// For an entry that is to be made: a name that Windows cannot hold is refused.
std::error_code newPath(const RawFolder& in, const std::string& name, std::wstring& path);

inline HANDLE handleOf(const RawFile& file) {
    return static_cast<const WindowsFile&>(file).handle();
}

/// Links, junctions and mounted disks do; files that are only here when they are asked for are
/// reparse points too, but the file itself.
bool leadsElsewhere(DWORD reparseTag);
DWORD attributesFor(std::uint32_t mode);

/// Opens an entry of any kind to look at it or to change what is said of it.
Handle openEntry(const std::wstring& path, Links links, DWORD access = FILE_READ_ATTRIBUTES);

std::error_code lookAtHandle(HANDLE handle, RawEntry& entry);
std::error_code setHandleLike(HANDLE handle, const RawEntry& model);

class WindowsDisk final : public RawDisk {
  public:
    bool ignoresCase() const override { return true; }
    bool servesThreads() const override { return true; }
    bool syncsAllContents() const override { return false; }

    // folders.cpp
    Error openRoot(const std::string& path, std::unique_ptr<RawFolder>& folder) override;
    Error openFolder(RawFolder& in, const std::string& name, Links links,
                     std::unique_ptr<RawFolder>& folder) override;
    Error list(RawFolder& folder, std::vector<RawName>& names) override;
    Error look(RawFolder& in, const std::string& name, Links links, RawEntry& entry) override;
    Error lookAt(RawFolder& folder, RawEntry& entry) override;
    Error setLike(RawFolder& folder, const RawEntry& model) override;
    Error sync(RawFolder& folder) override;
    Error syncAll(RawFolder& folder) override;
    Error makeFolder(RawFolder& in, const std::string& name) override;
    Error removeFolder(RawFolder& in, const std::string& name) override;

    // files.cpp
    Error lookAt(RawFile& file, RawEntry& entry) override;
    Error openFile(RawFolder& in, const std::string& name, Links links,
                   std::unique_ptr<RawFile>& file) override;
    Error createFile(RawFolder& in, const std::string& name, std::uint32_t mode,
                     std::unique_ptr<RawFile>& file) override;
    Error emptyFile(RawFolder& in, const std::string& name,
                    std::unique_ptr<RawFile>& file) override;
    Error read(RawFile& file, std::span<std::uint8_t> into, std::size_t& count) override;
    Error write(RawFile& file, std::string_view bytes) override;
    Error seek(RawFile& file, std::uint64_t offset) override;
    Error map(RawFile& file, std::unique_ptr<FileView>& view) override;
    Error setLike(RawFile& file, const RawEntry& model) override;
    Error sync(RawFile& file) override;

    // names.cpp
    Error renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                    const std::string& newName) override;
    Error renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                     const std::string& newName) override;
    Error hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                   const std::string& newName) override;
    Error readLink(RawFolder& in, const std::string& name, std::string& target) override;
    Error makeLink(RawFolder& in, const std::string& name, const std::string& target) override;
    Error unlink(RawFolder& in, const std::string& name) override;

  private:
    Patience patience_;
};

} // namespace platform::windows
