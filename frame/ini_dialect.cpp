#include "frame/ini_dialect.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>

namespace {

// The library's line buffer. It reads at most line_size - 1 characters into it,
// the newline included.
constexpr std::size_t line_size = 1024;

bool is_blank(char c) {
    return isspace(static_cast<unsigned char>(c)) != 0;
}

// A line as the library sees it: a physical line that ends with a backslash is
// joined with the next one.
struct Line {
    char chars[line_size];
    char* places[line_size]; // where each character is in the document
    std::size_t length = 0;
    std::size_t joined = 0; // the length without the physical line in progress
};

// Appends a physical line, up to a zero byte if it has one. False when it does
// not fit: the library refuses the document.
bool append(Line& line, char* begin, const char* end) {
    line.length = line.joined;
    for (char* place = begin; place != end && *place != '\0'; ++place) {
        if (line.length == line_size - 1) {
            return false;
        }
        line.chars[line.length] = *place;
        line.places[line.length] = place;
        ++line.length;
    }
    return true;
}

void strip_trailing_blanks(Line& line) {
    while (line.length > 0 && is_blank(line.chars[line.length - 1])) {
        --line.length;
    }
    line.chars[line.length] = '\0';
}

bool is_joined_with_next(const Line& line) {
    return line.length > 0 && line.chars[line.length - 1] == '\\';
}

// Blanks out what follows the first "]".
void disguise_section(const Line& line, std::size_t begin) {
    const char* bracket = strchr(line.chars + begin, ']');
    for (auto i = static_cast<std::size_t>(bracket + 1 - line.chars); i < line.length; ++i) {
        *line.places[i] = ' ';
    }
}

// Whether more than blanks and a comment follows the two quotes that a value begins with.
bool is_more_than_empty(const char* after_quotes) {
    const std::size_t blanks = strspn(after_quotes, " \t\v\f\r");
    return after_quotes[blanks] != '\0' && strchr(";#", after_quotes[blanks]) == nullptr;
}

void disguise_value(const Line& line, std::size_t begin, const Disguise& disguise) {
    const char* equals = strchr(line.chars + begin, '=');
    if (equals == nullptr || equals == line.chars + begin) {
        return;
    }
    const char* value = equals + 1;
    while (is_blank(*value)) {
        ++value;
    }
    const char quote = *value;
    if (quote != '"' && quote != '\'') {
        return;
    }
    const auto place_of = [&](const char* c) -> char& { return *line.places[c - line.chars]; };
    if (value[1] == quote && is_more_than_empty(value + 2)) {
        place_of(value) = quote == '"' ? disguise.double_quote : disguise.single_quote;
    }
    for (const char* c = value + 1; *c != quote && *c != '\0'; ++c) {
        if (*c == '\\') {
            place_of(c) = disguise.backslash;
        }
    }
}

void disguise_line(const Line& line, const Disguise& disguise) {
    std::size_t begin = 0;
    while (begin < line.length && is_blank(line.chars[begin])) {
        ++begin;
    }
    const char first = line.chars[begin];
    if (first == '[' && line.chars[line.length - 1] == ']') {
        disguise_section(line, begin);
    } else if (first != '#' && first != ';') {
        disguise_value(line, begin, disguise);
    }
}

bool find_unused_bytes(const char* text, std::size_t size, Disguise& disguise) {
    bool used[256] = {};
    for (std::size_t i = 0; i < size; ++i) {
        used[static_cast<unsigned char>(text[i])] = true;
    }
    char* bytes[] = {&disguise.backslash, &disguise.double_quote, &disguise.single_quote};
    std::size_t found = 0;
    for (int byte = 255; byte > 127 && found < std::size(bytes); --byte) {
        if (!used[byte]) {
            *bytes[found++] = static_cast<char>(byte);
        }
    }
    return found == std::size(bytes);
}

} // namespace

bool disguise(char* text, std::size_t size, Disguise& disguise) {
    if (!find_unused_bytes(text, size, disguise)) {
        return false;
    }
    Line line;
    char* const end = text + size;
    for (char* begin = text; begin != end;) {
        char* next = std::find(begin, end, '\n');
        next += next != end ? 1 : 0;
        if (!append(line, begin, next)) {
            break;
        }
        begin = next;
        if (line.length <= 1) {
            continue; // the library skips it, even between joined lines
        }
        strip_trailing_blanks(line);
        line.joined = is_joined_with_next(line) ? line.length - 1 : 0;
        if (line.joined == 0) {
            disguise_line(line, disguise);
        }
    }
    return true;
}

void reveal(const dictionary* ini, const Disguise& disguise) {
    const auto size = static_cast<std::size_t>(ini->size);
    for (std::size_t i = 0; i < size; ++i) {
        char* value = ini->val[i];
        for (; value != nullptr && *value != '\0'; ++value) {
            if (*value == disguise.backslash) {
                *value = '\\';
            } else if (*value == disguise.double_quote) {
                *value = '"';
            } else if (*value == disguise.single_quote) {
                *value = '\'';
            }
        }
    }
}
