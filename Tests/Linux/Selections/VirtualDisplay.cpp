#include "VirtualDisplay.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessel {

namespace {

[[noreturn]] void becomeProgram(const std::vector<std::string>& arguments, const std::string& display,
                                int input, int output)
{
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    setenv("DISPLAY", display.c_str(), 1);
    std::vector<char*> pointers;
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    execvp(pointers[0], pointers.data());
    _exit(127);
}

/// What is written there can be read from the start by somebody else.
int openInput(const std::string& input)
{
    const int file = memfd_create("input", MFD_CLOEXEC);
    if (file < 0 || write(file, input.data(), input.size()) != static_cast<ssize_t>(input.size()))
        throw std::runtime_error("cannot write the input of a program");
    lseek(file, 0, SEEK_SET);
    return file;
}

} // namespace

std::unique_ptr<ChildProcess> ChildProcess::start(const std::vector<std::string>& arguments,
                                                  const std::string& display, const std::string& input)
{
    std::array<int, 2> pipeEnds = {};
    if (pipe2(pipeEnds.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("cannot make a pipe");
    const int inputFile = openInput(input);
    const pid_t process = fork();
    if (process == 0)
        becomeProgram(arguments, display, inputFile, pipeEnds[1]);
    close(pipeEnds[1]);
    close(inputFile);
    return std::unique_ptr<ChildProcess>(new ChildProcess(process, pipeEnds[0]));
}

ChildProcess::~ChildProcess()
{
    kill(SIGKILL);
    wait();
    close(output_);
}

std::string ChildProcess::readLine()
{
    std::string line;
    char byte = 0;
    while (read(output_, &byte, 1) == 1 && byte != '\n')
        line.push_back(byte);
    return line;
}

std::string ChildProcess::readAll()
{
    std::string all;
    std::array<char, 65536> piece = {};
    for (ssize_t count = 0; (count = read(output_, piece.data(), piece.size())) > 0;)
        all.append(piece.data(), static_cast<std::size_t>(count));
    return all;
}

int ChildProcess::wait()
{
    int status = 0;
    if (!hasEnded_)
        waitpid(process_, &status, 0);
    hasEnded_ = true;
    return status;
}

void ChildProcess::kill(int signal)
{
    if (!hasEnded_)
        ::kill(process_, signal);
}

VirtualDisplay::VirtualDisplay()
    : server_(ChildProcess::start(
          {"Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-screen", "0", "640x480x24"}, ""))
{
    const std::string number = server_->readLine();
    if (number.empty())
        throw std::runtime_error("Xvfb does not start; is it installed?");
    name_ = ":" + number;
}

void VirtualDisplay::kill()
{
    server_->kill(SIGKILL);
    server_->wait();
}

} // namespace tessel
