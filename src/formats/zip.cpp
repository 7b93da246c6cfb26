// The archive calls of libarchive, and what is made of the names.
#include "formats/zip.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include <archive.h>
#include <archive_entry.h>

#include "formats/zip_names.h"
#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"
#include "platform/utf8_locale.h"

namespace formats {
namespace {

constexpr std::size_t blockSize = 1U << 16U;

#ifdef _WIN32

/// The library gives wide names. Those that do not say how they are written are taken for the old
/// code page's, which has a letter for every byte, so the bytes can be told again.
constexpr auto readOptions = "zip:hdrcharset=CP437";

std::optional<std::string> nameOf(archive_entry* entry) {
    const wchar_t* name = archive_entry_pathname_w(entry);
    return name == nullptr ? std::nullopt : std::optional(readWideZipName(name));
}

#else

constexpr auto readOptions = "";

std::optional<std::string> nameOf(archive_entry* entry) {
    const char* name = archive_entry_pathname(entry);
    return name == nullptr ? std::nullopt : std::optional(readZipName(name));
}

#endif

} // namespace

struct ZipReader::Handle {
    archive* reader = archive_read_new();
    archive_entry* entry = nullptr;
    std::unique_ptr<platform::FileReader> file;
    la_int64_t at = 0; ///< in the file
    std::vector<std::uint8_t> block;
    std::vector<char> unpacked = std::vector<char>(blockSize);
    std::string fileFailure;

    Handle() = default;
    ~Handle() { archive_read_free(reader); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    // No exception may pass through the C library that calls these two.

    static la_ssize_t read(archive* /*reader*/, void* data, const void** piece) {
        auto& self = *static_cast<Handle*>(data);
        *piece = self.block.data();
        std::size_t count = 0;
        if (!self.guarded([&] { count = self.file->read(self.block); }))
            return ARCHIVE_FATAL;
        self.at += static_cast<la_int64_t>(count);
        return static_cast<la_ssize_t>(count);
    }

    static la_int64_t seek(archive* /*reader*/, void* data, la_int64_t offset, int whence) {
        auto& self = *static_cast<Handle*>(data);
        const bool worked = self.guarded([&] {
            const auto base = whence == SEEK_END   ? static_cast<la_int64_t>(self.file->size())
                              : whence == SEEK_CUR ? self.at
                                                   : 0;
            self.at = std::max<la_int64_t>(base + offset, 0);
            self.file->seek(static_cast<std::uint64_t>(self.at));
        });
        return worked ? self.at : ARCHIVE_FATAL;
    }

    template <typename Step>
    bool guarded(Step&& step) {
        try {
            step();
            return true;
        } catch (const platform::Failure& failure) {
            fileFailure = failure.reason();
            return false;
        }
    }

    [[noreturn]] void fail(const char* call) const {
        const char* said = archive_error_string(reader);
        std::string reason = !fileFailure.empty() ? fileFailure
                             : said != nullptr    ? said
                                                  : "it is damaged";
        reason.erase(reason.find_last_not_of(" \r\n") + 1);
        throw platform::Failure(call, "the archive", reason);
    }
};

ZipReader::ZipReader(std::span<const std::uint8_t> bytes) : handle_(std::make_unique<Handle>()) {
    if (archive_read_support_format_zip(handle_->reader) != ARCHIVE_OK ||
        archive_read_set_options(handle_->reader, readOptions) != ARCHIVE_OK ||
        archive_read_open_memory(handle_->reader, bytes.data(), bytes.size()) != ARCHIVE_OK)
        handle_->fail("open");
}

ZipReader::ZipReader(std::unique_ptr<platform::FileReader> file)
    : handle_(std::make_unique<Handle>()) {
    auto* reader = handle_->reader;
    handle_->file = std::move(file);
    handle_->block.resize(blockSize);
    if (archive_read_support_format_zip(reader) != ARCHIVE_OK ||
        archive_read_set_options(reader, readOptions) != ARCHIVE_OK ||
        archive_read_set_read_callback(reader, Handle::read) != ARCHIVE_OK ||
        archive_read_set_seek_callback(reader, Handle::seek) != ARCHIVE_OK ||
        archive_read_set_callback_data(reader, handle_.get()) != ARCHIVE_OK ||
        archive_read_open1(reader) != ARCHIVE_OK)
        handle_->fail("open");
}

ZipReader::~ZipReader() = default;

std::optional<ZipReader::Entry> ZipReader::next() {
    [[maybe_unused]] const platform::Utf8Locale names;
    const int result = archive_read_next_header(handle_->reader, &handle_->entry);
    if (result == ARCHIVE_EOF)
        return std::nullopt;
    if (result != ARCHIVE_OK && result != ARCHIVE_WARN)
        handle_->fail("read");
    const auto name = nameOf(handle_->entry);
    Entry found;
    if (!name)
        return found;
    const auto type = archive_entry_filetype(handle_->entry);
    const auto path = platform::RelativePath::parse(*name);
    found.isFolder = type == AE_IFDIR;
    found.isTrusted = (type == AE_IFDIR || type == AE_IFREG) && path;
    found.path = found.isTrusted ? path->text() : *name;
    if (archive_entry_size_is_set(handle_->entry) != 0)
        found.size =
            static_cast<std::uint64_t>(std::max<la_int64_t>(archive_entry_size(handle_->entry), 0));
    return found;
}

void ZipReader::extract(const platform::PieceSink& sink) {
    auto& piece = handle_->unpacked;
    const bool hasSize = archive_entry_size_is_set(handle_->entry) != 0;
    const auto claimed = static_cast<std::uint64_t>(archive_entry_size(handle_->entry));
    const auto check = [&](bool isRight) {
        if (hasSize && !isRight)
            throw platform::Failure("unpack", "the archive", "an entry is not as long as it says");
    };
    for (std::uint64_t done = 0;;) {
        const auto size = archive_read_data(handle_->reader, piece.data(), piece.size());
        if (size < 0)
            handle_->fail("unpack");
        done += static_cast<std::uint64_t>(size);
        check(done <= claimed);
        if (size == 0)
            return check(done == claimed);
        sink({piece.data(), static_cast<std::size_t>(size)});
    }
}

} // namespace formats
