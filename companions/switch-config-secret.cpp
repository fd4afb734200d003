// Prints the text that a document holds for a secret: see switch-config-secret(8).

#include "codec/secret_codec.h"
#include "frame/text.h"

#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <termios.h>
#include <unistd.h>

namespace {

// Each kind with the lengths that restore decodes again, in bytes.
constexpr struct Kind {
    const char* name;
    std::size_t max_length;
    bool hexadecimal; // of just this length
    const char* takes;
    void (*encrypt)(const char* secret, char (&text)[encrypted_size]);
} kinds[] = {
    {"snmp", 32, false, "1 to 32 printable bytes", encrypt_snmp_key},
    {"dot1x", 29, false, "1 to 29 printable bytes", encrypt_dot1x_key},
    {"sci", 16, true, "16 hexadecimal digits", encrypt_sci}, // IEEE 802.1AE: 64 bits
    {"sak", 32, true, "32 hexadecimal digits", encrypt_sak}, // 128 bits
};

using Input = Secret<256>;

// Byte by byte: a stream would keep a copy. False for a control character.
bool read_line(Input& input) {
    for (std::size_t i = 0; i + 1 < sizeof input.chars; ++i) {
        const ssize_t count = read(STDIN_FILENO, &input.chars[i], 1);
        if (count != 1 || input.chars[i] == '\n') {
            input.chars[i] = '\0';
            return count >= 0;
        }
        if (static_cast<unsigned char>(input.chars[i]) < ' ' || input.chars[i] == '\x7f') {
            return false;
        }
    }
    return false;
}

// A signal ends the line, as it must not leave the terminal without echo.
bool ask(const char* prompt, Input& input) {
    termios terminal;
    if (tcgetattr(STDIN_FILENO, &terminal) != 0) {
        return read_line(input);
    }
    termios silent = terminal;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    struct sigaction action = {};
    action.sa_handler = [](int) {}; // the read then fails
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGTSTP}) {
        sigaction(number, &action, nullptr);
    }
    fprintf(stderr, "%s: ", prompt);
    const bool answered = tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent) == 0 && read_line(input);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &terminal);
    fprintf(stderr, "\n");
    return answered;
}

bool is_valid(const char* secret, const Kind& kind) {
    const std::size_t length = strlen(secret);
    return length > 0 && length <= kind.max_length &&
           (!kind.hexadecimal || strspn(secret, "0123456789abcdefABCDEF") == kind.max_length);
}

int encode(const Kind& kind) {
    Input input;
    Input again;
    if (!ask("Secret", input) || !is_valid(input.chars, kind) ||
        (isatty(STDIN_FILENO) != 0 &&
         (!ask("Again", again) || strcmp(input.chars, again.chars) != 0))) {
        fprintf(stderr, "switch-config-secret: %s takes %s, the same twice at a terminal\n",
                kind.name, kind.takes);
        return 1;
    }
    char text[encrypted_size] = {};
    kind.encrypt(input.chars, text);
    return printf("%s\n", text) > 0 && fflush(stdout) == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    for (const Kind& kind : kinds) {
        if (argc == 2 && strcmp(argv[1], kind.name) == 0) {
            return encode(kind);
        }
    }
    fprintf(stderr, "usage: switch-config-secret snmp|dot1x|sci|sak\n");
    return 2;
}
