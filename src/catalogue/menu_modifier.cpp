// The three settings of the build-menu modifier. Their checks are all the state they have.
#include "engine/frmMain.h"

namespace engine {

void frmMain::mnuMMenable_Click() {
    mnuMMenable.setChecked(!mnuMMenable.checked());
    mnuMMcompress.setEnabled(mnuMMenable.checked());
    mnuMMsmall.setEnabled(mnuMMenable.checked());
}

void frmMain::mnuMMcompress_Click() {
    mnuMMcompress.setChecked(!mnuMMcompress.checked());
}

void frmMain::mnuMMsmall_Click() {
    mnuMMsmall.setChecked(!mnuMMsmall.checked());
}

} // namespace engine
