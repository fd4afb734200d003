// The choice of this switch: there are fibre entries 1 and 2 and no others.

#include "platform/include/eeprom.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr int failed = -1;
constexpr size_t model_name_size = 33;

// The speed of an entry; null when there is no such entry.
int* fiber_speed(int entry) {
    const auto index = static_cast<size_t>(entry) - 1;
    return index < state().eeprom.fiber_speed.size() ? &state().eeprom.fiber_speed[index] : nullptr;
}

} // namespace

int get_full_model_name(char* name) {
    return reads(call(__func__), [&] { state().eeprom.model_name.copy_to(name, model_name_size); });
}

int get_eeprom_macsec_port_type(void) {
    return answers(call(__func__), failed, [] { return state().eeprom.macsec_port_type; });
}

int get_eeprom_fiber_speed(int entry) {
    return answers(call(__func__, entry), failed, [&] {
        const int* speed = fiber_speed(entry);
        return speed != nullptr ? *speed : failed;
    });
}

int set_eeprom_fiber_speed(int entry, int speed) {
    return changes(call(__func__, entry, speed), fiber_speed(entry) != nullptr,
                   [&] { *fiber_speed(entry) = speed; });
}

int get_eeprom_serial_port(void) {
    return answers(call(__func__), failed, [] { return state().eeprom.serial_port; });
}

int set_eeprom_serial_port(int flag) {
    return changes(call(__func__, flag), [&] { state().eeprom.serial_port = flag; });
}
