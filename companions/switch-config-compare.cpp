// Shows how two documents differ, by section and key: see switch-config-compare(8).

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

bool is_beside(const Entry& beside, const Entry& entry) {
    return beside.value != nullptr && beside.other != nullptr && entry.section == beside.section &&
           number_in(entry) == number_in(beside);
}

// Whether B's entry, which A lacks, is a section, the last key, or between two keys
// that A has. Backup writes the last section in two forms.
bool is_lost(const Entry& entry) {
    if (entry.value != nullptr && (&entry)[1].name == nullptr) {
        return !find(document_a, "dscp mapping:message") &&
               !find(document_a, "dscp mapping:0x3f(63)");
    }
    return entry.value == nullptr ||
           (&entry != document_b.entries && is_beside((&entry)[-1], entry) &&
            is_beside((&entry)[1], entry));
}

// The keys of an account: without one of them it would be made with an empty one.
constexpr const char* account_keys[][3] = {
    {"password:user name%d", "password:password%d", "password:access_right%d"},
    {"snmp settings:snmp v3 user name%d", "snmp settings:snmp v3 authentication password%d",
     "snmp settings:snmp v3 encryption key%d"},
};

// Shows an account of A that has some of them.
bool show_torn(const char* const (&keys)[3], int number) {
    const Entry* found = nullptr;
    int count = 0;
    for (const char* key : keys) {
        const Entry* entry = find(document_a, EntryName(key, number));
        count += entry != nullptr ? 1 : 0;
        found = found != nullptr ? found : entry;
    }
    return found != nullptr && count < 3 && !is_left_out(*found) &&
           printf("line %d: [%s] has %d of the 3 keys of account %d\n", found->line_number,
                  found->section->name, count, number) > 0;
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
        if (option == '?' || (option == 'x' && left_out_count == std::size(left_out))) {
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
        fprintf(stderr, "switch-config-compare: fix the document that cannot be read\n");
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
    for (int i = 0; is_about_loss && i < 64; ++i) {
        result |= show_torn(account_keys[i % 2], i / 2) ? 1 : 0;
    }
    return result;
}
