// The stages of the modifier, in their order.
#include "menumod/modTrlx.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace menumod {
namespace {

/// A page's file is named by its builder, a digit and the extension.
constexpr std::size_t pageSuffixLength = 5;

constexpr std::size_t mostHeldOfOne = std::size_t{1} << 20U;
constexpr std::size_t mostHeldInAll = std::size_t{64} << 20U;

bool leadsOut(std::string_view unitName) {
    if (unitName.starts_with('/') || unitName.starts_with('\\'))
        return true;
    for (const auto& part : platform::splitPath(platform::replaceAll(unitName, "/", "\\")))
        if (platform::leadsAway(part) || platform::isDrive(part))
            return true;
    return false;
}

} // namespace

modTrlx::modTrlx(engine::frmMain& main, bool compressMenus)
    : main_(main), toolkit_(main.machine().toolkit), disk_(main.machine().disk),
      compressMenus_(compressMenus),
      menus_([this](const std::string& builder, const std::string& unit) {
          showStage("No room for \"" + unit + "\" on the menu of \"" + builder + "\"");
      }) {}

bool modTrlx::enableTrlx(bool small) {
    showStage("Enabling Trellis...");
    showStage("Checking Folders");
    if (!foldersAreFree())
        return false;
    extractData();
    showStage("Getting units from GUIs");
    readGuiPages(small);
    try {
        readDownloads();
        mergeMenus(small);
    } catch (...) {
        putOutOfAction();
        throw;
    }
    putOutOfAction();
    copyDataFiles(small);
    return true;
}

void modTrlx::mergeMenus(bool small) {
    writeMenuList("MBefore.txt");
    showStage(compressMenus_ ? "Compressing Menus" : "Not Compressing Menus");
    if (compressMenus_)
        menus_.compress();
    writeMenuList("MAfter.txt");
    writeDownloads(small);
}

void modTrlx::showStage(const std::string& text) {
    main_.appendToLog(text);
    toolkit_.doEvents();
}

bool modTrlx::foldersAreFree() {
    for (const std::string folder : {"guis", "anims", "download"}) {
        if (!main_.DoesFolderExist(main_.TADir + "\\" + folder))
            continue;
        main_.tell("One of the conversions you have enabled includes a \"" + folder +
                   "\" folder.\r\n\r\nThe Trellis requires that this folder NOT EXIST in order to "
                   "work, and therefore is NOT being activated.");
        return false;
    }
    return true;
}

void modTrlx::extractData() {
    engine::StringArray files;
    main_.fileArray(files, main_.TADir);
    showStage("Extracting Data Files");
    conflict::modConflict extraction(main_);
    extraction.takeOver = [&](int handle, const std::string& name) {
        return holdInMemory(extraction.archives(), handle, name);
    };
    for (const auto& file : files.entries()) {
        toolkit_.doEvents();
        const int handle = extraction.archives().HPIOpen(main_.TADir + "\\" + file);
        if (handle != 0) {
            extraction.extractFolder(handle, "guis", "", "", false);
            toolkit_.doEvents();
            extraction.extractFolder(handle, "download", "", "", false);
        }
        extraction.archives().HPIClose(handle);
    }
}

/// False for an entry that is to be written to its file, as all are that no stage reads.
bool modTrlx::holdInMemory(modHPIUtil& archives, int handle, const std::string& name) {
    const auto cut = name.find('\\');
    const auto leaf = name.substr(cut + 1);
    const bool isPage = platform::equalIgnoringCase(name.substr(0, cut), "guis");
    if (leaf.find('\\') != std::string::npos ||
        (!isPage && !platform::endsWithIgnoringCase(leaf, ".tdf")) ||
        !main_.DoesFolderExist(main_.TADir + "\\" + name.substr(0, cut)))
        return false;
    auto& files = isPage ? pages_ : downloads_;
    const auto key = platform::foldCase(leaf);
    const auto known = files.find(key);
    auto path = known != files.end() ? known->second.path : main_.TADir + "\\" + name;
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
    engine::StringArray names;
    main_.fileArray(names, main_.TADir + "\\" + folder);
    for (const auto& name : names.entries())
        files.try_emplace(platform::foldCase(name),
                          Extracted{main_.TADir + "\\" + folder + "\\" + name, {}});
}

std::string modTrlx::contentOf(const Extracted& file) {
    return file.content ? *file.content : disk_.readFile(file.path);
}

void modTrlx::readGuiPages(bool small) {
    addThoseOnDisk(pages_, "guis");
    for (const auto& [key, file] : pages_) {
        toolkit_.doEvents();
        const auto page = file.path.substr(file.path.rfind('\\') + 1);
        const bool named = page.size() >= pageSuffixLength;
        GuiPageReader reader(menus_, named ? page.substr(0, page.size() - pageSuffixLength) : "",
                             compressMenus_);
        const auto text = contentOf(file);
        if (named)
            for (const auto& line : platform::splitLines(text)) {
                toolkit_.doEvents();
                reader.readLine(line);
            }
        if (reader.hasButtons())
            main_.CopyFile(stockFile("BUILDM.GUI", small), file.path, false);
        else
            main_.DeleteFile(file.path, false, true);
    }
}

void modTrlx::readDownloads() {
    addThoseOnDisk(downloads_, "download");
    std::erase_if(downloads_, [](const auto& file) { return !file.first.ends_with(".tdf"); });
    showStage("Getting units from download TDFs");
    for (const auto& [key, file] : downloads_) {
        DownloadReader reader(menus_);
        for (const auto& line : platform::splitLines(contentOf(file))) {
            toolkit_.doEvents();
            reader.readLine(line);
        }
    }
}

/// An archive's own download file would add its units once more, so one that defines nothing lies
/// in its place, unless it has been written over.
void modTrlx::putOutOfAction() {
    for (const auto& [key, file] : downloads_)
        main_.CopyFile(stockFile("dlKILL.TDF", false), file.path, false);
    downloads_.clear();
}

void modTrlx::writeMenuList(const std::string& fileName) {
    disk_.writeFile(main_.TADir + "\\Vexillum\\" + fileName, menuListText(menus_.menus()));
}

void modTrlx::writeDownloads(bool small) {
    showStage("Converting GUI data to download TDF data");
    DownloadTable table;
    for (const auto& menu : menus_.menus()) {
        toolkit_.doEvents();
        table.addMenu(menu, small);
    }
    showStage("Writing download TDFs");
    for (const auto& unit : table.downloads()) {
        toolkit_.doEvents();
        if (leadsOut(unit.unitName))
            unitLeadingOut_ = unit.unitName;
        auto path = main_.TADir + "\\download\\" + unit.unitName + ".tdf";
        // A file that is there keeps the spelling of its name.
        if (const auto old = downloads_.find(platform::foldCase(unit.unitName + ".tdf"));
            old != downloads_.end()) {
            path = old->second.path;
            downloads_.erase(old);
        }
        disk_.writeFile(path, downloadText(unit));
    }
}

void modTrlx::copyDataFiles(bool small) {
    showStage("Copying Data Files");
    platform::attempt([&] { disk_.makeFolder(main_.TADir + "\\anims"); });
    const auto copy = [&](const char* from, const char* to) {
        main_.CopyFile(stockFile(from, small), main_.TADir + "\\" + to, false);
    };
    copy("commongui.GAF", "anims\\commongui.gaf");
    copy("ARMGEN.GUI", "guis\\ARMGEN.GUI");
    copy("ARMGEN.GUI", "guis\\CORGEN.GUI");
    copy("BUILDM.GUI", "guis\\ARMDL.GUI");
    copy("BUILDM.GUI", "guis\\CORDL.GUI");
}

std::string modTrlx::stockFile(const std::string& name, bool small) const {
    return main_.TADir + "\\Vexillum\\VXL-Trlx\\" + (small ? "800x600\\" : "") + name;
}

} // namespace menumod
