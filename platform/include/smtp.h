/*
 * The mail that the switch sends by SMTP (RFC 5321).
 *
 * Texts are in fields of 32 bytes, the password of 16; one that fills its field
 * needs no terminator. The tool gives at most 31 and 15 characters. Operations
 * return 0 (USR_RET_OK) or a fault; a read that fails leaves its outputs as
 * they were.
 */
#ifndef SWITCH_SMTP_H
#define SWITCH_SMTP_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A read fills at most size bytes. */
unsigned short U_FlshSmtpGetServer(uint8_t* server, uint8_t size);
unsigned short U_FlshSmtpSetServer(const uint8_t* server);
unsigned short U_FlshSmtpGetSendAdd(uint8_t* sender, uint8_t size);
unsigned short U_FlshSmtpSetSendAdd(const uint8_t* sender);
unsigned short U_FlshSmtpGetSubject(uint8_t* subject, uint8_t size);
unsigned short U_FlshSmtpSetSubject(const uint8_t* subject);

/* Whether the switch logs in to the server (1), and as whom; the password in plain text. */
unsigned short U_FlshSmtpGetUnamePwd(char* authentication, uint8_t* username, uint8_t* password);
unsigned short U_FlshSmtpSetUnamePwd(char authentication, const uint8_t* username,
                                     const uint8_t* password);

/* 1 when TLS is used, else 0. */
unsigned short U_FlshSmtpGetTLS(char* tls);
unsigned short U_FlshSmtpSetTLS(char tls);

/* The recipients; one that there is not is empty. */
unsigned short U_FlshSmtpGetRecAdd(uint8_t* recipient1, uint8_t* recipient2, uint8_t* recipient3,
                                   uint8_t* recipient4);
unsigned short U_FlshSmtpSetRecAdd(const uint8_t* recipient1, const uint8_t* recipient2,
                                   const uint8_t* recipient3, const uint8_t* recipient4);

/* Applies what has been stored; called once all of it is. */
unsigned short U_SysSetRelayConfig(void);

#ifdef __cplusplus
}
#endif

#endif
