#include "platform/include/port_masks.h"

#include "platform/include/ports.h"
#include "platform/simulator/gate.h"

#include <cstdio>

using namespace simulator;

namespace {

constexpr uint8_t ports_in_mask = 64;

template <typename Mask>
void add(Mask& mask, uint8_t port) {
    if (port < ports_in_mask) {
        mask.ulMask[port / 32] |= 1U << (port % 32);
    }
}

template <typename Mask>
bool contains(const Mask& mask, uint8_t port) {
    return port < ports_in_mask && (mask.ulMask[port / 32] >> (port % 32) & 1U) != 0;
}

} // namespace

PortSet::PortSet(std::initializer_list<unsigned> ports) {
    for (const unsigned port : ports) {
        words[port / 32] |= 1U << (port % 32);
    }
}

void U_LPortMaskClrAll(TstLPortMask* mask) {
    reads("U_LPortMaskClrAll", [&] { *mask = {}; });
}

void U_LPortMaskSetPort(TstLPortMask* mask, uint8_t port) {
    reads(
        "U_LPortMaskSetPort", [&] { add(*mask, port); }, port);
}

char U_LPortMaskGetPort(const TstLPortMask* mask, uint8_t port) {
    return answers(
        "U_LPortMaskGetPort", char{0}, [&] { return static_cast<char>(contains(*mask, port)); },
        *mask, port);
}

void U_PPortMaskClrAll(TstPPortMask* mask) {
    reads("U_PPortMaskClrAll", [&] { *mask = {}; });
}

void U_PPortMaskSetPort(TstPPortMask* mask, uint8_t port) {
    reads(
        "U_PPortMaskSetPort", [&] { add(*mask, port); }, port);
}

void U_PPortMaskCopy(TstPPortMask* destination, const TstPPortMask* source) {
    reads(
        "U_PPortMaskCopy", [&] { *destination = *source; }, *source);
}

void U_PPortMaskOr(TstPPortMask* destination, const TstPPortMask* first,
                   const TstPPortMask* second) {
    reads(
        "U_PPortMaskOr",
        [&] {
            *destination = {
                {first->ulMask[0] | second->ulMask[0], first->ulMask[1] | second->ulMask[1]}};
        },
        *first, *second);
}

// A group that the switch does not have is empty.
uint16_t U_TrkLId2PMask(TstPPortMask* members, uint8_t logical_id) {
    const auto& trunks = state().ports.trunks;
    return reads(
        "U_TrkLId2PMask",
        [&] {
            const auto group = static_cast<size_t>(logical_id) - g_ucMaxPhyPort;
            *members = (group < trunks.size() ? trunks[group] : PortSet()).as<TstPPortMask>();
        },
        logical_id);
}

// Ports are named from 1, and so are the trunk groups that follow them.
uint16_t U_TrkLId2LogicId(char* name, uint8_t logical_id) {
    return reads(
        "U_TrkLId2LogicId",
        [&] {
            if (logical_id < g_ucMaxPhyPort) {
                snprintf(name, 16, "Port%d", logical_id + 1);
            } else {
                snprintf(name, 16, "Trk%d", logical_id - g_ucMaxPhyPort + 1);
            }
        },
        logical_id);
}
