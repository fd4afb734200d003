// A document with the line of each key. The tool's own loader reads the document,
// and then each line by itself: nothing here knows the grammar.
#pragma once

#include "frame/document.h"

struct Entry {
    const char* name;  // "section:key", or the name of a section, in lower case
    const char* value; // null for a section
    const char* key;   // within the name; empty for a section
    int line;          // index of the last line that holds the entry, -1 for none
};

struct Line {
    const char* text; // without its newline; lines that a backslash joins are one
    int number;       // from 1
    int entry;        // index of the entry in the line, -1 for none
};

// Static, and opened once. Pages that are not written take no memory.
struct Document {
    dictionary* values;
    Entry entries[max_document_size]; // in the order of the document
    int entry_count;
    Line lines[max_document_size];
    int line_count;
    char text[max_document_size + 1];
};

// False when the document cannot be loaded. A message says why, without any
// text of the document.
bool open_document(Document& document, const char* path);

// The section of a key, null when it has none; a section is its own.
const Entry* section_of(const Document& document, const Entry& entry);

// The same key or section of another document, null when there is none.
const Entry* counterpart(const Entry& entry, const Document& other);

// Of two keys, or of two sections.
bool have_same_value(const Entry& one, const Entry& other);

// Prints "[Section] Key" in the letter case of the document.
void print_name(const Document& document, const Entry& entry);

// Prints the value in double quotes, or "(secret)" when the words of the key say
// that it may be one, plain or encrypted.
void print_value(const Entry& entry);
