// The entries of two documents as the tool's own loader reads them, with their lines.
#pragma once

#include "frame/document.h"

// What one document has of an entry. A section of A in place of a key of B does not
// exist: the tool reads it as absent.
struct Side {
    bool exists;
    const char* value; // null for a section
    int line_number;   // from 1, of the last line that sets it
};

struct Entry {
    const char* name;    // "section:key", or the name of a section, in lower case
    const char* section; // as a document spells it, A's rather than B's; empty if there is none
    const char* key;     // in the same way; empty for a section
    Side a, b;
    bool is_ours; // for searches by trial: whether to try A's side,
    int faults;   // and a bit for each search in which that was at fault

    bool is_section() const { return *key == '\0'; }
    bool is_in_both() const { return a.exists && b.exists; }
    bool is_same() const { return is_in_both() && (is_section() || strcmp(a.value, b.value) == 0); }
};

// In the order in which they are added; an empty one follows.
inline Entry* entries;
inline int entry_count;

// Adds B, or what else A has. False if it cannot be loaded. A message says why, without
// any text of the document.
bool add_document(const char* path, Side Entry::*side);

Entry* find(const char* name); // null if neither document has it

// Prints in a line where it is in A, "[Section] Key", and what A and B, or the document
// and the switch, have. A value is "(secret)" if the key suggests one, plain or encrypted.
void print_difference(const Entry& entry, bool about_switch);
