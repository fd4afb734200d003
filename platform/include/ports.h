/*
 * The front-panel ports.
 *
 * Ports count from 0. Operations return 0 (USR_RET_OK) or a fault. A read that
 * fails leaves its output unchanged.
 */
#ifndef SWITCH_PORTS_H
#define SWITCH_PORTS_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Port counts. Start-up sets them; after that they never change. */
extern uint8_t g_ucMaxPhyPort;   /* physical (front-panel) ports */
extern uint8_t g_ucMaxLogicPort; /* physical ports followed by the trunk groups */

/* The kind of a port. */
enum _shr_lan_port_mode_e {
    LAN_PORT_MODE_NA1 = 0,
    LAN_PORT_MODE_COPPER = 1,
    LAN_PORT_MODE_NA2 = 2,
    LAN_PORT_MODE_FIBER = 3,
    LAN_PORT_MODE_COMBO = 4,
    LAN_PORT_MODE_COPPERTG = 5,
    LAN_PORT_MODE_FIBERTG = 6,
    LAN_PORT_MODE_COUNT = 7
};
CONTRACT_ASSERT(LAN_PORT_MODE_NA1 == 0 && LAN_PORT_MODE_COPPER == 1 && LAN_PORT_MODE_NA2 == 2);
CONTRACT_ASSERT(LAN_PORT_MODE_FIBER == 3 && LAN_PORT_MODE_COMBO == 4);
CONTRACT_ASSERT(LAN_PORT_MODE_COPPERTG == 5 && LAN_PORT_MODE_FIBERTG == 6);
CONTRACT_ASSERT(LAN_PORT_MODE_COUNT == 7);

/* Returns one of _shr_lan_port_mode_e. */
uint8_t U_PortGetMode(uint8_t port);

/* The enable flag: 1 enabled, 0 disabled. The read returns the stored one. */
unsigned short U_FlshPortGetEbl(uint8_t port, char* enabled);
unsigned short U_PortSetEbl(uint8_t port, char enabled);

/* Applies the changed flags. Called once, after all ports, when any flag has changed. */
int U_PortSetSWreset(void);

/* Applies a speed code to a fibre port, index 6 or 7. The codes are the library's own. */
int set_fiber_speed(int port, int speed);

/* Validators: nonzero in the low 8 bits when acceptable. */
char Usrflsh_check_port_enable_status(int enabled);
int Usrmacsec_check_fiber_speed(int speed);

#ifdef __cplusplus
}
#endif

#endif
