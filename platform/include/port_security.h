/*
 * Port security: the limit on the number of source MAC addresses that a port
 * may learn.
 *
 * Ports are numbered from 0. Operations return 0 (USR_RET_OK) or a fault; a
 * read that fails leaves its output as it was.
 */
#ifndef SWITCH_PORT_SECURITY_H
#define SWITCH_PORT_SECURITY_H

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A port: Action is 1 when its limit is on. Global and ucPortID are the library's own. */
typedef struct {
    char Global;
    uint8_t Action;
    uint8_t ucPortID;
    uint16_t MaxMac;
} port_mac_t;

static_assert(sizeof(port_mac_t) == 6, "one gap, after the port ID");
static_assert(offsetof(port_mac_t, MaxMac) == 4, "a 2-byte boundary");

/* The stored record; gblebl is nonzero when port security is on. */
typedef struct {
    port_mac_t port_max_mac[32];
    char gblebl;
} TstFlshPortSecMac;

static_assert(sizeof(TstFlshPortSecMac) == 194, "a 2-byte boundary");
static_assert(offsetof(TstFlshPortSecMac, gblebl) == 192, "no gap");

unsigned short U_FlshPortSecMacGet(TstFlshPortSecMac* security);
unsigned short U_FlshPortSecMacSet(TstFlshPortSecMac* security);

/* Applies the settings of one port together with the global switch. */
unsigned short U_PortSecSwitchMac(uint8_t port, uint8_t enabled, char global, uint16_t maximum);

#ifdef __cplusplus
}
#endif

#endif
