// The codec against answers of an independent AES tool, for secrets at each
// edge of a block. Those of the device key hold for the simulated switch's key.

#include "codec/secret_codec.h"

#include "platform/include/aes.h"
#include "tests/support/switch_test.h"

class Codec : public SwitchTest {};

namespace {

using Encrypt = void (*)(const char*, char (&)[encrypted_size]);
using Decrypt = void (*)(const char*, char (&)[secret_size]);

std::string encrypted(Encrypt encrypt, const std::string& secret) {
    char text[encrypted_size];
    memset(text, 'x', sizeof text);
    encrypt(secret.c_str(), text);
    return text;
}

std::string decrypted(Decrypt decrypt, const std::string& text) {
    char secret[secret_size];
    memset(secret, 'x', sizeof secret);
    decrypt(text.c_str(), secret);
    return secret;
}

const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJ";

struct Answer {
    std::size_t length;
    const char* text;
};

template <std::size_t Count>
void expect_answers(Encrypt encrypt, Decrypt decrypt, const Answer (&answers)[Count]) {
    for (const Answer& answer : answers) {
        const std::string secret = letters.substr(0, answer.length);
        EXPECT_EQ(encrypted(encrypt, secret), answer.text) << answer.length;
        EXPECT_EQ(decrypted(decrypt, answer.text), secret) << answer.length;
    }
}

#define SAK_16 "a91dec026395cad530b8dba0862ee6fa"
#define SNMP_16 "e796383ff5c35b7ab140f5c9cf74a6e9"
#define DOT1X_15 "bd483aea8193c44ea02e20a0df08ba1d"
constexpr char snmp_17[] = SNMP_16 "47f2b36e60a21de221617da9601ead1f";

} // namespace

TEST_F(Codec, KnownAnswers) {
    const Answer snmp[] = {
        {0, "a447ac18ef405a95e300443e68409d81"},
        {15, "4931f26278c4af1980e2fd30c8b96fbe"},
        {16, SNMP_16},
        {17, snmp_17},
        {31, SNMP_16 "51a4ec54ff0a7d6d039a52d6e830246a"},
        {32, SNMP_16 "319906e0f0dc094f4b25ed4793133dd9"},
    };
    expect_answers(encrypt_snmp_key, decrypt_snmp_key, snmp);
    EXPECT_EQ(encrypted(encrypt_snmp_key, letters), snmp[5].text); // cut to 32

    const Answer dot1x[] = {
        {0, "0286856e046126bf6450b25771b8e390"},
        {1, "6f45f78a32b6b4c904de53fbc07d9fbf"},
        {15, DOT1X_15},
        {16, DOT1X_15 "2bf3b640ec6524eb79d27c045b46817a"},
        {30, DOT1X_15 "0fcec5ea4ed4b2c607195a5e8246cb89"},
    };
    expect_answers(encrypt_dot1x_key, decrypt_dot1x_key, dot1x);
    EXPECT_EQ(encrypted(encrypt_dot1x_key, letters), dot1x[4].text); // cut to 30

    const Answer sak[] = {
        {0, "0286856e046126bf6450b25771b8e390"}, // the same under the same key
        {15, DOT1X_15},
        {16, SAK_16},
        {17, SAK_16 "9c71438e030071220be565016f9c41a4"},
        {32, SAK_16 "54e25b20c1529dfe4e463ad73e36ad3a"},
    };
    expect_answers(encrypt_sak, decrypt_sak, sak);
    EXPECT_EQ(encrypted(encrypt_sci, letters), SAK_16); // always one block
    EXPECT_EQ(decrypted(decrypt_sci, sak[4].text), letters.substr(0, 16));
}

// Only 64 digits are two blocks, but for the SAK, where more than 32 are.
TEST_F(Codec, NumberOfDigits) {
    const std::string two_blocks = snmp_17;
    const std::string first = letters.substr(0, 16);
    EXPECT_EQ(decrypted(decrypt_snmp_key, two_blocks.substr(0, 48)), first);
    EXPECT_EQ(decrypted(decrypt_snmp_key, two_blocks + "000000"), first);
    const std::string sak = encrypted(encrypt_sak, letters.substr(0, 17));
    EXPECT_EQ(decrypted(decrypt_sak, sak + "000000"), letters.substr(0, 17));
    EXPECT_EQ(decrypted(decrypt_sak, sak.substr(0, 48)).substr(0, 16), first);
}

namespace {

// The digits of a block of the device key with these first bytes and this last one.
std::string block_of(const std::string& first, uint8_t last) {
    uint8_t block[16] = {};
    first.copy(reinterpret_cast<char*>(block), sizeof block);
    block[15] = last;
    AES_ctx context;
    AES_init_ctx(&context, key);
    AES_ECB_encrypt(&context, block);
    std::string digits;
    for (const uint8_t byte : block) {
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

} // namespace

TEST_F(Codec, OddTexts) {
    std::string upper = snmp_17;
    for (char& digit : upper) {
        digit = static_cast<char>(toupper(digit));
    }
    EXPECT_EQ(decrypted(decrypt_snmp_key, upper), letters.substr(0, 17));

    // An empty text and one without digits are a block of zeros, whose decryption is
    // not an empty secret.
    const std::string zeros = decrypted(decrypt_snmp_key, std::string(32, '0'));
    EXPECT_NE(zeros, "");
    for (const char* text : {"", "no digits", "0"}) {
        EXPECT_EQ(decrypted(decrypt_snmp_key, text), zeros) << text;
    }

    // A block whose last byte does not count padding is text up to its first zero.
    // The second block follows there, or at 16 in a SAK.
    for (const uint8_t last : {uint8_t{0}, uint8_t{17}}) {
        const std::string two = block_of("abc", last) + block_of(std::string("d\0e", 3), 17);
        EXPECT_EQ(decrypted(decrypt_dot1x_key, two), "abcd");
        char sak[secret_size];
        decrypt_sak(two.c_str(), sak);
        EXPECT_EQ(std::string(sak, 18), "abc" + std::string(13, '\0') + "d" + '\0');
    }

    // A text of another key decodes to no more than its room.
    for (const Decrypt decrypt : {decrypt_snmp_key, decrypt_dot1x_key, decrypt_sak}) {
        EXPECT_LE(decrypted(decrypt, std::string(70, 'f')).size(), 32U);
    }
}
