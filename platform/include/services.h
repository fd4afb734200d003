/*
 * Services with little more than a switch: LLDP (IEEE 802.1AB), the HTTPS web
 * server, and port mirroring.
 *
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * outputs as they were.
 */
#ifndef SWITCH_SERVICES_H
#define SWITCH_SERVICES_H

#ifdef __cplusplus
extern "C" {
#endif

/* LLDP's state: 1 when it is on; 3 switches it off. */
unsigned short U_LldpGetEnable(unsigned char* enabled);
unsigned short U_LldpSetEnable(unsigned char* enabled);

/* How long neighbours keep what LLDP tells them, and how often it does, in seconds. */
unsigned short U_LldpSetTxTtl(unsigned short* ttl);
unsigned short U_LldpSetTxInterval(unsigned short* interval);

/* 1 when the HTTPS web server is on, else 0. */
unsigned short U_FlshHTTPSGet(char* enabled);
unsigned short U_FlshHTTPSSet(char enabled);

/*
 * Port mirroring: its state (0 is off), its mode, and its two ports, numbered
 * from 0. Switching it off passes -1 for both ports.
 */
unsigned short U_FwdGetPortMirror(char* state, unsigned char* mode,
                                  unsigned short* ucPortMirrorAnlyPort,
                                  unsigned short* stPortMirrorMntrPPortMask);
unsigned short U_FwdSetPortMirror(int state, int mode, int ucPortMirrorAnlyPort,
                                  int stPortMirrorMntrPPortMask);

#ifdef __cplusplus
}
#endif

#endif
