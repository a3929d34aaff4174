#include "e2e/support/driver_process.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace quillon::test {
namespace {

std::vector<std::string> command_of(const char *program, const std::vector<std::string> &arguments)
{
    std::vector<std::string> command = {program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

std::vector<std::string> with_ready_line(std::vector<std::string> options)
{
    options.push_back("--ready-fd=1");
    return options;
}

}  // namespace

DriverProcess::DriverProcess(const std::string &folder, const std::vector<std::string> &options)
    : Child(driver_command(with_ready_line(options)), {{"QUILLON_RUNTIME_DIR", folder}})
{
    out().line();
}

void DriverProcess::stop()
{
    signal(SIGSTOP);
    int status = 0;
    ASSERT_EQ(waitpid(pid(), &status, WUNTRACED), pid());
    ASSERT_TRUE(WIFSTOPPED(status));
}

void DriverProcess::expect_quiet_end()
{
    signal(SIGTERM);
    EXPECT_EQ(err().rest(), "") << "as when nothing was refused as malformed";
    EXPECT_EQ(wait(), 0);
}

std::vector<std::string> driver_command(const std::vector<std::string> &options)
{
    return command_of(QUILLON_DRIVER, options);
}

std::vector<std::string> run_command(const std::vector<std::string> &arguments)
{
    return command_of(QUILLON_RUN, arguments);
}

Ended run_to_end(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment)
{
    Child child(command, environment);
    child.close_input();
    const std::string out = child.out().rest();
    const std::string err = child.err().rest();
    return {child.wait(), out, err};
}

Ended control(const std::string &folder, const std::vector<std::string> &words)
{
    return run_to_end(command_of(QUILLON_CTL, words), {{"QUILLON_RUNTIME_DIR", folder}});
}

}  // namespace quillon::test
