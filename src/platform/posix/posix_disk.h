// The raw disk of a POSIX system: every call names its entry by an open folder and a name in it.
#pragma once

#include "descriptor.h"
#include "platform/raw_disk.h"

namespace platform::posix {

class PosixFolder final : public RawFolder {
  public:
    explicit PosixFolder(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}
    int number() const { return descriptor_.get(); }

  private:
    Descriptor descriptor_;
};

class PosixFile final : public RawFile {
  public:
    explicit PosixFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}
    int number() const { return descriptor_.get(); }

  private:
    Descriptor descriptor_;
};

inline int numberOf(const RawFolder& folder) {
    return static_cast<const PosixFolder&>(folder).number();
}

inline int numberOf(const RawFile& file) {
    return static_cast<const PosixFile&>(file).number();
}

class PosixDisk final : public RawDisk {
  public:
    bool ignoresCase() const override { return false; }
    bool servesThreads() const override { return true; }

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
};

} // namespace platform::posix
