// Names: renames, links, removal.
#include <array>
#include <climits>
#include <cstdio>

#include <fcntl.h>
#include <sys/syscall.h>

#include "posix_disk.h"

namespace platform::posix {
namespace {

constexpr unsigned noReplace = 1; // RENAME_NOREPLACE, which not every C library names

} // namespace

RawDisk::Error PosixDisk::renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                                    const std::string& newName) {
#ifdef SYS_renameat2
    if (::syscall(SYS_renameat2, numberOf(from), name.c_str(), numberOf(to), newName.c_str(),
                  noReplace) == 0)
        return {};
    return lastError();
#else
    static_cast<void>(from), static_cast<void>(name), static_cast<void>(to);
    static_cast<void>(newName), static_cast<void>(noReplace);
    return std::make_error_code(std::errc::function_not_supported);
#endif
}

RawDisk::Error PosixDisk::renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                                     const std::string& newName) {
    return errorOf(::renameat(numberOf(from), name.c_str(), numberOf(to), newName.c_str()));
}

RawDisk::Error PosixDisk::hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                                   const std::string& newName) {
    return errorOf(::linkat(numberOf(from), name.c_str(), numberOf(to), newName.c_str(), 0));
}

RawDisk::Error PosixDisk::readLink(RawFolder& in, const std::string& name, std::string& target) {
    std::array<char, PATH_MAX> text{};
    const auto size = ::readlinkat(numberOf(in), name.c_str(), text.data(), text.size());
    if (size < 0)
        return lastError();
    target.assign(text.data(), static_cast<std::size_t>(size));
    return {};
}

RawDisk::Error PosixDisk::makeLink(RawFolder& in, const std::string& name,
                                   const std::string& target) {
    return errorOf(::symlinkat(target.c_str(), numberOf(in), name.c_str()));
}

RawDisk::Error PosixDisk::unlink(RawFolder& in, const std::string& name) {
    return errorOf(::unlinkat(numberOf(in), name.c_str(), 0));
}

} // namespace platform::posix

namespace platform {

std::shared_ptr<RawDisk> makeRawDisk() {
    return std::make_shared<posix::PosixDisk>();
}

} // namespace platform
