// Contents are told apart by their bytes, so that each can be followed wherever it goes.
#include "crash/life.h"

#include <algorithm>
#include <set>

#include "crash/world.h"
#include "platform/text.h"

namespace crash {
namespace {

const std::string held = "Vexillum/TC-Cavedog TA/";
const std::string pendingFile = "Vexillum/VXL-Changes/Pending.txt";
const std::string mapFolder = "Vexillum/Map-";
constexpr std::uint32_t openFolder = 0755;
constexpr std::uint32_t lockedFolder = 0555;

std::string at(const std::string& path) {
    return std::string(gameFolder) + "/" + path;
}

std::string leafOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// Below its release, or an empty path.
std::string belowRelease(const std::string& path) {
    return path.starts_with(mapFolder) ? path.substr(path.find('/', mapFolder.size()) + 1) : "";
}

bool isContent(const std::string& content) {
    return content.starts_with("content ");
}

bool tells(const Session& session, const std::string& name) {
    const auto names = [&](const auto& text) {
        return platform::foldCase(text).find(platform::foldCase(name)) != std::string::npos;
    };
    return std::any_of(session.boxes.begin(), session.boxes.end(), names) ||
           std::any_of(session.lines.begin(), session.lines.end(), names);
}

} // namespace

Life::Life() : memory_(emptyGame()) {
    for (const auto* unused : {"VXL-Trlx", "VXL-Help", "VXL-Misc"})
        memory_->remove(at(std::string("Vexillum/") + unused));
    for (const auto* path :
         {"a.ufo", "units/b.ufo", "Vexillum/Map-One/a.ufo", "Vexillum/Map-One/units/b.ufo",
          "Vexillum/Map-Two/a.ufo", "Vexillum/Map-Two/units/b.ufo"})
        put(path);
}

Life::Life(const Life& other)
    : memory_(other.memory_->copy()), known_(other.known_),
      mayHoldReleases_(other.mayHoldReleases_), nextContent_(other.nextContent_) {}

Life& Life::operator=(const Life& other) {
    return *this = Life(other);
}

bool Life::has(const std::string& path) const {
    return memory_->has(at(path));
}

void Life::know(const std::string& path, const std::string& content) {
    const auto below = belowRelease(path);
    const auto owner = !below.empty()     ? Owner::release
                       : mayHoldReleases_ ? Owner::either
                                          : Owner::game;
    known_[content] = {owner, below.empty() ? path : below};
}

/// Time goes by between sessions.
void Life::settle() {
    std::unique_ptr<platform::RawFolder> folder;
    if (!memory_->openRoot(gameFolder, folder))
        memory_->syncAll(*folder);
}

/// A release's file of that path may be in the game directory now, and what would tell it from the
/// game's own there has been changed.
void Life::confuse(const std::string& path) {
    for (auto& [content, known] : known_)
        if (mayHoldReleases_ && known.owner == Owner::release && known.path == path)
            known.owner = Owner::either;
}

void Life::put(const std::string& path) {
    remove(path);
    settle();
    if (!belowRelease(path).empty())
        confuse(belowRelease(path));
    const auto content = "content " + std::to_string(++nextContent_);
    memory_->put(at(path), content);
    know(path, content);
}

void Life::remove(const std::string& path) {
    settle();
    if (!has(path))
        return;
    if (path.starts_with(held))
        confuse(path.substr(held.size()));
    if (const auto own = memory_->content(at(path)))
        known_.erase(*own);
    else
        for (const auto& [below, content] : memory_->files(at(path)))
            known_.erase(content);
    memory_->remove(at(path));
}

void Life::rename(const std::string& path, const std::string& newPath) {
    settle();
    const auto content = memory_->content(at(path)).value();
    memory_->remove(at(path));
    memory_->put(at(newPath), content);
    know(newPath, content);
}

void Life::setWritable(const std::string& folder, bool can) {
    memory_->setMode(at(folder), can ? openFolder : lockedFolder);
}

std::string Life::session(const std::string& script, Answer answer, const Fault& fault,
                          const std::string& removes) {
    Files plain;
    if (!removes.empty()) {
        const auto other = memory_->copy();
        play(other, "");
        plain = userFiles(*other);
    }
    const auto session = play(memory_, script, answer, fault);
    forgetRemoved(plain, removes);
    const bool isCalm = !session.wasHit;
    const bool wasLaunched = script.ends_with("click cmdGo\n");
    mayHoldReleases_ = !isCalm || wasLaunched || has(pendingFile);
    if (session.badLine == "boxes without end")
        return session.badLine;
    auto wrong = check(isCalm && !wasLaunched ? &session : nullptr);
    if (wrong.empty() && isCalm && !session.badLine.empty())
        wrong = "cannot be carried out: " + session.badLine;
    return wrong;
}

void Life::forgetRemoved(const Files& plain, const std::string& release) {
    if (release.empty())
        return;
    std::set<std::string> there;
    for (const auto& [path, content] : userFiles(*memory_))
        there.insert(content);
    for (const auto& [path, content] : plain)
        if (path.starts_with(mapFolder + release + "/") && !there.contains(content))
            if (const auto known = known_.find(content);
                known != known_.end() && known->second.owner != Owner::game)
                known_.erase(known);
}

std::vector<Life> Life::stopsIn(const std::string& script, Answer answer,
                                const std::string& removes) const {
    std::vector<Life> stops;
    std::set<std::string> seen;
    Life running(*this);
    Fault watch;
    watch.look = [&] {
        Life stopped(running);
        stopped.mayHoldReleases_ = true;
        if (seen.insert(stopped.key()).second)
            stops.push_back(stopped);
    };
    running.session(script, answer, watch, removes);
    if (!removes.empty()) {
        Life plain(*this);
        plain.session("");
        for (auto& stop : stops)
            stop.forgetRemoved(userFiles(*plain.memory_), removes);
    }
    return stops;
}

std::string Life::powerGoes(bool inOrder, std::uint32_t seed) {
    losePower(*memory_, inOrder, seed);
    mayHoldReleases_ = true;
    return check(nullptr);
}

std::string Life::check(const Session* start) const {
    std::map<std::string, std::vector<std::string>> places;
    for (const auto& [path, content] : userFiles(*memory_))
        if (isContent(content))
            places[content].push_back(path);
        else if (path != "totala.exe" && !path.starts_with("Vexillum/"))
            return "torn: " + path;
    const auto pending = memory_->content(at(pendingFile)).value_or("");
    for (const auto& [content, known] : known_) {
        const auto found = places.find(content);
        if (found == places.end())
            return "lost: " + known.path;
        if (found->second.size() > 1)
            return "twice: " + found->second[0] + " and " + found->second[1];
        if (start == nullptr || known.owner == Owner::either)
            continue;
        const auto& path = found->second.front();
        const bool isPending =
            pending.find(leafOf(path)) != std::string::npos && tells(*start, leafOf(path));
        if (known.owner == Owner::game && path != known.path &&
            !(path.starts_with(held) && isPending))
            return "the game's " + known.path + " is at " + path;
        if (known.owner == Owner::release && belowRelease(path) != known.path && !isPending)
            return "a release's " + known.path + " is at " + path;
    }
    return {};
}

std::string Life::key() const {
    std::string key = mayHoldReleases_ ? "+" : "-";
    // The program tells by the times what was touched since.
    std::vector<std::int64_t> noted;
    for (const auto* note : {"Vexillum/VXL-Changes/State.txt", "Vexillum/VXL-Changes/Pending.txt"})
        noted.push_back(has(note) ? memory_->entry(at(note)).changed : 0);
    for (const auto& [path, content] : memory_->files(gameFolder)) {
        if (path.find(".vexillum-part") != std::string::npos ||
            path.starts_with("Vexillum/VXL-Sel/"))
            continue;
        key.append(path).append("=").append(content);
        for (const auto time : noted)
            key += memory_->entry(at(path)).changed <= time ? '<' : '>';
    }
    for (const auto& [content, known] : known_)
        key += content + static_cast<char>('0' + static_cast<int>(known.owner));
    return key;
}

} // namespace crash
