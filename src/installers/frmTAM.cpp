// The conversion itself is worked out without a disk; here its steps are carried out.
#include "installers/frmTAM.h"

#include <array>

#include "engine/frmMain.h"
#include "installers/steps.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace installers {
namespace {

struct TypeNames {
    const char* row;
    const char* name;
    const char* pattern;
};

constexpr std::array<TypeNames, 6> tamTypes = {{
    {"TAM TC", "TAM Total Conversion", "*.tc"},
    {"TAM AI", "TAM Artificial Intelligence", "*.ai"},
    {"TAM Mutator", "TAM Mutator", "*.tam"},
    {"TAM Map", "TAM Map", "*.ufo"},
    {"TAM Unit", "TAM Unit", "*.ufo"},
    {"TAM Unit Pack", "TAM Unit Pack", "*.pac"},
}};

constexpr std::size_t vxlPrefixLength = 4;

/// With one kind of separator, and without parts that name the folder itself.
std::string plainPath(const std::string& path) {
    std::string plain;
    for (const auto& part : platform::splitPath(platform::replaceAll(path, "/", "\\")))
        if (part != ".")
            plain += (plain.empty() ? "" : "\\") + part;
    return plain;
}

} // namespace

frmTAM::frmTAM(engine::frmMain& main)
    : Window("frmTAM", "Add A TAM-Format Release"), main_(main), toolkit_(main.machine().toolkit),
      disk_(main.machine().disk) {
    tagBySteps(*this);
    cdgTAM.tag = "-1";
    cmd1Prev.onClick = [this] { toolkit_.hide(*this); };
    cmd1Next.onClick = [this] { cmd1Next_Click(); };
    cmd2Browse.onClick = [this] { cmd2Browse_Click(); };
    cmd2Prev.onClick = [this] { GotoStep(1); };
    cmd2Next.onClick = [this] { cmd2Next_Click(); };
    cmd3prev.onClick = [this] { GotoStep(2); };
    cmd3next.onClick = [this] { toolkit_.hide(*this); };
    onClose = [this] { toolkit_.hide(*this); };
}

frmTAM::~frmTAM() {
    toolkit_.unload(*this);
}

void frmTAM::Form_Load() {
    toolkit_.load(*this);
    GotoStep(1);
}

void frmTAM::GotoStep(int stepNum) {
    gotoStep(*this, stepNum);
    defaultButton = stepNum == 1 ? &cmd1Next : stepNum == 2 ? &cmd2Next : &cmd3next;
}

void frmTAM::cmd1Next_Click() {
    if (cbo1TAMtype.text().empty() || cbo1VXLtype.text().empty())
        return main_.tell(
            "You must select both a TAM and VXL release type.\r\n\r\nPlease do so now.");
    shortType = cbo1VXLtype.text().substr(vxlPrefixLength);
    const auto& type = tamTypes[static_cast<std::size_t>(cbo1TAMtype.index())];
    tamTypeName = type.name;
    tamPattern = type.pattern;
    txt2Loc.setText(tamTypeName + " (" + tamPattern + ")");
    GotoStep(2);
}

void frmTAM::cmd2Browse_Click() {
    cdgTAM.defaultExtension = tamPattern;
    cdgTAM.title = "Select " + tamTypeName + " Data File:";
    cdgTAM.filter = tamTypeName + " (" + tamPattern + ")|" + tamPattern;
    const auto file = toolkit_.askForFile({cdgTAM.title, cdgTAM.filter, cdgTAM.folder});
    if (!file)
        return;
    cdgTAM.fileName = *file;
    txt2Loc.setText(*file);
}

void frmTAM::cmd2Next_Click() {
    if (!main_.DoesFileExist(txt2Loc.text()))
        return main_.tell("Sorry, it looks like that isn't a valid file.\r\n\r\nPlease choose a "
                          "different one.");
    if (!txt2Loc.text().ends_with(tamPattern.substr(2)))
        return main_.tell("That file doesn't have the right extension.\r\n\r\nPlease choose a "
                          "different one.");
    lst3files.clear();
    // Events run during a long copy, but none may start another conversion.
    setResting(true);
    switch (cbo1TAMtype.index()) {
    case 0:
        addTAMTC();
        break;
    case 1:
        addTAMAI();
        break;
    case 2:
        addTAMMutator();
        break;
    case 5:
        addTAMUnitPack();
        break;
    default:
        addTAMUfo();
    }
    setResting(false);
    GotoStep(3);
}

bool frmTAM::convert(TamType type) {
    lst3files.clear();
    const auto& path = txt2Loc.text();
    const auto cut = path.find_last_of("\\/");
    dataFolder_ = path.substr(0, cut);
    try {
        const auto data = type == TamType::ufo ? "" : disk_.readFile(path);
        for (const auto& step : convertTam(type, path.substr(cut + 1), data, shortType))
            if (toolkit_.doEvents(); !carryOut(step))
                return false;
    } catch (const platform::Failure&) {
        main_.tell(std::string(somethingBad));
        return false;
    }
    return true;
}

/// False where the conversion has failed and the user has been told.
bool frmTAM::carryOut(const TamStep& step) {
    switch (step.kind) {
    case TamStep::Kind::message:
        main_.tell(step.text);
        return true;
    case TamStep::Kind::error:
        main_.tell(step.text);
        return false;
    case TamStep::Kind::makeFolder:
        return makeReleaseFolder(step.text);
    case TamStep::Kind::write:
        disk_.writeFile(main_.TADir + releaseFolder_ + "\\" + step.to, step.text);
        listFile(step.to);
        return true;
    default:
        copyMember(step);
        return true;
    }
}

bool frmTAM::makeReleaseFolder(const std::string& name) {
    releaseFolder_ =
        "\\" + std::string(engine::dataTree) + "\\" + shortType + "-" + engine::folderForm(name);
    if (main_.DoesFolderExist(main_.TADir + releaseFolder_)) {
        main_.tell("Error: A " + shortType + " with this name already exists.");
        return false;
    }
    disk_.makeFolder(main_.TADir + releaseFolder_);
    return true;
}

/// A member that is not there is no failure. One behind a link lies outside the folder.
void frmTAM::copyMember(const TamStep& step) {
    if (disk_.leadsThroughLink(dataFolder_, plainPath(step.from)))
        throw platform::Failure("copy", step.from, "a link leads to it");
    const auto from = dataFolder_ + "\\" + plainPath(step.from);
    const bool isThere = main_.DoesFileExist(from);
    if (!isThere && step.kind == TamStep::Kind::copyIfThere)
        return;
    const auto to = main_.TADir + releaseFolder_ + "\\" + plainPath(step.to);
    main_.CopyFile(from, to, false);
    const char* failed = main_.DoesFileExist(to) ? "" : "could not be copied";
    listFile(step.to, isThere ? failed : "not found");
}

void frmTAM::listFile(const std::string& file, const std::string& note) {
    lst3files.add(releaseFolder_ + "\\" + file, note);
}

} // namespace installers

namespace engine {

void frmMain::mnuUconverter_Click() {
    tell("Please note that TAM Releases are not supported, and likely will NOT work unless you "
         "manually create a monolithic totala1.hpi file.  Also, any TAM-format release that "
         "includes a soft mutator will not work at all.");
    installers::frmTAM wizard(*this);
    wizard.Form_Load();
    toolkit().showModal(wizard);
}

} // namespace engine
