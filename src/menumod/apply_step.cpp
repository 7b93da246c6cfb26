// The modifier's place in the apply.
#include "menumod/modTrlx.h"
#include "platform/failure.h"

namespace engine {

/// Where a stage fails the setting stays, so that the next reset removes what was made. A refusal
/// takes it off. Returns what to tell the user once the log is done, or nothing.
std::string frmMain::runMenuModifier() {
    menumod::modTrlx trellis(*this, mnuMMcompress.checked());
    platform::attempt([&] { mnuMMenable.setChecked(trellis.enableTrlx(mnuMMsmall.checked())); });
    if (!trellis.unitLeadingOut())
        return {};
    return "The download file of the unit \"" + *trellis.unitLeadingOut() +
           "\" could not be opened, because its name leads out of the folder.";
}

} // namespace engine
