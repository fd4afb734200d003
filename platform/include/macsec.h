/*
 * Static MACsec keys (IEEE 802.1AE) of the two fibre ports, index 6 and 7: the
 * secure channel identifier (SCI) and the secure association key (SAK).
 */
#ifndef SWITCH_MACSEC_H
#define SWITCH_MACSEC_H

#include <assert.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Keys as hexadecimal text: up to 16 digits and up to 32 digits, each with a terminator. */
typedef struct {
    char sci[17];
    char sak[33];
} MACSEC_KEY_STR_T;

/* A port's stored entry; status is 1 when its static SAK is on, else 0. */
typedef struct {
    uint8_t status;
    MACSEC_KEY_STR_T key;
} TstFlshMacsectEntry;

/* Keys as bytes. */
typedef struct {
    uint8_t portId;
    uint8_t ent_num;
    uint8_t sci[8];
    uint8_t sak[16];
} MACSEC_PORT_KEY_VALUE_T;

static_assert(sizeof(MACSEC_KEY_STR_T) == 50, "two texts");
static_assert(sizeof(TstFlshMacsectEntry) == 51, "no gaps");
static_assert(sizeof(MACSEC_PORT_KEY_VALUE_T) == 26, "no gaps");

/* Operations return 0 or a fault; a read that fails leaves its output as it was. */
uint8_t U_MacsecGetPortConf(uint8_t port, TstFlshMacsectEntry* entry);
uint8_t U_MacsecPortEnable(uint8_t port, uint8_t status);
uint8_t U_MacsecSetKey(uint8_t port, const char* sci, const char* sak);
uint8_t U_MacsecSetPortEnable(uint8_t port, uint8_t status);

#ifdef __cplusplus
}
#endif

#endif
