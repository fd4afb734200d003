// The configuration document: how its frame is written and how values are
// read back from it.
//
// Every value is looked up through the readers below, under the entry name
// "section:key" in any letter case. They keep the INI library's readings:
//  - A number is converted by strtol in base 0: 0x1f is 31, 010 is 8, 12abc is
//    12, and a present value without digits is 0. Only an absent key gives the
//    fallback, so that a fallback of -1 makes the value -1 equal an absent key.
//  - A boolean goes by its first character: y, Y, t, T, 1 and n, N, f, F, 0.
//    Anything else gives the fallback.
//  - An entry that turns out to be a section ("[port settings:port1]") holds
//    no value and reads as absent.
#pragma once

#include <iniparser/iniparser.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

// A larger document is refused: reading takes the library a time that grows
// with the square of the number of keys. A full document of 8 ports, every
// table at its fullest, has less than 40 KiB.
constexpr std::size_t max_document_size = 256 * 1024;

// Parses the document. Null when it is anything but a regular file of at most
// max_document_size bytes that can be read to its end, when a line has more
// than 1022 characters, and at any syntax error. The caller frees the result
// with iniparser_freedict.
dictionary* load_document(const char* path);

void write_header(FILE* ini_file);

// The comment line above a group of sections.
void write_banner(FILE* ini_file, const char* group);

// "[name]" on a line of its own, after an empty line.
void write_section_line(FILE* ini_file, const char* name);

// An entry name made from a printf format, for keys with numbers in them.
class EntryName {
public:
    [[gnu::format(printf, 2, 3)]] explicit EntryName(const char* format, ...);
    operator const char*() const { return text_; }

private:
    char text_[80]; // the longest name of the document has 50 characters
};

// Copies into a zeroed buffer; longer text is cut to its first Size - 1 characters.
template <std::size_t Size>
void copy_text(char (&buffer)[Size], const char* source) {
    std::memcpy(buffer, source, strnlen(source, Size - 1));
}

// Text in a buffer of Size bytes: zero-filled, always terminated.
template <std::size_t Size>
struct Text {
    char chars[Size] = {};

    Text() = default;

    explicit Text(const char* source) { copy_text(chars, source); }

    // The same bytes for device operations that take text as unsigned bytes.
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(chars); }
};

// For 32-bit values that are written with "%ld": as signed numbers on every
// machine, the one form that every machine reads back to the same bits.
constexpr long signed_32_bits(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}

// The whole value. It belongs to the dictionary and lives as long.
const char* read_string(const dictionary* ini, const char* entry, const char* fallback);

// The fallback of texts that must be told from absent ones. A value of "-1"
// counts as absent too, as it does for a number.
inline constexpr char absent[] = "-1";
bool is_absent(const char* text);

// Whether the value is the text "1" and no other that reads as 1.
bool is_exactly_one(const dictionary* ini, const char* entry);

int read_int(const dictionary* ini, const char* entry, int fallback);

int read_boolean(const dictionary* ini, const char* entry, int fallback);

// The value, cut to Size - 1 characters; an absent key reads as empty.
template <std::size_t Size>
Text<Size> read_text(const dictionary* ini, const char* entry) {
    return Text<Size>(read_string(ini, entry, ""));
}

// The decimal number at the start of a text, 0 when there is none: unlike in
// read_int, 010 is 10 and 0x1f is 0.
int decimal_value(const char* text);

// The decimal number in the first Size - 1 characters; an absent key reads as 0.
template <std::size_t Size>
int read_decimal(const dictionary* ini, const char* entry) {
    return decimal_value(read_text<Size>(ini, entry).chars);
}

// A piece of a comma-separated list. It is not terminated: a comma or the end
// of the list follows.
struct Piece {
    const char* text;
    std::size_t length; // 0: there is no further piece
};

// The pieces of a list in turn; empty ones are skipped.
Piece first_piece(const char* list);
Piece next_piece(const Piece& piece);
