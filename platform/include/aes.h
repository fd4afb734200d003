/*
 * AES-256 in ECB mode (FIPS 197) on single blocks of 16 bytes, the padding of a
 * block, and the device key. None of these operations can fail.
 */
#ifndef SWITCH_AES_H
#define SWITCH_AES_H

#include "platform/include/layout.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct AES_ctx {
    uint8_t RoundKey[240]; /* the expanded key schedule: 15 round keys */
    uint8_t Iv[16];        /* not used in ECB mode */
} AES_ctx;

CONTRACT_SIZE(AES_ctx, 256);
CONTRACT_FIELD(AES_ctx, RoundKey, uint8_t[240], 0);
CONTRACT_FIELD(AES_ctx, Iv, uint8_t[16], 240);

/*
 * The device key, 32 constant bytes. With another key the 802.1X and MACsec
 * secrets of a document decode to other bytes.
 */
extern const uint8_t key[32];

/* Expands a key of 32 bytes. The tool does so before each block. */
void AES_init_ctx(AES_ctx* context, const uint8_t* aes_key);

/* Encrypt and decrypt one block of 16 bytes in place. */
void AES_ECB_encrypt(const AES_ctx* context, uint8_t* block);
void AES_ECB_decrypt(const AES_ctx* context, uint8_t* block);

/*
 * Pads one block of 16 bytes in place (RFC 5652, section 6.3): keeps the n bytes
 * before the first zero byte and sets all others to 16 - n. A block without a
 * zero byte stays as it is; RFC 5652 would add a second block.
 */
void _pkcs7pad(uint8_t* block);

/*
 * Converts the whole text, two hexadecimal digits a byte, high half first. The
 * tool passes at most 32 digits, for a block of 16 bytes. Output bytes that the
 * text does not cover stay unchanged. The device decides about upper case, other
 * characters and an odd number of digits; the tool never writes any of them.
 */
void hexstr_to_byte(char* bytes, const char* text);

#ifdef __cplusplus
}
#endif

#endif
