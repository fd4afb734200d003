/*
 * What reading a document costs whoever reads it with iniparser: loads it and
 * looks up the entries that are listed, one a line, in another file.
 *
 * usage: load_and_look_up DOCUMENT ENTRIES
 */
#include <iniparser/iniparser.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { most_entries = 20000, longest_entry = 80 };

static char entries[most_entries][longest_entry];
static size_t entry_count;

static int read_entries(const char* path) {
    FILE* file = fopen(path, "r");
    if (file == NULL) {
        return 0;
    }
    while (entry_count < most_entries && fgets(entries[entry_count], longest_entry, file) != NULL) {
        entries[entry_count][strcspn(entries[entry_count], "\n")] = '\0';
        ++entry_count;
    }
    fclose(file);
    return 1;
}

/* The part that is measured. */
__attribute__((noinline)) static unsigned long load_and_look_up(const char* path) {
    unsigned long found = 0;
    dictionary* ini = iniparser_load(path);
    if (ini == NULL) {
        exit(1);
    }
    for (size_t i = 0; i < entry_count; ++i) {
        found += iniparser_getstring(ini, entries[i], NULL) != NULL;
    }
    iniparser_freedict(ini);
    return found;
}

int main(int argc, char** argv) {
    if (argc != 3 || !read_entries(argv[2])) {
        return 2;
    }
    printf("%lu of %zu found\n", load_and_look_up(argv[1]), entry_count);
    return 0;
}
