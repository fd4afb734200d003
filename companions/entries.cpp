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

// The entry that a line of this section sets, null if there is none.
Entry* entry_set_by(const char* line, Document& document, const char* section) {
    char name[2 * line_size];
    line += strspn(line, " \t");
    const bool is_section = *line == '[';
    line += is_section ? 1 + strspn(line + 1, " \t") : 0;
    std::size_t length = strcspn(line, is_section ? "]" : "=");
    while (length > 0 && isspace(static_cast<unsigned char>(line[length - 1])) != 0) {
        --length;
    }
    snprintf(name, sizeof name, "%s%s%.*s", is_section ? "" : section, is_section ? "" : ":",
             static_cast<int>(length), line);
    for (char* letter = name; *letter != '\0'; ++letter) {
        *letter = static_cast<char>(tolower(static_cast<unsigned char>(*letter)));
    }
    Entry* found = find(document, name);
    return found != nullptr && (found->value == nullptr) == is_section ? found : nullptr;
}

void place_line(Document& document, const char* line, int number, const Entry*& section) {
    const char* inside = section != nullptr ? section->name : "";
    if (Entry* entry = entry_set_by(line, document, inside)) {
        section = entry->value == nullptr ? entry : section;
        entry->section = section;
        entry->key = entry->value == nullptr ? "" : entry->name + strlen(inside) + 1;
        entry->line = line;
        entry->line_number = number;
    }
}

// A line that ends with a backslash is joined with the next, as the library does.
void place_lines(Document& document) {
    const Entry* section = nullptr;
    char* rest = document.text;
    char* line = rest;
    char* end = rest;
    for (int number = 1, first = 1; const char *piece = strsep(&rest, "\n"); ++number) {
        const std::size_t length = strlen(piece);
        memmove(end, piece, length);
        for (end += length; end > line && isspace(static_cast<unsigned char>(end[-1])) != 0;) {
            --end;
        }
        if (end > line && end[-1] == '\\') {
            --end;
            continue;
        }
        *end++ = '\0';
        place_line(document, line, first, section);
        line = end;
        first = number + 1;
    }
}

// Without what a terminal would obey.
void print_clean(const char* text, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        putchar(iscntrl(static_cast<unsigned char>(text[i])) != 0 ? '?' : text[i]);
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

void print_value(const Entry& entry) {
    bool is_secret = false;
    for (const char* word : {"pass", "key", "community", "sci", "sak", "secret"}) {
        is_secret |= strstr(entry.key, word) != nullptr;
    }
    for (const char* word : {"status", "permission"}) {
        is_secret &= strstr(entry.key, word) == nullptr;
    }
    if (entry.value == nullptr || (is_secret && *entry.value != '\0')) {
        printf(entry.value == nullptr ? "the whole section" : "(secret)");
    } else {
        printf("\"");
        print_clean(entry.value, strlen(entry.value));
        printf("\"");
    }
}

} // namespace

Entry* find(Document& document, const char* name) {
    const unsigned hash = dictionary_hash(name);
    for (int i = 0; i < document.entry_count; ++i) {
        if (document.values->hash[i] == hash && strcmp(document.entries[i].name, name) == 0) {
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
    document.text[fread(document.text, 1, max_document_size, file)] = '\0';
    fclose(file);
    for (int i = 0; i < static_cast<int>(document.values->n); ++i) {
        Entry& entry = document.entries[document.entry_count++];
        entry.name = document.values->key[i];
        entry.value = document.values->val[i];
        entry.section = entry.value == nullptr ? &entry : nullptr;
        entry.key = entry.value == nullptr ? "" : entry.name;
    }
    place_lines(document);
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
    const bool in_both = pair.a != nullptr && pair.b != nullptr;
    if (!in_both || pair.a->value == nullptr || pair.b->value == nullptr) {
        return in_both && pair.a->value == pair.b->value;
    }
    return strcmp(pair.a->value, pair.b->value) == 0;
}

// Of what one lacks it shows only the switch's value: in a document, a misspelt key may
// hide a secret.
void print_difference(const Pair& pair, bool about_switch) {
    if (pair.a != nullptr) {
        printf("line %d: ", pair.a->line_number);
    }
    print_name(pair.a != nullptr ? *pair.a : *pair.b);
    if (pair.a == nullptr) {
        printf(about_switch ? ": document lacks it" : ": A lacks it");
    } else if (pair.b == nullptr) {
        printf(about_switch ? ": switch lacks it" : ": B lacks it");
    } else {
        printf(about_switch ? ": document " : ": A ");
        print_value(*pair.a);
    }
    if (pair.b != nullptr && (pair.a != nullptr || about_switch)) {
        printf(about_switch ? ", switch has " : ", B has ");
        print_value(*pair.b);
    }
    printf("\n");
}
