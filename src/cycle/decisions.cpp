// Decisions are kept by the two releases: a launch asks about one pair of them many times.
#include "cycle/decisions.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace cycle {
namespace {

constexpr std::string_view header = "# Who gets a file that two releases bring, where Vexillum "
                                    "need not ask any more. A line each:\n"
                                    "# the file (a folder ends in \"/\", \"*\" is everything), who "
                                    "gets it, \"not\", who does not.\n"
                                    "# Take a line out to be asked again.\n";
constexpr std::string_view everything = "*";
constexpr std::string_view between = "not";

std::pair<Owner, Owner> rivals(const Owner& one, const Owner& other) {
    return std::minmax(one, other);
}

/// The closest one first: the file itself, its folder, everything.
std::array<std::string, 3> placesAround(const std::string& file) {
    return {file, file.substr(0, file.rfind('\\') + 1), {}};
}

template <typename Known>
std::optional<Verdict> firstKnown(const Decisions* chosen, const Decisions* remembered,
                                  const Known& known) {
    for (const auto& [decisions, why] :
         {std::pair(chosen, Why::chosen), std::pair(remembered, Why::remembered)})
        if (const auto isForA = decisions == nullptr ? std::nullopt : known(*decisions))
            return Verdict(*isForA, why);
    return std::nullopt;
}

/// Such a name cannot stand in a line.
bool canBeWritten(const std::string& text) {
    return text.find_first_of("\t\r\n") == std::string::npos;
}

} // namespace

bool Owner::isGame() const {
    return type == releases::ReleaseType::tc && name == releases::defaultTC;
}

std::string Owner::text() const {
    return std::string(releases::infoOf(type).typeName) + " \"" + name + "\"";
}

Owner theGame() {
    return {releases::ReleaseType::tc, std::string(releases::defaultTC)};
}

Owner ownerOf(const moveEntry& entry) {
    return {entry.relType, releases::displayForm(entry.relName)};
}

std::optional<Owner> readOwner(std::string_view text) {
    for (const auto& info : releases::releaseTypes()) {
        const auto head = std::string(info.typeName) + " \"";
        if (text.size() > head.size() + 1 && text.starts_with(head) && text.ends_with('"'))
            return Owner{info.type,
                         std::string(text.substr(head.size(), text.size() - head.size() - 1))};
    }
    return std::nullopt;
}

void Decisions::decide(Decision decision) {
    auto place = platform::foldCase(decision.place);
    auto& places = byRivals_[rivals(decision.winner, decision.loser)];
    places.insert_or_assign(std::move(place), std::move(decision));
}

void Decisions::decideThroughout(Decision decision) {
    const auto place = platform::foldCase(decision.place);
    if (place.empty() || place.ends_with('\\'))
        if (const auto of = byRivals_.find(rivals(decision.winner, decision.loser));
            of != byRivals_.end())
            std::erase_if(of->second,
                          [&](const auto& known) { return known.first.starts_with(place); });
    decide(std::move(decision));
}

void Decisions::add(const Decisions& others) {
    for (auto& decision : others.all())
        decide(std::move(decision));
}

bool Decisions::forget(const Decision& decision) {
    const auto of = byRivals_.find(rivals(decision.winner, decision.loser));
    if (of == byRivals_.end() || of->second.erase(platform::foldCase(decision.place)) == 0)
        return false;
    if (of->second.empty())
        byRivals_.erase(of);
    return true;
}

void Decisions::forgetAt(std::string_view file, const Owner& one, const Owner& other) {
    for (const auto& place : placesAround(platform::foldCase(file)))
        forget({place, one, other});
}

std::optional<bool> Decisions::isForA(const ClashQuestion& question) const {
    if (byRivals_.empty())
        return std::nullopt;
    const auto a = ownerOf(question.a);
    const auto of = byRivals_.find(rivals(a, ownerOf(question.b)));
    if (of == byRivals_.end())
        return std::nullopt;
    for (const auto& place : placesAround(platform::foldCase(question.a.toPath)))
        if (const auto decision = of->second.find(place); decision != of->second.end())
            return decision->second.winner == a;
    return std::nullopt;
}

std::optional<bool> Decisions::isForAAt(std::string_view place, const Owner& a,
                                        const Owner& b) const {
    const auto of = byRivals_.find(rivals(a, b));
    if (of == byRivals_.end())
        return std::nullopt;
    const auto decision = of->second.find(platform::foldCase(place));
    if (decision == of->second.end())
        return std::nullopt;
    return decision->second.winner == a;
}

std::optional<Verdict> knownVerdict(const ClashQuestion& question, const Decisions* chosen,
                                    const Decisions* remembered) {
    return firstKnown(chosen, remembered,
                      [&](const auto& decisions) { return decisions.isForA(question); });
}

std::optional<Verdict> knownVerdict(const ExeQuestion& question, const Decisions* chosen,
                                    const Decisions* remembered) {
    return firstKnown(chosen, remembered, [&](const auto& decisions) {
        return decisions.isForAAt(releases::gameProgram, ownerOf(question.exe), theGame());
    });
}

void Decisions::rename(releases::ReleaseType type, std::string_view name,
                       std::string_view newName) {
    const Owner old{type, std::string(name)};
    for (auto decision : all()) {
        if (decision.winner != old && decision.loser != old)
            continue;
        forget(decision);
        for (auto* owner : {&decision.winner, &decision.loser})
            if (*owner == old)
                owner->name = newName;
        decide(std::move(decision));
    }
}

void Decisions::forget(releases::ReleaseType type, std::string_view name) {
    const Owner gone{type, std::string(name)};
    std::erase_if(byRivals_, [&](const auto& of) {
        return of.first.first == gone || of.first.second == gone;
    });
}

std::vector<Decision> Decisions::all() const {
    std::vector<Decision> decisions;
    for (const auto& [pair, places] : byRivals_)
        for (const auto& [place, decision] : places)
            decisions.push_back(decision);
    return decisions;
}

std::string Decisions::text() const {
    std::string text(header);
    for (const auto& decision : all()) {
        const auto place = decision.place.empty() ? std::string(everything)
                                                  : platform::replaceAll(decision.place, "\\", "/");
        if (decision.place == everything ||
            !canBeWritten(place + decision.winner.name + decision.loser.name))
            continue;
        text += place + "\t" + decision.winner.text() + "\t" + std::string(between) + "\t" +
                decision.loser.text() + "\n";
    }
    return platform::withLineBreaks(text);
}

void Decisions::readText(std::string_view text) {
    byRivals_.clear();
    for (const auto& line : platform::splitLines(text)) {
        std::vector<std::string_view> fields;
        for (std::size_t at = 0; at <= line.size();) {
            const auto end = std::min(line.find('\t', at), line.size());
            fields.push_back(std::string_view(line).substr(at, end - at));
            at = end + 1;
        }
        if (fields.size() != 4 || fields[0].empty() || fields[2] != between)
            continue;
        const auto winner = readOwner(fields[1]);
        const auto loser = readOwner(fields[3]);
        if (!winner || !loser || *winner == *loser)
            continue;
        decide({fields[0] == everything ? "" : platform::replaceAll(fields[0], "/", "\\"), *winner,
                *loser});
    }
}

} // namespace cycle
