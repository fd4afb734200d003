#include "platform/include/aes.h"

#include "platform/check/check.h"

#include <cstring>

namespace {

// FIPS 197, appendix C.3: the key is 00 01 .. 1f, the plain block 00 11 .. ff.
void check_known_answer() {
    const unsigned char cipher[] = {0x8e, 0xa2, 0xb7, 0xca, 0x51, 0x67, 0x45, 0xbf,
                                    0xea, 0xfc, 0x49, 0x90, 0x4b, 0x49, 0x60, 0x89};
    AES_ctx context = {};
    unsigned char aes_key[32], plain[16], block[16];
    for (unsigned char i = 0; i < 32; ++i) {
        aes_key[i] = i;
        plain[i % 16] = block[i % 16] = static_cast<unsigned char>(i % 16 * 0x11);
    }
    AES_init_ctx(&context, aes_key);
    AES_ECB_encrypt(&context, block);
    expect(std::memcmp(block, cipher, 16) == 0, "AES_ECB_encrypt", "the example of FIPS 197",
           {"expected 8e a2 ..., seen %02x %02x ...", block[0], block[1]});
    std::memcpy(block, cipher, sizeof block);
    AES_ECB_decrypt(&context, block);
    expect(std::memcmp(block, plain, 16) == 0, "AES_ECB_decrypt", "the example of FIPS 197",
           {"expected 00 11 ..., seen %02x %02x ...", block[0], block[1]});
}

void check_padding(unsigned length) {
    unsigned char block[17] = {};
    unsigned char padded[17] = {};
    std::memset(padded, static_cast<int>(16 - length), 16);
    std::memset(padded, 'a', length);
    std::memset(block, 'a', length);
    _pkcs7pad(block);
    expect(std::memcmp(block, padded, sizeof block) == 0, "_pkcs7pad", "fills up a block",
           {"expected %u bytes of %u, seen %u first and %u last", 16 - length, 16 - length,
            block[length], block[15]});
}

void check_digits(const char* text, const char* expected) {
    char bytes[] = "......";
    hexstr_to_byte(bytes, text);
    expect(std::strcmp(bytes, expected) == 0, "hexstr_to_byte",
           "converts pairs of digits up to the first other character",
           {"expected %s for \"%s\" into dots, seen %s", expected, text, bytes});
}

} // namespace

void check_aes() {
    check_known_answer();
    for (const unsigned length : {0U, 1U, 15U, 16U}) {
        check_padding(length);
    }
    check_digits("4a4B6c", "JKl...");
    check_digits("4a4", "J.....");
    check_digits("4ag14a", "J.....");
    check_digits("", "......");
}
