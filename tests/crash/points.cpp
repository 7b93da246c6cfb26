// The oracle is asked behind the disturbed session, and again behind the next start, calm by then,
// and one more.
#include "crash/points.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <iterator>
#include <random>
#include <sstream>
#include <vector>

#include "crash/world.h"

namespace crash {
namespace {

struct NamedError {
    const char* name;
    std::errc kind;
};
constexpr NamedError errors[] = {{"full", std::errc::no_space_on_device},
                                 {"denied", std::errc::permission_denied},
                                 {"in-use", std::errc::device_or_resource_busy},
                                 {"broken", std::errc::io_error},
                                 {"read-only", std::errc::read_only_file_system}};
constexpr const char* reaches[] = {"once", "onwards", "same-name"};
constexpr const char* models[] = {"in-order", "any-order"};
constexpr const char* damages[] = {"missing", "empty", "cut", "bytes"};

template <typename Names>
int indexOf(const Names& names, const std::string& name) {
    int index = 0;
    for (const auto& each : names) {
        if (name == each)
            return index;
        ++index;
    }
    return -1;
}

struct Point {
    enum class Kind { stop, pair, fail, power, damage };
    Kind kind = Kind::stop;
    int operation = 0;
    int number = 0;
    int how = 0;            ///< the error, or the model
    int reach = 0;          ///< of the error
    std::uint32_t more = 0; ///< the second change of a pair, or the seed of a loss
};
constexpr const char* kinds[] = {"stop", "pair", "fail", "power", "damage"};

std::string recipeOf(const Point& point) {
    std::ostringstream text;
    text << kinds[static_cast<int>(point.kind)] << " "
         << operations()[static_cast<std::size_t>(point.operation)].name << " " << point.number;
    if (point.kind == Point::Kind::fail)
        text << " " << errors[point.how].name << " " << reaches[point.reach];
    if (point.kind == Point::Kind::power)
        text << " " << models[point.how];
    if (point.kind == Point::Kind::damage)
        text << " " << damages[point.how];
    if (point.kind != Point::Kind::stop && point.kind != Point::Kind::fail)
        text << " " << point.more;
    return text.str();
}

bool readRecipe(const std::string& recipe, Point& point) {
    std::istringstream text(recipe);
    std::string kind;
    std::string operation;
    std::string how;
    std::string reach;
    text >> kind >> operation >> point.number;
    std::vector<std::string> names;
    for (const auto& row : operations())
        names.emplace_back(row.name);
    const auto kindIs = indexOf(kinds, kind);
    point.operation = indexOf(names, operation);
    if (!text || kindIs < 0 || point.operation < 0)
        return false;
    point.kind = static_cast<Point::Kind>(kindIs);
    if (point.kind == Point::Kind::fail) {
        text >> how >> reach;
        std::vector<std::string> words;
        for (const auto& error : errors)
            words.emplace_back(error.name);
        point.how = indexOf(words, how);
        point.reach = indexOf(reaches, reach);
    } else if (point.kind == Point::Kind::power) {
        text >> how >> point.more;
        point.how = indexOf(models, how);
    } else if (point.kind == Point::Kind::damage) {
        text >> how >> point.more;
        point.how = indexOf(damages, how);
    } else if (point.kind == Point::Kind::pair) {
        text >> point.more;
    }
    return text && point.how >= 0 && point.reach >= 0;
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

    const Calm& calm(const Point& point) const {
        return calms_[static_cast<std::size_t>(point.operation)];
    }

    /// What is wrong behind a point, empty for nothing. `isThere` tells whether the sessions came
    /// that far.
    std::string tryPoint(const Point& point, bool& isThere) const {
        const auto& around = calm(point);
        const auto& row = around.operation;
        const auto memory = around.start->copy();
        if (point.kind == Point::Kind::damage)
            return tryDamage(point, memory, isThere);
        Fault fault{point.number, {}, static_cast<Fault::Reach>(point.reach)};
        const bool isFailure = point.kind == Point::Kind::fail;
        if (isFailure)
            fault.error = std::make_error_code(errors[point.how].kind);
        const auto disturbed = play(memory, row.script, row.answer, fault);
        isThere = disturbed.wasHit;
        if (!isThere)
            return {};
        if (point.kind == Point::Kind::power)
            losePower(*memory, point.how == 0, point.more);
        if (disturbed.badLine == "boxes without end")
            return disturbed.badLine;
        if (auto wrong = around.lost(*memory, disturbed); !wrong.empty())
            return wrong;
        // Where a line of the script found nothing to click, the user saw as much.
        if (isFailure && disturbed.badLine.empty())
            if (auto wrong = around.silent(*memory, disturbed); !wrong.empty())
                return wrong;
        if (point.kind == Point::Kind::pair) {
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
        constexpr unsigned mostLines = 24;
        constexpr int mostFiles = 12;
        for (int file = 1; file <= mostFiles; ++file)
            for (int row = 0; row < 2; ++row)
                for (int how = 0; how < static_cast<int>(std::size(damages)); ++how)
                    for (unsigned more = 1; more <= (how < 2 ? 1 : mostLines); ++more)
                        points.push_back({Point::Kind::damage, row, file, how, 0, more});
        for (int row = 0; row < static_cast<int>(calms_.size()); ++row)
            for (int number = 1; number <= calms_[static_cast<std::size_t>(row)].session.changes;
                 ++number) {
                points.push_back({Point::Kind::stop, row, number});
                for (int error = 0; error < static_cast<int>(std::size(errors)); ++error)
                    for (int reach = 0; reach < static_cast<int>(std::size(reaches)); ++reach)
                        points.push_back({Point::Kind::fail, row, number, error, reach});
                addLosses(points, row, number, random);
                for (unsigned second = 1; second <= longestStart; ++second)
                    points.push_back({Point::Kind::pair, row, number, 0, 0, second});
            }
        return points;
    }

    static void addLosses(std::vector<Point>& points, int row, int number, std::mt19937& random) {
        for (int model = 0; model < 2; ++model)
            for (int i = 0; i < lossesOfAChange; ++i)
                points.push_back({Point::Kind::power, row, number, model, 0,
                                  static_cast<std::uint32_t>(random() % 1'000'000)});
    }

  private:
    static constexpr unsigned longestStart = 90;
    static constexpr int lossesOfAChange = 8;

    std::deque<Calm> calms_;
};

void tell(const Point& point, const Bench& bench, const std::string& wrong, Report& report) {
    const auto& operation = bench.calm(point).operation;
    report.found(std::string(kinds[static_cast<int>(point.kind)]) + " " + operation.name + ": " +
                     wrong,
                 recipeOf(point));
}

} // namespace

void tryPoints(const Limits& limits, Report& report) {
    const Bench bench;
    std::mt19937 random(limits.seed);
    auto points = bench.all(random);
    std::erase_if(points, [&](const Point& point) {
        return std::any_of(limits.without.begin(), limits.without.end(), [&](const auto& word) {
            return word == kinds[static_cast<int>(point.kind)] ||
                   word == bench.calm(point).operation.name;
        });
    });
    std::shuffle(points.begin(), points.end(), random);
    std::stable_partition(points.begin(), points.end(), [](const Point& point) {
        return point.kind == Point::Kind::stop || point.kind == Point::Kind::damage;
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
            report.tried(kinds[static_cast<int>(point.kind)]);
        }
        if (!wrong.empty())
            tell(point, bench, wrong, report);
        // There is no end of losses of power.
        if (next + 1 == points.size())
            for (std::size_t each = 0; each < next; ++each)
                if (points[each].kind == Point::Kind::power)
                    points.push_back({Point::Kind::power, points[each].operation,
                                      points[each].number, points[each].how, 0,
                                      static_cast<std::uint32_t>(random() % 1'000'000)});
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
    report.tried(kinds[static_cast<int>(point.kind)], isThere ? 1 : 0);
    if (!wrong.empty())
        tell(point, bench, wrong, report);
    return true;
}

} // namespace crash
