// Secrets as encrypted hex text, the form in which the document holds them.
//
// A secret is cut into one or two blocks of 16 bytes. Each is encrypted with
// AES-256 (FIPS 197) on its own and written as 32 lowercase hexadecimal digits. A
// block of fewer than 16 characters is padded as in PKCS #7 (RFC 5652, section
// 6.3); unlike there, a full block has no padding. The same secret always gives
// the same text.
//
// The variants differ in their key, in the characters per block, and in where the
// second block goes. A text is only read back by its own variant. No fault is
// reported: a text of another key, or one edited by hand, decodes to arbitrary
// bytes, at most 16 for each block, up to the first zero byte. So does an empty
// text, which is read as a block of zeros: the result is not an empty secret.
#pragma once

#include <cstddef>

// Buffer sizes, with terminator: a text of two blocks, and the longest secret.
constexpr std::size_t encrypted_size = 2 * 32 + 1;
constexpr std::size_t secret_size = 2 * 16 + 1;

// SNMP version 3: the tool's own key, 16 characters per block, at most 32 in all.
// Only a text of exactly 64 digits has a second block; its characters directly
// follow those of the first.
void encrypt_snmp_key(const char* acKey, char (&acKey_encrypt)[encrypted_size]);
void decrypt_snmp_key(const char* temp_str, char (&key_decrypt)[secret_size]);

// IEEE 802.1X: the device key, 15 characters per block, so that every block ends
// in padding. 30 characters fit; the device allows 29. Decoded as for SNMP.
void encrypt_dot1x_key(const char* acKey, char (&acKey_encrypt)[encrypted_size]);
void decrypt_dot1x_key(const char* temp_str, char (&key_decrypt)[secret_size]);

// Static MACsec keys: the device key, 16 characters per block. An SCI is always one
// block. A SAK of more than 16 characters has two. A SAK text of more than 32 digits
// has a second block, whose characters start at position 16 whatever the length of
// the first.
void encrypt_sci(const char* sci, char (&encrypted)[encrypted_size]);
void encrypt_sak(const char* sak, char (&encrypted)[encrypted_size]);
void decrypt_sci(const char* encrypted, char (&sci)[secret_size]);
void decrypt_sak(const char* encrypted, char (&sak)[secret_size]);
