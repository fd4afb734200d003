// What the fuzz targets share: values from the fuzzer's bytes, and the three modes on
// documents in memory.
#pragma once

#include "frame/section_order.h"

#include <cstdint>
#include <limits>
#include <string>

namespace fuzz {

// Values from the bytes of an input, in the manner of LLVM's FuzzedDataProvider:
// numbers from its end, texts from its beginning. Without bytes left, all are 0 or
// empty.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    template <typename Number>
    Number number(Number low, Number high) {
        const std::uint64_t range =
            static_cast<std::uint64_t>(high) - static_cast<std::uint64_t>(low);
        std::uint64_t value = 0;
        for (unsigned bits = 0; bits < 8 * sizeof(Number) && range >> bits != 0 && size_ != 0;
             bits += 8) {
            value = value << 8 | data_[--size_];
        }
        value = range == UINT64_MAX ? value : value % (range + 1);
        return static_cast<Number>(static_cast<std::uint64_t>(low) + value);
    }

    template <typename Number>
    Number number() {
        return number(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max());
    }

    bool flag() { return number<std::uint8_t>(0, 1) != 0; }

    std::string text(std::size_t longest);
    void fill(std::uint8_t* bytes, std::size_t count);

private:
    std::uint8_t next();

    const std::uint8_t* data_;
    std::size_t size_;
};

// Null when the document cannot be loaded. Free it with iniparser_freedict.
dictionary* load(const std::string& document);

// Whether it passes; ends the process when a call of check could change the device.
bool check(const dictionary* ini);

// The backup without the lines of the clock, which goes on.
std::string backup();

void restore(const std::string& document);

// Whether a value holds a double quote, which a document cannot carry.
bool holds_what_no_document_can(const dictionary* ini);

// Prints the message and the document and ends the process when untrue.
void require(bool condition, const char* message, const std::string& document);

} // namespace fuzz
