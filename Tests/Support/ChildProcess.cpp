// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/ChildProcess.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace test {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

void ChildProcess::start(std::vector<std::string> command) {
    kill();
    // The system then ends the child with the process that started it, however that ends.
    command.insert(command.begin(), {"setpriv", "--pdeathsig", "KILL", "--"});
    std::vector<char*> arguments;
    std::ranges::transform(command, std::back_inserter(arguments),
                           [](std::string& word) { return word.data(); });
    arguments.push_back(nullptr);

    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    const int error =
        ::posix_spawnp(&pid_, arguments[0], &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    output_ = pipe[0];
    if (error != 0)
        throw std::runtime_error("cannot start " + command[4]);
}

std::string ChildProcess::readLine(std::chrono::milliseconds patience) const {
    const auto end = steady_clock::now() + patience;
    std::string line;
    for (char character = 0;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now());
        pollfd waiting{output_, POLLIN, 0};
        if (::poll(&waiting, 1, static_cast<int>(std::max(left, 0ms).count())) != 1)
            return line;
        if (::read(output_, &character, 1) != 1 || character == '\n')
            return line;
        line += character;
    }
}

void ChildProcess::sendSignal(int number) const {
    if (pid_ > 0)
        ::kill(pid_, number);
}

std::optional<int> ChildProcess::waitForEnd(std::chrono::milliseconds patience) {
    const auto end = steady_clock::now() + patience;
    int status = 0;
    while (::waitpid(pid_, &status, WNOHANG) == 0) {
        if (steady_clock::now() > end)
            return std::nullopt;
        std::this_thread::sleep_for(5ms);
    }
    pid_ = -1;
    closeOutput();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void ChildProcess::kill() {
    if (pid_ <= 0)
        return;
    sendSignal(SIGKILL);
    waitForEnd(10s);
}

void ChildProcess::closeOutput() {
    if (output_ >= 0)
        ::close(output_);
    output_ = -1;
}

} // namespace test
