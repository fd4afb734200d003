// switch-config: moves the switch's whole configuration to and from one
// human-readable document.
//
//   switch-config backup
//   switch-config check
//   switch-config restore [KEEP]

#include "frame/document.h"
#include "frame/keep_config.h"
#include "frame/modes.h"
#include "platform/include/start_up.h"

#include <fcntl.h>
#include <strings.h>
#include <unistd.h>

#include <csignal>

namespace {

// The next file to be opened takes the number of a closed standard stream. The report
// could become standard error, and hold messages before its code.
void open_standard_streams() {
    int file = 0;
    do {
        file = open("/dev/null", O_RDWR);
    } while (file >= 0 && file <= STDERR_FILENO);
    close(file);
}

// Restore must not end halfway because nobody reads its messages any more. A
// handler rather than SIG_IGN, which the device library's own processes would inherit.
void outlive_readers() {
    signal(SIGPIPE, [](int) {});
}

} // namespace

int main(int argc, char** argv) {
    open_standard_streams();
    outlive_readers();
    init_umdev(0);
    initdef();
    port_init();

    if (argc != 2 && argc != 3) {
        return -1;
    }
    const char* mode = argv[1];
    if (strcasecmp(mode, "backup") == 0) {
        create_config_ini_file();
        return 0;
    }
    if (strcasecmp(mode, "check") == 0) {
        return check_config_ini_file(restore_path);
    }
    if (strcasecmp(mode, "restore") == 0) {
        gKeepConfig = argc == 3 ? static_cast<std::uint32_t>(decimal_value(argv[2])) : 0;
        return parse_config_ini_file(restore_path);
    }
    return -1;
}
