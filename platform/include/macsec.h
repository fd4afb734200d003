/*
 * Static MACsec keys (IEEE 802.1AE) of port indexes 6 and 7: the secure channel
 * identifier (SCI) and the secure association key (SAK).
 *
 * Operations return 0 or a fault. A read that fails leaves its output unchanged.
 */
#ifndef SWITCH_MACSEC_H
#define SWITCH_MACSEC_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Keys as hexadecimal text, NUL-terminated: an SCI of up to 16 digits, a SAK of up to 32. */
typedef struct {
    char sci[17];
    char sak[33];
} MACSEC_KEY_STR_T;

CONTRACT_SIZE(MACSEC_KEY_STR_T, 50);
CONTRACT_FIELD(MACSEC_KEY_STR_T, sci, char[17], 0);
CONTRACT_FIELD(MACSEC_KEY_STR_T, sak, char[33], 17);

/* The stored entry of a port; status is 1 when its static SAK is on, 0 when it is off. */
typedef struct {
    uint8_t status;
    MACSEC_KEY_STR_T key;
} TstFlshMacsectEntry;

CONTRACT_SIZE(TstFlshMacsectEntry, 51);
CONTRACT_FIELD(TstFlshMacsectEntry, status, uint8_t, 0);
CONTRACT_FIELD(TstFlshMacsectEntry, key, MACSEC_KEY_STR_T, 1);

/* Keys as bytes. */
typedef struct {
    uint8_t portId;
    uint8_t ent_num;
    uint8_t sci[8];
    uint8_t sak[16];
} MACSEC_PORT_KEY_VALUE_T;

CONTRACT_SIZE(MACSEC_PORT_KEY_VALUE_T, 26);
CONTRACT_FIELD(MACSEC_PORT_KEY_VALUE_T, portId, uint8_t, 0);
CONTRACT_FIELD(MACSEC_PORT_KEY_VALUE_T, ent_num, uint8_t, 1);
CONTRACT_FIELD(MACSEC_PORT_KEY_VALUE_T, sci, uint8_t[8], 2);
CONTRACT_FIELD(MACSEC_PORT_KEY_VALUE_T, sak, uint8_t[16], 10);

/* Status and keys of a port, the keys in plain text. */
uint8_t U_MacsecGetPortConf(uint8_t port, TstFlshMacsectEntry* entry);

/*
 * A restore calls these three in this order, first for port 6 and then for port
 * 7: U_MacsecPortEnable and U_MacsecSetPortEnable with the same status, the keys
 * between them.
 */
uint8_t U_MacsecPortEnable(uint8_t port, uint8_t status);
uint8_t U_MacsecSetKey(uint8_t port, const char* sci, const char* sak);
uint8_t U_MacsecSetPortEnable(uint8_t port, uint8_t status);

#ifdef __cplusplus
}
#endif

#endif
