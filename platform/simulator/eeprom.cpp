#include "platform/include/eeprom.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr int failed = -1;
constexpr int fiber_entries = 2;
constexpr size_t model_name_size = 33;

bool is_fiber_entry(int entry) {
    return entry >= 1 && entry <= fiber_entries;
}

} // namespace

int get_full_model_name(char* name) {
    return reads("get_full_model_name",
                 [&] { state().eeprom.model_name.copy_to(name, model_name_size); });
}

int get_eeprom_macsec_port_type(void) {
    return answers("get_eeprom_macsec_port_type", failed,
                   [] { return state().eeprom.macsec_port_type; });
}

// There is no other entry: reading one fails, writing one is refused.
int get_eeprom_fiber_speed(int entry) {
    return answers(
        "get_eeprom_fiber_speed", failed,
        [&] {
            return is_fiber_entry(entry)
                       ? state().eeprom.fiber_speed[static_cast<std::size_t>(entry - 1)]
                       : failed;
        },
        entry);
}

int set_eeprom_fiber_speed(int entry, int speed) {
    return changes(
        "set_eeprom_fiber_speed",
        [&] {
            if (!is_fiber_entry(entry)) {
                return false;
            }
            state().eeprom.fiber_speed[static_cast<std::size_t>(entry - 1)] = speed;
            return true;
        },
        entry, speed);
}

int get_eeprom_serial_port(void) {
    return answers("get_eeprom_serial_port", failed, [] { return state().eeprom.serial_port; });
}

int set_eeprom_serial_port(int flag) {
    return changes(
        "set_eeprom_serial_port", [&] { state().eeprom.serial_port = flag; }, flag);
}
