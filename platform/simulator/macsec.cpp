#include "platform/include/macsec.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr uint8_t first_port = 6;

// The two ports with static keys; null for any other.
Macsec* macsec(uint8_t port) {
    const size_t index = static_cast<size_t>(port) - first_port;
    return index < state().macsec.size() ? &state().macsec[index] : nullptr;
}

// A port has one status, set by either of the two operations.
uint8_t set_status(const char* name, uint8_t port, uint8_t status) {
    const auto store = [&] {
        if (macsec(port) == nullptr) {
            return false;
        }
        macsec(port)->status = status;
        return true;
    };
    return static_cast<uint8_t>(changes(name, store, port, status));
}

} // namespace

uint8_t U_MacsecGetPortConf(uint8_t port, TstFlshMacsectEntry* entry) {
    const auto fill = [&] {
        if (macsec(port) == nullptr) {
            return false;
        }
        entry->status = macsec(port)->status;
        macsec(port)->sci.copy_to(entry->key.sci, sizeof entry->key.sci);
        macsec(port)->sak.copy_to(entry->key.sak, sizeof entry->key.sak);
        return true;
    };
    return static_cast<uint8_t>(reads("U_MacsecGetPortConf", fill, port));
}

uint8_t U_MacsecPortEnable(uint8_t port, uint8_t status) {
    return set_status("U_MacsecPortEnable", port, status);
}

uint8_t U_MacsecSetKey(uint8_t port, const char* sci, const char* sak) {
    const auto store = [&] {
        if (macsec(port) == nullptr) {
            return false;
        }
        macsec(port)->sci.assign(sci);
        macsec(port)->sak.assign(sak);
        return true;
    };
    return static_cast<uint8_t>(changes("U_MacsecSetKey", store, port, sci, sak));
}

uint8_t U_MacsecSetPortEnable(uint8_t port, uint8_t status) {
    return set_status("U_MacsecSetPortEnable", port, status);
}
