// Shows how two documents differ, by section and key.
//
//   switch-config-compare [-cs] [-x SECTION]... A B

#include "companions/entries.h"

#include <cstdlib>
#include <iterator>
#include <strings.h>
#include <unistd.h>

namespace {

// Exit statuses, those of diff(1).
constexpr int same = 0;
constexpr int different = 1;
constexpr int trouble = 2;

bool is_about_switch;    // -s: B is a backup of it
bool is_about_loss;      // -c: only what makes A incomplete
const char* left_out[8]; // -x: sections
std::size_t left_out_count;
Document a;
Document b;

// Restore never sets the clock, and it differs in every backup.
bool is_left_out(const Entry& entry) {
    for (std::size_t i = 0; entry.section != nullptr && i < left_out_count; ++i) {
        if (strcasecmp(entry.section->name, left_out[i]) == 0) {
            return true;
        }
    }
    return strcmp(entry.name, "sntp setting:date") == 0 ||
           strcmp(entry.name, "sntp setting:time") == 0;
}

// The keys of one account, rule or port have the same number.
int number_in(const Entry& entry) {
    return atoi(entry.key + strcspn(entry.key, "0123456789"));
}

bool has_neighbour(const Entry& entry, const Entry& beside) {
    return beside.value != nullptr && beside.other != nullptr && entry.section == beside.section &&
           number_in(entry) == number_in(beside);
}

// Whether B's entry, which A lacks, is a section, the last key, or between two keys
// that A has.
bool is_lost(const Entry& entry) {
    const Entry& next = (&entry)[1];
    return entry.value == nullptr || next.name == nullptr ||
           (&entry != b.entries && has_neighbour(entry, (&entry)[-1]) &&
            has_neighbour(entry, next));
}

// A missing section is shown without its keys.
bool is_shown(const Entry& entry, bool in_a) {
    if (is_in_both(entry) || is_left_out(entry)) {
        return false;
    }
    if (entry.other != nullptr) {
        return in_a && !is_about_loss;
    }
    const bool is_alone = entry.section == nullptr || entry.section->other != nullptr;
    return (entry.value == nullptr || is_alone) && (!is_about_loss || (!in_a && is_lost(entry)));
}

// Of a key that one document lacks only the switch's value: in a document, a
// misspelt key may hide a secret.
void print_difference(const Entry& entry, bool in_a) {
    print_name(entry);
    if (entry.other != nullptr) {
        printf(is_about_switch ? ": document " : ": ");
        print_value(entry);
        printf(is_about_switch ? ", switch has " : " -> ");
        print_value(*entry.other);
    } else if (is_about_switch) {
        printf(in_a ? ": not on the switch" : ": not in the document, switch has ");
        in_a ? void() : print_value(entry);
    } else {
        printf(in_a ? ": only in A" : ": only in B");
    }
    printf("\n");
}

int show_differences(const Document& document) {
    int result = same;
    for (int i = 0; i < document.entry_count; ++i) {
        if (is_shown(document.entries[i], &document == &a)) {
            print_difference(document.entries[i], &document == &a);
            result = different;
        }
    }
    return result;
}

bool read_options(int argc, char** argv) {
    for (int option = 0; (option = getopt(argc, argv, "csx:")) != -1;) {
        is_about_loss |= option == 'c';
        is_about_switch |= option == 's';
        if (option == '?' || left_out_count == std::size(left_out)) {
            return false;
        }
        if (option == 'x') {
            left_out[left_out_count++] = optarg;
        }
    }
    return optind + 2 == argc;
}

} // namespace

int main(int argc, char** argv) {
    if (!read_options(argc, argv)) {
        fprintf(stderr, "usage: switch-config-compare [-cs] [-x SECTION]... A B\n");
        return trouble;
    }
    if (!open_document(a, argv[optind]) || !open_document(b, argv[optind + 1])) {
        fprintf(stderr, "switch-config-compare: mend the document that cannot be read\n");
        return trouble;
    }
    match(a, b);
    return show_differences(a) | show_differences(b);
}
