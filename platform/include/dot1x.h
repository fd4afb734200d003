/*
 * IEEE 802.1X port authentication against a RADIUS server (RFC 2865).
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * outputs unchanged.
 */
#ifndef SWITCH_DOT1X_H
#define SWITCH_DOT1X_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* 1 when 802.1X is on, 0 when it is off. */
unsigned short U_Dot1xGetEbl(char* enabled);
unsigned short U_Dot1xSetEbl(char enabled);

/* The server's IPv4 address, in the form of ip_to_str, and its two UDP ports. */
unsigned short U_FlshDot1xGetRds(uint32_t* address, uint16_t* server_port,
                                 uint16_t* accounting_port); /* stored */
unsigned short U_Dot1xSetRds(uint32_t address, uint16_t server_port, uint16_t accounting_port);

/*
 * The NAS identifier and the shared key in plain text, NUL-terminated, at most
 * 29 characters. A read writes at most size bytes, terminator included; size is
 * 30. A set must cut or refuse a longer text: the tool passes an identifier of up
 * to 64 characters and a key of up to 32.
 */
unsigned short U_FlshDot1xGetRdsId(char* text, uint8_t size); /* stored */
unsigned short U_Dot1xSetRdsId(const char* text);
unsigned short U_FlshDot1xGetRdsKey(char* text, uint8_t size); /* stored */
unsigned short U_Dot1xSetRdsKey(const char* text);

/* Timers, in seconds. Check accepts 10 to 65535. */
unsigned short U_Dot1xGetTimeoutQuiet(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutQuiet(uint16_t seconds);
unsigned short U_Dot1xGetTimeoutTx(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutTx(uint16_t seconds);

/* Time-outs of the supplicant and of the server, in seconds. Check accepts 10 to 300. */
unsigned short U_Dot1xGetTimeoutSupplicant(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutSupplicant(uint16_t seconds);
unsigned short U_Dot1xGetTimeoutRds(uint16_t* seconds);
unsigned short U_Dot1xSetTimeoutRds(uint16_t seconds);

/* The time between reauthentications, in seconds. Check accepts 30 to 65535. */
unsigned short U_Dot1xGetTimeoutReauth(uint32_t* seconds);
unsigned short U_Dot1xSetTimeoutReauth(uint32_t seconds);

/* How many times a request is sent. Check accepts 2 to 10. */
unsigned short U_Dot1xGetMaxReq(uint8_t* requests);
unsigned short U_Dot1xSetMaxReq(uint8_t requests);

/*
 * The authorization mode of a port, numbered from 0. A document with any other
 * text sets mode 3, whose meaning is the library's own.
 */
enum { pmt_ForceUnauthorized = 0, pmt_ForceAuthorized = 1, pmt_Auto = 2 };
CONTRACT_ASSERT(pmt_ForceUnauthorized == 0 && pmt_ForceAuthorized == 1 && pmt_Auto == 2);
unsigned short U_Dot1xGetPortMode(uint8_t port, uint8_t* mode);
unsigned short U_Dot1xSetPortMode(uint8_t port, uint8_t mode);

#ifdef __cplusplus
}
#endif

#endif
