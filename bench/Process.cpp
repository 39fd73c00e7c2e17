#include "bench/Process.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mintaro::bench {

std::chrono::duration<double> timeOf(const std::vector<std::string> &command)
{
    std::vector<char *> arguments;
    std::transform(command.begin(), command.end(), std::back_inserter(arguments),
        [](const std::string &each) { return const_cast<char *>(each.c_str()); });
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    const int error = ::posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    int status = 0;
    const bool hasEnded = error == 0 && ::waitpid(child, &status, 0) == child;
    const auto end = std::chrono::steady_clock::now();
    ::posix_spawn_file_actions_destroy(&actions);
    if (!hasEnded || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command[0] + " failed");
    return end - begin;
}

} // namespace mintaro::bench
