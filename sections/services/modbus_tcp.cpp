// Restore sets only what differs, and stops the service while the port changes.

#include "sections/services/modbus_tcp.h"

#include "frame/report.h"
#include "platform/include/modbus.h"
#include "platform/include/return_codes.h"

namespace {

constexpr int default_address = 1;
constexpr int default_port = 502;

std::uint8_t stored_address() {
    alignas(unsigned long) std::uint8_t address[sizeof(unsigned long)] = {};
    U_SysGetModbusAddr(address);
    return address[0];
}

std::int8_t stored_status() {
    char enabled = 0;
    U_SysGetModbusEnabled(&enabled);
    return static_cast<std::int8_t>(enabled);
}

unsigned long stored_port() {
    unsigned long port = 0;
    U_SysGetModbusPort(&port);
    return port;
}

void ini_write_modbus_address(FILE* ini_file) {
    fprintf(ini_file, "modbus address = %d ;\n", stored_address());
}

void ini_write_modbus_status(FILE* ini_file) {
    fprintf(ini_file, "modbus = %d ;\n", stored_status());
}

void ini_write_modbus_port(FILE* ini_file) {
    fprintf(ini_file, "modbus port = %d ;\n", static_cast<std::uint16_t>(stored_port()));
}

} // namespace

void backup_ini_modbus_tcp_settings(FILE* ini_file) {
    write_section_line(ini_file, "modbus tcp settings");
    ini_write_modbus_address(ini_file);
    ini_write_modbus_status(ini_file);
    ini_write_modbus_port(ini_file);
}

namespace {

int check_modbus_address(const dictionary* ini, FILE* error_file) {
    return check_number(
        ini, error_file, "modbus tcp settings:modbus address",
        {USR_RET_ERR_MODBUS_TCP_ADDRESS_NO_FOUND, USR_RET_ERR_MODBUS_TCP_ADDRESS_VALUE_INVALID},
        Usrmodbus_check_modbus_addr);
}

int check_modbus_status(const dictionary* ini, FILE* error_file) {
    return check_number(
        ini, error_file, "modbus tcp settings:modbus",
        {USR_RET_ERR_MODBUS_STATUS_NO_FOUND, USR_RET_ERR_MODBUS_STATUS_VALUE_INVALID},
        Usrmodbus_check_modbus_enable);
}

int check_modbus_port(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, "modbus tcp settings:modbus port",
                        {USR_RET_ERR_MODBUS_PORT_NO_FOUND, USR_RET_ERR_MODBUS_PORT_VALUE_INVALID},
                        Usrmodbus_check_modbus_port);
}

} // namespace

int check_ini_modbusTcp_settings(const dictionary* ini, FILE* error_file) {
    return run_check_steps({check_modbus_address, check_modbus_status, check_modbus_port}, ini,
                           error_file);
}

namespace {

void restore_modbus_address(const dictionary* ini) {
    const int address = read_int(ini, "modbus tcp settings:modbus address", default_address);
    if (address != stored_address()) {
        U_SysSetModbusAddr(address);
    }
}

// Turning the service on also starts it.
void restore_modbus_status(const dictionary* ini) {
    const int status = read_int(ini, "modbus tcp settings:modbus", 0);
    if (status == stored_status()) {
        return;
    }
    U_SysSetModbusEnabled(status);
    if (status == 1) {
        U_SysExecuteModbus(1);
    }
}

// Reads the service's state again, because it may just have changed.
void restore_modbus_port(const dictionary* ini) {
    const int port = read_int(ini, "modbus tcp settings:modbus port", default_port);
    if (static_cast<std::uint32_t>(port) == static_cast<std::uint32_t>(stored_port())) {
        return;
    }
    const bool runs = stored_status() == 1;
    if (runs) {
        U_SysSetModbusEnabled(0);
    }
    U_SysSetModbusPort(port);
    if (runs) {
        U_SysSetModbusEnabled(1);
    }
}

} // namespace

void restore_ini_modbusTcp_settings(const dictionary* ini) {
    restore_modbus_address(ini);
    restore_modbus_status(ini);
    restore_modbus_port(ini);
}
