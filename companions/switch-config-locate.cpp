// Names the lines of a document that check finds fault with: puts lines of a
// backup in their place, runs check again, and sees what becomes of the fault.
//
//   switch-config-locate DOCUMENT BACKUP
//
// Exit status: 0 found, 1 cannot tell, 2 trouble. For switch-config-explain, which
// holds the lock on the files of the tool.

#include "companions/entries.h"
#include "frame/modes.h"

#include <cstdlib>

namespace {

constexpr int max_trials = 200; // about a second
constexpr char run_check[] = "exec \"$SWITCH_CONFIG\" check >/dev/null 2>&1";

// A key that is not the same in both; null where it is missing.
struct Difference {
    const Entry* ours;
    const Entry* switchs;
    bool at_fault;
    bool needed; // for the fault to show
    bool replaced;
};

Document document;
Document backup;
Difference differences[2 * max_document_size];
int difference_count;
int trials;

// In document, or only in backup when that is the document's counterpart.
void add_differences(const Document& here, const Document& there) {
    for (int i = 0; i < here.entry_count; ++i) {
        const Entry& entry = here.entries[i];
        const Entry* found = counterpart(entry, there);
        if (entry.value == nullptr || (found != nullptr && have_same_value(entry, *found))) {
            continue;
        }
        if (&here == &backup) {
            differences[difference_count++] = {found, &entry, false, false, false};
        } else if (found == nullptr) {
            differences[difference_count++] = {&entry, nullptr, false, false, false};
        }
    }
}

bool is_replaced(int entry) {
    for (int i = 0; entry >= 0 && i < difference_count; ++i) {
        if (differences[i].replaced && differences[i].ours == &document.entries[entry]) {
            return true;
        }
    }
    return false;
}

// The document without the lines that are replaced, followed by those of the switch.
void write_trial(FILE* file) {
    for (int i = 0; i < document.line_count; ++i) {
        if (!is_replaced(document.lines[i].entry)) {
            fprintf(file, "%s\n", document.lines[i].text);
        }
    }
    for (int i = 0; i < difference_count; ++i) {
        const Entry* entry = differences[i].replaced ? differences[i].switchs : nullptr;
        if (entry != nullptr) {
            fprintf(file, "[%s]\n%s\n", section_of(backup, *entry)->name,
                    backup.lines[entry->line].text);
        }
    }
    fclose(file);
}

// Check's code when the document's are the first differences and those needed,
// but not those at fault. 0: it passes; -1: there is no code.
int code_with(int first) {
    int code = -1;
    for (int i = 0; i < difference_count; ++i) {
        Difference& difference = differences[i];
        difference.replaced = difference.at_fault || !(i < first || difference.needed);
    }
    FILE* file = ++trials > max_trials ? nullptr : fopen(restore_path, "we");
    if (file == nullptr) {
        return code;
    }
    write_trial(file);
    if (std::system(run_check) == 0) {
        return 0;
    }
    FILE* report = fopen(report_path, "re");
    if (report != nullptr) {
        code = fscanf(report, "%d", &code) == 1 ? code : -1;
        fclose(report);
    }
    return code;
}

// Finds the least of the document that brings the fault up in the backup.
void find_fault(int code) {
    for (int limit = difference_count; trials <= max_trials && code_with(0) != code;) {
        int without = 0;
        while (limit - without > 1) {
            const int middle = (without + limit) / 2;
            (code_with(middle) == code ? limit : without) = middle;
        }
        differences[--limit].needed = true;
    }
    for (int i = 0; i < difference_count; ++i) {
        differences[i].at_fault |= differences[i].needed;
        differences[i].needed = false;
    }
}

// What may stay as it is, with the fault gone, is not at fault.
void acquit(int code) {
    for (int i = 0; i < difference_count; ++i) {
        if (differences[i].at_fault) {
            differences[i].at_fault = false;
            differences[i].at_fault = code_with(difference_count) == code;
        }
    }
}

void print_fault(const Difference& difference) {
    if (difference.ours == nullptr) {
        printf("  missing: ");
        print_name(backup, *difference.switchs);
    } else {
        printf("  line %d: ", document.lines[difference.ours->line].number);
        print_name(document, *difference.ours);
        printf(": ");
        print_value(*difference.ours);
    }
    if (difference.switchs != nullptr) {
        printf(", switch has ");
        print_value(*difference.switchs);
    }
    printf("\n");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 || !open_document(document, argv[1]) || !open_document(backup, argv[2])) {
        return 2;
    }
    add_differences(backup, document);
    add_differences(document, backup);
    const int code = code_with(difference_count);
    if (code <= 0 || code_with(0) == code) {
        return 1;
    }
    while (trials <= max_trials && code_with(difference_count) == code) {
        find_fault(code);
    }
    acquit(code);
    for (int i = 0; trials <= max_trials && i < difference_count; ++i) {
        if (differences[i].at_fault) {
            print_fault(differences[i]);
        }
    }
    return trials <= max_trials ? 0 : 1;
}
