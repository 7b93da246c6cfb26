// The release at hand: its texts, its codes, and the one place where it is held against the total
// conversion.
#include <algorithm>

#include "formats/codes.h"
#include "windows/frmMain.h"

namespace windows {
namespace {

constexpr auto noInformation = "* No Information Available *";
constexpr auto noCodes = "* None Specified, Assuming Universal *";

} // namespace

/// Shows a release without choosing it.
releases::ReleaseTexts frmMain::showTexts(const std::string& name) {
    const auto& type = currentType();
    auto texts = store_.textsOf(type.type, name);
    using Text = releases::Store::Text;
    const auto place = [&](Text text) { return store_.placeOfText(type.type, name, text); };
    const auto codes = place(Text::codes);
    panes_.offersTexts = place(Text::about).has_value();
    panes_.offersCodes = codes.has_value();
    // Nobody has written into it yet.
    if (texts.codes && texts.codes->empty() &&
        std::find(madeTexts_.begin(), madeTexts_.end(), codes) != madeTexts_.end())
        texts.codes.reset();
    panes_.heading = "About " + name + ":";
    panes_.about = texts.about.value_or(noInformation);
    panes_.codes = texts.codes ? formats::shownCodes(*texts.codes) : noCodes;
    panes_.hasReadme = texts.readme.has_value();
    panes_.readmeCaption = panes_.hasReadme ? "Author Readme" : "No Readme Available";
    if (texts.readme)
        panes_.readmePath = *texts.readme;
    tally_.emplace(store_.tallyOf(type.type, name));
    tmrTally.setEnabled(true);
    lookInto(name);
    return texts;
}

void frmMain::tmrTally_Timer() {
    constexpr int entries = 64;
    if (tally_ && !resting() && tally_->step(entries))
        return;
    tmrTally.setEnabled(false);
    if (tally_ && !resting())
        lblTally.setText(tally_->text());
}

/// `no` for a release that does not fit and that the user does not want then: it is chosen no more.
frmMain::Fits frmMain::showInfo(const std::string& name) {
    const auto& type = currentType();
    const auto texts = showTexts(name);
    if (type.type == releases::ReleaseType::tc) {
        tcCCodes = texts.codes.value_or(std::vector<std::string>());
        return Fits::yes;
    }
    if (!texts.codes || formats::areCompatible(*texts.codes, tcCCodes))
        return Fits::yes;
    show();
    if (!ask_.askYesNo("The selected " + getLongSelType() +
                       " is not listed as compatible with the currently selected TC."
                       "\r\n\r\nWould you like to disable it?"))
        return Fits::yes;
    if (!type.isSingle() && selection_.has(type.type, name))
        selection_.takeOut(type.type, name);
    return Fits::no;
}

} // namespace windows
