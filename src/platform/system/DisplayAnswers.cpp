#include "platform/system/DisplayAnswers.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace pulselark {

namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool SocketAnswers(const std::string& name) {
    sockaddr_un address{};
    if (name.empty() || name.size() >= sizeof address.sun_path)
        return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.c_str(), name.size() + 1);
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0)
        return false;
    const bool answers =
        ::connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(connection);
    return answers;
}

// ":1" and ":1.0" are displays of this machine; "host:1" is another's, which only the toolkit can try.
bool XDisplayAnswers(const std::string& display) {
    if (display.empty())
        return false;
    if (display.front() != ':')
        return true;
    const std::string number = display.substr(1, display.find('.') - 1);
    const bool plain = !number.empty() && std::all_of(number.begin(), number.end(),
                                                      [](unsigned char c) { return std::isdigit(c) != 0; });
    return plain && SocketAnswers("/tmp/.X11-unix/X" + number);
}

bool WaylandDisplayAnswers(const std::string& display) {
    if (display.empty())
        return false;
    return SocketAnswers(display.front() == '/' ? display : Environment("XDG_RUNTIME_DIR") + "/" + display);
}

} // namespace

bool DisplayAnswers() {
    return !Environment("QT_QPA_PLATFORM").empty() || XDisplayAnswers(Environment("DISPLAY")) ||
           WaylandDisplayAnswers(Environment("WAYLAND_DISPLAY"));
}

void PreferPlacedWindows() {
    if (Environment("QT_QPA_PLATFORM").empty() && XDisplayAnswers(Environment("DISPLAY")))
        ::setenv("QT_QPA_PLATFORM", "xcb;wayland", 1);
}

} // namespace pulselark
