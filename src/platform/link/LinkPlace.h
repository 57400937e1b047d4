#pragma once

#include "platform/link/FileDescriptor.h"

#include <string>
#include <sys/socket.h>
#include <sys/un.h>

/// Where a partner of a title is found.
namespace pulselark {

/// Folder of the sockets: `$XDG_RUNTIME_DIR/pulselark`, or, where that variable is not set to an absolute
/// path, `pulselark-UID` in the folder for temporary files (`$TMPDIR`, else `/tmp`), UID being the user's
/// number.
std::string LinkFolder();

/// `TITLE.sock` in that folder; "" for a title that cannot be a file's name.
std::string LinkSocketName(const std::string& title);

/// An address to connect or bind to. It holds as long as this does.
struct LinkPlace {
    sockaddr_un Address{};
    FileDescriptor Folder;

    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&Address); }
};

/// Opens the folder and gives the address of a title's socket. The folder has to be this user's own; one that
/// lets others in is closed to them first. With `makeFolder` it is made if it is not there.
/// Returns 0 or an `errno`: ENOENT without a folder, EACCES if it belongs to somebody else or is no folder.
int OpenLinkPlace(const std::string& title, bool makeFolder, LinkPlace& place);

/// Whether the process at the other end of a connection belongs to this user.
bool PeerIsOwnUser(int connection);

} // namespace pulselark
