// Choices of this switch: addresses 1 to 247, as on serial Modbus lines, a flag
// of 0 or 1, and TCP ports from 1.

#include "platform/include/modbus.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

Modbus& modbus() {
    return state().modbus;
}

} // namespace

unsigned short U_SysGetModbusAddr(uint8_t* address) {
    return reads(call(__func__), [&] { *address = modbus().address; });
}

unsigned short U_SysSetModbusAddr(int address) {
    return changes(call(__func__, address),
                   [&] { modbus().address = static_cast<uint8_t>(address); });
}

unsigned short U_SysGetModbusEnabled(char* enabled) {
    return reads(call(__func__), [&] { *enabled = static_cast<char>(modbus().enabled); });
}

unsigned short U_SysSetModbusEnabled(int enabled) {
    return changes(call(__func__, enabled),
                   [&] { modbus().enabled = static_cast<int8_t>(enabled); });
}

unsigned short U_SysGetModbusPort(unsigned long* port) {
    return reads(call(__func__), [&] { *port = modbus().port; });
}

unsigned short U_SysSetModbusPort(int port) {
    return changes(call(__func__, port), [&] { modbus().port = static_cast<uint32_t>(port); });
}

unsigned short U_SysExecuteModbus(int start) {
    return changes(call(__func__, start), [] {});
}

char Usrmodbus_check_modbus_addr(int address) {
    return judge(call(__func__, address), address >= 1 && address <= 247);
}

char Usrmodbus_check_modbus_enable(int enabled) {
    return judge(call(__func__, enabled), enabled == 0 || enabled == 1);
}

char Usrmodbus_check_modbus_port(int port) {
    return judge(call(__func__, port), port >= 1 && port <= 65535);
}
