// The wizard around the conversion, which goes on in its own room.
#include "windows/frmTAM.h"

#include <array>

#include "releases/release_types.h"
#include "releases/tam_import.h"
#include "windows/frmMain.h"
#include "windows/slow_work.h"

namespace windows {
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

std::vector<std::string> vxlTypes() {
    std::vector<std::string> rows;
    for (const auto* type : releases::typesByTab())
        rows.push_back("VXL " + std::string(type->shortName));
    return rows;
}

} // namespace

frmTAM::frmTAM(frmMain& main)
    : Window("frmTAM", "Add A TAM-Format Release"), cbo1VXLtype(*this, "cbo1VXLtype", vxlTypes()),
      main_(main), toolkit_(main.machine().toolkit), steps_(*this) {
    cmd1Prev.onClick = [this] { toolkit_.hide(*this); };
    cmd1Next.onClick = [this] { cmd1Next_Click(); };
    cmd2Browse.onClick = [this] { cmd2Browse_Click(); };
    cmd2Prev.onClick = [this] { GotoStep(1); };
    cmd2Next.onClick = [this] { cmd2Next_Click(); };
    cmd3prev.onClick = [this] { GotoStep(2); };
    cmd3next.onClick = [this] { toolkit_.hide(*this); };
    onClose = [this] { toolkit_.hide(*this); };
    onEscape = [this] { cancel(); };
    cmdCancel.onClick = [this] { cancel(); };
}

/// What has been added stays, so the user is to know.
void frmTAM::cancel() {
    if (!isConverted_ ||
        main_.game().questions().ask({"The files that were added stay.\r\n\r\nWould you like to "
                                      "leave off here?",
                                      {"Yes", "No"},
                                      1}) == 0)
        toolkit_.hide(*this);
}

frmTAM::~frmTAM() {
    toolkit_.unload(*this);
}

void frmTAM::Form_Load() {
    toolkit_.load(*this);
    GotoStep(1);
}

void frmTAM::GotoStep(int stepNum) {
    steps_.goTo(stepNum);
    lbl1Done.setText("Step 1: " + cbo1TAMtype.text() + " to " + cbo1VXLtype.text());
    lbl1Done.setVisible(stepNum > 1);
    lbl2Done.setText("Step 2: " + txt2Loc.text());
    lbl2Done.setVisible(stepNum > 2);
    cmdCancel.setVisible(stepNum > 1);
    defaultButton = stepNum == 1 ? &cmd1Next : stepNum == 2 ? &cmd2Next : &cmd3next;
}

void frmTAM::cmd1Next_Click() {
    if (cbo1TAMtype.text().empty() || cbo1VXLtype.text().empty())
        return tellOf(main_.game().questions(),
                      cbo1TAMtype.text().empty() ? cbo1TAMtype : cbo1VXLtype,
                      "You must select both a TAM and VXL release type.\r\n\r\nPlease do so now.");
    shortType = cbo1VXLtype.text().substr(vxlPrefixLength);
    const auto& type = tamTypes[static_cast<std::size_t>(cbo1TAMtype.index())];
    tamTypeName = type.name;
    tamPattern = type.pattern;
    txt2Loc.hint = tamTypeName + " (" + tamPattern + ")";
    txt2Loc.setText(txt2Loc.hint);
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
    if (!main_.game().DoesFileExist(txt2Loc.text()))
        return tellOf(main_.game().questions(), txt2Loc,
                      "Sorry, it looks like that isn't a valid file.\r\n\r\nPlease choose "
                      "a different one.");
    if (!txt2Loc.text().ends_with(tamPattern.substr(2)))
        return tellOf(main_.game().questions(), txt2Loc,
                      "That file doesn't have the right extension.\r\n\r\nPlease choose a "
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

bool frmTAM::convert(formats::TamType type) {
    lst3files.clear();
    SlowWork slow(main_);
    releases::GameDirectory game(main_.game(), slow);
    releases::TamImport import(game);
    const bool worked = import.convert(type, txt2Loc.text(), shortType);
    for (const auto& added : import.added())
        lst3files.add(added.file, added.note);
    isConverted_ = isConverted_ || !import.added().empty();
    return worked;
}

} // namespace windows
