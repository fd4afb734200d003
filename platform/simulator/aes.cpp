#include "platform/include/aes.h"

#include "platform/simulator/addresses.h"
#include "platform/simulator/gate.h"

#include <nettle/aes.h>

#include <cstring>

using namespace simulator;

static_assert(sizeof(aes256_ctx) == sizeof(AES_ctx::RoundKey),
              "the context holds the key schedule");

// Made up for this switch.
const uint8_t key[32] = {
    0x6d, 0x2e, 0x91, 0x57, 0xc4, 0x08, 0xfb, 0x33, 0xa9, 0x7c, 0x15, 0xe0, 0x4b, 0xd6, 0x82, 0x1f,
    0x90, 0xe7, 0x3a, 0x5d, 0x0c, 0xb1, 0x68, 0xf4, 0x27, 0x9b, 0xd3, 0x46, 0x8e, 0x71, 0xaa, 0x05,
};

namespace {

aes256_ctx schedule_of(const AES_ctx& context) {
    aes256_ctx schedule;
    memcpy(&schedule, context.RoundKey, sizeof schedule);
    return schedule;
}

constexpr size_t block_size = AES_BLOCK_SIZE;

} // namespace

void AES_init_ctx(AES_ctx* context, const uint8_t* aes_key) {
    reads(call(__func__), [&] {
        aes256_ctx schedule;
        aes256_set_encrypt_key(&schedule, aes_key);
        memcpy(context->RoundKey, &schedule, sizeof schedule);
    });
}

void AES_ECB_encrypt(const AES_ctx* context, uint8_t* block) {
    reads(call(__func__), [&] {
        const aes256_ctx schedule = schedule_of(*context);
        aes256_encrypt(&schedule, block_size, block, block);
    });
}

void AES_ECB_decrypt(const AES_ctx* context, uint8_t* block) {
    reads(call(__func__), [&] {
        const aes256_ctx schedule = schedule_of(*context);
        aes256_ctx inverse;
        aes256_invert_key(&inverse, &schedule);
        aes256_decrypt(&inverse, block_size, block, block);
    });
}

void _pkcs7pad(uint8_t* block) {
    reads(call(__func__), [&] {
        const size_t length = strnlen(reinterpret_cast<const char*>(block), block_size);
        memset(block + length, static_cast<int>(block_size - length), block_size - length);
    });
}

void hexstr_to_byte(char* bytes, const char* text) {
    reads(call(__func__, text), [&] {
        while (hex_digit(text[0]) >= 0 && hex_digit(text[1]) >= 0) {
            *bytes++ = static_cast<char>(hex_digit(text[0]) * 16 + hex_digit(text[1]));
            text += 2;
        }
    });
}
