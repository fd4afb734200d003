// The enable flags are in the stored port configuration. The speed of a fibre port is
// in the EEPROM, and restore also applies it to the port.

#include "sections/system/ports.h"

#include "frame/ports.h"
#include "frame/report.h"
#include "platform/include/eeprom.h"
#include "platform/include/port_masks.h"
#include "platform/include/return_codes.h"

namespace {

constexpr FaultCodes port_status_codes{USR_RET_ERR_PORT_ENABLE_STATUS_NO_FOUND,
                                       USR_RET_ERR_PORT_ENABLE_STATUS_VALUE_INVALID};
constexpr FaultCodes port_speed_codes{USR_RET_ERR_PORT_SPEED_NO_FOUND,
                                      USR_RET_ERR_PORT_SPEED_VALUE_INVALID};

struct FibrePort {
    const char* speed_entry;
    int port; // its index
};

constexpr FibrePort fibre_ports[] = {
    {"port settings:Port7 speed", 6},
    {"port settings:Port8 speed", 7},
};

// The EEPROM number of a fibre port's speed: 1 for index 6, 2 for index 7.
constexpr int eeprom_number(int port) {
    return port - 5;
}

// Only models of port type 1 have fibre speeds. The type is in the low 8 bits.
bool has_fibre_speeds() {
    return static_cast<std::uint8_t>(get_eeprom_macsec_port_type()) == 1;
}

// A flag is a signed 8-bit number on every machine.
std::int8_t read_port_status(const dictionary* ini, int port, int fallback) {
    return static_cast<std::int8_t>(
        read_int(ini, EntryName("port settings:port%d", key_number(port)), fallback));
}

void ini_write_port_status(FILE* ini_file) {
    char enabled = 0; // a port that cannot be read is written as the one before it
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        U_FlshPortGetEbl(port, &enabled);
        fprintf(ini_file, "port%d = %d ;\n", key_number(port), static_cast<std::int8_t>(enabled));
    }
}

void ini_write_port_speed(FILE* ini_file) {
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        if (U_PortGetMode(port) == LAN_PORT_MODE_FIBER) {
            Text<17> name; // one byte more than the field terminates it
            U_TrkLId2LogicId(name.chars, port);
            const int speed = get_eeprom_fiber_speed(eeprom_number(port));
            fprintf(ini_file, "%s speed = %d ;\n", name.chars, static_cast<std::uint16_t>(speed));
        }
    }
}

} // namespace

void backup_ini_port_settings(FILE* ini_file) {
    write_section_line(ini_file, "port settings");
    ini_write_port_status(ini_file);
    if (has_fibre_speeds()) {
        ini_write_port_speed(ini_file);
    }
}

namespace {

// Empty for an absent key, for -1, and for 255, which is -1 in 8 bits.
std::optional<int> port_status(const dictionary* ini, int port) {
    const std::int8_t status = read_port_status(ini, port, -1);
    return status != -1 ? std::optional<int>(status) : std::nullopt;
}

int check_port_status(const dictionary* ini, FILE* error_file) {
    for (int port = 0; port < g_ucMaxPhyPort; ++port) {
        const int result = check_value(error_file, port_status(ini, port), port_status_codes,
                                       Usrflsh_check_port_enable_status);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}

int check_port_speed(const dictionary* ini, FILE* error_file) {
    if (!has_fibre_speeds()) {
        return 0;
    }
    for (const FibrePort& fibre : fibre_ports) {
        const int result = check_number(ini, error_file, fibre.speed_entry, port_speed_codes,
                                        Usrmacsec_check_fiber_speed);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}

} // namespace

int check_ini_port_settings(const dictionary* ini, FILE* error_file) {
    return run_check_steps({check_port_status, check_port_speed}, ini, error_file);
}

namespace {

// Sets only what differs, and resets the ports at most once. A port that the document
// does not name is enabled. The stored flag is unsigned here, so one above 127 differs
// from any flag of the document.
void restore_port_status(const dictionary* ini) {
    bool changed = false;
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        const std::int8_t status = read_port_status(ini, port, 1);
        char old = 0;
        U_FlshPortGetEbl(port, &old);
        if (static_cast<std::uint8_t>(old) != status) {
            U_PortSetEbl(port, static_cast<char>(status));
            changed = true;
        }
    }
    if (changed) {
        U_PortSetSWreset();
    }
}

// Leaves the EEPROM of other models alone.
void restore_port_speed(const dictionary* ini) {
    if (!has_fibre_speeds()) {
        return;
    }
    for (const FibrePort& fibre : fibre_ports) {
        const int speed = read_int(ini, fibre.speed_entry, 0);
        if (speed != get_eeprom_fiber_speed(eeprom_number(fibre.port))) {
            set_fiber_speed(fibre.port, speed);
            set_eeprom_fiber_speed(eeprom_number(fibre.port), speed);
        }
    }
}

} // namespace

void restore_ini_port_settings(const dictionary* ini) {
    restore_port_status(ini);
    restore_port_speed(ini);
}
