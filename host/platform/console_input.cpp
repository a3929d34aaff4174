#include "host/platform/console_input.h"

#include <errno.h>
#include <poll.h>
#include <signal.h>
#include <stdio.h>
#include <termios.h>
#include <unistd.h>

namespace quillon::host {
namespace {

bool change_terminal(const termios &mode)
{
    int result;
    while ((result = tcsetattr(STDIN_FILENO, TCSANOW, &mode)) != 0 && errno == EINTR) {
    }
    return result == 0;
}

// Single keys without echo, as long as the object lives. A terminal whose program has it in such a mode already is left
// alone, and so is what is none.
class KeyMode {
  public:
    KeyMode()
    {
        if (tcgetattr(STDIN_FILENO, &line_mode_) != 0 || (line_mode_.c_lflag & ICANON) == 0) {
            return;
        }
        termios mode = line_mode_;
        // Without signals: their default would end the process before the terminal is as it was.
        mode.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG | IEXTEN);
        mode.c_cc[VMIN] = 1;
        mode.c_cc[VTIME] = 0;
        set_ = change_terminal(mode);
    }
    ~KeyMode()
    {
        if (set_) {
            change_terminal(line_mode_);
        }
    }
    KeyMode(const KeyMode &) = delete;
    KeyMode &operator=(const KeyMode &) = delete;

    bool ends_input(uint8_t key) const { return is(VEOF, key); }

    // 0 for a key that means none.
    int signal_of(uint8_t key) const
    {
        if ((line_mode_.c_lflag & ISIG) == 0) {
            return 0;
        }
        return is(VINTR, key) ? SIGINT : is(VQUIT, key) ? SIGQUIT : is(VSUSP, key) ? SIGTSTP : 0;
    }

  private:
    bool is(size_t meaning, uint8_t key) const
    {
        return set_ && line_mode_.c_cc[meaning] != _POSIX_VDISABLE && line_mode_.c_cc[meaning] == key;
    }

    termios line_mode_ = {};
    bool set_ = false;
};

uint8_t read_byte()
{
    for (;;) {
        uint8_t byte;
        const ssize_t size = read(STDIN_FILENO, &byte, 1);
        if (size == 1 && byte != kNoKey) {
            return byte;
        }
        if (size == 0 || (size < 0 && errno != EINTR && errno != EAGAIN)) {
            return kNoKey;
        }
        if (size < 0 && errno == EAGAIN) {
            pollfd input = {.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
            poll(&input, 1, -1);
        }
    }
}

// As the terminal would have sent it. Where the terminal is not the process's own, nobody would have got it.
bool sent_to_foreground(int signal)
{
    const pid_t foreground = tcgetpgrp(STDIN_FILENO);
    return foreground > 0 && kill(-foreground, signal) == 0;
}

struct Key {
    uint8_t byte;
    int signal;
};

Key next_key()
{
    const KeyMode mode;
    // Only now: whoever answers what is printed finds the terminal ready.
    fflush(stdout);
    const uint8_t byte = read_byte();
    return {.byte = mode.ends_input(byte) ? kNoKey : byte, .signal = mode.signal_of(byte)};
}

}  // namespace

uint8_t read_key()
{
    for (;;) {
        const Key key = next_key();
        if (key.signal == 0 || !sent_to_foreground(key.signal)) {
            return key.byte;
        }
    }
}

}  // namespace quillon::host
