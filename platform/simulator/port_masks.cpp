// Choices of this switch: ports are named Port1, Port2, ..., trunk groups Trk1,
// Trk2, ..., and a trunk group that does not exist has no members.

#include "platform/include/port_masks.h"

#include "platform/include/ports.h"
#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <cstdio>

using namespace simulator;

namespace {

template <typename Mask>
void add(Mask& mask, uint8_t port) {
    PortSet set(mask);
    set.add(port);
    mask = set.as<Mask>();
}

} // namespace

void U_LPortMaskClrAll(TstLPortMask* mask) {
    reads(call(__func__), [&] { *mask = {}; });
}

void U_LPortMaskSetPort(TstLPortMask* mask, uint8_t port) {
    reads(call(__func__, port), [&] { add(*mask, port); });
}

char U_LPortMaskGetPort(const TstLPortMask* mask, uint8_t port) {
    return judge(call(__func__, *mask, port), PortSet(*mask).contains(port));
}

void U_PPortMaskClrAll(TstPPortMask* mask) {
    reads(call(__func__), [&] { *mask = {}; });
}

void U_PPortMaskSetPort(TstPPortMask* mask, uint8_t port) {
    reads(call(__func__, port), [&] { add(*mask, port); });
}

void U_PPortMaskCopy(TstPPortMask* destination, const TstPPortMask* source) {
    reads(call(__func__, *source), [&] { *destination = *source; });
}

void U_PPortMaskOr(TstPPortMask* destination, const TstPPortMask* first,
                   const TstPPortMask* second) {
    reads(call(__func__, *first, *second), [&] {
        *destination = {
            {first->ulMask[0] | second->ulMask[0], first->ulMask[1] | second->ulMask[1]}};
    });
}

uint16_t U_TrkLId2PMask(TstPPortMask* members, uint8_t logical_id) {
    return reads(call(__func__, logical_id), [&] {
        const auto& trunks = state().ports.trunks;
        const auto group = static_cast<size_t>(logical_id) - g_ucMaxPhyPort;
        *members = (group < trunks.size() ? trunks[group] : PortSet()).as<TstPPortMask>();
    });
}

uint16_t U_TrkLId2LogicId(char* name, uint8_t logical_id) {
    return reads(call(__func__, logical_id), [&] {
        if (has_port(logical_id)) {
            snprintf(name, 16, "Port%d", logical_id + 1);
        } else {
            snprintf(name, 16, "Trk%d", logical_id - g_ucMaxPhyPort + 1);
        }
    });
}
