/*
 * The front-panel ports.
 *
 * Device operations number ports from 0. Operations return 0 (USR_RET_OK) or
 * a fault; a read that fails leaves its outputs as they were.
 */
#ifndef SWITCH_PORTS_H
#define SWITCH_PORTS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Port counts, set by start-up and constant from then on. */
extern uint8_t g_ucMaxPhyPort;   /* physical (front-panel) ports */
extern uint8_t g_ucMaxLogicPort; /* physical ports followed by the trunk groups */

/* What a port is made of. */
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

uint8_t U_PortGetMode(uint8_t port);

/* The stored enable flag: 1 enabled, 0 disabled. */
unsigned short U_FlshPortGetEbl(uint8_t port, char* enabled);
unsigned short U_PortSetEbl(uint8_t port, char enabled);

/* Applies the changed enable flags. */
int U_PortSetSWreset(void);

/* Applies a speed code to a fibre port, index 6 or 7. */
int set_fiber_speed(int port, int speed);

/* Validators: nonzero when acceptable, of the second in the low 8 bits. */
char Usrflsh_check_port_enable_status(int enabled);
int Usrmacsec_check_fiber_speed(int speed);

#ifdef __cplusplus
}
#endif

#endif
