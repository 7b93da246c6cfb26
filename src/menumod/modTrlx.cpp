// The stages of the modifier, in their order.
#include "menumod/modTrlx.h"

#include <algorithm>
#include <array>

#include "cycle/change_files.h"
#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"

namespace menumod {
namespace {

constexpr std::size_t mostHeldOfOne = std::size_t{1} << 20U;
constexpr std::size_t mostHeldInAll = std::size_t{64} << 20U;

struct StockCopy {
    const char* from;
    const char* to;
};

constexpr std::array<StockCopy, 5> stockCopies = {{{"commongui.GAF", "anims\\commongui.gaf"},
                                                   {"ARMGEN.GUI", "guis\\ARMGEN.GUI"},
                                                   {"ARMGEN.GUI", "guis\\CORGEN.GUI"},
                                                   {"BUILDM.GUI", "guis\\ARMDL.GUI"},
                                                   {"BUILDM.GUI", "guis\\CORDL.GUI"}}};

/// A unit is named by a file out of an archive, and its own file is named by it.
bool leadsOut(std::string_view unitName) {
    return !platform::RelativePath::accepts(unitName, {platform::PathRules::Slash::separates,
                                                       platform::PathRules::Dot::refused,
                                                       platform::PathRules::Controls::allowed});
}

} // namespace

modTrlx::modTrlx(releases::GameDirectory& game, Settings settings)
    : game_(game), settings_(settings),
      menus_([this](const std::string& builder, const std::string& unit) {
          showStage("No room for \"" + unit + "\" on the menu of \"" + builder + "\"");
      }) {}

bool modTrlx::enableTrlx() {
    showStage("Enabling Trellis...");
    showStage("Checking Folders");
    if (!foldersAreFree())
        return false;
    noteWhatIsExtracted();
    extractData();
    showStage("Getting units from GUIs");
    readGuiPages();
    try {
        readDownloads();
        mergeMenus();
    } catch (...) {
        putOutOfAction();
        throw;
    }
    putOutOfAction();
    copyDataFiles();
    notes_.isMade = true;
    writeNotes();
    return true;
}

void modTrlx::copyStock(const std::string& name, const std::string& path) {
    try {
        game_.disk().copyFile(name, path);
    } catch (const platform::Failure& failure) {
        failures_.push_back(platform::shownPath(path) + ": " + failure.reason());
    }
}

void modTrlx::note(const std::string& path) {
    if (noted_.insert(platform::foldCase(path)).second)
        notes_.files.push_back(path);
}

/// On the disk before what they tell of, so that the next start finds it whatever happens here.
void modTrlx::writeNotes() {
    game_.disk().replaceFile(cycle::trellisFile(game_), formats::trellisNotesText(notes_));
}

void modTrlx::noteWhatIsExtracted() {
    Extraction extraction(game_);
    extraction.forEachArchive([&](int handle) {
        for (const auto* folder : {"guis", "download"})
            extraction.eachFile(handle, folder, [this](const std::string& name) { note(name); });
    });
    for (const auto& copy : stockCopies)
        note(copy.to);
    writeNotes();
}

void modTrlx::mergeMenus() {
    writeMenuList("MBefore.txt");
    showStage(settings_.compress ? "Compressing Menus" : "Not Compressing Menus");
    if (settings_.compress)
        menus_.compress();
    writeMenuList("MAfter.txt");
    writeDownloads();
}

void modTrlx::showStage(const std::string& text) {
    game_.log().stage(text);
    game_.log().breathe();
}

bool modTrlx::foldersAreFree() {
    for (const std::string folder : {"guis", "anims", "download"}) {
        if (!game_.DoesFolderExist(game_.at(folder)))
            continue;
        game_.questions().warn(
            "One of the conversions you have enabled includes a \"" + folder +
            "\" folder.\r\n\r\nThe Trellis requires that this folder NOT EXIST in order to "
            "work, and therefore is NOT being activated.");
        return false;
    }
    return true;
}

void modTrlx::extractData() {
    showStage("Extracting Data Files");
    Extraction extraction(game_);
    extraction.takeOver = [&](int handle, const std::string& name) {
        return holdInMemory(extraction.archives(), handle, name);
    };
    extraction.onFailure = [this](const std::string& what) {
        if (std::find(failures_.begin(), failures_.end(), what) == failures_.end())
            failures_.push_back(what);
    };
    extraction.forEachArchive([&](int handle) {
        extraction.extractFolder(handle, "guis", "", "", false);
        game_.log().breathe();
        extraction.extractFolder(handle, "download", "", "", false);
    });
}

/// False for an entry that is to be written to its file, as all are that no stage reads.
bool modTrlx::holdInMemory(modHPIUtil& archives, int handle, const std::string& name) {
    const auto cut = name.find('\\');
    const auto leaf = name.substr(cut + 1);
    const bool isPage = platform::equalIgnoringCase(name.substr(0, cut), "guis");
    if (leaf.find('\\') != std::string::npos ||
        (!isPage && !platform::endsWithIgnoringCase(leaf, ".tdf")) ||
        !game_.DoesFolderExist(game_.at(name.substr(0, cut))))
        return false;
    auto& files = isPage ? pages_ : downloads_;
    const auto key = platform::foldCase(leaf);
    const auto known = files.find(key);
    auto path = known != files.end() ? known->second.path : game_.at(name);
    auto content =
        archives.HPIReadFile(handle, name, std::min(mostHeldOfOne, mostHeldInAll - held_));
    if (content)
        held_ += content->size();
    else if (!archives.HPIExtractFile(handle, name, path))
        return true;
    files.insert_or_assign(key, Extracted{std::move(path), std::move(content)});
    return true;
}

void modTrlx::addThoseOnDisk(ExtractedFiles& files, const std::string& folder) {
    releases::StringArray names;
    game_.fileArray(names, game_.at(folder));
    for (const auto& name : names.entries())
        files.try_emplace(platform::foldCase(name), Extracted{game_.at(folder + "\\" + name), {}});
}

std::string modTrlx::contentOf(const Extracted& file) {
    return file.content ? *file.content : game_.disk().readFile(file.path);
}

void modTrlx::readGuiPages() {
    addThoseOnDisk(pages_, "guis");
    for (const auto& [key, file] : pages_) {
        game_.log().breathe();
        const auto page = formats::guiPageName(file.path.substr(file.path.rfind('\\') + 1));
        formats::GuiPageReader reader(menus_, page ? page->builder : "", settings_.compress);
        const auto text = contentOf(file);
        if (page)
            for (const auto& line : platform::splitLines(text)) {
                game_.log().breathe();
                reader.readLine(line);
            }
        if (reader.hasButtons())
            copyStock(stockFile("BUILDM.GUI"), file.path);
        else
            game_.DeleteFile(file.path, true);
    }
}

void modTrlx::readDownloads() {
    addThoseOnDisk(downloads_, "download");
    std::erase_if(downloads_, [](const auto& file) { return !file.first.ends_with(".tdf"); });
    showStage("Getting units from download TDFs");
    for (const auto& [key, file] : downloads_) {
        formats::DownloadReader reader(menus_);
        for (const auto& line : platform::splitLines(contentOf(file))) {
            game_.log().breathe();
            reader.readLine(line);
        }
    }
}

/// An archive's own download file would add its units once more, so one that defines nothing lies
/// in its place, unless it has been written over.
void modTrlx::putOutOfAction() {
    for (const auto& [key, file] : downloads_)
        copyStock(game_.inDataTree("VXL-Trlx\\dlKILL.TDF"), file.path);
    downloads_.clear();
}

void modTrlx::writeMenuList(const std::string& fileName) {
    const auto path = game_.inDataTree(fileName);
    try {
        game_.disk().writeFile(path, formats::menuListText(menus_.menus()));
    } catch (const platform::Failure& failure) {
        failures_.push_back(platform::shownPath(path) + ": " + failure.reason());
    }
}

void modTrlx::writeDownloads() {
    showStage("Converting GUI data to download TDF data");
    formats::DownloadTable table;
    for (const auto& menu : menus_.menus()) {
        game_.log().breathe();
        table.addMenu(menu, settings_.small);
    }
    showStage("Writing download TDFs");
    for (const auto& unit : table.downloads())
        if (!leadsOut(unit.unitName))
            note("download\\" + unit.unitName + ".tdf");
    writeNotes();
    for (const auto& unit : table.downloads()) {
        game_.log().breathe();
        if (leadsOut(unit.unitName))
            unitLeadingOut_ = unit.unitName;
        auto path = game_.at("download\\" + unit.unitName + ".tdf");
        // A file that is there keeps the spelling of its name.
        if (const auto old = downloads_.find(platform::foldCase(unit.unitName + ".tdf"));
            old != downloads_.end()) {
            path = old->second.path;
            downloads_.erase(old);
        }
        game_.disk().writeFile(path, formats::downloadText(unit));
    }
}

void modTrlx::copyDataFiles() {
    showStage("Copying Data Files");
    platform::attempt([&] { game_.disk().makeFolder(game_.at("anims")); });
    for (const auto& copy : stockCopies)
        copyStock(stockFile(copy.from), game_.at(copy.to));
}

/// Most stock files come in two sizes.
std::string modTrlx::stockFile(const std::string& name) const {
    return game_.inDataTree("VXL-Trlx\\" + std::string(settings_.small ? "800x600\\" : "") + name);
}

} // namespace menumod
