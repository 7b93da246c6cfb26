// The archive calls of libarchive, and what is made of the names.
#include "formats/zip.h"

#include <algorithm>
#include <array>

#include <locale.h>

#include <archive.h>
#include <archive_entry.h>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr std::size_t longestPath = 1000;

/// Separators of both kinds part a name; parts that name the folder itself are left out.
std::string joined(const std::string& name) {
    std::string path;
    for (const auto& part : splitPath(replaceAll(name, "/", "\\")))
        if (part != ".")
            path += (path.empty() ? "" : "\\") + part;
    return path;
}

bool canBeTrusted(const std::string& name, const std::string& path) {
    const auto parts = splitPath(path);
    return !parts.empty() && path.size() <= longestPath && !name.starts_with('/') &&
           !name.starts_with('\\') && !isDrive(path.substr(0, 2)) &&
           std::none_of(parts.begin(), parts.end(), leadsAway) &&
           std::none_of(path.begin(), path.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

/// Names come out in the encoding of the locale, and in the plainest one most of them do not come
/// out at all.
class Utf8Locale {
  public:
#ifdef _WIN32
    Utf8Locale() = default;
#else
    Utf8Locale() : own_(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
        if (own_ != nullptr)
            before_ = ::uselocale(own_);
    }
    ~Utf8Locale() {
        if (own_ == nullptr)
            return;
        ::uselocale(before_);
        ::freelocale(own_);
    }
#endif
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

  private:
#ifndef _WIN32
    locale_t own_;
    locale_t before_ = nullptr;
#endif
};

int openFile(archive* reader, const std::string& systemPath) {
    constexpr std::size_t blockSize = 1U << 16U;
#ifdef _WIN32
    return archive_read_open_filename_w(reader, windows::wide(systemPath).c_str(), blockSize);
#else
    return archive_read_open_filename(reader, systemPath.c_str(), blockSize);
#endif
}

} // namespace

struct ZipReader::Handle {
    archive* reader = archive_read_new();
    archive_entry* entry = nullptr;
    std::uint64_t size = 0;

    Handle() = default;
    ~Handle() { archive_read_free(reader); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[noreturn]] void fail(const char* call) const {
        const char* said = archive_error_string(reader);
        std::string reason = said != nullptr ? said : "it is damaged";
        reason.erase(reason.find_last_not_of(" \r\n") + 1);
        throw Failure(call, "the archive", reason);
    }
};

ZipReader::ZipReader(std::span<const std::uint8_t> bytes) : handle_(std::make_unique<Handle>()) {
    if (archive_read_support_format_zip(handle_->reader) != ARCHIVE_OK ||
        archive_read_open_memory(handle_->reader, bytes.data(), bytes.size()) != ARCHIVE_OK)
        handle_->fail("open");
}

ZipReader::ZipReader(const std::string& systemPath) : handle_(std::make_unique<Handle>()) {
    if (archive_read_support_format_zip(handle_->reader) != ARCHIVE_OK ||
        openFile(handle_->reader, systemPath) != ARCHIVE_OK)
        handle_->fail("open");
}

ZipReader::~ZipReader() = default;

std::optional<ZipReader::Entry> ZipReader::next() {
    [[maybe_unused]] const Utf8Locale names;
    const int result = archive_read_next_header(handle_->reader, &handle_->entry);
    if (result == ARCHIVE_EOF)
        return std::nullopt;
    if (result != ARCHIVE_OK && result != ARCHIVE_WARN)
        handle_->fail("read");
    const char* name = archive_entry_pathname(handle_->entry);
    Entry found;
    if (name == nullptr)
        return found;
    const auto type = archive_entry_filetype(handle_->entry);
    found.path = joined(name);
    found.isFolder = type == AE_IFDIR;
    found.isTrusted = (type == AE_IFDIR || type == AE_IFREG) && canBeTrusted(name, found.path);
    if (!found.isTrusted)
        found.path = name;
    if (archive_entry_size_is_set(handle_->entry) != 0)
        found.size =
            static_cast<std::uint64_t>(std::max<la_int64_t>(archive_entry_size(handle_->entry), 0));
    handle_->size = found.size;
    return found;
}

void ZipReader::extract(const PieceSink& sink) {
    std::array<char, 65536> piece{};
    const bool hasSize = archive_entry_size_is_set(handle_->entry) != 0;
    for (std::uint64_t done = 0;;) {
        const auto size = archive_read_data(handle_->reader, piece.data(), piece.size());
        if (size == 0)
            return;
        if (size < 0)
            handle_->fail("unpack");
        done += static_cast<std::uint64_t>(size);
        if (hasSize && done > handle_->size)
            throw Failure("unpack", "the archive", "an entry is larger than it says");
        sink({piece.data(), static_cast<std::size_t>(size)});
    }
}

} // namespace platform
