// SPDX-License-Identifier: MIT
#include "Subprocess.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

extern char** environ;

namespace qxqr::bench {

namespace {

// posix_spawn's own cleanup, tied to a scope.
class FileActions {
public:
    FileActions() { posix_spawn_file_actions_init(&actions); }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    posix_spawn_file_actions_t* get() { return &actions; }

private:
    posix_spawn_file_actions_t actions;
};

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

} // namespace

Outcome runWithOutputTo(const std::vector<std::string>& command, const std::string& output) {
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    FileActions actions;
    posix_spawn_file_actions_addopen(actions.get(), STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    Outcome outcome;
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], actions.get(), nullptr, arguments.data(), environ) != 0)
        return outcome;
    int status = 0;
    rusage usage{};
    const bool ended = wait4(child, &status, 0, &usage) == child;
    outcome.wallSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    outcome.cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    if (ended && WIFEXITED(status))
        outcome.status = WEXITSTATUS(status);
    return outcome;
}

} // namespace qxqr::bench
