// Variables may stand ahead of a command, behind "env" or alone.
#include "wrapper.h"

#include <cctype>
#include <utility>

#include "helpers.h"
#include "platform/failure.h"
#include "platform/programs.h"

namespace platform {
namespace posix {
namespace {

class Words {
  public:
    explicit Words(const std::string& text) : text_(text) {}

    std::vector<std::string> read() {
        for (const char c : text_)
            take(c);
        if (quote_ != '\0' || isEscaped_)
            throw Failure("read", text_, "A quote or a backslash stands open at its end.");
        return std::move(words_);
    }

  private:
    void take(char c) {
        if (std::exchange(isEscaped_, false))
            return add(c);
        if (c == '\\' && quote_ != '\'')
            isEscaped_ = true;
        else if (quote_ != '\0' && c == quote_)
            quote_ = '\0';
        else if (quote_ == '\0' && (c == '"' || c == '\'')) {
            quote_ = c;
            begin();
        } else if (quote_ == '\0' && std::isspace(static_cast<unsigned char>(c)) != 0)
            isInside_ = false;
        else
            add(c);
    }

    void begin() {
        if (!std::exchange(isInside_, true))
            words_.emplace_back();
    }

    void add(char c) {
        begin();
        words_.back() += c;
    }

    const std::string& text_;
    std::vector<std::string> words_;
    char quote_ = '\0';
    bool isInside_ = false;
    bool isEscaped_ = false;
};

bool isVariable(const std::string& word) {
    const auto name = word.substr(0, word.find('='));
    if (name.empty() || name.size() == word.size() || std::isdigit(name[0] & 0x7F) != 0)
        return false;
    for (const char c : name)
        if (c != '_' && std::isalnum(static_cast<unsigned char>(c)) == 0)
            return false;
    return true;
}

} // namespace

Wrapper wrapperOf(const std::string& text) {
    Wrapper wrapper{{}, Words(text).read()};
    auto& words = wrapper.words;
    const bool hasEnv = words.size() > 1 && words[0] == "env" && isVariable(words[1]);
    auto first = words.begin() + (hasEnv ? 1 : 0);
    for (; first != words.end() && isVariable(*first); ++first)
        wrapper.variables.push_back(*first);
    words.erase(words.begin(), first);
    return wrapper;
}

std::string missingCommand(const Wrapper& wrapper) {
    for (const auto& word : wrapper.words)
        if ((&word == &wrapper.words.front() || isKnownWrapper(word)) && !isInstalled(word))
            return word;
    return {};
}

} // namespace posix

bool takesWrappers() {
    return true;
}

std::string reasonAgainstWrapper(const std::string& wrapper) {
    try {
        const auto missing = posix::missingCommand(posix::wrapperOf(wrapper));
        return missing.empty() ? "" : posix::whatToInstall(missing);
    } catch (const Failure& failure) {
        return failure.reason();
    }
}

} // namespace platform
