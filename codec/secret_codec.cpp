#include "codec/secret_codec.h"

#include "platform/include/aes.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t block_size = 16;
constexpr std::size_t block_digits = 32;

// The tool key, for SNMP secrets. The second 0x00 belongs there.
constexpr uint8_t tool_key[32] = {
    0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0x00, 0xaa, 0xbb, 0xcc, 0xdd, 0xee,
    0xff, 0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb, 0xcc, 0xdd, 0xee,
};

// The working storage of one block, wiped when it goes out of scope.
struct Block {
    uint8_t bytes[block_size] = {};
    AES_ctx context = {};

    ~Block() {
        explicit_bzero(bytes, sizeof bytes);
        explicit_bzero(&context, sizeof context);
    }
};

// Encodes at most count characters as 32 digits.
void encode_block(const char* text, std::size_t count, const uint8_t* aes_key, char* digits) {
    Block block;
    memcpy(block.bytes, text, strnlen(text, count));
    _pkcs7pad(block.bytes);
    AES_init_ctx(&block.context, aes_key);
    AES_ECB_encrypt(&block.context, block.bytes);
    for (std::size_t i = 0; i < block_size; ++i) {
        snprintf(digits + 2 * i, 3, "%02x", block.bytes[i]);
    }
}

// Encodes one block, or two if the text has more characters than one holds.
void encode(const char* text, std::size_t characters_per_block, const uint8_t* aes_key,
            char* digits) {
    encode_block(text, characters_per_block, aes_key, digits);
    if (strlen(text) > characters_per_block) {
        encode_block(text + characters_per_block, characters_per_block, aes_key,
                     digits + block_digits);
    }
}

// Decodes at most 32 digits into at most 16 characters; returns their number. The
// last byte alone decides the padding: 1 to 16 is its length, any other is text.
std::size_t decode_block(const char* digits, const uint8_t* aes_key, char* text) {
    char first_digits[block_digits + 1] = {};
    memcpy(first_digits, digits, strnlen(digits, block_digits));

    Block block;
    hexstr_to_byte(reinterpret_cast<char*>(block.bytes), first_digits);
    AES_init_ctx(&block.context, aes_key);
    AES_ECB_decrypt(&block.context, block.bytes);

    const uint8_t last = block.bytes[block_size - 1];
    const std::size_t padding = last >= 1 && last <= block_size ? last : 0;
    const char* characters = reinterpret_cast<const char*>(block.bytes);
    const std::size_t length = strnlen(characters, block_size - padding);
    memcpy(text, characters, length);
    return length;
}

// The second block directly follows the first.
void decode_appending(const char* digits, const uint8_t* aes_key, char (&secret)[secret_size]) {
    memset(secret, 0, sizeof secret);
    const std::size_t length = decode_block(digits, aes_key, secret);
    if (strlen(digits) == 2 * block_digits) {
        decode_block(digits + block_digits, aes_key, secret + length);
    }
}

} // namespace

void encrypt_snmp_key(const char* acKey, char (&acKey_encrypt)[encrypted_size]) {
    encode(acKey, 16, tool_key, acKey_encrypt);
}

void decrypt_snmp_key(const char* temp_str, char (&key_decrypt)[secret_size]) {
    decode_appending(temp_str, tool_key, key_decrypt);
}

void encrypt_dot1x_key(const char* acKey, char (&acKey_encrypt)[encrypted_size]) {
    encode(acKey, 15, key, acKey_encrypt);
}

void decrypt_dot1x_key(const char* temp_str, char (&key_decrypt)[secret_size]) {
    decode_appending(temp_str, key, key_decrypt);
}

void encrypt_sci(const char* sci, char (&encrypted)[encrypted_size]) {
    encode_block(sci, 16, key, encrypted);
}

void encrypt_sak(const char* sak, char (&encrypted)[encrypted_size]) {
    encode(sak, 16, key, encrypted);
}

void decrypt_sci(const char* encrypted, char (&sci)[secret_size]) {
    memset(sci, 0, sizeof sci);
    decode_block(encrypted, key, sci);
}

void decrypt_sak(const char* encrypted, char (&sak)[secret_size]) {
    memset(sak, 0, sizeof sak);
    decode_block(encrypted, key, sak);
    if (strlen(encrypted) > block_digits) {
        decode_block(encrypted + block_digits, key, sak + block_size);
    }
}
