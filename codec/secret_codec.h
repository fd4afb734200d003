// Secrets as encrypted hex text, the form in which the document holds them.
//
// A secret is cut into one or two blocks of 16 bytes, each is encrypted with
// AES-256 (FIPS 197) on its own, and written as 32 lowercase hexadecimal
// digits. A block of fewer than 16 characters is padded as in PKCS #7 (RFC
// 5652, section 6.3); unlike there, a full block carries no padding and none
// is added after it. The same secret always gives the same text.
//
// The variants differ in key, characters per block, and where the second
// block goes; a text is read back by its own variant only. Nothing is
// reported: a text of another key, or edited by hand, decodes to some bytes, at
// most 16 a block, ended by the first zero byte. So does an empty text: it
// stands for a block of zeros, whose decryption is not an empty secret.
#pragma once

#include "codec/secret.h"

// Buffers: of a text of two blocks, and of the longest secret.
constexpr std::size_t encrypted_size = 2 * 32 + 1;
constexpr std::size_t secret_size = 2 * 16 + 1;

// SNMP version 3: the tool's own key, 16 characters a block, 32 at most. Only a
// text of exactly 64 digits has a second block, and its characters follow
// those of the first at once.
void encrypt_snmp_key(const char* acKey, char (&acKey_encrypt)[encrypted_size]);
void decrypt_snmp_key(const char* temp_str, char (&key_decrypt)[secret_size]);

// IEEE 802.1X: the device key, 15 characters a block, so that every block ends
// in padding; the device allows 29 characters, and 30 fit. Decoded like SNMP.
void encrypt_dot1x_key(const char* acKey, char (&acKey_encrypt)[encrypted_size]);
void decrypt_dot1x_key(const char* temp_str, char (&key_decrypt)[secret_size]);

// Static MACsec keys: the device key, 16 characters a block. An SCI is always
// one block. A SAK of more than 16 characters has two; in decoding, a text of
// more than 32 digits has a second block, and its characters go to position 16
// whatever the first block gave.
void encrypt_sci(const char* sci, char (&encrypted)[encrypted_size]);
void encrypt_sak(const char* sak, char (&encrypted)[encrypted_size]);
void decrypt_sci(const char* encrypted, char (&sci)[secret_size]);
void decrypt_sak(const char* encrypted, char (&sak)[secret_size]);
