// What may happen to a directory, and three ways to string it together: all short sequences, one
// long one by chance, and changes from outside by themselves.
#include <algorithm>
#include <random>
#include <set>
#include <sstream>

#include "crash/life.h"

namespace crash {
namespace {

const char* const one = "One";
const char* const two = "Two";

std::string launchScript(const Life& life) {
    std::string script = "click cmdRevert\ntab Maps\n";
    for (const std::string name : {one, two})
        if (life.isMapThere(name))
            script += "mark " + name + "\n";
    return script + "click cmdGo\n";
}

Step launch(const char* name, Answer answer) {
    return {name, true, [](const Life&) { return true; }, nullptr, launchScript, answer};
}

Step command(const char* name, const std::string& script, const std::string& release,
             const std::string& mayNotBe, const std::string& removes) {
    return {name,
            true,
            [=](const Life& life) {
                return (release.empty() || life.isMapThere(release)) &&
                       (mayNotBe.empty() || !life.isMapThere(mayNotBe));
            },
            nullptr,
            [=](const Life&) { return script; },
            Answer::yes,
            removes};
}

Step removal(const char* name, const std::string& release) {
    return command(name, "tab Maps\nmark " + release + "\nclick cmdRemove\n", release, "", release);
}

Step renaming(const char* name, const std::string& from, const std::string& to) {
    return command(name, "tab Maps\nmark " + from + "\nclick lblRename\nanswer " + to + "\n", from,
                   to, "");
}

enum class If { there, missing };

/// A change from outside, where an entry is there or is not.
Step outside(const char* name, If state, const std::string& path,
             const std::function<void(Life&)>& change, bool isForSmallWorlds = false) {
    return {name, isForSmallWorlds,
            [=](const Life& life) { return life.has(path) == (state == If::there); }, change};
}

/// Takes a random step, calm or not.
std::string takeChance(Life& life, std::mt19937& random, std::string& did) {
    const auto upTo = [&random](std::size_t most) { return random() % (most + 1); };
    const Step* step = nullptr;
    do
        step = &steps()[upTo(steps().size() - 1)];
    while (!step->isPossible(life));
    did = step->name;
    if (!step->isSession() || upTo(1) == 0)
        return step->run(life);
    constexpr std::errc errors[] = {std::errc::no_space_on_device, std::errc::permission_denied,
                                    std::errc::device_or_resource_busy, std::errc::io_error,
                                    std::errc::read_only_file_system};
    constexpr std::size_t changes = 130;
    Fault fault{static_cast<int>(1 + upTo(changes)), {}};
    const auto how = upTo(2);
    if (how == 0) {
        fault.error = std::make_error_code(errors[upTo(4)]);
        fault.reach = static_cast<Fault::Reach>(upTo(2));
    }
    std::ostringstream told;
    told << step->name << " at " << fault.number << " " << fault.error.message();
    did = told.str();
    auto wrong = step->run(life, fault);
    if (wrong.empty() && how == 2) {
        did += ", power";
        wrong = life.powerGoes(upTo(1) == 0, static_cast<std::uint32_t>(random()));
    }
    return wrong;
}

} // namespace

std::string Step::run(Life& life, const Fault& fault) const {
    if (isSession())
        return life.session(script(life), answer, fault, removes);
    change(life);
    return {};
}

const std::vector<Step>& steps() {
    const auto put = [](const std::string& path) { return [path](Life& life) { life.put(path); }; };
    const auto remove = [](const std::string& path) {
        return [path](Life& life) { life.remove(path); };
    };
    static const std::vector<Step> rows = {
        launch("launch-yes", Answer::yes),
        launch("launch-no", Answer::no),
        command("start", "", "", "", ""),
        removal("remove-one", one),
        removal("remove-two", two),
        renaming("rename-one", one, two),
        renaming("rename-two", two, one),
        outside("add-one", If::missing, "Vexillum/Map-One", put("Vexillum/Map-One/units/b.ufo"),
                true),
        outside("delete-file", If::there, "a.ufo", remove("a.ufo"), true),
        outside("add-file", If::missing, "a.ufo", put("a.ufo"), true),
        outside("edit-file", If::there, "a.ufo", put("a.ufo"), true),
        outside("add-two", If::missing, "Vexillum/Map-Two", put("Vexillum/Map-Two/a.ufo")),
        outside("scanner-takes", If::there, "Vexillum/Map-One/a.ufo",
                remove("Vexillum/Map-One/a.ufo")),
        outside("scanner-gives", If::missing, "Vexillum/Map-One/a.ufo",
                put("Vexillum/Map-One/a.ufo")),
        outside("delete-below", If::there, "units/b.ufo", remove("units/b.ufo")),
        outside("edit-below", If::there, "units/b.ufo", put("units/b.ufo")),
        outside("delete-folder", If::there, "units", remove("units")),
        outside("folder-instead", If::there, "a.ufo",
                [](Life& life) {
                    life.remove("a.ufo");
                    life.put("a.ufo/own.txt");
                }),
        outside("file-again", If::there, "a.ufo/own.txt", remove("a.ufo")),
        outside("swap-case", If::there, "units/b.ufo",
                [](Life& life) { life.rename("units/b.ufo", "units/B.UFO"); }),
        outside("lock-folder", If::there, "units",
                [](Life& life) { life.setWritable("units", false); }),
        outside("unlock-folder", If::there, "units",
                [](Life& life) { life.setWritable("units", true); }),
        outside("release-goes", If::there, "Vexillum/Map-Two", remove("Vexillum/Map-Two")),
        outside("bring-exe", If::missing, "Vexillum/Map-Two/totala.exe",
                put("Vexillum/Map-Two/totala.exe")),
        outside("patch-exe", If::there, "totala.exe", put("totala.exe")),
        outside("delete-held", If::there, "Vexillum/TC-Cavedog TA/a.ufo",
                remove("Vexillum/TC-Cavedog TA/a.ufo")),
    };
    return rows;
}

void trySmallWorlds(const Limits& limits, int length, Report& report) {
    struct Reached {
        Life life;
        std::string way;
    };
    std::set<std::string> seen;
    std::vector<Reached> last;
    last.push_back({Life(), "world"});
    for (int depth = 1; depth <= length; ++depth) {
        std::vector<Reached> next;
        const auto reach = [&](Life&& life, const std::string& way, const std::string& wrong) {
            report.tried("small worlds, sequences of " + std::to_string(depth));
            if (!wrong.empty())
                return report.found("world: " + wrong, way);
            if (!seen.insert(life.key()).second)
                return;
            next.push_back({std::move(life), way});
        };
        for (const auto& [life, way] : last)
            for (const auto& step : steps()) {
                if (std::chrono::steady_clock::now() > limits.end)
                    return report.note("small worlds: out of time among the sequences of " +
                                       std::to_string(depth));
                if (!step.isForSmallWorlds || !step.isPossible(life))
                    continue;
                Life behind(life);
                const auto wrong = step.run(behind);
                reach(std::move(behind), way + " " + step.name, wrong);
                if (!step.isSession())
                    continue;
                int number = 0;
                for (auto& stop : life.stopsIn(step.script(life), step.answer, step.removes)) {
                    const auto lost = stop.check(nullptr);
                    reach(std::move(stop), way + " " + step.name + ":" + std::to_string(number++),
                          lost);
                }
            }
        report.note("small worlds: " + std::to_string(seen.size()) + " states behind " +
                    std::to_string(depth) + " steps");
        last = std::move(next);
    }
}

std::string playWay(const std::string& way) {
    std::istringstream words(way);
    std::string word;
    words >> word;
    Life life;
    std::string wrong;
    isTelling = true;
    while (wrong.empty() && words >> word) {
        const auto colon = std::min(word.find(':'), word.size());
        const auto step = std::find_if(steps().begin(), steps().end(), [&](const auto& each) {
            return word.substr(0, colon) == each.name;
        });
        if (step == steps().end())
            return "no such step: " + word;
        if (colon == word.size()) {
            wrong = step->run(life);
        } else {
            life = life.stopsIn(step->script(life), step->answer, step->removes)
                       .at(std::stoul(word.substr(colon + 1)));
            wrong = life.check(nullptr);
        }
        std::printf("--- %s\n%s\n", word.c_str(), life.key().c_str());
    }
    return wrong;
}

void tryLongLife(const Limits& limits, int runs, Report& report) {
    Life life;
    std::mt19937 random(limits.seed);
    std::vector<std::string> way;
    for (int run = 0; run < runs && std::chrono::steady_clock::now() < limits.end; ++run) {
        std::string did;
        const auto wrong = takeChance(life, random, did);
        way.push_back(did);
        if (isTelling)
            std::printf("--- %s\n", did.c_str());
        report.tried("runs of a long life");
        if (wrong.empty())
            continue;
        std::string told;
        for (auto each = way.size() - std::min<std::size_t>(way.size(), 6); each < way.size();
             ++each)
            told += "; " + way[each];
        return report.found("life: " + wrong,
                            "life --seed " + std::to_string(limits.seed) + "    " + told);
    }
}

void tryOutsideChanges(Report& report) {
    std::vector<const Step*> changes;
    std::vector<const Step*> launches;
    for (const auto& step : steps())
        (step.isSession() ? launches : changes).push_back(&step);
    launches.resize(2);
    for (const auto* launched : launches)
        for (const auto* first : changes)
            for (const auto* second : changes) {
                Life life;
                life.put("Vexillum/Map-Two/totala.exe");
                const auto& start = steps()[2];
                std::string way = "world bring-exe";
                std::string wrong;
                for (const auto* step :
                     {launched, first, second, &start, &start, launched, &start}) {
                    if (!wrong.empty() || !step->isPossible(life))
                        continue;
                    way += std::string(" ") + step->name;
                    wrong = step->run(life);
                }
                report.tried("changes from outside, in pairs");
                if (!wrong.empty())
                    report.found("outside: " + wrong, way);
            }
}

} // namespace crash
