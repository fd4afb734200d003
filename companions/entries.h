// Two documents as the tool's own loader reads them, with the line of each key.
#pragma once

#include "frame/document.h"

struct Entry {
    const char* name;     // "section:key", or the name of a section, in lower case
    const char* value;    // null for a section
    const Entry* section; // null for a key without one; a section is its own
    const char* key;      // within the name; empty for a section
    const char* line;     // the last that sets the entry, null if there is none
    int line_number;      // from 1
    Entry* other;         // the same of the other document, null if it is missing there
};

struct Document {
    dictionary* values;
    Entry entries[max_document_size + 1]; // in the order of the document; the last is empty
    int entry_count;
};

// The same entry of both documents; null where it is missing.
struct Pair {
    const Entry* a;
    const Entry* b;
};

// Pages that are not written take no memory.
inline Document document_a, document_b;
inline Pair pairs[2 * max_document_size]; // in the order of document B
inline int pair_count;

// False if it cannot be loaded. A message says why, without any text of the document.
bool open_document(Document& document, const char* path);
Entry* find(Document& document, const char* name); // null if the document lacks it
void pair_entries();
bool is_same(const Pair& pair); // whether both have it, with the same value

// Prints in a line where it is in A, "[Section] Key", and what A and B, or the document
// and the switch, have. A value is "(secret)" if the key suggests one, plain or encrypted.
void print_difference(const Pair& pair, bool about_switch);
