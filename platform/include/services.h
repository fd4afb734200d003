/*
 * LLDP (IEEE 802.1AB), the HTTPS web server, and port mirroring.
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * outputs unchanged.
 */
#ifndef SWITCH_SERVICES_H
#define SWITCH_SERVICES_H

#ifdef __cplusplus
extern "C" {
#endif

/* LLDP is on when the value is 1. A set passes 1 for on and 3 for off. */
unsigned short U_LldpGetEnable(unsigned char* enabled);
unsigned short U_LldpSetEnable(unsigned char* enabled);

/*
 * How long neighbours keep what this switch has sent, and how often it sends, in
 * seconds. Restore always sets 120 and 30, after the value above.
 */
unsigned short U_LldpSetTxTtl(unsigned short* ttl);
unsigned short U_LldpSetTxInterval(unsigned short* interval);

/* 1 when the HTTPS web server is on, 0 when it is off. */
unsigned short U_FlshHTTPSGet(char* enabled);
unsigned short U_FlshHTTPSSet(char enabled);

/*
 * Port mirroring: its state (0 is off, any other number on), its mode, the analyzer
 * port and the monitored port; ports count from 0. Restore passes the document's
 * state, -1 if it has none, and mode 3, with -1 for a port that the document does
 * not name; to turn mirroring off it passes state 0, mode 0 and -1 for both ports.
 * What the modes and port -1 mean is the library's own.
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
