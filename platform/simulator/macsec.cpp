// The choice of this switch: a port has one status, which both operations set.

#include "platform/include/macsec.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr uint8_t first_port = 6;

// The keys of one of the two fibre ports; null for any other port.
Macsec* macsec(uint8_t port) {
    const size_t index = static_cast<size_t>(port) - first_port;
    return index < state().macsec.size() ? &state().macsec[index] : nullptr;
}

uint8_t set_status(const Call& call, uint8_t port, uint8_t status) {
    return static_cast<uint8_t>(
        changes(call, macsec(port) != nullptr, [&] { macsec(port)->status = status; }));
}

} // namespace

uint8_t U_MacsecGetPortConf(uint8_t port, TstFlshMacsectEntry* entry) {
    return static_cast<uint8_t>(reads(call(__func__, port), macsec(port) != nullptr, [&] {
        entry->status = macsec(port)->status;
        macsec(port)->sci.copy_to(entry->key.sci, sizeof entry->key.sci);
        macsec(port)->sak.copy_to(entry->key.sak, sizeof entry->key.sak);
    }));
}

uint8_t U_MacsecPortEnable(uint8_t port, uint8_t status) {
    return set_status(call(__func__, port, status), port, status);
}

uint8_t U_MacsecSetKey(uint8_t port, const char* sci, const char* sak) {
    return static_cast<uint8_t>(
        changes(call(__func__, port, sci, sak), macsec(port) != nullptr, [&] {
            macsec(port)->sci.assign(sci);
            macsec(port)->sak.assign(sak);
        }));
}

uint8_t U_MacsecSetPortEnable(uint8_t port, uint8_t status) {
    return set_status(call(__func__, port, status), port, status);
}
