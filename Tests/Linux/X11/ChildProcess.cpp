#include "ChildProcess.h"

#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessel {

namespace {

pid_t spawn(std::vector<std::string>& arguments)
{
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const pid_t pid = fork();
    if (pid != 0)
        return pid;
    prctl(PR_SET_PDEATHSIG, SIGTERM); // A test that crashes takes its servers with it.
    execvp(pointers.front(), pointers.data());
    _exit(127);
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> arguments)
{
    int ends[2] = {-1, -1};
    for (std::string& argument : arguments) {
        if (argument != "%fd")
            continue;
        if (pipe(ends) != 0)
            return;
        argument = std::to_string(ends[1]);
    }
    pid_ = spawn(arguments);
    if (ends[1] >= 0)
        close(ends[1]);
    pipe_ = ends[0];
}

ChildProcess::~ChildProcess()
{
    if (pipe_ >= 0)
        close(pipe_);
    if (pid_ <= 0)
        return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

std::string ChildProcess::firstLine()
{
    std::string line;
    char letter = 0;
    while (read(pipe_, &letter, 1) == 1 && letter != '\n')
        line += letter;
    return line;
}

bool runProgram(std::vector<std::string> arguments)
{
    const pid_t pid = spawn(arguments);
    int status = -1;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace tessel
