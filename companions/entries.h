// A document as the tool's own loader reads it, with the line of each key.
#pragma once

#include "frame/document.h"

struct Entry {
    const char* name;     // "section:key", or the name of a section, in lower case
    const char* value;    // null for a section
    const Entry* section; // null for a key without one; a section is its own
    const char* key;      // within the name; empty for a section
    const char* line;     // the last that sets the entry, null if unknown
    int line_number;      // from 1
};

// Static, and opened once. Pages that are not written take no memory.
struct Document {
    dictionary* values;
    Entry entries[max_document_size]; // in the order of the document
    int entry_count;
    char text[max_document_size + 1]; // a terminator for each newline
};

// False if the document cannot be loaded. A message says why, without any text of
// the document.
bool open_document(Document& document, const char* path);

// The same key or section of another document, null if there is none.
const Entry* counterpart(const Entry& entry, const Document& other);

// For two keys, or two sections.
bool have_same_value(const Entry& one, const Entry& other);

// Prints "[Section] Key" in the letter case of the document.
void print_name(const Entry& entry);

// Prints the value in double quotes, or "(secret)" if the key suggests one, plain or
// encrypted.
void print_value(const Entry& entry);
