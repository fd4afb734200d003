// Choices of this switch: addresses 1 to 247, as in Modbus over serial lines,
// a switch of 0 or 1, TCP ports from 1 on.

#include "platform/include/modbus.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

char judge(const char* name, int value, int minimum, int maximum) {
    return answers(
        name, char{0}, [&] { return static_cast<char>(value >= minimum && value <= maximum); },
        value);
}

} // namespace

unsigned short U_SysGetModbusAddr(uint8_t* address) {
    return reads("U_SysGetModbusAddr", [&] { *address = state().modbus.address; });
}

unsigned short U_SysSetModbusAddr(int address) {
    return changes(
        "U_SysSetModbusAddr", [&] { state().modbus.address = static_cast<uint8_t>(address); },
        address);
}

unsigned short U_SysGetModbusEnabled(char* enabled) {
    return reads("U_SysGetModbusEnabled",
                 [&] { *enabled = static_cast<char>(state().modbus.enabled); });
}

unsigned short U_SysSetModbusEnabled(int enabled) {
    return changes(
        "U_SysSetModbusEnabled", [&] { state().modbus.enabled = static_cast<int8_t>(enabled); },
        enabled);
}

unsigned short U_SysGetModbusPort(unsigned long* port) {
    return reads("U_SysGetModbusPort", [&] { *port = state().modbus.port; });
}

unsigned short U_SysSetModbusPort(int port) {
    return changes(
        "U_SysSetModbusPort", [&] { state().modbus.port = static_cast<uint32_t>(port); }, port);
}

unsigned short U_SysExecuteModbus(int start) {
    return changes(
        "U_SysExecuteModbus", [] {}, start);
}

char Usrmodbus_check_modbus_addr(int address) {
    return judge("Usrmodbus_check_modbus_addr", address, 1, 247);
}

char Usrmodbus_check_modbus_enable(int enabled) {
    return judge("Usrmodbus_check_modbus_enable", enabled, 0, 1);
}

char Usrmodbus_check_modbus_port(int port) {
    return judge("Usrmodbus_check_modbus_port", port, 1, 65535);
}
