// Check judges only whether the flag is there. Restore takes any number but 1 as off;
// for port mirroring, anything but 0 as on, even a missing flag.

#include "sections/system/service_flags.h"

#include "frame/report.h"
#include "platform/include/eeprom.h"
#include "platform/include/return_codes.h"
#include "platform/include/services.h"

namespace {

constexpr unsigned char lldp_on = 1;
constexpr unsigned char lldp_off = 3;

constexpr int mirror_mode = 3;
constexpr int no_port = -1;
constexpr int mirror_state_missing = -1; // goes to the device as it is
constexpr std::size_t number_size = 64;  // of the texts that ports are read from

void write_flag(FILE* ini_file, bool on) {
    fprintf(ini_file, "enable state      = \"%d\" ;\n", on ? 1 : 0);
}

} // namespace

void backup_ini_lldp_settings(FILE* ini_file) {
    unsigned char enabled = 0;
    write_section_line(ini_file, "lldp setting");
    U_LldpGetEnable(&enabled);
    write_flag(ini_file, enabled == lldp_on);
}

int check_ini_lldp(const dictionary* ini, FILE* error_file) {
    return check_present(ini, error_file, "lldp setting:enable state",
                         USR_RET_ERR_LLDP_STATE_NOT_FOUND);
}

void restore_ini_lldp(const dictionary* ini) {
    const int state = read_int(ini, "lldp setting:enable state", 0);
    unsigned char enabled = state == 1 ? lldp_on : lldp_off;
    // In seconds. The document does not have them: every restore sets these.
    unsigned short ttl = 120;
    unsigned short interval = 30;
    U_LldpSetEnable(&enabled);
    U_LldpSetTxTtl(&ttl);
    U_LldpSetTxInterval(&interval);
}

// "Source Port" is the analyzer port, "Destination Port" the monitored one (both
// directions). They count from 1, but while mirroring is off they are the device's own
// numbers, which mean nothing and are not restored.
void backup_ini_port_mirror_settings(FILE* ini_file) {
    char state = 0;
    unsigned char mode = 0;
    unsigned short analyzer = 0;
    unsigned short monitored = 0;
    write_section_line(ini_file, "port mirror setting");
    U_FwdGetPortMirror(&state, &mode, &analyzer, &monitored);
    const int first = state != 0 ? 1 : 0;
    write_flag(ini_file, state == 1);
    fprintf(ini_file, "Source Port       = \"%d\" ;\n", analyzer + first);
    fprintf(ini_file, "Destination Port  = \"%d\" ;\n", monitored + first);
}

int check_ini_port_mirror(const dictionary* ini, FILE* error_file) {
    return check_present(ini, error_file, "port mirror setting:enable state",
                         USR_RET_ERR_PORT_MIRROR_STATE_NOT_FOUND);
}

namespace {

// -1, no port, if it is missing.
int read_mirror_port(const dictionary* ini, const char* entry) {
    return static_cast<std::uint16_t>(read_decimal<number_size>(ini, entry)) - 1;
}

} // namespace

void restore_ini_port_mirror(const dictionary* ini) {
    const int state = read_int(ini, "port mirror setting:enable state", mirror_state_missing);
    if (state == 0) {
        U_FwdSetPortMirror(0, 0, no_port, no_port);
        return;
    }
    const int source = read_mirror_port(ini, "port mirror setting:Source Port");
    const int destination = read_mirror_port(ini, "port mirror setting:Destination Port");
    U_FwdSetPortMirror(state, mirror_mode, source, destination);
}

// Written as on if it cannot be read.
void backup_ini_https_settings(FILE* ini_file) {
    char enabled = 1;
    write_section_line(ini_file, "https setting");
    U_FlshHTTPSGet(&enabled);
    write_flag(ini_file, enabled == 1);
}

int check_ini_https(const dictionary* ini, FILE* error_file) {
    return check_present(ini, error_file, "https setting:enable state",
                         USR_RET_ERR_HTTPS_STATE_NOT_FOUND);
}

void restore_ini_https(const dictionary* ini) {
    U_FlshHTTPSSet(read_int(ini, "https setting:enable state", 0) == 1 ? 1 : 0);
}

void backup_ini_adefault_settings(FILE* ini_file) {
    write_section_line(ini_file, "auto default setting");
    write_flag(ini_file, get_eeprom_serial_port() != 0);
}

int check_ini_adefault(const dictionary* ini, FILE* error_file) {
    return check_present(ini, error_file, "auto default setting:enable state",
                         USR_RET_ERR_ADEFAULT_STATE_NOT_FOUND);
}

// Does not write the EEPROM if nothing changes. A stored number other than 0 and 1 is
// always rewritten.
void restore_ini_adefault(const dictionary* ini) {
    const int stored = get_eeprom_serial_port();
    const int flag = read_int(ini, "auto default setting:enable state", 0) == 1 ? 1 : 0;
    if (flag != stored) {
        set_eeprom_serial_port(flag);
    }
}
