/*
 * AES-256 (FIPS 197) on single blocks of 16 bytes, and what the tool's
 * protection of secrets needs around it.
 */
#ifndef SWITCH_AES_H
#define SWITCH_AES_H

#include <assert.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct AES_ctx {
    uint8_t RoundKey[240]; /* the expanded key schedule: 15 round keys */
    uint8_t Iv[16];        /* not used in ECB mode */
} AES_ctx;

static_assert(sizeof(AES_ctx) == 256, "the key schedule and the initialisation vector");

/*
 * The device key, 32 bytes. The 802.1X and MACsec secrets of a document decode to
 * other bytes on a device with another one.
 */
extern const uint8_t key[32];

/* Expands a key of 32 bytes. */
void AES_init_ctx(AES_ctx* context, const uint8_t* aes_key);

/* Encrypt and decrypt one block of 16 bytes in place. */
void AES_ECB_encrypt(const AES_ctx* context, uint8_t* block);
void AES_ECB_decrypt(const AES_ctx* context, uint8_t* block);

/*
 * Pads one block of 16 bytes in place (RFC 5652, section 6.3): the n bytes
 * before the first zero byte stay, the others become 16 - n. A block without
 * a zero byte stays as it is.
 */
void _pkcs7pad(uint8_t* block);

/*
 * Converts pairs of hexadecimal digits of either case to bytes, up to the
 * first other character; an odd last digit is ignored. Output bytes that the
 * text does not cover stay as they are.
 */
void hexstr_to_byte(char* bytes, const char* text);

#ifdef __cplusplus
}
#endif

#endif
