#include "platform/include/start_up.h"

#include "platform/include/ports.h"
#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"
#include "platform/simulator/state_file.h"

struct MSD_QD_DEV {
    int device;
};

uint8_t g_ucMaxPhyPort = 0;
uint8_t g_ucMaxLogicPort = 0;

namespace simulator {

namespace {

void set_port_counts() {
    g_ucMaxPhyPort = state().ports.physical;
    g_ucMaxLogicPort = state().ports.logical;
}

} // namespace

State& state() {
    static State state;
    return state;
}

void reset(const State& new_state) {
    state() = new_state;
    set_port_counts();
    journal().clear();
    make_fail("");
}

bool has_port(int port) {
    return port >= 0 && port < g_ucMaxPhyPort;
}

} // namespace simulator

using namespace simulator;

MSD_QD_DEV* init_umdev(int device) {
    static MSD_QD_DEV chip;
    return answers(call(__func__, device), static_cast<MSD_QD_DEV*>(nullptr), [&] {
        chip.device = device;
        return &chip;
    });
}

int initdef(void) {
    return reads(call(__func__), load_stored_configuration);
}

int port_init(void) {
    return reads(call(__func__), set_port_counts);
}
