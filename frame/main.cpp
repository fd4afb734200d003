// switch-config: moves the switch's whole configuration to and from one
// human-readable document.
//
//   switch-config backup
//   switch-config check
//   switch-config restore [KEEP]

#include "frame/document.h"
#include "frame/modes.h"
#include "platform/include/start_up.h"

#include <strings.h>

int main(int argc, char** argv) {
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
