// Text in buffers of a fixed size: zero-filled, always terminated.
#pragma once

#include <cstddef>
#include <cstring>

// Copies into a zeroed buffer; cuts longer text to its first Size - 1 characters.
template <std::size_t Size>
void copy_text(char (&buffer)[Size], const char* source) {
    std::memcpy(buffer, source, strnlen(source, Size - 1));
}

template <std::size_t Size>
struct Text {
    char chars[Size] = {};

    Text() = default;

    explicit Text(const char* source) { copy_text(chars, source); }

    // The same bytes, for device operations that take text as unsigned bytes.
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(chars); }
};

// Text that is wiped when it goes out of scope, for secrets in plain text.
template <std::size_t Size>
struct Secret {
    char chars[Size] = {};

    Secret() = default;
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    ~Secret() { explicit_bzero(chars, sizeof chars); }

    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(chars); }
};

// A record of the device library that holds secrets; wiped in the same way.
template <typename Record>
struct SecretRecord {
    Record value = {};

    SecretRecord() = default;
    SecretRecord(const SecretRecord&) = delete;
    SecretRecord& operator=(const SecretRecord&) = delete;
    ~SecretRecord() { explicit_bzero(&value, sizeof value); }
};
