// Buffers for secrets in plain text: zero-filled, and wiped when they go.
#pragma once

#include <cstddef>
#include <cstring>

template <std::size_t Size>
struct Secret {
    char chars[Size] = {};

    Secret() = default;
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    ~Secret() { explicit_bzero(chars, sizeof chars); }

    // The same bytes for device operations that take text as unsigned bytes.
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(chars); }
};

// A record of the device library with secrets in it.
template <typename Record>
struct SecretRecord {
    Record value = {};

    SecretRecord() = default;
    SecretRecord(const SecretRecord&) = delete;
    SecretRecord& operator=(const SecretRecord&) = delete;
    ~SecretRecord() { explicit_bzero(&value, sizeof value); }
};
