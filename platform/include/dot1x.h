/*
 * IEEE 802.1X port authentication against a RADIUS server (RFC 2865).
 *
 * Operations return 0 (USR_RET_OK) or a fault; a read that fails leaves its
 * outputs as they were.
 */
#ifndef SWITCH_DOT1X_H
#define SWITCH_DOT1X_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

unsigned short U_Dot1xGetEbl(char* enabled);
unsigned short U_Dot1xSetEbl(char enabled);

/* The server's IPv4 address, in the form of ip_to_str, and its ports. */
unsigned short U_FlshDot1xGetRds(uint32_t* address, uint16_t* server_port,
                                 uint16_t* accounting_port);
unsigned short U_Dot1xSetRds(uint32_t address, uint16_t server_port, uint16_t accounting_port);

/* The NAS identifier and the plain shared key; a read fills at most size bytes. */
unsigned short U_FlshDot1xGetRdsId(char* text, uint8_t size);
unsigned short U_Dot1xSetRdsId(const char* text);
unsigned short U_FlshDot1xGetRdsKey(char* text, uint8_t size);
unsigned short U_Dot1xSetRdsKey(const char* text);

/* Timers, in seconds. */
unsigned short U_Dot1xGetTimeoutQuiet(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutQuiet(uint16_t seconds);
unsigned short U_Dot1xGetTimeoutTx(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutTx(uint16_t seconds);
unsigned short U_Dot1xGetTimeoutSupplicant(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutSupplicant(uint16_t seconds);
unsigned short U_Dot1xGetTimeoutRds(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutRds(uint16_t seconds);
unsigned short U_Dot1xGetTimeoutReauth(uint32_t* seconds);
unsigned short U_Dot1xSetTimeoutReauth(uint32_t seconds);

/* How often a request is repeated. */
unsigned short U_Dot1xGetMaxReq(uint8_t* requests);
unsigned short U_Dot1xSetMaxReq(uint8_t requests);

/* The authorization mode of a port, numbered from 0. */
enum { pmt_ForceUnauthorized = 0, pmt_ForceAuthorized = 1, pmt_Auto = 2 };
unsigned short U_Dot1xGetPortMode(uint8_t port, uint8_t* mode);
unsigned short U_Dot1xSetPortMode(uint8_t port, uint8_t mode);

#ifdef __cplusplus
}
#endif

#endif
