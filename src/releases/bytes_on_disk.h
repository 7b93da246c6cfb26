// The bytes of a loose file.
#pragma once

#include <memory>
#include <string>

#include "formats/file_bytes.h"
#include "platform/disk.h"
#include "platform/failure.h"

namespace releases {

/// It is read, not mapped: while it is looked at somebody may cut it. The disk must outlive it.
class BytesOnDisk final : public formats::FileBytes {
  public:
    /// Throws Failure where the file cannot be opened.
    BytesOnDisk(platform::Disk& disk, const std::string& path) : reader_(disk.openFile(path)) {}
    std::uint64_t size() const override { return reader_->size(); }

  protected:
    void readInside(std::uint64_t offset, std::span<std::uint8_t> into) override {
        reader_->seek(offset);
        while (!into.empty()) {
            const auto count = reader_->read(into);
            if (count == 0)
                throw platform::Failure("read", "a file", "it ends too early");
            into = into.subspan(count);
        }
    }

  private:
    std::unique_ptr<platform::FileReader> reader_;
};

} // namespace releases
