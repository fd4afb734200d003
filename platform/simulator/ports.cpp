// Choices of this switch: an enable flag is 0 or 1, a fibre speed code is 1
// (100 Mbit/s) or 2 (1000 Mbit/s), and a port that does not exist has mode NA1.

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
    constexpr uint8_t none = LAN_PORT_MODE_NA1;
    return answers(call(__func__, port), none,
                   [&] { return has_port(port) ? state().ports.ports.get(port).mode : none; });
}

unsigned short U_FlshPortGetEbl(uint8_t port, char* enabled) {
    return reads(call(__func__, port), has_port(port),
                 [&] { *enabled = static_cast<char>(state().ports.ports.get(port).enabled); });
}

unsigned short U_PortSetEbl(uint8_t port, char enabled) {
    return changes(call(__func__, port, enabled), has_port(port), [&] {
        state().ports.ports.at(port).enabled = static_cast<signed char>(enabled);
    });
}

int U_PortSetSWreset(void) {
    return changes(call(__func__), [] {});
}

int set_fiber_speed(int port, int speed) {
    return changes(call(__func__, port, speed), has_port(port), [] {});
}

char Usrflsh_check_port_enable_status(int enabled) {
    return judge(call(__func__, enabled), enabled == 0 || enabled == 1);
}

int Usrmacsec_check_fiber_speed(int speed) {
    return judge(call(__func__, speed), speed == 1 || speed == 2);
}
