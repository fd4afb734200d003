#include "frame/document.h"

#include "frame/ini_dialect.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cassert>
#include <cstdarg>
#include <cstdlib>

namespace {

// One byte more than the largest document, so that a larger one is noticed.
char document_text[max_document_size + 1];

// Reads the file to its end. -1 if that fails or the file is too large. The size that
// the file system reports does not help: it may be 0 for an endless file.
ssize_t read_to_end(int file) {
    std::size_t size = 0;
    while (size < sizeof document_text) {
        const ssize_t count = read(file, document_text + size, sizeof document_text - size);
        if (count <= 0) {
            return count == 0 ? static_cast<ssize_t>(size) : -1;
        }
        size += static_cast<std::size_t>(count);
    }
    return -1;
}

bool is_regular_file(int file) {
    struct stat status;
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

#ifdef INIPARSER_READS_STREAMS // since 4.2

dictionary* parse(const char* path, std::size_t size) {
    Disguise bytes;
    if (!disguise(document_text, size, bytes)) {
        fprintf(stderr, "cannot load %s: not a text, it has almost every byte above 127\n", path);
        return nullptr;
    }
    FILE* stream = fmemopen(document_text, size, "r");
    if (stream == nullptr) {
        perror(path);
        return nullptr;
    }
    dictionary* ini = iniparser_load_file(stream, path);
    fclose(stream);
    if (ini != nullptr) {
        reveal(ini, bytes);
    }
    return ini;
}

#else

dictionary* parse(const char* path, std::size_t) {
    return iniparser_load(path);
}

#endif

} // namespace

dictionary* load_document(const char* path) {
    // Without O_NONBLOCK, opening a named pipe would wait for a writer.
    const int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) {
        return iniparser_load(path); // prints why it cannot be opened
    }
    const ssize_t size = is_regular_file(file) ? read_to_end(file) : -1;
    close(file);
    if (size < 0) {
        fprintf(stderr, "cannot load %s: not a readable regular file of at most %zu bytes\n", path,
                max_document_size);
        return nullptr;
    }
    return parse(path, static_cast<std::size_t>(size));
}

void write_header(FILE* ini_file) {
    fprintf(ini_file, "#\n# The configure file of the switch device\n#\n");
}

void write_banner(FILE* ini_file, const char* group) {
    fprintf(ini_file, "\n# %s #\n", group);
}

void write_section_line(FILE* ini_file, const char* name) {
    fprintf(ini_file, "\n[%s]\n", name);
}

EntryName::EntryName(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    [[maybe_unused]] const int length = vsnprintf(text_, sizeof text_, format, arguments);
    va_end(arguments);
    assert(length >= 0 && static_cast<std::size_t>(length) < sizeof text_);
}

const char* read_string(const dictionary* ini, const char* entry, const char* fallback) {
    const char* value = iniparser_getstring(ini, entry, nullptr);
    return value != nullptr ? value : fallback;
}

bool is_absent(const char* text) {
    return strcmp(text, absent) == 0;
}

bool is_exactly_one(const dictionary* ini, const char* entry) {
    return strcmp(read_string(ini, entry, ""), "1") == 0;
}

// Reads as atoi does. Where atoi is undefined, every machine gives the same: 2^31 to
// 2^32 - 1 give their 32 bits, anything larger 32 one bits, anything below -2^31 that
// number.
int decimal_value(const char* text) {
    const long long number = strtoll(text, nullptr, 10);
    if (number < INT32_MIN) {
        return INT32_MIN;
    }
    return static_cast<int>(static_cast<std::uint32_t>(number > UINT32_MAX ? UINT32_MAX : number));
}

Piece first_piece(const char* list) {
    const char* text = list + strspn(list, ",");
    return {text, strcspn(text, ",")};
}

Piece next_piece(const Piece& piece) {
    return first_piece(piece.text + piece.length);
}

// The library's readers of numbers and booleans crash on an entry that is a section,
// so these look whether there is a value first.

int read_int(const dictionary* ini, const char* entry, int fallback) {
    return read_string(ini, entry, nullptr) != nullptr ? iniparser_getint(ini, entry, fallback)
                                                       : fallback;
}

std::optional<int> read_number(const dictionary* ini, const char* entry) {
    const int value = read_int(ini, entry, -1);
    return value != -1 ? std::optional<int>(value) : std::nullopt;
}

int read_boolean(const dictionary* ini, const char* entry, int fallback) {
    return read_string(ini, entry, nullptr) != nullptr ? iniparser_getboolean(ini, entry, fallback)
                                                       : fallback;
}
