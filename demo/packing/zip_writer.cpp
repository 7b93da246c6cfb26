// By libarchive, which asks nothing of the names.
#include "packing/zip_writer.h"

#include <archive.h>
#include <archive_entry.h>

#include "platform/utf8_locale.h"

namespace packing {

std::string packZip(const PackedFiles& files, const char* options) {
    [[maybe_unused]] const platform::Utf8Locale names;
    std::string bytes;
    auto* writer = archive_write_new();
    archive_write_set_format_zip(writer);
    archive_write_set_options(writer, options);
    archive_write_set_bytes_in_last_block(writer, 1);
    archive_write_open(
        writer, &bytes, nullptr,
        [](archive* /*writer*/, void* into, const void* piece, std::size_t size) {
            static_cast<std::string*>(into)->append(static_cast<const char*>(piece), size);
            return static_cast<la_ssize_t>(size);
        },
        nullptr);
    for (const auto& [name, content] : files) {
        auto* entry = archive_entry_new();
        archive_entry_update_pathname_utf8(entry, name.c_str());
        archive_entry_set_filetype(entry, name.ends_with('/') ? AE_IFDIR : AE_IFREG);
        archive_entry_set_perm(entry, 0644);
        archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
        archive_write_header(writer, entry);
        archive_write_data(writer, content.data(), content.size());
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
    return bytes;
}

} // namespace packing
