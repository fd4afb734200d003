// Two documents as the tool's own loader reads them, with the line of each key.
#pragma once

#include "frame/document.h"

struct Entry {
    const char* name;     // "section:key", or the name of a section, in lower case
    const char* value;    // null for a section
    const Entry* section; // null for a key without one; a section is its own
    const char* key;      // within the name; empty for a section
    const char* line;     // the last that sets the entry, null if unknown
    int line_number;      // from 1
    const Entry* other;   // the same of the other document, null if it is missing there
};

// Static, and opened once. Pages that are not written take no memory.
struct Document {
    dictionary* values;
    Entry entries[max_document_size + 1]; // in the order of the document; the last is empty
    int entry_count;
    char text[max_document_size + 1]; // a terminator for each newline
};

// False if the document cannot be loaded. A message says why, without any text of
// the document.
bool open_document(Document& document, const char* path);

// Finds for each entry the one of the other document.
void match(Document& one, Document& other);

// Whether the other document has it, and with the same value.
bool is_in_both(const Entry& entry);

// Prints "[Section] Key" in the letter case of the document.
void print_name(const Entry& entry);

// Prints the value in double quotes, or "(secret)" if the key suggests one, plain or
// encrypted. A section is "the whole section".
void print_value(const Entry& entry);
