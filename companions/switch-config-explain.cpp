// Explains the fault that check finds: what its code means, and which lines it is
// about. They are found by trial: entries of a backup take their place, and check says
// whether the fault is gone.
//
//   switch-config-explain [DOCUMENT]

#include "companions/entries.h"
#include "frame/modes.h"
#include "frame/section_order.h"
#include "platform/include/return_codes.h"
#include "platform/include/start_up.h"

#include <cstdlib>
#include <ctime>
#include <unistd.h>

namespace {

// Exit statuses.
constexpr int no_fault = 0;
constexpr int fault = 1;
constexpr int wrong_usage = 2;

constexpr time_t max_seconds = 2;

// Code, name, section and sentence, a line each.
constexpr const char* meanings[] = {
#include "codes.inc"
};

// An entry of the document, of the backup, or of both.
struct Choice {
    const Entry* ours;
    const Entry* switchs;
    bool is_ours;  // whether the trials have ours
    bool at_fault; // ours
};

Document document;
Document backup;
Choice choices[2 * max_document_size];
int choice_count;
time_t last_second;

// The code that check reports, 0 if all passes.
int check(const dictionary* ini) {
    char code[16] = "";
    FILE* report = fmemopen(code, sizeof code, "w");
    const bool passes = report != nullptr && check_sections(ini, report) == 0;
    if (report != nullptr) {
        fclose(report);
    }
    return passes ? 0 : atoi(code);
}

// In a file without a name, since it holds secrets.
bool back_up() {
    char path[32] = "";
    FILE* file = tmpfile();
    if (file != nullptr) {
        write_sections(file);
        snprintf(path, sizeof path, "/proc/self/fd/%d", fileno(file));
    }
    return file != nullptr && fflush(file) == 0 && open_document(backup, path);
}

void list_choices() {
    match(document, backup);
    for (int i = 0; i < backup.entry_count; ++i) {
        const Entry& entry = backup.entries[i];
        choices[choice_count++] = {entry.other, &entry, is_in_both(entry), false};
    }
    for (int i = 0; i < document.entry_count; ++i) {
        if (document.entries[i].other == nullptr) {
            choices[choice_count++] = {&document.entries[i], nullptr, false, false};
        }
    }
}

// Check's code for the choices, those from first to last being ours.
int try_ours(int first, int last) {
    dictionary* ini = dictionary_new(choice_count);
    for (int i = 0; i < choice_count; ++i) {
        const bool is_ours = choices[i].is_ours || (i >= first && i < last);
        const Entry* entry = is_ours ? choices[i].ours : choices[i].switchs;
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
    for (; first < last && choices[first].is_ours; ++first) {
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
    choices[first].at_fault = found == code;
    for (int i = first; found == 0 && i < last; ++i) {
        choices[i].is_ours = true;
    }
    return found == 0;
}

// False if it cannot tell.
bool find_faults(int code) {
    list_choices();
    if (try_ours(0, 0) == code) {
        return false;
    }
    while (choose(0, choice_count, code)) { // what passes only beside another comes later
    }
    return time(nullptr) <= last_second;
}

void print_fault(const Choice& choice) {
    if (choice.ours == nullptr) {
        printf("  missing: ");
        print_name(*choice.switchs);
    } else {
        printf("  line %d: ", choice.ours->line_number);
        print_name(*choice.ours);
        printf(": ");
        print_value(*choice.ours);
    }
    if (choice.switchs != nullptr) {
        printf(", switch has ");
        print_value(*choice.switchs);
    }
    printf("\n");
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
    const bool is_open = open_document(document, path);
    init_umdev(0);
    initdef();
    port_init();
    const int code = is_open ? check(document.values) : USR_RET_INI_RESTORE_FILE_NOT_EXISTED;
    if (code == 0) {
        printf("check finds no fault; switch-config-apply -n shows what restore would change\n");
        return no_fault;
    }
    print_meaning(code);
    fflush(stdout);
    last_second = time(nullptr) + max_seconds;
    if (!is_open) {
        printf("  mend what the message above names, or name another document\n");
    } else if (!back_up() || !find_faults(code)) {
        printf("  cannot tell which line it is: compare its section with a backup\n");
    } else {
        for (int i = 0; i < choice_count; ++i) {
            if (choices[i].at_fault && !choices[i].is_ours) {
                print_fault(choices[i]);
            }
        }
    }
    return fault;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
        fprintf(stderr, "usage: switch-config-explain [DOCUMENT]\n");
        return wrong_usage;
    }
    return explain(argc == 2 ? argv[1] : restore_path);
}
