/*
 * Port security: how many source MAC addresses a port may learn.
 *
 * Ports count from 0. Operations return 0 (USR_RET_OK) or a fault. A read that
 * fails leaves its output unchanged.
 */
#ifndef SWITCH_PORT_SECURITY_H
#define SWITCH_PORT_SECURITY_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The limit of one port. Only the library uses Global and ucPortID. */
typedef struct {
    char Global;
    uint8_t Action; /* 1: the limit is on */
    uint8_t ucPortID;
    uint16_t MaxMac;
} port_mac_t;

CONTRACT_SIZE(port_mac_t, 6);
CONTRACT_FIELD(port_mac_t, Global, char, 0);
CONTRACT_FIELD(port_mac_t, Action, uint8_t, 1);
CONTRACT_FIELD(port_mac_t, ucPortID, uint8_t, 2);
CONTRACT_FIELD(port_mac_t, MaxMac, uint16_t, 4);

/* The stored record, by port index. gblebl is nonzero when port security is on. */
typedef struct {
    port_mac_t port_max_mac[32];
    char gblebl;
} TstFlshPortSecMac;

CONTRACT_SIZE(TstFlshPortSecMac, 194);
CONTRACT_FIELD(TstFlshPortSecMac, port_max_mac, port_mac_t[32], 0);
CONTRACT_FIELD(TstFlshPortSecMac, gblebl, char, 192);

unsigned short U_FlshPortSecMacGet(TstFlshPortSecMac* security);
unsigned short U_FlshPortSecMacSet(TstFlshPortSecMac* security);

/*
 * Applies one port's flag and limit together with the global flag. Restore calls
 * it for each port, after a set of a record with the limits of all ports cleared.
 * Flags are 0 or 1; the range of the limit is the library's to judge.
 */
unsigned short U_PortSecSwitchMac(uint8_t port, uint8_t enabled, char global, uint16_t maximum);

#ifdef __cplusplus
}
#endif

#endif
