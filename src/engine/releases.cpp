// Names of releases.
#include "engine/releases.h"

#include "platform/text.h"

namespace engine {

const ReleaseTypeNames& namesOf(ReleaseType type) {
    return releaseTypes[static_cast<std::size_t>(type) - 1];
}

std::string folderForm(std::string_view displayName) {
    return platform::replaceAll(displayName, "/", "~");
}

std::string displayForm(std::string_view folderName) {
    return platform::replaceAll(folderName, "~", "/");
}

} // namespace engine
