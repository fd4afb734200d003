#include "companions/entries.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cctype>
#include <cstdarg>
#include <initializer_list>

namespace {

constexpr std::size_t name_size = 2 * 1024; // two lines of the library

bool quiet = false;

// Only the first line of a message: the second is a line of the document.
int print_message(const char* format, ...) {
    char message[name_size];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    message[strcspn(message, "\n")] = '\0';
    return quiet ? 0 : fprintf(stderr, "%s\n", message);
}

bool is_continued(const char* line, const char* end) {
    while (end > line && isspace(static_cast<unsigned char>(end[-1])) != 0) {
        --end;
    }
    return end > line && end[-1] == '\\';
}

void cut_into_lines(Document& document) {
    int number = 0;
    for (char* text = document.text; *text != '\0';) {
        document.lines[document.line_count++] = {text, ++number, -1};
        char* end = strchrnul(text, '\n');
        for (; *end != '\0' && is_continued(text, end); end = strchrnul(end + 1, '\n')) {
            ++number;
        }
        text = *end == '\0' ? end : end + 1;
        *end = '\0';
    }
}

// The file is in memory: no secret gets onto a disk.
dictionary* load_line(int file, const char* text) {
    char path[32];
    snprintf(path, sizeof path, "/proc/self/fd/%d", file);
    const auto length = static_cast<ssize_t>(strlen(text));
    const bool written = ftruncate(file, 0) == 0 && pwrite(file, text, strlen(text), 0) == length;
    return written ? load_document(path) : nullptr;
}

const Entry* find(const Document& document, const char* name) {
    const unsigned hash = dictionary_hash(name);
    for (int i = 0; i < document.entry_count; ++i) {
        if (document.values->hash[i] == hash && strcmp(document.entries[i].name, name) == 0) {
            return &document.entries[i];
        }
    }
    return nullptr;
}

// Notes the entry of the line; section is the one that the line is in.
void place_line(Document& document, int index, const dictionary& line, const char*& section) {
    char name[name_size];
    const bool is_section = line.val[0] == nullptr;
    snprintf(name, sizeof name, "%s%s", is_section ? "" : section, line.key[0]);
    const Entry* found = find(document, name);
    if (found == nullptr) {
        return;
    }
    document.lines[index].entry = static_cast<int>(found - document.entries);
    Entry& entry = document.entries[document.lines[index].entry];
    entry.line = index;
    if (is_section) {
        section = entry.name;
    } else {
        entry.key = entry.name + strlen(section) + 1;
    }
}

void place_lines(Document& document) {
    const int file = memfd_create("line", MFD_CLOEXEC);
    const char* section = "";
    quiet = true;
    for (int i = 0; i < document.line_count; ++i) {
        dictionary* line = load_line(file, document.lines[i].text);
        if (line != nullptr && line->n == 1) {
            place_line(document, i, *line, section);
        }
        if (line != nullptr) {
            iniparser_freedict(line);
        }
    }
    quiet = false;
    close(file);
}

// Prints the text as the line of the entry spells it.
void print_spelt(const Document& document, const Entry* entry, const char* text) {
    const bool has_line = entry != nullptr && entry->line >= 0;
    const char* spelt = has_line ? strcasestr(document.lines[entry->line].text, text) : nullptr;
    printf("%.*s", static_cast<int>(strlen(text)), spelt != nullptr ? spelt : text);
}

} // namespace

bool open_document(Document& document, const char* path) {
    iniparser_set_error_callback(print_message);
    document.values = load_document(path);
    FILE* file = document.values != nullptr ? fopen(path, "re") : nullptr;
    if (file == nullptr) {
        return false;
    }
    document.text[fread(document.text, 1, max_document_size, file)] = '\0';
    fclose(file);
    for (int i = 0; i < static_cast<int>(document.values->n); ++i) {
        const char* name = document.values->key[i];
        const char* value = document.values->val[i];
        const char* colon = value != nullptr ? strchr(name, ':') : nullptr;
        document.entries[document.entry_count++] = {name, value, colon != nullptr ? colon + 1 : "",
                                                    -1};
    }
    cut_into_lines(document);
    place_lines(document);
    return true;
}

const Entry* section_of(const Document& document, const Entry& entry) {
    char section[name_size];
    if (entry.value == nullptr || entry.key[0] == '\0') {
        return &entry;
    }
    const auto length = static_cast<int>(entry.key - entry.name) - 1;
    snprintf(section, sizeof section, "%.*s", length, entry.name);
    return find(document, section);
}

const Entry* counterpart(const Entry& entry, const Document& other) {
    const Entry* found = find(other, entry.name);
    const bool alike = found != nullptr && (found->value == nullptr) == (entry.value == nullptr);
    return alike ? found : nullptr;
}

bool have_same_value(const Entry& one, const Entry& other) {
    return one.value == nullptr || strcmp(one.value, other.value) == 0;
}

void print_name(const Document& document, const Entry& entry) {
    const Entry* section = section_of(document, entry);
    printf("[");
    print_spelt(document, section, section != nullptr ? section->name : "");
    printf(entry.value != nullptr ? "] " : "]");
    print_spelt(document, &entry, entry.key);
}

void print_value(const Entry& entry) {
    for (const char* word : {"pass", "key", "community", "sci", "sak", "secret"}) {
        if (strstr(entry.key, word) != nullptr) {
            printf("(secret)");
            return;
        }
    }
    printf("\"%s\"", entry.value);
}
