/*
 * The remote server that authenticates logins: RADIUS (RFC 2865) or TACACS+
 * (RFC 8907).
 *
 * Operations return 0 (USR_RET_OK) or a fault. A read that fails leaves its
 * outputs unchanged.
 */
#ifndef SWITCH_LOGIN_SERVER_H
#define SWITCH_LOGIN_SERVER_H

#include "platform/include/converters.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The kind of server. */
enum { auth_RADIUS = 0, auth_TACACS = 1 };
CONTRACT_ASSERT(auth_RADIUS == 0 && auth_TACACS == 1);

/* The authentication method. */
enum { crypt_MD5 = 0, crypt_ASCII = 1, crypt_PAP = 2, crypt_CHAP = 3, crypt_MSCHAP = 4 };
CONTRACT_ASSERT(crypt_MD5 == 0 && crypt_ASCII == 1 && crypt_PAP == 2);
CONTRACT_ASSERT(crypt_CHAP == 3 && crypt_MSCHAP == 4);

/*
 * Whether logins use the server (1) or not (0), and its kind. The tool always
 * passes 1 as the last argument of a set, here and below; its meaning is the
 * library's own. To turn it off restore passes the kind that the device has.
 */
unsigned short U_LoginAuthSrvGetEbl(uint8_t* enabled, uint8_t* kind);
unsigned short U_LoginAuthSrvSetEbl(uint8_t enabled, uint8_t kind, char apply);

/*
 * The server: its address and port, the shared key in plain text (NUL-terminated,
 * at most 29 characters, in 30 bytes), the method, and the time-out in the
 * library's own unit.
 */
unsigned short U_GetLoginAuthSrv(IP_ADDR_T* address, uint16_t* port, char* shared_key,
                                 uint8_t* method, uint8_t* timeout);
unsigned short U_SetLoginAuthSrv(IP_ADDR_T address, uint16_t port, const char* shared_key,
                                 uint8_t method, uint8_t timeout, char apply);

#ifdef __cplusplus
}
#endif

#endif
