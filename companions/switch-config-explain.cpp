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

time_t end_of_search;

// The code that check reports when the entries from first to last are the document's too,
// or 0 if all passes.
int try_ours(int first, int last) {
    char code[16] = "";
    dictionary* ini = dictionary_new(static_cast<size_t>(entry_count));
    for (int i = 0; i < entry_count; ++i) {
        const Entry& entry = entries[i];
        const Side& side = entry.is_ours || (i >= first && i < last) ? entry.a : entry.b;
        if (side.exists) {
            dictionary_set(ini, entry.name, side.value);
        }
    }
    FILE* report = fmemopen(code, sizeof code, "w");
    check_sections(ini, report);
    fclose(report);
    dictionary_del(ini);
    return atoi(code);
}

// Chooses ours where check then passes, from either end. One that alone causes the code
// is at fault. False if none could be chosen.
bool choose(int first, int last, int code, int turn) {
    for (; first < last && entries[first].is_ours; ++first) {
    }
    for (; first < last && entries[last - 1].is_ours; --last) {
    }
    if (first == last || time(nullptr) >= end_of_search) {
        return false;
    }
    const int found = try_ours(first, last);
    if (found != 0 && last - first > 1) {
        const int middle = (first + last) / 2;
        const bool one =
            turn == 1 ? choose(first, middle, code, turn) : choose(middle, last, code, turn);
        const bool other =
            turn == 1 ? choose(middle, last, code, turn) : choose(first, middle, code, turn);
        return one || other;
    }
    entries[first].faults |= found == code ? turn : 0;
    for (int i = first; found == 0 && i < last; ++i) {
        entries[i].is_ours = true;
    }
    return found == 0;
}

void search(int code, int turn) {
    for (int i = 0; i < entry_count; ++i) {
        entries[i].is_ours = entries[i].is_same();
    }
    while (try_ours(0, 0) != code && choose(0, entry_count, code, turn)) {
    } // what passes only beside another is chosen later
}

// The section, if the document lacks all of it.
const Entry& whole(const Entry& entry) {
    const Entry* section = find(entry.section);
    return section != nullptr && !section->a.exists ? *section : entry;
}

// Searches from either end: what is a fault only from one depends on other lines.
// A missing section is followed by those of the document that may be it, misspelt.
void print_faults(int code) {
    const Entry* last = nullptr;
    bool is_sure = true;
    end_of_search = time(nullptr) + 2;
    search(code, 1);
    search(code, 2);
    for (int i = 0; time(nullptr) < end_of_search && i < entry_count; ++i) {
        const Entry& entry = whole(entries[i]);
        const bool may_be_last =
            last != nullptr && last->is_section() && entry.is_section() && !entry.b.exists;
        if ((entries[i].faults != 0 && &entry != last) || may_be_last) {
            printf("  ");
            print_difference(entry, true);
            last = may_be_last ? last : &entry;
            is_sure = is_sure && (may_be_last || entries[i].faults == 3);
        }
    }
    if (last == nullptr) {
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

} // namespace

int main(int argc, char** argv) {
    if (getopt(argc, argv, "") != -1 || argc - optind > 1) {
        fprintf(stderr, "usage: switch-config-explain [DOCUMENT]\n");
        return 2;
    }
    init_umdev(0);
    initdef();
    port_init();
    FILE* backup = tmpfile(); // without a name, since it holds secrets
    if (backup != nullptr) {
        write_sections(backup);
    }
    const bool can_search = backup != nullptr && fflush(backup) == 0 &&
                            add_document(EntryName("/proc/self/fd/%d", fileno(backup)), &Entry::b);
    const bool is_open = add_document(optind < argc ? argv[optind] : restore_path, &Entry::a);
    const int code = is_open ? try_ours(0, entry_count) : USR_RET_INI_RESTORE_FILE_NOT_EXISTED;
    if (code == 0) {
        printf("check finds no fault; switch-config-apply -n shows what restore would change\n");
        return 0;
    }
    print_meaning(code);
    fflush(stdout);
    if (!is_open) {
        printf("  fix what the message above names, or name another document\n");
    } else if (!can_search) {
        printf("  cannot look for the line: make room in /tmp\n");
    } else {
        print_faults(code);
    }
    return 1;
}
