#include "companions/entries.h"

#include <cctype>
#include <cstdarg>
#include <initializer_list>

namespace {

constexpr std::size_t line_size = 1024; // the library's limit

// Only the first line of a message: the second is a line of the document.
int print_message(const char* format, ...) {
    char message[2 * line_size];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    return fprintf(stderr, "%.*s\n", static_cast<int>(strcspn(message, "\n")), message);
}

bool is_blank(char letter) {
    return isspace(static_cast<unsigned char>(letter)) != 0;
}

// Gives the line to the entry that it sets, in this section or as the next.
void place_line(Document& document, const char* line, int number, const Entry*& section) {
    char name[2 * line_size];
    const char* text = line + strspn(line, " \t");
    const bool is_section = *text == '[';
    const char* inside = is_section || section == nullptr ? "" : section->name;
    text += is_section ? 1 + strspn(text + 1, " \t") : 0;
    int length = static_cast<int>(strcspn(text, is_section ? "]" : "="));
    for (; length > 0 && is_blank(text[length - 1]); --length) {
    }
    snprintf(name, sizeof name, "%s%s%.*s", inside, is_section ? "" : ":", length, text);
    for (char* letter = name; *letter != '\0'; ++letter) {
        *letter = static_cast<char>(tolower(static_cast<unsigned char>(*letter)));
    }
    Entry* entry = find(document, name);
    if (entry != nullptr && (entry->value == nullptr) == is_section) {
        section = is_section ? entry : section;
        entry->section = section;
        entry->key = is_section ? "" : entry->name + strlen(inside) + 1;
        entry->line = strdup(line);
        entry->line_number = number;
    }
}

// A line that ends with a backslash is joined with the next, as the library does.
void place_lines(Document& document, FILE* file) {
    const Entry* section = nullptr;
    char line[2 * line_size];
    std::size_t length = 0;
    for (int number = 1, first = 1; fgets(line + length, line_size, file) != nullptr; ++number) {
        for (length = strlen(line); length > 0 && is_blank(line[length - 1]); --length) {
        }
        if (length > 0 && line[length - 1] == '\\' && length < line_size) {
            --length;
            continue;
        }
        line[length] = '\0';
        place_line(document, line, first, section);
        first = number + 1;
        length = 0;
    }
}

// Without what a terminal would obey.
void print_clean(const char* text, std::size_t length) {
    for (const char* end = text + length; text < end; ++text) {
        putchar(iscntrl(static_cast<unsigned char>(*text)) != 0 ? '?' : *text);
    }
}

// As the line of the entry spells it, up to a quote: a secret may follow.
void print_spelt(const Entry& entry, const char* text) {
    const char* spelt = entry.line != nullptr ? strcasestr(entry.line, text) : nullptr;
    print_clean(spelt != nullptr ? spelt : text, strcspn(text, "\""));
}

// In the letter case of the document.
void print_name(const Entry& entry) {
    printf("[");
    if (entry.section != nullptr) {
        print_spelt(*entry.section, entry.section->name);
    }
    printf(entry.value != nullptr ? "] " : "]");
    print_spelt(entry, entry.key);
}

bool is_secret(const char* key) {
    for (const char* word : {"pass", "key", "community", "sci", "sak", "secret"}) {
        if (strstr(key, word) != nullptr) {
            return strstr(key, "status") == nullptr && strstr(key, "permission") == nullptr;
        }
    }
    return false;
}

void print_value(const Entry& entry) {
    if (entry.value == nullptr || (*entry.value != '\0' && is_secret(entry.key))) {
        printf(entry.value == nullptr ? "the whole section" : "(secret)");
        return;
    }
    printf("\"");
    print_clean(entry.value, strlen(entry.value));
    printf("\"");
}

} // namespace

Entry* find(Document& document, const char* name) {
    for (int i = 0; i < document.entry_count; ++i) {
        if (strcmp(document.entries[i].name, name) == 0) {
            return &document.entries[i];
        }
    }
    return nullptr;
}

bool open_document(Document& document, const char* path) {
    iniparser_set_error_callback(print_message);
    document.values = load_document(path);
    FILE* file = document.values != nullptr ? fopen(path, "re") : nullptr;
    if (file == nullptr) {
        return false;
    }
    for (int i = 0; i < static_cast<int>(document.values->n); ++i) {
        Entry& entry = document.entries[document.entry_count++];
        entry.name = document.values->key[i];
        entry.value = document.values->val[i];
        entry.section = entry.value == nullptr ? &entry : nullptr;
        entry.key = entry.value == nullptr ? "" : entry.name;
    }
    place_lines(document, file);
    fclose(file);
    return true;
}

void pair_entries() {
    for (int i = 0; i < document_b.entry_count; ++i) {
        Entry& entry = document_b.entries[i];
        entry.other = find(document_a, entry.name);
        if (entry.other != nullptr) {
            entry.other->other = &entry;
        }
        pairs[pair_count++] = {entry.other, &entry};
    }
    for (int i = 0; i < document_a.entry_count; ++i) {
        if (document_a.entries[i].other == nullptr) {
            pairs[pair_count++] = {&document_a.entries[i], nullptr};
        }
    }
}

bool is_same(const Pair& pair) {
    if (pair.a == nullptr || pair.b == nullptr) {
        return false;
    }
    const char* value = pair.a->value;
    const char* other = pair.b->value;
    return value == other || (value != nullptr && other != nullptr && strcmp(value, other) == 0);
}

// Of what one lacks it shows only the switch's value: in a document, a misspelt key may
// hide a secret.
void print_difference(const Pair& pair, bool about_switch) {
    if (pair.a != nullptr) {
        printf("line %d: ", pair.a->line_number);
    }
    print_name(pair.a != nullptr ? *pair.a : *pair.b);
    const char* a = about_switch ? "document" : "A";
    const char* b = about_switch ? "switch" : "B";
    if (pair.a == nullptr || pair.b == nullptr) {
        printf(": %s lacks it", pair.a == nullptr ? a : b);
    } else {
        printf(": %s ", a);
        print_value(*pair.a);
    }
    if (pair.b != nullptr && (pair.a != nullptr || about_switch)) {
        printf(", %s has ", b);
        print_value(*pair.b);
    }
    printf("\n");
}
