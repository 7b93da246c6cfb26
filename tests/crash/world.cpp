// What the user's files are, and what counts as lost, mixed up, torn or untold.
#include "crash/world.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "packing/archive_writer.h"
#include "packing/zip_writer.h"
#include "platform/text.h"

namespace crash {
namespace {

namespace fs = std::filesystem;
const std::string selections = "Vexillum/VXL-Sel/";

std::string at(const std::string& path) {
    return std::string(gameFolder) + "/" + path;
}

std::string leafOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// The texts that were not there in a calm run.
std::vector<std::string> onlyIn(const std::vector<std::string>& now,
                                const std::vector<std::string>& calm) {
    std::multiset<std::string> known(calm.begin(), calm.end());
    std::vector<std::string> fresh;
    for (const auto& text : now)
        if (const auto found = known.find(text); found != known.end())
            known.erase(found);
        else
            fresh.push_back(text);
    return fresh;
}

/// The name of the release that a file is of, in quotes; what stands nowhere if it is of none.
std::string releaseOf(const std::string& path) {
    const auto start = path.find('-');
    return path.starts_with("Vexillum/") && start != std::string::npos
               ? '"' + path.substr(start + 1, path.find('/', start) - start - 1) + '"'
               : "\n\n";
}

bool isUsers(const std::string& path) {
    return !path.starts_with("Vexillum/VXL-") && path != "Vexillum/MBefore.txt" &&
           path != "Vexillum/MAfter.txt" && path.find(".vexillum-part") == std::string::npos;
}

bool names(const std::string& text, const std::string& name) {
    return platform::foldCase(text).find(platform::foldCase(name)) != std::string::npos;
}

} // namespace

Memory emptyGame() {
    static const Memory game = [] {
        auto memory = std::make_shared<platform::MemoryDisk>();
        const fs::path data = VEXILLUM_DATA;
        for (const auto& entry : fs::recursive_directory_iterator(data)) {
            if (!entry.is_regular_file() || entry.path().extension() == ".png")
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            std::ostringstream bytes;
            bytes << file.rdbuf();
            memory->put(at("Vexillum/" + entry.path().lexically_relative(data).generic_string()),
                        bytes.str());
        }
        memory->put(at("totala.exe"), "the game");
        return memory;
    }();
    return game->copy();
}

Memory smallGame() {
    static const Memory game = [] {
        auto memory = emptyGame();
        for (const auto* path :
             {"a.ufo", "units/a.fbi", "units/own.fbi", "extra.hpi", "readme.txt",
              "Vexillum/Map-One/a.ufo", "Vexillum/Map-One/units/a.fbi",
              "Vexillum/Map-One/new/c.ota", "Vexillum/Map-One/info.txt", "Vexillum/Mod-Two/a.ufo",
              "Vexillum/Mod-Two/new/c.ota", "Vexillum/Mod-Two/mod.exe",
              "Vexillum/Mod-Two/ccodes.txt", "Vexillum/Map-Misc/extra.hpi",
              "Vexillum/Unit-Three/info.txt", "Vexillum/Unit-Three/deep/er/d.fbi"})
            memory->put(at(path), "content of " + std::string(path));
        memory->put(at("menus.ccx"),
                    packing::packArchive(
                        {{"guis\\XYZ1.GUI", "name=UNIT1;\nheight=64;\nname=NEXT;\nheight=24;\n"},
                         {"guis\\XYZGEN.GUI", "name=NEXT;\nheight=24;\n"}}));
        memory->put(at("Vexillum/VXL-Sets/Best.txt"),
                    "Vexillum Set\n[Releases]\nMap \"One\"\nMap \"extra.hpi\"\nModification "
                    "\"Two\"\n[Menu Modifier]\nUse Trellis: Yes\n[Answers]\n");
        memory->put("/outside/member.ufo", "a member");
        memory->put("/outside/readme of mine.txt", "a readme");
        memory->put("/outside/pack.zip", packing::packZip({{"pack/one.ufo", "first of the pack"},
                                                           {"pack/sub/two.ufo", "second"}}));
        memory->put("/outside/Sea.tc", "Sea\r\nWater.\r\nCODE1\r\nsea.hpi sea.hpi\r\n"
                                       "extra.dat sub\\extra.dat\r\n");
        memory->put("/outside/sea.hpi", "sea");
        memory->put("/outside/extra.dat", "extra");
        return memory;
    }();
    return game->copy();
}

Files userFiles(const platform::MemoryDisk& memory) {
    auto files = memory.files(gameFolder);
    std::erase_if(files, [](const auto& file) { return !isUsers(file.first); });
    return files;
}

Files selectionFiles(const platform::MemoryDisk& memory) {
    auto files = memory.files(gameFolder);
    std::erase_if(files, [](const auto& file) {
        return !file.first.starts_with(selections) ||
               file.first.find(".vexillum-part") != std::string::npos;
    });
    return files;
}

const std::vector<Operation>& operations() {
    const std::string choose = "tab Mods\nmark Two\ntab Maps\nmark One\nmark extra.hpi\n";
    const std::string other = "tab Maps\nmark One\nmark extra.hpi\n";
    const std::string trellis = "click mnuMMenable\n";
    const std::string launch = "click cmdGo\n";
    const std::string wizard = "tab Maps\nclick cmdAdd\ntype txt1Name Four\ntype txt1About Four.\n"
                               "click cmd1Next\nclick cmd2Files\n";
    const std::string finish = "click cmd2Next\nclick cmd3Browse\nanswer /outside/readme of "
                               "mine.txt\ntype txt3CCodes CODE\nclick cmd3next\n";
    const auto four = [](Files members) {
        members.merge(Files{
            {"info.txt", "Four.\r\n"}, {"readme.txt", "a readme"}, {"ccodes.txt", "CODE\r\n"}});
        Files files;
        for (const auto& [path, content] : members)
            files["Vexillum/Map-Four/" + path] = content;
        return files;
    };
    static const std::vector<Operation> rows = {
        {"start", choose + launch, ""},
        {"start-behind-modifier", choose + trellis + launch, ""},
        {"apply", "", choose + launch},
        {"apply-no", "", choose + launch, Answer::no},
        {"apply-modifier", "", choose + trellis + launch},
        {"come-back", "", "click mnuFComeBack\n" + choose + trellis + launch + launch},
        {"start-and-apply", choose + launch, other + "close\n"},
        {"add",
         other + launch,
         wizard + "answer /outside/member.ufo\n" + finish,
         Answer::yes,
         {},
         four({{"member.ufo", "a member"}}),
         "has been added successfully"},
        {"zip",
         "",
         wizard + "answer /outside/pack.zip\n" + finish,
         Answer::yes,
         {},
         four({{"one.ufo", "first of the pack"}, {"sub/two.ufo", "second"}}),
         "has been added successfully"},
        {"tam",
         "",
         "click mnuUconverter\npick cbo1TAMtype TAM TC\npick cbo1VXLtype VXL Mod\nclick cmd1Next\n"
         "click cmd2Browse\nanswer /outside/Sea.tc\nclick cmd2Next\nclick cmd3next\n",
         Answer::yes,
         {},
         {{"Vexillum/Mod-Sea/info.txt", "Water.\r\n"},
          {"Vexillum/Mod-Sea/ccodes.txt", "CODE1\r\n"},
          {"Vexillum/Mod-Sea/sea.hpi", "sea"},
          {"Vexillum/Mod-Sea/sub/extra.dat", "extra"}}},
        {"rename",
         choose + launch,
         "tab Maps\nmark One\nclick lblRename\nanswer Uno\n",
         Answer::yes,
         {{"Vexillum/Map-One/", "Vexillum/Map-Uno/"}},
         {},
         "successfully renamed"},
        {"remove",
         choose + launch,
         "tab Units\nmark Three\nclick cmdRemove\n",
         Answer::yes,
         {{"Vexillum/Unit-Three/", ""}},
         {},
         "removed successfully"},
        {"remove-loose",
         choose + launch,
         "tab Maps\nmark extra.hpi\nclick cmdRemove\n",
         Answer::yes,
         {{"Vexillum/Map-Misc/extra.hpi", ""}},
         {},
         "removed successfully"},
        {"command-apply", "", "run --apply Best --yes"},
        {"command-apply-again", choose + trellis + launch, "run --apply --no"},
        {"command-launch-wait", choose + launch, "run --launch Best --wait --yes"},
        {"command-set", "", "run --set mod=Two map+=extra.hpi modifier=on"},
        {"command-add",
         "",
         "run --add /outside/pack.zip --type Map --name Four",
         Answer::yes,
         {},
         {{"Vexillum/Map-Four/one.ufo", "first of the pack"},
          {"Vexillum/Map-Four/sub/two.ufo", "second"}},
         "files copied to"},
        {"command-remove",
         "",
         "run --remove Three --type Unit --yes",
         Answer::yes,
         {{"Vexillum/Unit-Three/", ""}}},
        {"clean",
         choose + launch,
         "click cmdClean\n",
         Answer::yes,
         {{"a.ufo", "CleanedFiles/a.ufo"},
          {"extra.hpi", "CleanedFiles/extra.hpi"},
          {"menus.ccx", "CleanedFiles/menus.ccx"},
          {"readme.txt", "CleanedFiles/readme.txt"},
          {"units/", "CleanedFiles/units/"}}},
    };
    return rows;
}

Calm::Calm(const Operation& row) : operation(row), start(smallGame()) {
    before = userFiles(*start);
    if (!row.before.empty())
        play(start, row.before, row.answer);
    selectionsBefore = selectionFiles(*start);
    const auto memory = start->copy();
    session = play(memory, row.script, row.answer);
    after = userFiles(*memory);
    selectionsAfter = selectionFiles(*memory);
}

/// Where a file may lie behind the operation and a start; an empty path for nowhere.
std::vector<std::string> Calm::placesOf(const std::string& path) const {
    std::vector<std::string> places = {path};
    for (const auto& [from, to] : operation.moves)
        if (path.starts_with(from))
            places.push_back(to.empty() ? to : to + path.substr(from.size()));
    return places;
}

std::string Calm::lost(const platform::MemoryDisk& memory, const Session& disturbed) const {
    const auto now = userFiles(memory);
    std::multiset<std::string> contents;
    for (const auto& [path, content] : now)
        contents.insert(content);
    for (const auto& [path, content] : before)
        if (!contents.contains(content) && !placesOf(path).back().empty())
            return "lost: " + path;
    if (operation.promise == nullptr ||
        std::none_of(disturbed.boxes.begin(), disturbed.boxes.end(),
                     [&](const auto& box) { return names(box, operation.promise); }))
        return {};
    for (const auto& [path, content] : before)
        if (placesOf(path).size() > 1 && now.contains(path))
            return "promised and not done: " + path;
    for (const auto& [path, content] : operation.brings) {
        const auto there = now.find(path);
        const auto isTold =
            std::any_of(disturbed.boxes.begin(), disturbed.boxes.end(),
                        [leaf = leafOf(path), folder = at(path.substr(0, path.find('/', 9))) + '"'](
                            const auto& box) { return names(box, leaf) || names(box, folder); });
        if ((there == now.end() || there->second != content) && !isTold)
            return "promised and not there: " + path;
    }
    return {};
}

std::string Calm::tornSelections(const platform::MemoryDisk& memory) const {
    const auto now = selectionFiles(memory);
    for (const auto& [path, content] : selectionsBefore) {
        const auto there = now.find(path);
        if (there == now.end())
            return "gone: " + path;
        if (there->second != content && there->second != selectionsAfter.at(path) &&
            there->second != platform::lineBreak)
            return "torn: " + path;
    }
    return {};
}

std::string Calm::notPlain(const platform::MemoryDisk& memory) const {
    auto now = userFiles(memory);
    for (const auto& [path, content] : before) {
        int found = 0;
        bool mayGo = false;
        for (const auto& place : placesOf(path)) {
            mayGo = mayGo || place.empty();
            const auto there = now.find(place);
            if (there == now.end() || there->second != content)
                continue;
            ++found;
            now.erase(there);
        }
        if (found > 1 || (found == 0 && !mayGo))
            return (found > 1 ? "twice: " : "not in its place: ") + path;
    }
    for (const auto& [path, content] : now) {
        const auto brought = operation.brings.find(path);
        if (brought == operation.brings.end())
            return "left behind: " + path;
        if (brought->second != content)
            return "torn: " + path;
    }
    return tornSelections(memory);
}

namespace {

bool isModifiers(const std::string& path) {
    return path.starts_with("anims/") || path.starts_with("download/") || path.starts_with("guis/");
}

} // namespace

std::string Calm::silent(const platform::MemoryDisk& memory, const Session& disturbed) const {
    const auto boxes = onlyIn(disturbed.boxes, session.boxes);
    const auto lines = onlyIn(disturbed.lines, session.lines);
    // Where nothing can be noted, nothing is moved, and the box names the note; a rename is
    // answered.
    const bool isTurnedDown = std::any_of(boxes.begin(), boxes.end(), [](const auto& box) {
        return names(box, "VXL-Changes") || names(box, "VXL-Sel") ||
               names(box, "could not be saved") || names(box, "could not be renamed") ||
               names(box, "could not be moved back") || names(box, "could not be removed");
    });
    const auto isNamed = [&](const std::string& name) {
        const auto tells = [&](const auto& text) { return names(text, name); };
        return std::any_of(boxes.begin(), boxes.end(), tells) ||
               std::any_of(lines.begin(), lines.end(), tells);
    };
    // By its name or by that of a folder that was to go with all that is in it.
    const auto isTold = [&](const std::string& path) {
        auto isIt = isTurnedDown || isNamed(leafOf(path)) || isNamed(releaseOf(path));
        for (auto end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1))
            isIt = isIt || isNamed(at(path.substr(0, end)) + "\"") ||
                   isNamed(at(path.substr(0, end)) + ":");
        const bool isSetting = path == selections + "selTrlx.txt";
        return isIt || (isModifiers(path) && isNamed("The Trellis could not make all")) ||
               ((isModifiers(path) || isSetting) && isNamed("NOT being activated"));
    };
    std::set<std::string> differ;
    const auto compare = [&](const Files& one, const Files& other) {
        for (const auto& [path, content] : one)
            if (const auto there = other.find(path);
                there == other.end() || there->second != content)
                differ.insert(path);
    };
    const auto now = userFiles(memory);
    const auto chosen = selectionFiles(memory);
    compare(now, after);
    compare(after, now);
    compare(chosen, selectionsAfter);
    compare(selectionsAfter, chosen);
    for (const auto& path : differ)
        if (!isTold(path))
            return "silent: " + path;
    return {};
}

} // namespace crash
