// The part of the check that looks into the archives of the game directory.
#pragma once

#include <string>
#include <vector>

#include "conflict/archive_reports.h"
#include "cycle/preview.h"
#include "json.h"
#include "workspace.h"

namespace commandline {

/// The kinds are for programs: docs/vexillum.6 names them.
struct Finding {
    std::string kind;
    std::string path; ///< relative to the game directory; empty where it is about none
    std::string text; ///< reads on behind the path, where there is one
};

/// The archives of an applied directory, as they lie there.
std::vector<conflict::ChosenArchive> appliedArchives(const Workspace& work);

/// What is wrong between releases, or in an archive. Who brings two versions himself, or another
/// one of what the game has, means it so.
std::vector<Finding> findingsOf(const conflict::ArchiveReports& reports, bool modifierIsOn);

/// All of the reports.
Json jsonOf(const conflict::ArchiveReports& reports);

} // namespace commandline
