/*
 * The mail that the switch sends by SMTP (RFC 5321).
 *
 * Texts are NUL-terminated, at most 31 characters in fields of 32 bytes; the
 * password has at most 15 characters in 16 bytes. Operations return 0
 * (USR_RET_OK) or a fault. A read that fails leaves its outputs unchanged.
 */
#ifndef SWITCH_SMTP_H
#define SWITCH_SMTP_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The mail server, the sender's address, the subject. A read writes at most size bytes, 32. */
unsigned short U_FlshSmtpGetServer(uint8_t* server, uint8_t size);
unsigned short U_FlshSmtpSetServer(const uint8_t* server);
unsigned short U_FlshSmtpGetSendAdd(uint8_t* sender, uint8_t size);
unsigned short U_FlshSmtpSetSendAdd(const uint8_t* sender);
unsigned short U_FlshSmtpGetSubject(uint8_t* subject, uint8_t size);
unsigned short U_FlshSmtpSetSubject(const uint8_t* subject);

/* Whether the switch logs in to the server (1), and its user name and password in plain text. */
unsigned short U_FlshSmtpGetUnamePwd(char* authentication, uint8_t* username, uint8_t* password);
unsigned short U_FlshSmtpSetUnamePwd(char authentication, const uint8_t* username,
                                     const uint8_t* password);

/* 1 when the switch uses TLS, else 0. */
unsigned short U_FlshSmtpGetTLS(char* tls);
unsigned short U_FlshSmtpSetTLS(char tls);

/* The four recipients; an unused one is empty. */
unsigned short U_FlshSmtpGetRecAdd(uint8_t* recipient1, uint8_t* recipient2, uint8_t* recipient3,
                                   uint8_t* recipient4);
unsigned short U_FlshSmtpSetRecAdd(const uint8_t* recipient1, const uint8_t* recipient2,
                                   const uint8_t* recipient3, const uint8_t* recipient4);

/* Applies the stored settings. Restore calls it once, after all sets. */
unsigned short U_SysSetRelayConfig(void);

#ifdef __cplusplus
}
#endif

#endif
