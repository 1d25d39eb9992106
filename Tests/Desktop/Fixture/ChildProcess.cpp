#include "ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>

extern "C" { // The header of glibc 2.36 does not say so itself.
#include <sys/pidfd.h>
}

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace tessel::desktop {

namespace {

/// How long a process may take to end after it was asked to, before it is killed.
constexpr std::chrono::milliseconds politePatience{15'000};

struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
};

Pipe makePipe()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw DesktopFailure(std::string("cannot make a pipe: ") + std::strerror(errno));
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

/// A pipe that can be written to without a signal when nobody reads any more.
Pipe makeSocketPipe()
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw DesktopFailure(std::string("cannot make a pair of sockets: ") + std::strerror(errno));
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (auto& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> assignments(const Environment& environment)
{
    std::vector<std::string> lines;
    for (const auto& [name, value] : environment)
        lines.push_back(name + "=" + value);
    return lines;
}

/// The child's standard streams, and a process group of its own with default signal handling.
class SpawnSettings {
public:
    SpawnSettings(int input, int output, int error)
    {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, error, STDERR_FILENO);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP);
        posix_spawnattr_setpgroup(&attributes_, 0);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    const posix_spawn_file_actions_t* actions() const { return &actions_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

} // namespace

std::string ExitStatus::description() const
{
    return (bySignal ? "ended by signal " : "exit code ") + std::to_string(number);
}

ChildProcess::ChildProcess(std::vector<std::string> command, const Environment& environment)
    : name_(std::filesystem::path(command.front()).filename().string())
{
    // A child must not outlive a test that was interrupted: the kernel ends it with its parent.
    command.insert(command.begin(), {"setpriv", "--pdeathsig", "TERM", "--"});
    spawn(command, environment);
}

ChildProcess::~ChildProcess()
{
    end();
}

void ChildProcess::spawn(std::vector<std::string>& command, const Environment& environment)
{
    auto input = makeSocketPipe();
    auto output = makePipe();
    // Standard error goes to memory, so that a child that nobody listens to never blocks on a full pipe.
    error_ = FileDescriptor(::memfd_create("standard-error", MFD_CLOEXEC));

    const SpawnSettings settings(input.readEnd.get(), output.writeEnd.get(), error_.get());
    auto variables = assignments(environment);
    const int failure =
        ::posix_spawnp(&pid_, command.front().c_str(), settings.actions(), settings.attributes(),
                       pointersTo(command).data(), pointersTo(variables).data());
    if (failure != 0)
        throw DesktopFailure("cannot start " + name_ + ": " + std::strerror(failure));

    process_ = FileDescriptor(::pidfd_open(pid_, 0));
    input_ = std::move(input.writeEnd);
    output_ = std::move(output.readEnd);
    ::fcntl(output_.get(), F_SETFL, O_NONBLOCK);
}

void ChildProcess::writeLine(std::string_view line)
{
    const std::string bytes = std::string(line) + "\n";
    std::size_t written = 0;
    while (written < bytes.size()) {
        const auto count = ::send(input_.get(), bytes.data() + written, bytes.size() - written, MSG_NOSIGNAL);
        if (count < 0)
            throw DesktopFailure(name_ + " does not read its standard input: " + std::strerror(errno));
        written += static_cast<std::size_t>(count);
    }
}

bool ChildProcess::readOutput()
{
    std::array<char, 65536> buffer{};
    const auto count = ::read(output_.get(), buffer.data(), buffer.size());
    if (count < 0)
        return errno == EAGAIN || errno == EINTR;
    if (count == 0)
        return false;
    partialLine_.append(buffer.data(), static_cast<std::size_t>(count));
    std::size_t lineStart = 0;
    for (auto lineEnd = partialLine_.find('\n'); lineEnd != std::string::npos;
         lineEnd = partialLine_.find('\n', lineStart)) {
        lines_.push_back(partialLine_.substr(lineStart, lineEnd - lineStart));
        lineStart = lineEnd + 1;
    }
    partialLine_.erase(0, lineStart);
    return true;
}

std::optional<std::string> ChildProcess::nextLine(std::string_view awaited, Deadline deadline)
{
    while (lines_.empty()) {
        pollfd descriptor{output_.get(), POLLIN, 0};
        const int ready = ::poll(&descriptor, 1, static_cast<int>(deadline.remaining().count()));
        if (ready == 0)
            throw DesktopFailure(name_ + " did not say in time: " + std::string(awaited));
        if (ready > 0 && !readOutput())
            return std::nullopt;
    }
    auto line = std::move(lines_.front());
    lines_.pop_front();
    return line;
}

std::string ChildProcess::waitForLine(std::string_view prefix, Deadline deadline)
{
    while (auto line = nextLine(prefix, deadline)) {
        if (line->starts_with(prefix))
            return *line;
    }
    throw DesktopFailure(name_ + " ended its output without a line \"" + std::string(prefix) +
                         "\"; it said: " + errorOutput());
}

std::string ChildProcess::errorOutput() const
{
    std::string text;
    std::array<char, 65536> buffer{};
    while (true) {
        const auto count =
            ::pread(error_.get(), buffer.data(), buffer.size(), static_cast<off_t>(text.size()));
        if (count <= 0)
            return text;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

bool ChildProcess::isRunning()
{
    return !awaitExit(std::chrono::milliseconds{0});
}

bool ChildProcess::awaitExit(std::chrono::milliseconds patience)
{
    if (status_)
        return true;
    pollfd descriptor{process_.get(), POLLIN, 0};
    if (::poll(&descriptor, 1, static_cast<int>(patience.count())) != 1)
        return false;
    // What it left behind in its process group, which is still ours while the process has not been collected.
    ::kill(-pid_, SIGKILL);
    siginfo_t information{};
    ::waitid(P_PIDFD, static_cast<id_t>(process_.get()), &information, WEXITED);
    status_ = ExitStatus{information.si_status, information.si_code != CLD_EXITED};
    return true;
}

ExitStatus ChildProcess::waitForExit(Deadline deadline)
{
    if (!awaitExit(deadline.remaining()))
        throw DesktopFailure(name_ + " did not end in time; it said: " + errorOutput());
    return *status_;
}

void ChildProcess::signal(int number)
{
    if (isRunning())
        ::pidfd_send_signal(process_.get(), number, nullptr, 0);
}

void ChildProcess::kill()
{
    signal(SIGKILL);
    waitForExit();
}

void ChildProcess::end()
{
    if (!process_.isOpen())
        return;
    signal(SIGTERM);
    if (!awaitExit(politePatience)) {
        signal(SIGKILL);
        awaitExit(politePatience);
    }
    process_.reset();
}

} // namespace tessel::desktop
