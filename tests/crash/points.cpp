// The oracle is asked behind the disturbed session, and again behind the next start, calm by then,
// and one more.
#include "crash/points.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <random>
#include <sstream>
#include <vector>

#include "crash/world.h"

namespace crash {
namespace {

constexpr std::errc errors[] = {std::errc::no_space_on_device, std::errc::permission_denied,
                                std::errc::device_or_resource_busy, std::errc::io_error,
                                std::errc::read_only_file_system};

struct Point {
    enum Kind { stop, pair, fail, power, damage };
    Kind kind = stop;
    std::size_t operation = 0;
    int number = 0;      ///< the change, or the damaged file
    std::size_t how = 0; ///< by the words of the kind
    std::uint32_t more =
        0; ///< a pair's second change, a failure's reach, a seed, lines that are left
};

struct KindWords {
    const char* name;
    std::vector<std::string> hows;
};
const std::vector<KindWords> kinds = {{"stop", {"dead"}},
                                      {"pair", {"dead"}},
                                      {"fail", {"full", "denied", "in-use", "broken", "read-only"}},
                                      {"power", {"in-order", "any-order"}},
                                      {"damage", {"missing", "empty", "cut", "bytes"}}};
constexpr std::uint32_t reaches = 3;

std::string recipeOf(const Point& point) {
    const auto& words = kinds[point.kind];
    std::ostringstream text;
    text << words.name << " " << operations()[point.operation].name << " " << point.number << " "
         << words.hows[point.how] << " " << point.more;
    return text.str();
}

bool readRecipe(const std::string& recipe, Point& point) {
    std::istringstream text(recipe);
    std::string kind;
    std::string operation;
    std::string how;
    text >> kind >> operation >> point.number >> how >> point.more;
    const auto find = [](const auto& rows, const auto& isIt) {
        return static_cast<std::size_t>(std::find_if(rows.begin(), rows.end(), isIt) -
                                        rows.begin());
    };
    const auto at = find(kinds, [&](const auto& row) { return row.name == kind; });
    point.operation = find(operations(), [&](const auto& row) { return row.name == operation; });
    if (!text || at == kinds.size() || point.operation == operations().size())
        return false;
    point.kind = static_cast<Point::Kind>(at);
    point.how = find(kinds[at].hows, [&](const auto& word) { return word == how; });
    return point.how < kinds[at].hows.size();
}

/// The files that the program keeps for itself from one run to the next.
std::vector<std::pair<std::string, std::string>> ownFiles(const platform::MemoryDisk& memory) {
    std::vector<std::pair<std::string, std::string>> files;
    for (const auto& [path, content] : memory.files(gameFolder))
        if (path.starts_with("Vexillum/VXL-Changes/") || path.starts_with("Vexillum/VXL-Sel/"))
            files.emplace_back(std::string(gameFolder) + "/" + path, content);
    return files;
}

/// Gives back the name of the file, or nothing where there is no such damage.
std::string damage(platform::MemoryDisk& memory, const Point& point) {
    const auto files = ownFiles(memory);
    if (point.number < 1 || point.number > static_cast<int>(files.size()))
        return {};
    if (point.how < 2 && point.more > 1)
        return {};
    auto [path, content] = files[static_cast<std::size_t>(point.number) - 1];
    memory.remove(path);
    std::mt19937 random(point.more);
    if (point.how == 3)
        std::generate(content.begin(), content.end(), [&] { return static_cast<char>(random()); });
    if (point.how == 2) {
        std::size_t end = 0;
        for (unsigned line = 0; line < point.more && end != std::string::npos; ++line)
            end = content.find('\n', end == 0 ? 0 : end + 1);
        if (end == std::string::npos || end + 1 == content.size())
            return {};
        content.resize(end == 0 ? 0 : end + 1);
    }
    if (point.how > 0)
        memory.put(path, point.how == 1 ? "" : content);
    return path.substr(path.rfind('/') + 1);
}

class Bench {
  public:
    Bench() {
        for (const auto& row : operations())
            calms_.emplace_back(row);
    }

    const Calm& calm(const Point& point) const { return calms_[point.operation]; }

    /// What is wrong behind a point, empty for nothing. `isThere` tells whether the sessions came
    /// that far.
    std::string tryPoint(const Point& point, bool& isThere) const {
        const auto& around = calm(point);
        const auto& row = around.operation;
        const auto memory = around.start->copy();
        if (point.kind == Point::damage)
            return tryDamage(point, memory, isThere);
        Fault fault{point.number, {}};
        const bool isFailure = point.kind == Point::fail;
        if (isFailure) {
            fault.error = std::make_error_code(errors[point.how]);
            fault.reach = static_cast<Fault::Reach>(point.more % reaches);
        }
        const auto disturbed = play(memory, row.script, row.answer, fault);
        isThere = disturbed.wasHit;
        if (!isThere)
            return {};
        if (point.kind == Point::power)
            losePower(*memory, point.how == 0, point.more);
        if (disturbed.badLine == "boxes without end")
            return disturbed.badLine;
        if (auto wrong = around.lost(*memory, disturbed); !wrong.empty())
            return wrong;
        // Where a line of the script found nothing to click, the user saw as much.
        if (isFailure && disturbed.badLine.empty())
            if (auto wrong = around.silent(*memory, disturbed); !wrong.empty())
                return wrong;
        if (point.kind == Point::pair) {
            isThere = play(memory, "", row.answer, {static_cast<int>(point.more), {}}).wasHit;
            if (auto wrong = around.lost(*memory, {}); !wrong.empty())
                return "behind the second stop: " + wrong;
        }
        for (const auto* which : {"", "behind one more start: "}) {
            const auto start = play(memory, "");
            if (auto wrong = around.notPlain(*memory); !wrong.empty())
                return which + wrong;
            if (!start.boxes.empty() && !isFailure)
                return which + ("a box where all is well: " + start.boxes.front().substr(0, 90));
        }
        return {};
    }

    /// What cannot be moved back for want of a note is told with the note's name, and is there
    /// behind one more launch too.
    std::string tryDamage(const Point& point, const Memory& memory, bool& isThere) const {
        const auto& around = calm(point);
        const auto name = damage(*memory, point);
        isThere = !name.empty();
        if (!isThere)
            return {};
        const auto start = play(memory, "");
        const auto wrong = around.notPlain(*memory);
        const bool isTold =
            std::any_of(start.boxes.begin(), start.boxes.end(),
                        [&](const auto& box) { return box.find(name) != std::string::npos; });
        if (!wrong.empty() && !isTold)
            return "not told of " + name + ": " + wrong;
        play(memory, "click cmdRevert\ntab Maps\nmark One\nclick cmdGo\n");
        if (const auto lost = around.lost(*memory, {}); !lost.empty())
            return "behind a launch: " + lost;
        play(memory, "");
        return around.lost(*memory, {});
    }

    /// All there are, but for losses of power, of which there are some a change.
    std::vector<Point> all(std::mt19937& random) const {
        std::vector<Point> points;
        const auto add = [&](Point point, unsigned first, unsigned last) {
            for (point.how = 0; point.how < kinds[point.kind].hows.size(); ++point.how)
                for (point.more = first; point.more <= last; ++point.more)
                    points.push_back(point);
        };
        for (std::size_t row = 0; row < calms_.size(); ++row) {
            for (int number = 1; number <= calms_[row].session.changes; ++number) {
                add({Point::stop, row, number}, 0, 0);
                add({Point::fail, row, number}, 0, reaches - 1);
                add({Point::pair, row, number}, 1, longestStart);
                const auto seed = static_cast<std::uint32_t>(random() % 1'000'000);
                add({Point::power, row, number}, seed, seed + 7);
            }
            for (int file = 1; file <= mostFiles && row < behindLaunches; ++file)
                add({Point::damage, row, file}, 1, mostLines);
        }
        return points;
    }

  private:
    static constexpr unsigned longestStart = 90;
    static constexpr unsigned mostLines = 24;
    static constexpr int mostFiles = 12;
    static constexpr std::size_t behindLaunches = 2; ///< the first rows

    std::deque<Calm> calms_;
};

void tell(const Point& point, const Bench& bench, const std::string& wrong, Report& report) {
    const auto& operation = bench.calm(point).operation;
    report.found(std::string(kinds[point.kind].name) + " " + operation.name + ": " + wrong,
                 recipeOf(point));
}

} // namespace

void tryPoints(const Limits& limits, Report& report) {
    const Bench bench;
    std::mt19937 random(limits.seed);
    auto points = bench.all(random);
    std::erase_if(points, [&](const Point& point) {
        const std::string kind = kinds[point.kind].name;
        const std::string operation = bench.calm(point).operation.name;
        return std::any_of(limits.without.begin(), limits.without.end(), [&](const auto& words) {
            return words == kind || words == operation || words == kind + " " + operation;
        });
    });
    std::shuffle(points.begin(), points.end(), random);
    std::stable_partition(points.begin(), points.end(), [](const Point& point) {
        return point.kind == Point::stop || point.kind == Point::damage;
    });
    int tried = 0;
    for (std::size_t next = 0; tried < limits.points && next < points.size() &&
                               std::chrono::steady_clock::now() < limits.end;
         ++next) {
        const auto point = points[next];
        bool isThere = false;
        const auto wrong = bench.tryPoint(point, isThere);
        if (isThere) {
            ++tried;
            report.tried(kinds[point.kind].name);
        }
        if (!wrong.empty())
            tell(point, bench, wrong, report);
        // There is no end of losses of power.
        if (next + 1 == points.size())
            for (std::size_t each = 0; each < next; ++each)
                if (points[each].kind == Point::power) {
                    points.push_back(points[each]);
                    points.back().more = static_cast<std::uint32_t>(random() % 1'000'000);
                }
    }
}

bool tryPoint(const std::string& recipe, Report& report) {
    Point point;
    if (!readRecipe(recipe, point))
        return false;
    const Bench bench;
    bool isThere = false;
    isTelling = true;
    const auto wrong = bench.tryPoint(point, isThere);
    report.tried(kinds[point.kind].name, isThere ? 1 : 0);
    if (!wrong.empty())
        tell(point, bench, wrong, report);
    return true;
}

} // namespace crash
