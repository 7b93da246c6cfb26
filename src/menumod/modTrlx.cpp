// The stages of the modifier, in their order.
#include "menumod/modTrlx.h"

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace menumod {
namespace {

/// A page's file is named by its builder, a digit and the extension.
constexpr std::size_t pageSuffixLength = 5;

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
    readDownloads();
    writeMenuList("MBefore.txt");
    showStage(compressMenus_ ? "Compressing Menus" : "Not Compressing Menus");
    if (compressMenus_)
        menus_.compress();
    writeMenuList("MAfter.txt");
    writeDownloads(small);
    copyDataFiles(small);
    return true;
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

void modTrlx::readGuiPages(bool small) {
    engine::StringArray pages;
    main_.fileArray(pages, main_.TADir + "\\guis");
    for (const auto& page : pages.entries()) {
        toolkit_.doEvents();
        const auto path = main_.TADir + "\\guis\\" + page;
        const bool named = page.size() >= pageSuffixLength;
        GuiPageReader reader(menus_, named ? page.substr(0, page.size() - pageSuffixLength) : "",
                             compressMenus_);
        const auto text = disk_.readFile(path);
        if (named)
            for (const auto& line : platform::splitLines(text)) {
                toolkit_.doEvents();
                reader.readLine(line);
            }
        if (reader.hasButtons())
            main_.CopyFile(stockFile("BUILDM.GUI", small), path, false);
        else
            main_.DeleteFile(path, false, false);
    }
}

void modTrlx::readDownloads() {
    engine::StringArray files;
    main_.fileArray(files, main_.TADir + "\\download");
    showStage("Getting units from download TDFs");
    for (const auto& file : files.entries()) {
        if (!platform::endsWithIgnoringCase(file, ".tdf"))
            continue;
        const auto path = main_.TADir + "\\download\\" + file;
        DownloadReader reader(menus_);
        for (const auto& line : platform::splitLines(disk_.readFile(path))) {
            toolkit_.doEvents();
            reader.readLine(line);
        }
        main_.CopyFile(stockFile("dlKILL.TDF", false), path, false);
    }
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
        disk_.writeFile(main_.TADir + "\\download\\" + unit.unitName + ".tdf", downloadText(unit));
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
