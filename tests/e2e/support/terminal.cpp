#include "e2e/support/terminal.h"

#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>
#include <utmp.h>

#include <system_error>

namespace quillon::test {

OnTerminal::OnTerminal(const std::vector<std::string> &command, const std::map<std::string, std::string> &environment)
{
    int operator_end;
    int program_end;
    if (openpty(&operator_end, &program_end, nullptr, nullptr, nullptr) != 0) {
        throw std::system_error(errno, std::generic_category(), "openpty");
    }
    keyboard_ = host::Descriptor(operator_end);
    const host::Descriptor program(program_end);
    screen_ = Output(host::Descriptor(fcntl(operator_end, F_DUPFD_CLOEXEC, 0)));
    start([&] {
        keyboard_.reset();
        login_tty(program.number());
        become(command, environment);
    });
}

void OnTerminal::type(const std::string &keys)
{
    ASSERT_EQ(write(keyboard_.number(), keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

bool OnTerminal::in_line_mode() const
{
    termios mode;
    EXPECT_EQ(tcgetattr(keyboard_.number(), &mode), 0);
    constexpr tcflag_t line_mode = ICANON | ECHO | ISIG | IEXTEN;
    return (mode.c_lflag & line_mode) == line_mode;
}

}  // namespace quillon::test
