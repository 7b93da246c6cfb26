// How contents are kept in a file: a head, and behind it a zlib stream of numbers and texts in one
// order. Colours stand once for all pictures that have them.
#include <algorithm>

#include "formats/checksum.h"
#include "formats/packed.h"
#include "releases/contents_cache.h"

namespace releases {
namespace {

/// Another order of what is kept has another one.
constexpr std::string_view mark = "VXLC0001";
constexpr std::uint64_t mostUnpacked = std::uint64_t{128} << 20U;
constexpr std::uint64_t none = 0xFFFFFFFF;

struct Damaged {};

class Writer {
  public:
    void number(std::uint64_t value) {
        for (; value >= 0x80; value >>= 7U)
            bytes += static_cast<char>(value | 0x80U);
        bytes += static_cast<char>(value);
    }
    void fixed(std::uint64_t value) {
        for (unsigned shift = 0; shift < 64; shift += 8)
            bytes += static_cast<char>(value >> shift);
    }
    void text(std::string_view value) {
        number(value.size());
        bytes += value;
    }
    void maybe(const std::optional<std::int64_t>& value) {
        number(value ? 1 : 0);
        if (value)
            fixed(static_cast<std::uint64_t>(*value));
    }

    std::string bytes;
};

class Reader {
  public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::string_view bytes(std::uint64_t count) {
        if (count > rest_.size())
            throw Damaged();
        const auto part = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return part;
    }
    std::uint64_t number() {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            const auto byte = static_cast<std::uint8_t>(bytes(1)[0]);
            value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
            if (byte < 0x80)
                return value;
        }
        throw Damaged();
    }
    /// Of things that take a byte each, or more.
    std::uint64_t count() {
        const auto value = number();
        if (value > rest_.size())
            throw Damaged();
        return value;
    }
    std::uint64_t fixed() {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 64; shift += 8)
            value |= static_cast<std::uint64_t>(static_cast<std::uint8_t>(bytes(1)[0])) << shift;
        return value;
    }
    int small() {
        const auto value = number();
        if (value > 0xFFFF)
            throw Damaged();
        return static_cast<int>(value);
    }
    std::string text() { return std::string(bytes(number())); }
    std::optional<std::int64_t> maybe() {
        return number() == 0 ? std::nullopt : std::optional(static_cast<std::int64_t>(fixed()));
    }
    bool isAtEnd() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

class ContentsWriter {
  public:
    std::string write(const Contents& contents) {
        for (const auto& map : contents.maps)
            noteColours(map.picture);
        for (const auto& unit : contents.units)
            noteColours(unit.picture);
        out_.number(colours_.size());
        for (const auto& colours : colours_)
            for (const auto& colour : colours)
                for (const auto part : {colour.red, colour.green, colour.blue})
                    out_.bytes += static_cast<char>(part);
        for (const auto number : {contents.archives, contents.files, contents.weapons,
                                  std::uint64_t{contents.isCut ? 1U : 0U}})
            out_.number(number);
        out_.number(contents.faults.size());
        for (const auto& fault : contents.faults)
            out_.text(fault);
        out_.number(contents.maps.size());
        for (const auto& map : contents.maps)
            add(map);
        out_.number(contents.units.size());
        for (const auto& unit : contents.units)
            add(unit);
        return std::move(out_.bytes);
    }

  private:
    void noteColours(const PicturePtr& picture) {
        if (picture && std::ranges::find(colours_, picture->colours) == colours_.end())
            colours_.push_back(picture->colours);
    }

    void add(const PicturePtr& picture) {
        if (!picture)
            return out_.number(none);
        out_.number(static_cast<std::uint64_t>(std::ranges::find(colours_, picture->colours) -
                                               colours_.begin()));
        out_.number(static_cast<std::uint64_t>(picture->width));
        out_.number(static_cast<std::uint64_t>(picture->height));
        out_.bytes.append(picture->pixels.begin(), picture->pixels.end());
    }

    void add(const MapContent& map) {
        const auto& info = map.info;
        for (const auto* text : {&map.path, &map.name, &map.fault, &info.name, &info.description,
                                 &info.planet, &info.memory})
            out_.text(*text);
        out_.number(info.players.size());
        for (const auto players : info.players)
            out_.number(static_cast<std::uint64_t>(players));
        out_.number(static_cast<std::uint64_t>(info.size.width));
        out_.number(static_cast<std::uint64_t>(info.size.height));
        for (const auto& number :
             {info.tide, info.sun, info.leastWind, info.mostWind, info.gravity})
            out_.maybe(number);
        for (const bool flag : {info.isLavaWorld, info.waterDoesDamage, info.isForNetwork})
            out_.number(flag ? 1 : 0);
        add(map.picture);
    }

    void add(const UnitContent& unit) {
        const auto& info = unit.info;
        for (const auto* text : {&unit.path, &unit.name, &unit.fault, &info.unitName, &info.name,
                                 &info.description, &info.side, &info.category})
            out_.text(*text);
        for (const auto& number : {info.energy, info.metal, info.maxDamage, info.buildTime})
            out_.maybe(number);
        add(unit.picture);
    }

    Writer out_;
    std::vector<formats::Colours> colours_;
};

class ContentsParser {
  public:
    explicit ContentsParser(std::string_view bytes) : in_(bytes) {}

    Contents read() {
        for (auto left = in_.count(); left > 0; --left)
            readColours();
        Contents contents;
        contents.archives = in_.number();
        contents.files = in_.number();
        contents.weapons = in_.number();
        contents.isCut = in_.number() != 0;
        for (auto left = in_.count(); left > 0; --left)
            contents.faults.push_back(in_.text());
        for (auto left = in_.count(); left > 0; --left)
            readMap(contents.maps.emplace_back());
        for (auto left = in_.count(); left > 0; --left)
            readUnit(contents.units.emplace_back());
        if (!in_.isAtEnd())
            throw Damaged();
        return contents;
    }

  private:
    void readColours() {
        const auto bytes = in_.bytes(768);
        auto& colours = colours_.emplace_back();
        const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
        for (std::size_t i = 0; i < colours.size(); ++i)
            colours[i] = {at(i * 3), at(i * 3 + 1), at(i * 3 + 2)};
    }

    PicturePtr readPicture() {
        const auto colours = in_.number();
        if (colours == none)
            return nullptr;
        formats::Picture picture{in_.small(), in_.small(), {}, {}};
        constexpr auto longest = static_cast<int>(formats::Picture::longestSide);
        if (colours >= colours_.size() || picture.width < 1 || picture.height < 1 ||
            picture.width > longest || picture.height > longest)
            throw Damaged();
        picture.colours = colours_[colours];
        const auto pixels = in_.bytes(static_cast<std::uint64_t>(picture.width) *
                                      static_cast<std::uint64_t>(picture.height));
        picture.pixels.assign(pixels.begin(), pixels.end());
        return std::make_shared<const formats::Picture>(std::move(picture));
    }

    void readMap(MapContent& map) {
        auto& info = map.info;
        for (auto* text : {&map.path, &map.name, &map.fault, &info.name, &info.description,
                           &info.planet, &info.memory})
            *text = in_.text();
        for (auto left = in_.count(); left > 0; --left)
            info.players.push_back(in_.small());
        info.size = {in_.small(), in_.small()};
        for (auto* number : {&info.tide, &info.sun, &info.leastWind, &info.mostWind, &info.gravity})
            *number = in_.maybe();
        for (auto* flag : {&info.isLavaWorld, &info.waterDoesDamage, &info.isForNetwork})
            *flag = in_.number() != 0;
        map.picture = readPicture();
    }

    void readUnit(UnitContent& unit) {
        auto& info = unit.info;
        for (auto* text : {&unit.path, &unit.name, &unit.fault, &info.unitName, &info.name,
                           &info.description, &info.side, &info.category})
            *text = in_.text();
        for (auto* number : {&info.energy, &info.metal, &info.maxDamage, &info.buildTime})
            *number = in_.maybe();
        unit.picture = readPicture();
    }

    Reader in_;
    std::vector<formats::Colours> colours_;
};

} // namespace

std::string cachedBytes(std::uint64_t key, const Contents& contents) {
    const auto plain = ContentsWriter().write(contents);
    const auto packed = formats::packed(plain);
    Writer file;
    file.bytes = mark;
    file.fixed(key);
    file.fixed(plain.size());
    file.fixed(formats::checksumOf(packed));
    return file.bytes + packed;
}

std::optional<Contents> readCached(std::uint64_t key, std::string_view bytes) {
    try {
        Reader head(bytes);
        if (head.bytes(mark.size()) != mark || head.fixed() != key)
            return std::nullopt;
        const auto length = head.fixed();
        const auto checksum = head.fixed();
        const auto packed = bytes.substr(mark.size() + 3 * sizeof(std::uint64_t));
        if (length > mostUnpacked || formats::checksumOf(packed) != checksum)
            return std::nullopt;
        const auto plain = formats::unpacked(packed, length);
        return plain ? std::optional(ContentsParser(*plain).read()) : std::nullopt;
    } catch (const Damaged&) {
        return std::nullopt;
    }
}

} // namespace releases
