// The reports over 2 GB of archives against reading the same directories and unpacking and hashing
// all that lies in two of them.
#include <filesystem>
#include <fstream>
#include <random>

#include <libdeflate.h>

#include "bench.h"
#include "conflict/archive_reports.h"
#include "formats/archive.h"
#include "packing/archive_writer.h"

namespace {

namespace fs = std::filesystem;
using bench::Seconds;

constexpr int rounds = 5;
constexpr int archiveCount = 20;
constexpr int ownFiles = 900; ///< of an archive, 100 KB each
constexpr std::size_t ownSize = 100'000;
constexpr int sharedFiles = 250; ///< between two neighbours, 40 KB each; half of them differ
constexpr std::size_t sharedSize = 40'000;
const fs::path root = fs::current_path() / "report-bench-game";

std::string noise(std::size_t size) {
    std::mt19937_64 random(1);
    std::string bytes(size, '\0');
    for (auto& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

/// Text of the kind that the game's files have, about three to one when packed.
std::string gameText(unsigned seed) {
    std::mt19937 random(seed);
    std::string text;
    while (text.size() < sharedSize)
        text += "\tname=UNIT" + std::to_string(random() % 5000) +
                ";\r\n\txpos=" + std::to_string(random() % 640) + ";\r\n";
    text.resize(sharedSize);
    return text;
}

/// What an archive shares with the one behind it. Those that differ do so at their end.
void addShared(packing::PackedFiles& files, int pair, char last) {
    for (int i = 0; i < sharedFiles; ++i) {
        files.emplace_back("shared\\" + std::to_string(pair) + "\\file" + std::to_string(i),
                           gameText(static_cast<unsigned>(pair * sharedFiles + i)));
        if (i % 2 == 0)
            files.back().second.back() = last;
    }
}

std::vector<conflict::ChosenArchive> makeArchives() {
    const auto bytes = noise(ownFiles + ownSize);
    std::vector<conflict::ChosenArchive> archives;
    std::uintmax_t size = 0;
    for (int a = 0; a < archiveCount; ++a) {
        packing::PackedFiles files;
        for (std::size_t i = 0; i < ownFiles; ++i)
            files.emplace_back("own" + std::to_string(a) + "\\file" + std::to_string(i),
                               bytes.substr(i, ownSize));
        addShared(files, a, 'a');
        addShared(files, (a + 1) % archiveCount, 'b');
        const auto name = "archive" + std::to_string(a) + ".ufo";
        // Every other one is packed.
        const auto packing = a % 2 == 0 ? packing::Packing::stored : packing::Packing::zlib;
        std::ofstream(root / name, std::ios::binary)
            << packing::packArchive(files, {packing, false, 0x7D});
        size += fs::file_size(root / name);
        archives.push_back({name, (root / name).string(), "Map \"" + std::to_string(a) + "\""});
    }
    std::printf("%.2f GB of archives, %d files in two of them\n", static_cast<double>(size) / 1e9,
                archiveCount * sharedFiles);
    return archives;
}

/// The limit. Gives back a sum of the hashes, so that they are not left out.
std::uint32_t readDirectoriesAndHash(const std::vector<conflict::ChosenArchive>& archives) {
    const auto disk = platform::makeDisk();
    std::uint32_t sum = 0;
    for (const auto& each : archives) {
        const auto view = disk->mapFile(each.path);
        const auto archive = formats::Archive::open(view->bytes());
        for (std::size_t i = 0; i < archive->entries().size(); ++i)
            if (!archive->entries()[i].isFolder && archive->pathOf(i).starts_with("shared\\")) {
                std::uint32_t hash = 0;
                archive->extract(i, [&](std::string_view piece) {
                    hash = libdeflate_crc32(hash, piece.data(), piece.size());
                });
                sum += hash;
            }
    }
    return sum;
}

} // namespace

int main() {
    fs::remove_all(root);
    fs::create_directories(root);
    const auto archives = makeArchives();
    std::vector<Seconds> ours, limit;
    std::size_t found = 0;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(bench::timeOf([&] {
            const auto disk = platform::makeDisk();
            platform::NoLog log;
            found = conflict::reportOnArchives(*disk, archives, log).doubledFiles.size();
        }));
        limit.push_back(bench::timeOf([&] {
            if (readDirectoriesAndHash(archives) == 0)
                std::printf("the hashes came to nothing\n");
        }));
    }
    fs::remove_all(root);
    bench::report("reports on 20 archives, against hashing", bench::median(ours),
                  bench::median(limit), 1.5);
    if (found == archiveCount * sharedFiles / 2)
        return 0;
    std::printf("%zu files were reported\n", found);
    return 1;
}
