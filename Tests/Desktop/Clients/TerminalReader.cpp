// What runs inside a terminal: reads it in raw mode and writes everything that arrives to a file. It sets the
// terminal's title when it is ready for that. The file's name is its only argument. Ctrl+D ends it.

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>

namespace {

constexpr char controlD = 4;

bool writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto count = ::write(file, bytes.data(), bytes.size());
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    termios mode{};
    if (argumentCount != 2 || ::tcgetattr(STDIN_FILENO, &mode) != 0)
        return 2;
    ::cfmakeraw(&mode);
    ::tcsetattr(STDIN_FILENO, TCSANOW, &mode);
    const int file = ::open(arguments[1], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0 || !writeAll(STDOUT_FILENO, "\033]2;tessel-ready\007"))
        return 1;
    char buffer[65536];
    for (auto count = ::read(STDIN_FILENO, buffer, sizeof buffer); count > 0;
         count = ::read(STDIN_FILENO, buffer, sizeof buffer)) {
        const std::string_view bytes(buffer, static_cast<std::size_t>(count));
        const bool isEnd = bytes.back() == controlD;
        if (!writeAll(file, isEnd ? bytes.substr(0, bytes.size() - 1) : bytes))
            return 1;
        if (isEnd)
            return 0;
    }
    return 0;
}
