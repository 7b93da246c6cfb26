// Zip archives that lie about themselves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/zip.h"
#include "formats/zip_names.h"
#include "packing/zip_writer.h"
#include "platform/failure.h"

namespace formats {
namespace {

std::span<const std::uint8_t> asBytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

constexpr auto stored = "zip:compression=store";

/// Sets a 32-bit field of the first entry, where it stands in the entry's own head and where it
/// stands in the directory at the end.
std::string withField(std::string bytes, std::size_t inHead, std::size_t inDirectory,
                      std::uint32_t value) {
    const auto put = [&](std::size_t at) {
        for (int i = 0; i < 4; ++i)
            bytes[at + static_cast<std::size_t>(i)] = static_cast<char>(value >> (8 * i));
    };
    put(bytes.find("PK\3\4") + inHead);
    put(bytes.find("PK\1\2") + inDirectory);
    return bytes;
}

std::string contentOfFirst(const std::string& bytes) {
    ZipReader reader(asBytes(bytes));
    std::string content;
    EXPECT_TRUE(reader.next());
    reader.extract([&](std::string_view piece) { content += piece; });
    return content;
}

TEST(ZipReader, an_entry_is_as_long_as_it_says_or_is_refused) {
    const std::string content(1000, 'a');
    for (const auto* packing : {stored, "zip:compression=deflate"}) {
        const auto honest = packing::packZip({{"a", content}}, packing);
        EXPECT_EQ(contentOfFirst(honest), content) << packing;
        EXPECT_THROW(contentOfFirst(withField(honest, 18, 20, 0)), platform::Failure)
            << packing << ": packed in 0 bytes";
        EXPECT_THROW(contentOfFirst(withField(honest, 22, 24, 999)), platform::Failure)
            << packing << ": shorter than it is";
        EXPECT_THROW(contentOfFirst(withField(honest, 22, 24, 1001)), platform::Failure)
            << packing << ": longer than it is";
    }
    EXPECT_EQ(contentOfFirst(packing::packZip({{"a", ""}})), "");
}

TEST(ZipReader, what_is_no_archive_is_refused) {
    for (const auto* bytes : {"", "nothing of the kind", "PK"})
        EXPECT_THROW(ZipReader(asBytes(bytes)).next(), platform::Failure) << bytes;
}

struct NameRow {
    std::string bytes;
    std::wstring wide; ///< the bytes by code page 437
    std::string name;
};

TEST(ZipNames, are_read_as_what_they_look_like) {
    const NameRow rows[] = {
        {"plain.txt", L"plain.txt", "plain.txt"},
        // UTF-8 that does not say so
        {"\xC3\xBC.txt", L"\u251C\u255D.txt", "\xC3\xBC.txt"},
        // old packers
        {"\x81\xE1.txt", L"\u00FC\u00DF.txt", "\xC3\xBC\xC3\x9F.txt"},
        {"Ma\xA4"
         "ana",
         L"Ma\u00F1ana",
         "Ma\xC3\xB1"
         "ana"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(readZipName(row.bytes), row.name);
        EXPECT_EQ(readWideZipName(row.wide), row.name);
    }
    EXPECT_EQ(readZipName("gr\xFC"
                          "n"),
              "gr\xFC"
              "n")
        << "other code pages are left to be shown";
    EXPECT_EQ(readWideZipName(L"\u03A9 \u4E2D\xD83D\xDE00"),
              "\xCE\xA9 \xE4\xB8\xAD\xF0\x9F\x98\x80")
        << "a name that says how it is written";
}

} // namespace
} // namespace formats
