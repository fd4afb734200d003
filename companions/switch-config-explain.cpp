// Explains the fault that check finds: what its code means, and which lines it is
// about. They are found by trial: entries of a backup take their place, and check says
// whether the fault is gone.
//
//   switch-config-explain [DOCUMENT]
//
// Exit status: 0 no fault, 1 a fault, 2 wrong usage.

#include "companions/entries.h"
#include "frame/modes.h"
#include "frame/section_order.h"
#include "platform/include/return_codes.h"
#include "platform/include/start_up.h"

#include <cstdlib>
#include <ctime>
#include <unistd.h>

namespace {

// Code, name, section and sentence, a line each.
constexpr const char* meanings[] = {
#include "codes.inc"
};

bool is_ours[2 * max_document_size];  // of each pair: whether the trials have the document's
bool is_fault[2 * max_document_size]; // or whether that causes the fault
time_t last_second;                   // of the search

// The code that check reports, 0 if all passes, -1 if there is no memory.
int check(const dictionary* ini) {
    char code[16] = "";
    FILE* report = fmemopen(code, sizeof code, "w");
    if (report == nullptr) {
        return -1;
    }
    check_sections(ini, report);
    fclose(report);
    return atoi(code);
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
bool choose(int first, int last, int code) {
    for (; first < last && is_ours[first]; ++first) {
    }
    if (first == last || time(nullptr) > last_second) {
        return false;
    }
    const int found = try_ours(first, last);
    if (found != 0 && last - first > 1) {
        const int middle = (first + last) / 2;
        const bool chosen = choose(first, middle, code);
        return choose(middle, last, code) || chosen;
    }
    is_fault[first] = found == code;
    for (int i = first; found == 0 && i < last; ++i) {
        is_ours[i] = true;
    }
    return found == 0;
}

// Prints them. False if it cannot tell.
bool find_faults(int code) {
    bool is_found = false;
    pair_entries();
    for (int i = 0; i < pair_count; ++i) {
        is_ours[i] = is_same(pairs[i]);
    }
    while (try_ours(0, 0) != code && choose(0, pair_count, code)) {
    } // what passes only beside another is chosen later
    for (int i = 0; i < pair_count && time(nullptr) <= last_second; ++i) {
        if (is_fault[i] && !is_ours[i]) {
            printf("  ");
            print_difference(pairs[i], true);
            is_found = true;
        }
    }
    return is_found;
}

void print_meaning(int code) {
    for (const char* meaning : meanings) {
        if (atoi(meaning) == code) {
            printf("%s", meaning);
            return;
        }
    }
    printf("%d, see switch-config(8)\n", code);
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
    last_second = time(nullptr) + 2;
    if (!is_open) {
        printf("  mend what the message above names, or name another document\n");
    } else if (!back_up()) {
        printf("  cannot look for the line: make room in /tmp\n");
    } else if (!find_faults(code)) {
        printf("  cannot tell which line it is: compare its section with a backup\n");
    }
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
        fprintf(stderr, "usage: switch-config-explain [DOCUMENT]\n");
        return 2;
    }
    return explain(argc == 2 ? argv[1] : restore_path);
}
