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
    message[strcspn(message, "\n")] = '\0';
    return fprintf(stderr, "%s\n", message);
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

// Lowers the text and removes the blanks at its end.
void normalize(char* text) {
    char* end = text;
    for (; *text != '\0'; ++text) {
        *text = static_cast<char>(tolower(static_cast<unsigned char>(*text)));
        end = isspace(static_cast<unsigned char>(*text)) != 0 ? end : text + 1;
    }
    *end = '\0';
}

// The section is the one that the line is in.
void place_line(Document& document, const char* line, int number, const Entry*& section) {
    char word[line_size];
    char name[2 * line_size];
    char delimiter = '\0';
    const bool is_section = sscanf(line, " [ %1023[^]]%c", word, &delimiter) == 2;
    if (!is_section && sscanf(line, " %1023[^=]%c", word, &delimiter) != 2) {
        return;
    }
    normalize(word);
    const char* before = section != nullptr ? section->name : "";
    snprintf(name, sizeof name, "%s:%s", before, word);
    const Entry* found = find(document, is_section ? word : name);
    if (found == nullptr || (found->value == nullptr) != is_section) {
        return;
    }
    Entry& entry = document.entries[found - document.entries];
    entry.line = line;
    entry.line_number = number;
    if (is_section) {
        section = &entry;
    } else {
        entry.section = section;
        entry.key = entry.name + strlen(before) + 1;
    }
}

// A line ends in a backslash, blanks aside, if the next one continues it.
bool is_continued(const char* line, const char* end) {
    while (end > line && isspace(static_cast<unsigned char>(end[-1])) != 0) {
        --end;
    }
    return end > line && end[-1] == '\\';
}

void place_lines(Document& document) {
    const Entry* section = nullptr;
    int number = 1;
    for (char* line = document.text; *line != '\0';) {
        const int first = number++;
        char* end = strchrnul(line, '\n');
        for (; *end != '\0' && is_continued(line, end); end = strchrnul(end + 1, '\n')) {
            ++number;
        }
        char* next = *end != '\0' ? end + 1 : end;
        *end = '\0';
        place_line(document, line, first, section);
        line = next;
    }
}

// Prints the text as the line of the entry spells it.
void print_spelt(const Entry& entry, const char* text) {
    const char* spelt = entry.line != nullptr ? strcasestr(entry.line, text) : nullptr;
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
    for (; document.entry_count < static_cast<int>(document.values->n); ++document.entry_count) {
        Entry& entry = document.entries[document.entry_count];
        entry.name = document.values->key[document.entry_count];
        entry.value = document.values->val[document.entry_count];
        entry.section = entry.value == nullptr ? &entry : nullptr;
        entry.key = entry.value == nullptr ? "" : entry.name;
    }
    place_lines(document);
    return true;
}

const Entry* counterpart(const Entry& entry, const Document& other) {
    const Entry* found = find(other, entry.name);
    const bool alike = found != nullptr && (found->value == nullptr) == (entry.value == nullptr);
    return alike ? found : nullptr;
}

bool have_same_value(const Entry& one, const Entry& other) {
    return one.value == nullptr || strcmp(one.value, other.value) == 0;
}

void print_name(const Entry& entry) {
    printf("[");
    if (entry.section != nullptr) {
        print_spelt(*entry.section, entry.section->name);
    }
    printf(entry.value != nullptr ? "] " : "]");
    print_spelt(entry, entry.key);
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
