// Entries are written to the disk unless somebody takes them over.
#include "menumod/extraction.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace menumod {
namespace {

bool isHidden(const std::string& name) {
    return name.starts_with('.') || name.find("\\.") != std::string::npos;
}

bool isInFolder(const std::string& name, const std::string& folder) {
    return name.size() > folder.size() && name[folder.size()] == '\\';
}

} // namespace

void Extraction::forEachArchive(const std::function<void(int handle)>& visit) {
    releases::StringArray files;
    game_.fileArray(files, game_.TADir());
    for (const auto& file : files.entries()) {
        game_.log().breathe();
        const int handle = archives_.HPIOpen(game_.at(file));
        if (handle != 0)
            visit(handle);
        archives_.HPIClose(handle);
    }
}

void Extraction::extractFolder(int handle, const std::string& folder, const std::string& extension,
                               const std::string& dest, bool underTree) {
    auto destination = underTree ? game_.inDataTree(dest) : game_.at(dest);
    while (destination.ends_with('\\'))
        destination.pop_back();
    try {
        game_.disk().makeFolder(destination + "\\" + folder);
    } catch (const platform::Failure& failure) {
        if (onFailure && !failure.is(std::errc::file_exists))
            onFailure(failure.what());
    }
    eachEntry(handle, folder, extension, [&](const std::string& name) {
        extractEntry(handle, name, folder, destination + "\\" + name);
    });
}

void Extraction::eachFile(int handle, const std::string& folder,
                          const std::function<void(const std::string& name)>& take) {
    eachEntry(handle, folder, "", [&](const std::string& name) {
        if (isInFolder(name, folder))
            take(name);
    });
}

void Extraction::eachEntry(int handle, const std::string& folder, const std::string& extension,
                           const std::function<void(const std::string& name)>& take) {
    std::string name;
    int type = 0;
    int size = 0;
    for (int next = 0; (next = archives_.HPIGetFiles(handle, next, name, type, size)) != 0;) {
        game_.log().breathe();
        // A hidden file would be in no listing, and so never be removed again.
        if (type == 0 && platform::equalIgnoringCase(name.substr(0, folder.size()), folder) &&
            platform::endsWithIgnoringCase(name, extension) && !isHidden(name))
            take(name);
    }
}

/// Only what lies in the folder asked for may take a file's place. The test on the path's beginning
/// lets others through, such as a root file "guisnote.txt".
void Extraction::extractEntry(int handle, const std::string& name, const std::string& folder,
                              const std::string& destination) {
    const bool inFolder = isInFolder(name, folder);
    if (inFolder && takeOver && takeOver(handle, name))
        return;
    if (inFolder || !game_.DoesFileExist(destination))
        archives_.HPIExtractFile(handle, name, destination);
}

} // namespace menumod
