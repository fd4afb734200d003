#include "companions/entries.h"

#include <cctype>
#include <cstdarg>
#include <cstdlib>
#include <initializer_list>

namespace {

constexpr std::size_t line_size = 1024; // the library's limit
constexpr char blanks[] = " \t\r\n\v\f";

// Without the blanks at the end.
std::size_t trimmed(const char* text, std::size_t length) {
    for (; length > 0 && strchr(blanks, text[length - 1]) != nullptr; --length) {
    }
    return length;
}

// Only the first line of a message: the second is a line of the document.
int print_message(const char* format, ...) {
    char message[2 * line_size];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    return fprintf(stderr, "%.*s\n", static_cast<int>(strcspn(message, "\n")), message);
}

// Gives its line to the entry that it sets, in this section or as the next.
void place_line(const char* line, int number, Side Entry::*side, const char*& section) {
    char name[2 * line_size];
    const char* text = line + strspn(line, blanks);
    const bool opens = *text == '[' && text[strlen(text) - 1] == ']';
    text += opens ? 1 + strspn(text + 1, blanks) : 0;
    const std::size_t length = trimmed(text, strcspn(text, opens ? "]" : "="));
    snprintf(name, sizeof name, "%s%s%.*s", opens ? "" : section, opens ? "" : ":",
             static_cast<int>(length), text);
    Entry* entry = find(name);
    if (entry != nullptr && (entry->*side).exists && ((entry->*side).value == nullptr) == opens) {
        const char* spelt = strndup(text, length);
        section = opens ? spelt : section;
        entry->section = section;
        entry->key = opens ? "" : spelt;
        (entry->*side).line_number = number;
    }
}

// Up to one of these, and without what a terminal would obey.
void print_clean(const char* text, const char* end) {
    for (; *text != '\0' && strchr(end, *text) == nullptr; ++text) {
        putchar(iscntrl(static_cast<unsigned char>(*text)) != 0 ? '?' : *text);
    }
}

bool is_secret(const char* key) {
    for (const char* word : {"pass", "key", "community", "sci", "sak", "secret"}) {
        if (strcasestr(key, word) != nullptr) {
            return strcasestr(key, "status") == nullptr && strcasestr(key, "permission") == nullptr;
        }
    }
    return false;
}

void print_value(const char* key, const char* value) {
    if (value == nullptr || (*value != '\0' && is_secret(key))) {
        printf(value == nullptr ? "the whole section" : "(secret)");
        return;
    }
    printf("\"");
    print_clean(value, "");
    printf("\"");
}

} // namespace

Entry* find(const char* name) {
    for (int i = 0; i < entry_count; ++i) {
        if (strcasecmp(entries[i].name, name) == 0) {
            return &entries[i];
        }
    }
    return nullptr;
}

bool add_document(const char* path, Side Entry::*side) {
    iniparser_set_error_callback(print_message);
    const dictionary* ini = load_document(path);
    FILE* file = ini != nullptr ? fopen(path, "re") : nullptr;
    const int count = file != nullptr ? static_cast<int>(ini->n) : 0;
    const auto size = static_cast<std::size_t>(entry_count + count + 1) * sizeof(Entry);
    entries = static_cast<Entry*>(realloc(entries, size));
    if (file == nullptr || entries == nullptr) {
        return false;
    }
    memset(entries + entry_count, 0, size - static_cast<std::size_t>(entry_count) * sizeof(Entry));
    for (int i = 0; i < count; ++i) {
        Entry* entry = find(ini->key[i]);
        entry = entry != nullptr ? entry : &entries[entry_count++];
        if (!entry->b.exists || (entry->b.value == nullptr) == (ini->val[i] == nullptr)) {
            entry->name = ini->key[i];
            entry->key = ini->key[i];
            entry->section = "";
            entry->*side = {true, ini->val[i], 0};
        }
    }
    const char* section = "";
    char line[line_size];
    bool is_joined = false; // to the line before, by a backslash
    for (int number = 1; fgets(line, sizeof line, file) != nullptr; ++number) {
        const std::size_t length = trimmed(line, strlen(line));
        line[length] = '\0';
        if (!is_joined) {
            place_line(line, number, side, section);
        }
        is_joined = length > 0 && line[length - 1] == '\\';
    }
    fclose(file);
    return true;
}

// Of what one lacks it shows only the switch's value: in a document, a misspelt key may
// hide a secret.
void print_difference(const Entry& entry, bool about_switch) {
    const char* a = about_switch ? "document" : "A";
    const char* b = about_switch ? "switch" : "B";
    if (entry.a.line_number > 0) {
        printf("line %d: ", entry.a.line_number);
    }
    printf("[");
    print_clean(entry.section, "\""); // a secret may follow
    printf(entry.is_section() ? "]" : "] ");
    print_clean(entry.key, "\"");
    if (entry.is_in_both()) {
        printf(": %s ", a);
        print_value(entry.key, entry.a.value);
    } else {
        printf(": %s lacks it", entry.a.exists ? b : a);
    }
    if (entry.b.exists && (entry.a.exists || about_switch)) {
        printf(", %s has ", b);
        print_value(entry.key, entry.b.value);
    }
    printf("\n");
}
