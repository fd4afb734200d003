// In restore a flag is on only for the text "1".

#include "sections/switching/port_security.h"

#include "frame/ports.h"
#include "platform/include/port_security.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::size_t number_size = 64; // of the texts that numbers are read from

// The library's record has room for 32 ports.
int secured_ports() {
    return std::min<int>(g_ucMaxPhyPort, std::size(TstFlshPortSecMac().port_max_mac));
}

} // namespace

void backup_ini_port_security_settings(FILE* ini_file) {
    TstFlshPortSecMac security = {};
    write_section_line(ini_file, "port security setting");
    U_FlshPortSecMacGet(&security);
    fprintf(ini_file, "global_state = \"%d\" ;\n", security.gblebl != 0 ? 1 : 0);
    for (int port = 0; port < secured_ports(); ++port) {
        const port_mac_t& entry = security.port_max_mac[port];
        fprintf(ini_file, "port%d_port_state =\"%d\" ;\n", key_number(port),
                entry.Action == 1 ? 1 : 0);
        fprintf(ini_file, "port%d_Maximum_MAC  = \"%d\" ;\n", key_number(port), entry.MaxMac);
    }
}

namespace {

void restore_port(const dictionary* ini, int port, char global) {
    const int number = key_number(port);
    const bool enabled =
        is_exactly_one(ini, EntryName("port security setting:port%d_port_state", number));
    const int maximum = read_decimal<number_size>(
        ini, EntryName("port security setting:port%d_Maximum_MAC", number));
    U_PortSecSwitchMac(static_cast<std::uint8_t>(port), enabled ? 1 : 0, global,
                       static_cast<std::uint16_t>(maximum));
}

} // namespace

// First stores a record with only the global flag set, then applies each port.
void restore_ini_port_security(const dictionary* ini) {
    TstFlshPortSecMac security = {};
    security.gblebl = is_exactly_one(ini, "port security setting:global_state") ? 1 : 0;
    U_FlshPortSecMacSet(&security);
    for (int port = 0; port < secured_ports(); ++port) {
        restore_port(ini, port, security.gblebl);
    }
}
