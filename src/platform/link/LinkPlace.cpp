#include "platform/link/LinkPlace.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace pulselark {

namespace {

constexpr mode_t OnlyOwner = 0700;

std::string AbsoluteFromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

int OpenFolder(bool make, FileDescriptor& folder) {
    const std::string name = LinkFolder();
    if (make && ::mkdir(name.c_str(), OnlyOwner) != 0 && errno != EEXIST)
        return errno;
    folder = FileDescriptor(::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder.IsOpen())
        return errno == ENOTDIR || errno == ELOOP ? EACCES : errno;
    struct stat facts {};
    if (::fstat(folder.Number(), &facts) != 0)
        return errno;
    if (facts.st_uid != ::geteuid())
        return EACCES;
    const bool open = (facts.st_mode & 0777) != OnlyOwner;
    return open && ::fchmod(folder.Number(), OnlyOwner) != 0 ? errno : 0;
}

} // namespace

std::string LinkFolder() {
    const std::string runtime = AbsoluteFromEnvironment("XDG_RUNTIME_DIR");
    if (!runtime.empty())
        return runtime + "/pulselark";
    const std::string temporary = AbsoluteFromEnvironment("TMPDIR");
    return (temporary.empty() ? "/tmp" : temporary) + "/pulselark-" + std::to_string(::geteuid());
}

std::string LinkSocketName(const std::string& title) {
    if (title.find_first_of(std::string("/\0", 2)) != std::string::npos)
        return "";
    return LinkFolder() + "/" + title + ".sock";
}

int OpenLinkPlace(const std::string& title, bool makeFolder, LinkPlace& place) {
    std::string name = LinkSocketName(title);
    if (name.empty())
        return ENOENT;
    if (const int failure = OpenFolder(makeFolder, place.Folder); failure != 0)
        return failure;
    // A socket's address is short. A folder deep down is reached by the number under which it is open.
    if (name.size() >= sizeof place.Address.sun_path)
        name = "/proc/self/fd/" + std::to_string(place.Folder.Number()) + "/" + title + ".sock";
    if (name.size() >= sizeof place.Address.sun_path)
        return ENAMETOOLONG;
    place.Address.sun_family = AF_UNIX;
    std::memcpy(place.Address.sun_path, name.c_str(), name.size() + 1);
    return 0;
}

bool PeerIsOwnUser(int connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

} // namespace pulselark
