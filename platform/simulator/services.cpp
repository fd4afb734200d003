#include "platform/include/services.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

unsigned short U_LldpGetEnable(unsigned char* enabled) {
    return reads(call(__func__), [&] { *enabled = state().lldp.enabled; });
}

unsigned short U_LldpSetEnable(unsigned char* enabled) {
    return changes(call(__func__, +*enabled), [&] { state().lldp.enabled = *enabled; });
}

unsigned short U_LldpSetTxTtl(unsigned short* ttl) {
    return changes(call(__func__, *ttl), [&] { state().lldp.ttl = *ttl; });
}

unsigned short U_LldpSetTxInterval(unsigned short* interval) {
    return changes(call(__func__, *interval), [&] { state().lldp.interval = *interval; });
}

unsigned short U_FlshHTTPSGet(char* enabled) {
    return reads(call(__func__), [&] { *enabled = static_cast<char>(state().https.enabled); });
}

unsigned short U_FlshHTTPSSet(char enabled) {
    return changes(call(__func__, enabled),
                   [&] { state().https.enabled = static_cast<signed char>(enabled); });
}

unsigned short U_FwdGetPortMirror(char* on, unsigned char* mode,
                                  unsigned short* ucPortMirrorAnlyPort,
                                  unsigned short* stPortMirrorMntrPPortMask) {
    return reads(call(__func__), [&] {
        const PortMirror& mirror = state().port_mirror;
        *on = static_cast<char>(mirror.state);
        *mode = mirror.mode;
        *ucPortMirrorAnlyPort = mirror.analyzer_port;
        *stPortMirrorMntrPPortMask = mirror.monitored_port;
    });
}

// No port (-1) is stored and read back as 65535.
unsigned short U_FwdSetPortMirror(int on, int mode, int ucPortMirrorAnlyPort,
                                  int stPortMirrorMntrPPortMask) {
    return changes(call(__func__, on, mode, ucPortMirrorAnlyPort, stPortMirrorMntrPPortMask), [&] {
        state().port_mirror = {static_cast<int8_t>(on), static_cast<uint8_t>(mode),
                               static_cast<uint16_t>(ucPortMirrorAnlyPort),
                               static_cast<uint16_t>(stPortMirrorMntrPPortMask)};
    });
}
