// The way to the weapon report: the selection is applied, a copy of the program with the switch
// shows the report before any reset, and starts the plain program behind it.
#include "conflict/modConflict.h"

namespace engine {

void frmMain::mnuFCweapon_Click() {
    if (widcfRun) {
        showWeaponReport();
        return;
    }
    moveFiles();
    saveSelsOrTell();
    startProgram("Vexillum.exe", "--WIDCF");
    endProgram();
}

void frmMain::showWeaponReport() {
    showWorking();
    showReadme_.Form_Load();
    showReadme_.setText("Weapon IDs");
    showReadme_.lblWhat.setText("List of Weapon IDs and their assignments");
    conflict::modConflict(*this).scanWeaponIDs(showReadme_.txtReadme);
    toolkit().showModal(showReadme_);
    toolkit().unload(showReadme_);
    hideWorking();
}

} // namespace engine
