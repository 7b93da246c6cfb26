// A name in brackets counts as a section once its brace is open.
#include "formats/tdf.h"

#include <algorithm>
#include <vector>

#include "formats/number.h"

namespace formats {
namespace {

constexpr std::string_view blanks = " \t";
/// What nests deeper is no file of the game's: its depth is told, its names are not kept.
constexpr std::size_t deepestNamed = 64;

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string withoutComments(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto start = std::min(text.find('/', at), text.size());
        plain += text.substr(at, start - at);
        const auto mark = text.substr(start, 2);
        if (mark == "//") {
            at = std::min(text.find_first_of("\r\n", start), text.size());
        } else if (mark == "/*") {
            const auto end = text.find("*/", start + 2);
            at = end == std::string_view::npos ? text.size() : end + 2;
        } else {
            plain += text.substr(start, 1);
            at = start + 1;
        }
    }
    return plain;
}

class Reader {
  public:
    Reader(std::string_view text, const TdfVisitor& visitor) : rest_(text), visitor_(visitor) {}

    void readAll() {
        while (skipTo(rest_.find_first_not_of(" \t\r\n;")))
            readStatement();
    }

  private:
    bool skipTo(std::size_t at) {
        rest_.remove_prefix(std::min(at, rest_.size()));
        return !rest_.empty();
    }

    void readStatement() {
        const char first = rest_.front();
        if (first == '{') {
            enter();
            skipTo(1);
        } else if (first == '}') {
            leave();
            skipTo(1);
        } else if (first == '[') {
            name_ = trimmed(cut(rest_.find_first_of("]{}\r\n", 1)).substr(1));
            if (rest_.starts_with(']'))
                skipTo(1);
        } else {
            readValue(cut(rest_.find_first_of(";{}\r\n")));
        }
    }

    std::string_view cut(std::size_t end) {
        const auto part = rest_.substr(0, end);
        skipTo(part.size());
        return part;
    }

    void enter() {
        if (depth_ < deepestNamed)
            names_.push_back(name_);
        ++depth_;
        name_ = {};
        if (visitor_.onSection)
            visitor_.onSection(place());
    }

    void leave() {
        depth_ -= depth_ > 0 ? 1 : 0;
        names_.resize(std::min(names_.size(), depth_));
    }

    TdfPlace place() const {
        return {depth_ > 0 && names_.size() == depth_ ? names_.back() : std::string_view(),
                static_cast<int>(depth_) - 1};
    }

    void readValue(std::string_view statement) {
        const auto equals = statement.find('=');
        if (equals != std::string_view::npos && visitor_.onValue)
            visitor_.onValue(place(), trimmed(statement.substr(0, equals)),
                             trimmed(statement.substr(equals + 1)));
    }

    std::string_view rest_;
    const TdfVisitor& visitor_;
    std::string_view name_; ///< of the section whose brace is to come
    std::vector<std::string_view> names_;
    std::size_t depth_ = 0;
};

} // namespace

void readTdf(std::string_view text, const TdfVisitor& visitor) {
    const auto plain = withoutComments(text);
    Reader(plain, visitor).readAll();
}

std::string shownValue(std::string_view value, std::size_t mostBytes) {
    if (value.size() > mostBytes) {
        const auto isInside = [&] {
            return (static_cast<unsigned char>(value[mostBytes]) >> 6U) == 2;
        };
        while (mostBytes > 0 && isInside())
            --mostBytes;
        value = value.substr(0, mostBytes);
    }
    std::string text(value);
    for (auto& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            c = ' ';
    return std::string(trimmed(text));
}

std::optional<std::int64_t> numberIn(std::string_view value) {
    auto digits = value.substr(value.starts_with('-') || value.starts_with('+') ? 1 : 0);
    digits = digits.substr(digits.starts_with('.') ? 1 : 0);
    return !digits.empty() && digits[0] >= '0' && digits[0] <= '9'
               ? std::optional(numberAtStart(value).value)
               : std::nullopt;
}

} // namespace formats
