// The configuration document: writing its frame, and reading values back from it.
//
// Every value is read by one of the readers below, under the entry name
// "section:key" in any letter case. They read as the INI library does:
//  - A number is converted by strtol in base 0: 0x1f is 31, 010 is 8, 12abc is
//    12, and a value without digits is 0.
//  - A boolean is 1 or 0 by its first character: y, Y, t, T, 1 or n, N, f, F, 0.
//    Any other value reads as the fallback.
//  - An entry that turns out to be a section ("[port settings:port1]") holds no
//    value and reads as absent.
#pragma once

#include "frame/text.h"

#include <iniparser.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>

// In bytes. The library's loading time grows with the square of the number of keys,
// so a larger document is refused. One of 8 ports with full tables has under 40 KiB.
constexpr std::size_t max_document_size = 256 * 1024;

// Parses the document. Null if the path is not a regular file of at most
// max_document_size bytes that can be read to its end, if a line has more than
// 1022 characters, on any syntax error, and with iniparser 4.2 or later if the text
// cannot be disguised. A message on standard error says which.
// The caller frees the result with iniparser_freedict.
dictionary* load_document(const char* path);

void write_header(FILE* ini_file);

// The comment line above a group of sections.
void write_banner(FILE* ini_file, const char* group);

// An empty line, then "[name]".
void write_section_line(FILE* ini_file, const char* name);

// An entry name made from a printf format, for keys with numbers in them.
class EntryName {
public:
    [[gnu::format(printf, 2, 3)]] explicit EntryName(const char* format, ...);
    operator const char*() const { return text_; }

private:
    char text_[80]; // the longest name in a document has 49 characters
};

// For 32-bit values that are written with "%ld": signed on every machine, the one
// form that every machine reads back to the same bits.
constexpr long signed_32_bits(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}

// The whole value, which belongs to the dictionary.
const char* read_string(const dictionary* ini, const char* entry, const char* fallback);

// The fallback where an absent text must be told from an empty one. A value of
// "-1" counts as absent too, as it does for a number.
inline constexpr char absent[] = "-1";
bool is_absent(const char* text);

// Whether the value is exactly "1"; 01 and true are not.
bool is_exactly_one(const dictionary* ini, const char* entry);

int read_int(const dictionary* ini, const char* entry, int fallback);

// Empty for an absent key, and for the value -1.
std::optional<int> read_number(const dictionary* ini, const char* entry);

int read_boolean(const dictionary* ini, const char* entry, int fallback);

// The value, cut to Size - 1 characters; an absent key reads as empty.
template <std::size_t Size>
Text<Size> read_text(const dictionary* ini, const char* entry) {
    return Text<Size>(read_string(ini, entry, ""));
}

// The decimal number at the start of a text, 0 if there is none. Unlike read_int,
// it reads 010 as 10 and 0x1f as 0.
int decimal_value(const char* text);

// The decimal number in the first Size - 1 characters; an absent key reads as 0.
template <std::size_t Size>
int read_decimal(const dictionary* ini, const char* entry) {
    return decimal_value(read_text<Size>(ini, entry).chars);
}

// An item of a comma-separated list. It is not terminated: a comma or the end of
// the list follows.
struct Piece {
    const char* text;
    std::size_t length; // 0: the list has ended
};

// The items of a list in turn, without the empty ones.
Piece first_piece(const char* list);
Piece next_piece(const Piece& piece);
