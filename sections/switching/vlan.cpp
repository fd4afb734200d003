// VLAN lists pass through as texts: their grammar, and how they become the static VLAN
// table, belong to the device library. The tool has rules of its own for the management
// VLAN and for the isolation lists.
//
// Check and restore always handle eight ports, however many the device has.

#include "sections/switching/vlan.h"

#include "frame/ports.h"
#include "frame/report.h"
#include "platform/include/return_codes.h"
#include "platform/include/vlan.h"

#include <algorithm>

namespace {

constexpr int vlan_ports = 8; // the width of the library's arrays

constexpr int min_vlan_id = 1;
constexpr int max_vlan_id = 4094;

void write_port_vlans(FILE* ini_file, int ports) {
    vlan_data_t data = {};
    get_vlan_data(&data);
    for (int port = 0; port < ports; ++port) {
        // One byte more than the field, so that the text is terminated.
        const Text<sizeof data.vlan_str[0] + 1> list(data.vlan_str[port]);
        fprintf(ini_file, "port%d_role = \"%s\" ;\n", key_number(port),
                data.portrole[port] == VLAN_ROLE_ACCESS ? "Access" : "Trunk");
        fprintf(ini_file, "port%d_vlan = \"%s\" ;\n", key_number(port), list.chars);
    }
}

void write_management_vlan(FILE* ini_file) {
    std::uint16_t id = 0;
    U_VlanGetMgnVlanId(&id);
    fprintf(ini_file, "management vlan id = \"%d\" ;\n", id);
}

void write_isolation(FILE* ini_file, int ports) {
    TstFlshVlanPortBasedEntry table = {};
    U_FlshVlanGetPortBasedEntry(&table);
    for (int port = 0; port < ports; ++port) {
        fprintf(ini_file, "port%d = \"", key_number(port));
        write_port_list(ini_file, table.stPortMask[port], listed_ports);
        fprintf(ini_file, "\" ;\n");
    }
}

} // namespace

void backup_ini_vlan_settings(FILE* ini_file) {
    const int ports = std::min<int>(g_ucMaxPhyPort, vlan_ports);
    write_section_line(ini_file, "vlan setting");
    write_port_vlans(ini_file, ports);
    write_management_vlan(ini_file);
    write_section_line(ini_file, "vlan port isolation setting");
    write_isolation(ini_file, ports);
}

namespace {

constexpr char management_entry[] = "vlan setting:management vlan id";

const char* read_role(const dictionary* ini, int port) {
    return read_string(ini, EntryName("vlan setting:port%d_role", key_number(port)), absent);
}

const char* read_list(const dictionary* ini, int port) {
    return read_string(ini, EntryName("vlan setting:port%d_vlan", key_number(port)), absent);
}

const char* read_isolation(const dictionary* ini, int port) {
    return read_string(ini, EntryName("vlan port isolation setting:port%d", key_number(port)),
                       absent);
}

std::int32_t role_of(const char* text) {
    constexpr std::int32_t no_role = 2; // the library refuses it
    if (strcmp(text, "Access") == 0) {
        return VLAN_ROLE_ACCESS;
    }
    return strcmp(text, "Trunk") == 0 ? VLAN_ROLE_TRUNK : no_role;
}

int check_roles(const dictionary* ini, FILE* error_file, vlan_data_t& data) {
    for (int port = 0; port < vlan_ports; ++port) {
        const char* role = read_role(ini, port);
        if (is_absent(role)) {
            return report_fault(error_file, USR_RET_ERR_VLAN_ROLE_NO_FOUND);
        }
        data.portrole[port] = role_of(role);
    }
    return 0;
}

int check_lists(const dictionary* ini, FILE* error_file, vlan_data_t& data) {
    for (int port = 0; port < vlan_ports; ++port) {
        const char* list = read_list(ini, port);
        if (is_absent(list)) {
            return report_fault(error_file, USR_RET_ERR_VLAN_ID_NO_FOUND);
        }
        copy_text(data.vlan_str[port], list);
    }
    return 0;
}

// Any other verdict counts as valid.
int fault_of(int verdict) {
    switch (verdict) {
    case VLAN_DATA_ROLE:
        return USR_RET_ERR_VLAN_ROLE_NOT_ACCESS_NOR_TRUNK;
    case VLAN_DATA_ACCESS_LIST:
        return USR_RET_ERR_VLAN_PORT_ACCESS_MODE_MORE_THAN_ONE_VLAN_ID;
    case VLAN_DATA_ID_VALUE:
        return USR_RET_ERR_VLAN_ID_VALUE_INVALID;
    case VLAN_DATA_ID_RANGE:
        return USR_RET_ERR_VLAN_ID_RANGE_ERROR;
    case VLAN_DATA_MANAGEMENT:
    case VLAN_DATA_MANAGEMENT_2:
        return USR_RET_ERR_VLAN_MANAGEMENT_ID_ERROR;
    default:
        return USR_RET_OK;
    }
}

int check_verdict(FILE* error_file, vlan_data_t& data) {
    struct WorkBuffers {
        TstFlshVlanEntry table[4096];
        alignas(std::int32_t) char removal_list[4096];
        char msg[100];
    };
    static WorkBuffers buffers; // too large for the stack of a small device
    static bool used = false;
    if (used) { // static memory starts out zero, and untouched it costs nothing
        memset(&buffers, 0, sizeof buffers);
    }
    used = true;
    const int fault =
        fault_of(check_vlan_data(&data, buffers.msg, buffers.table, buffers.removal_list));
    return fault == USR_RET_OK ? 0 : report_fault(error_file, fault);
}

bool holds_vlan(const char* list, int id) {
    for (Piece piece = first_piece(list); piece.length != 0; piece = next_piece(piece)) {
        if (static_cast<std::int16_t>(decimal_value(piece.text)) == id) {
            return true;
        }
    }
    return false;
}

bool is_in_any_list(const vlan_data_t& data, int id) {
    for (const auto& list : data.vlan_str) {
        if (holds_vlan(list, id)) {
            return true;
        }
    }
    return false;
}

bool device_has_vlan(int id) {
    TstLPortMask members = {};
    TstLPortMask tagged = {};
    std::uint16_t protocol_type = 0;
    return U_VlanGetSttcEntry(static_cast<std::uint16_t>(id), &members, &tagged, &protocol_type) ==
           USR_RET_OK;
}

// The management VLAN must already be on the device: one that the document would
// create is refused.
int check_management_vlan(const dictionary* ini, FILE* error_file, const vlan_data_t& data) {
    const std::optional<int> id = read_number(ini, management_entry);
    if (!id) {
        return report_fault(error_file, USR_RET_ERR_VLAN_MANAGEMENT_ID_NOT_FOUND);
    }
    if (*id < min_vlan_id || *id > max_vlan_id) {
        return report_fault(error_file, USR_RET_ERR_VLAN_ID_INVALID);
    }
    if (!is_in_any_list(data, *id)) {
        return report_fault(error_file, USR_RET_ERR_VLAN_NOT_EXIST_PVID);
    }
    if (!device_has_vlan(*id)) {
        return report_fault(error_file, USR_RET_ERR_VLAN_ID_INVALID);
    }
    return 0;
}

bool is_numeric(const Piece& piece) {
    return strspn(piece.text, "0123456789") >= piece.length;
}

// At most eight numbers pass; duplicates and the port itself are allowed.
int isolation_fault(const char* list) {
    int count = 0;
    for (Piece piece = first_piece(list); piece.length != 0; piece = next_piece(piece)) {
        if (!is_numeric(piece)) {
            return USR_RET_ERR_VLAN_ISOLATION_VALUE_NOT_NUMERIC;
        }
        const int number = decimal_value(piece.text);
        if (number < 1 || number > listed_ports) {
            return USR_RET_ERR_VLAN_ISOLATION_VALUE_INVALID;
        }
        if (++count > listed_ports) {
            return USR_RET_ERR_VLAN_ISOLATION_VALUE_NUMBER_TOO_MANY;
        }
    }
    return USR_RET_OK;
}

int check_isolation(const dictionary* ini, FILE* error_file) {
    for (int port = 0; port < vlan_ports; ++port) {
        const char* list = read_isolation(ini, port);
        const int fault =
            is_absent(list) ? USR_RET_ERR_VLAN_ISOLATION_NO_FOUND : isolation_fault(list);
        if (fault != USR_RET_OK) {
            return report_fault(error_file, fault);
        }
    }
    return 0;
}

} // namespace

int check_ini_vlan(const dictionary* ini, FILE* error_file) {
    vlan_data_t data = {};
    const bool passes =
        check_roles(ini, error_file, data) == 0 && check_lists(ini, error_file, data) == 0 &&
        check_verdict(error_file, data) == 0 && check_management_vlan(ini, error_file, data) == 0 &&
        check_isolation(ini, error_file) == 0;
    return passes ? 0 : -1;
}

namespace {

// The roles and lists as the device has them. False when they cannot be read: the
// operation has no result, but it sets the role of every port.
bool read_stored_vlans(vlan_data_t& data) {
    constexpr std::int32_t unread = -1;
    data.portrole[0] = unread;
    get_vlan_data(&data);
    memset(data.min_vlan, 0, sizeof data.min_vlan); // the tool always passes it as zero
    return data.portrole[0] != unread;
}

// Takes a port's role and list from the document. A port with neither key stays as it
// is, and so does a missing list.
void read_port_vlans(const dictionary* ini, int port, vlan_data_t& data) {
    const char* role = read_role(ini, port);
    const char* list = read_list(ini, port);
    if (is_absent(role) && is_absent(list)) {
        return;
    }
    data.portrole[port] = role_of(role);
    if (!is_absent(list)) {
        memset(data.vlan_str[port], 0, sizeof data.vlan_str[port]);
        copy_text(data.vlan_str[port], list);
    }
}

bool has_every_list(const dictionary* ini) {
    for (int port = 0; port < vlan_ports; ++port) {
        if (is_absent(read_list(ini, port))) {
            return false;
        }
    }
    return true;
}

bool has_any_port(const dictionary* ini) {
    for (int port = 0; port < vlan_ports; ++port) {
        if (!is_absent(read_role(ini, port)) || !is_absent(read_list(ini, port))) {
            return true;
        }
    }
    return false;
}

// False when there is nothing to apply: no port has a key, or a list is missing and the
// device's VLANs cannot be read.
bool read_vlans(const dictionary* ini, vlan_data_t& data) {
    if (!has_any_port(ini) || !(has_every_list(ini) || read_stored_vlans(data))) {
        return false;
    }
    for (int port = 0; port < vlan_ports; ++port) {
        read_port_vlans(ini, port, data);
    }
    return true;
}

// All ports at once.
void restore_port_vlans(const dictionary* ini) {
    constexpr int apply = 1;
    struct WorkBuffers {
        TstFlshVlanEntry table[512];
        std::int32_t removal_list[512];
        char msg[100];
    };
    static WorkBuffers buffers;
    vlan_data_t data = {};
    if (read_vlans(ini, data)) {
        memset(&buffers, 0, sizeof buffers);
        check_vlan_data(&data, buffers.msg, buffers.table, buffers.removal_list);
        set_vlan_data(&data, buffers.msg, buffers.table, buffers.removal_list, apply);
    }
}

void restore_management_vlan(const dictionary* ini) {
    const std::optional<int> id = read_number(ini, management_entry);
    if (id) {
        U_FlshVlanSetMgnVlanId(static_cast<std::uint16_t>(*id));
    }
}

bool has_every_isolation(const dictionary* ini) {
    for (int port = 0; port < vlan_ports; ++port) {
        if (is_absent(read_isolation(ini, port))) {
            return false;
        }
    }
    return true;
}

// The whole table is stored after each port. A port is never in its own set, and
// one without a list keeps the set it has. When that cannot be read, nothing is stored.
void restore_isolation(const dictionary* ini) {
    TstLPortMask none = {};
    TstFlshVlanPortBasedEntry table = {};
    U_LPortMaskClrAll(&none);
    if (U_FlshVlanGetPortBasedEntry(&table) != USR_RET_OK && !has_every_isolation(ini)) {
        return;
    }
    for (int port = 0; port < vlan_ports; ++port) {
        const char* list = read_isolation(ini, port);
        if (!is_absent(list)) {
            table.stPortMask[port] = none;
            add_listed_ports(table.stPortMask[port], list, port);
            U_FlshVlanSetPortBasedEntry(&table);
        }
    }
}

} // namespace

// The VLANs come first, so that the device has the management VLAN when it is set.
void restore_ini_vlan(const dictionary* ini) {
    restore_port_vlans(ini);
    restore_management_vlan(ini);
    restore_isolation(ini);
}
