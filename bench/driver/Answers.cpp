// SPDX-License-Identifier: MIT
#include "Answers.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace sablequill {

Answers::Answers(std::vector<std::string> command)
{
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    std::array<int, 2> question{};
    std::array<int, 2> answer{};
    if (::pipe2(question.data(), O_CLOEXEC) != 0 || ::pipe2(answer.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, question[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, answer[1], STDOUT_FILENO);
    const int error =
        posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(question[0]);
    ::close(answer[1]);
    input = question[1];
    output = ::fdopen(answer[0], "r");
    if (error != 0)
        throw std::runtime_error("cannot start " + command.front());
}

Answers::~Answers()
{
    ::close(input);
    std::fclose(output);
    ::waitpid(process, nullptr, 0);
}

double Answers::ask() const
{
    double number = 0;
    if (::write(input, "\n", 1) != 1 || std::fscanf(output, "%lf", &number) != 1)
        throw std::runtime_error("no answer");
    return number;
}

double numberFrom(const std::vector<std::string>& command)
{
    return Answers(command).ask();
}

} // namespace sablequill
