// Shows how two documents differ, by section and key.
//
//   switch-config-compare [-cs] [-x SECTION]... A B
//
// Exit status, as of diff(1): 0 no difference, 1 some, 2 trouble.

#include "companions/entries.h"

#include <cstdlib>
#include <iterator>
#include <strings.h>
#include <unistd.h>

namespace {

bool is_about_switch;    // -s: B is a backup of it
bool is_about_loss;      // -c: only what makes A incomplete
const char* left_out[8]; // -x: sections
std::size_t left_out_count;

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
           (&entry != document_b.entries && has_neighbour(entry, (&entry)[-1]) &&
            has_neighbour(entry, next));
}

// A missing section is shown without its keys.
bool is_shown(const Pair& pair) {
    const Entry& entry = pair.a != nullptr ? *pair.a : *pair.b;
    const bool is_asked_for = !is_about_loss || (pair.a == nullptr && is_lost(entry));
    if (is_same(pair) || is_left_out(entry) || !is_asked_for) {
        return false;
    }
    return entry.other != nullptr || entry.value == nullptr || entry.section == nullptr ||
           entry.section->other != nullptr;
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
        return 2;
    }
    if (!open_document(document_a, argv[optind]) || !open_document(document_b, argv[optind + 1])) {
        fprintf(stderr, "switch-config-compare: mend the document that cannot be read\n");
        return 2;
    }
    pair_entries();
    int result = 0;
    for (int i = 0; i < pair_count; ++i) {
        if (is_shown(pairs[i])) {
            print_difference(pairs[i], is_about_switch);
            result = 1;
        }
    }
    return result;
}
