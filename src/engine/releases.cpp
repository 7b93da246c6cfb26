// Names of releases.
#include "engine/releases.h"

#include <algorithm>

#include "platform/text.h"

namespace engine {

const ReleaseTypeNames& namesOf(ReleaseType type) {
    return releaseTypes[static_cast<std::size_t>(type) - 1];
}

const ReleaseTypeNames& namesOfTab(std::string_view caption) {
    return *std::find_if(releaseTypes.begin(), releaseTypes.end(),
                         [&](const auto& names) { return names.tabCaption == caption; });
}

bool cutPrefix(std::string_view& folder, ReleaseType type) {
    const auto prefix = std::string(namesOf(type).shortName) + "-";
    if (!platform::equalIgnoringCase(folder.substr(0, prefix.size()), prefix))
        return false;
    folder.remove_prefix(prefix.size());
    return true;
}

bool isLooseFolder(std::string_view name, ReleaseType type) {
    return namesOf(type).hasLooseFolder && platform::equalIgnoringCase(name, "misc");
}

std::string folderForm(std::string_view displayName) {
    return platform::replaceAll(displayName, "/", "~");
}

std::string displayForm(std::string_view folderName) {
    return platform::replaceAll(folderName, "~", "/");
}

} // namespace engine
