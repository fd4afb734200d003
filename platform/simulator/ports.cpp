// Choices of this switch: an enable flag is 0 or 1, a fibre speed code is 1
// (100 Mbit/s) or 2 (1000 Mbit/s).

#include "platform/include/ports.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

Indexed<Port> simulator::factory_ports() {
    Indexed<Port> ports;
    ports.entries.resize(8);
    ports.entries[6].mode = LAN_PORT_MODE_FIBER;
    ports.entries[7].mode = LAN_PORT_MODE_FIBER;
    return ports;
}

uint8_t U_PortGetMode(uint8_t port) {
    return answers(
        "U_PortGetMode", static_cast<uint8_t>(LAN_PORT_MODE_NA1),
        [&] { return state().ports.ports.get(port).mode; }, port);
}

unsigned short U_FlshPortGetEbl(uint8_t port, char* enabled) {
    return reads(
        "U_FlshPortGetEbl",
        [&] {
            if (port >= g_ucMaxPhyPort) {
                return false;
            }
            *enabled = static_cast<char>(state().ports.ports.get(port).enabled);
            return true;
        },
        port);
}

unsigned short U_PortSetEbl(uint8_t port, char enabled) {
    return changes(
        "U_PortSetEbl",
        [&] {
            if (port >= g_ucMaxPhyPort) {
                return false;
            }
            state().ports.ports.at(port).enabled = static_cast<signed char>(enabled);
            return true;
        },
        port, enabled);
}

int U_PortSetSWreset(void) {
    return changes("U_PortSetSWreset", [] {});
}

int set_fiber_speed(int port, int speed) {
    return changes(
        "set_fiber_speed", [&] { return port >= 0 && port < g_ucMaxPhyPort; }, port, speed);
}

char Usrflsh_check_port_enable_status(int enabled) {
    return answers(
        "Usrflsh_check_port_enable_status", char{0},
        [&] { return static_cast<char>(enabled == 0 || enabled == 1); }, enabled);
}

int Usrmacsec_check_fiber_speed(int speed) {
    return answers(
        "Usrmacsec_check_fiber_speed", 0, [&] { return speed == 1 || speed == 2 ? 1 : 0; }, speed);
}
