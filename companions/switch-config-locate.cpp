// Names the lines of a document that check finds fault with: puts lines of a
// backup in their place, and runs check to see whether the fault is gone.
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
};

Document document;
Document backup;
const Entry* common[max_document_size]; // the document's sections too
int common_count;
Difference differences[2 * max_document_size];
int difference_count;
int trials;

void compare_documents() {
    for (int i = 0; i < backup.entry_count; ++i) {
        const Entry& entry = backup.entries[i];
        const Entry* found = counterpart(entry, document);
        if (entry.value != nullptr && (found == nullptr || !have_same_value(entry, *found))) {
            differences[difference_count++] = {found, &entry, false, false};
        }
    }
    for (int i = 0; i < document.entry_count; ++i) {
        const Entry& entry = document.entries[i];
        const Entry* found = counterpart(entry, backup);
        if (entry.value == nullptr || (found != nullptr && have_same_value(entry, *found))) {
            common[common_count++] = &entry;
        } else if (found == nullptr) {
            differences[difference_count++] = {&entry, nullptr, false, false};
        }
    }
}

void write_entry(FILE* file, const Entry* entry, const Entry*& section) {
    if (entry == nullptr || entry->section == nullptr) {
        return;
    }
    if (entry->section != section) {
        section = entry->section;
        fprintf(file, "[%s]\n", section->name);
    }
    if (entry->value != nullptr) {
        fprintf(file, "%s\n", entry->line);
    }
}

// Check's code when the document's are the first differences and those needed,
// but not those at fault. 0: it passes; -1: there is no code.
int code_with(int first) {
    int code = -1;
    const Entry* section = nullptr;
    FILE* file = ++trials > max_trials ? nullptr : fopen(restore_path, "we");
    if (file == nullptr) {
        return code;
    }
    for (int i = 0; i < common_count; ++i) {
        write_entry(file, common[i], section);
    }
    for (int i = 0; i < difference_count; ++i) {
        const Difference& difference = differences[i];
        const bool is_ours = !difference.at_fault && (i < first || difference.needed);
        write_entry(file, is_ours ? difference.ours : difference.switchs, section);
    }
    fclose(file);
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

// Finds the least of the document that causes the fault in the backup.
void find_fault(int code) {
    int limit = difference_count;
    do {
        int without = 0;
        while (limit - without > 1) {
            const int middle = (without + limit) / 2;
            (code_with(middle) == code ? limit : without) = middle;
        }
        differences[--limit].needed = true;
    } while (limit > 0 && trials <= max_trials && code_with(0) != code);
    for (int i = 0; i < difference_count; ++i) {
        differences[i].at_fault |= differences[i].needed;
        differences[i].needed = false;
    }
}

// Clears what may stay in the document without the fault.
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
        print_name(*difference.switchs);
    } else {
        printf("  line %d: ", difference.ours->line_number);
        print_name(*difference.ours);
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
    compare_documents();
    const int code = code_with(difference_count);
    if (code <= 0 || code_with(0) == code) {
        return 1;
    }
    do {
        find_fault(code);
    } while (trials <= max_trials && code_with(difference_count) == code);
    acquit(code);
    for (int i = 0; trials <= max_trials && i < difference_count; ++i) {
        if (differences[i].at_fault) {
            print_fault(differences[i]);
        }
    }
    return trials <= max_trials ? 0 : 1;
}
