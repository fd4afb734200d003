// Explains the fault that check finds: what its code means, and which lines it is
// about. They are found by trial: entries of a backup take their place, and check says
// whether the fault is gone: see switch-config-explain(8).

#include "companions/entries.h"
#include "frame/modes.h"
#include "frame/section_order.h"
#include "platform/include/return_codes.h"
#include "platform/include/start_up.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <unistd.h>

namespace {

// Code, name, section and sentence, a line each.
constexpr const char* meanings[] = {
#include "codes.inc"
};

bool is_ours[2 * max_document_size]; // of each pair: whether the trials have the document's
int faults[2 * max_document_size];   // or in which searches that caused the fault, 1 and 2
time_t end_of_search;

// The code that check reports, 0 if all passes, -1 if there is no memory.
int check(const dictionary* ini) {
    char code[16] = "";
    FILE* report = fmemopen(code, sizeof code, "w");
    if (report != nullptr) {
        check_sections(ini, report);
        fclose(report);
    }
    return report != nullptr ? atoi(code) : -1;
}

// In a file without a name, since it holds secrets.
bool back_up() {
    char path[32] = "";
    FILE* file = tmpfile();
    if (file != nullptr) {
        write_sections(file);
        snprintf(path, sizeof path, "/proc/self/fd/%d", fileno(file));
    }
    return file != nullptr && fflush(file) == 0 && open_document(document_b, path);
}

// Check's code when those from first to last are the document's too.
int try_ours(int first, int last) {
    dictionary* ini = dictionary_new(static_cast<size_t>(pair_count));
    for (int i = 0; i < pair_count; ++i) {
        const Pair& pair = pairs[i];
        const Entry* entry = is_ours[i] || (i >= first && i < last) ? pair.a : pair.b;
        if (entry != nullptr) {
            dictionary_set(ini, entry->name, entry->value);
        }
    }
    const int code = check(ini);
    dictionary_del(ini);
    return code;
}

// Chooses ours where check then passes. One that alone causes the code is at fault.
// False if none could be chosen.
bool choose(int first, int last, int code, int turn) {
    for (; first < last && is_ours[first]; ++first) {
    }
    if (first == last || time(nullptr) >= end_of_search) {
        return false;
    }
    const int found = try_ours(first, last);
    if (found != 0 && last - first > 1) {
        const int middle = (first + last) / 2;
        const bool chosen = choose(first, middle, code, turn);
        return choose(middle, last, code, turn) || chosen;
    }
    faults[first] |= found == code ? turn : 0;
    for (int i = first; found == 0 && i < last; ++i) {
        is_ours[i] = true;
    }
    return found == 0;
}

void search(int code, int turn) {
    for (int i = 0; i < pair_count; ++i) {
        is_ours[i] = is_same(pairs[i]);
    }
    while (try_ours(0, 0) != code && choose(0, pair_count, code, turn)) {
    } // what passes only beside another is chosen later
    std::reverse(pairs, pairs + pair_count);
    std::reverse(faults, faults + pair_count);
}

// Searches from either end: what is a fault only from one depends on other lines.
void print_faults(int code) {
    bool is_found = false;
    bool is_sure = true;
    search(code, 1);
    search(code, 2);
    for (int i = 0; time(nullptr) < end_of_search && i < pair_count; ++i) {
        if (faults[i] != 0) {
            printf("  ");
            print_difference(pairs[i], true);
            is_found = true;
            is_sure = is_sure && faults[i] == 3;
        }
    }
    if (!is_found) {
        printf("  cannot tell which line it is: compare its section with a backup\n");
    } else if (!is_sure) {
        printf("  cannot tell which of them, or of the lines they depend on, is wrong\n");
    }
}

void print_meaning(int code) {
    for (const char* meaning : meanings) {
        if (atoi(meaning) == code) {
            printf("%s", meaning);
            return;
        }
    }
    printf("%d\n  the device itself refuses the network settings, with a code of its own\n", code);
}

int explain(const char* path) {
    const bool is_open = open_document(document_a, path);
    init_umdev(0);
    initdef();
    port_init();
    const int code = is_open ? check(document_a.values) : USR_RET_INI_RESTORE_FILE_NOT_EXISTED;
    if (code == 0) {
        printf("check finds no fault; switch-config-apply -n shows what restore would change\n");
        return 0;
    }
    print_meaning(code);
    fflush(stdout);
    end_of_search = time(nullptr) + 2;
    if (!is_open) {
        printf("  fix what the message above names, or name another document\n");
    } else if (!back_up()) {
        printf("  cannot look for the line: make room in /tmp\n");
    } else {
        pair_entries();
        print_faults(code);
    }
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (getopt(argc, argv, "") != -1 || argc - optind > 1) {
        fprintf(stderr, "usage: switch-config-explain [DOCUMENT]\n");
        return 2;
    }
    return explain(optind < argc ? argv[optind] : restore_path);
}
