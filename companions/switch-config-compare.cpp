// Shows how two documents differ, by section and key: see switch-config-compare(8).

#include "companions/entries.h"

#include <cstdlib>
#include <iterator>
#include <strings.h>
#include <unistd.h>

namespace {

bool is_about_switch; // -s: B is a backup of it
bool is_about_loss;   // -c: only what makes A incomplete

// -x: sections. The clock differs in every backup, and restore never sets it.
const char* left_out[11] = {"sntp setting:date", "sntp setting:time"};

bool is_left_out(const char* name) {
    for (const char* other : left_out) {
        const std::size_t length = other != nullptr ? strlen(other) : 0;
        const bool starts = length > 0 && strncasecmp(name, other, length) == 0;
        if (starts && (name[length] == ':' || name[length] == '\0')) {
            return true;
        }
    }
    return false;
}

bool has(const char* name) {
    const Entry* entry = find(name);
    return entry != nullptr && entry->a.exists;
}

// The keys of one account, rule or port have the same number. Where there is none it is 0,
// also in the line of a section.
int number_in(const Entry& entry) {
    return atoi(entry.key + strcspn(entry.key, "0123456789"));
}

bool is_beside(const Entry& beside, const Entry& entry) {
    return beside.is_in_both() && strcasecmp(beside.section, entry.section) == 0 &&
           number_in(beside) == number_in(entry);
}

// Whether an entry that only B has is a section, the last key, or between two
// that A has. Backup writes the last section in two forms.
bool is_lost(const Entry& entry) {
    const Entry& next = (&entry)[1];
    if (!entry.is_section() && !next.b.exists) {
        return !has("dscp mapping:message") && !has("dscp mapping:0x3f(63)");
    }
    return entry.is_section() ||
           (&entry != entries && is_beside((&entry)[-1], entry) && is_beside(next, entry));
}

// The keys of an account: without one of them it would be made with an empty one.
constexpr const char* account_keys[][3] = {
    {"password:user name%d", "password:password%d", "password:access_right%d"},
    {"snmp settings:snmp v3 user name%d", "snmp settings:snmp v3 authentication password%d",
     "snmp settings:snmp v3 encryption key%d"},
};

// Shows an account of A that has some of them.
bool show_torn(const char* const (&keys)[3], int number) {
    int count = 0;
    for (const char* key : keys) {
        count += has(EntryName(key, number)) && !is_left_out(key) ? 1 : 0;
    }
    return count % 3 != 0 &&
           printf("[%.*s] has %d of the 3 keys of account %d\n",
                  static_cast<int>(strcspn(keys[0], ":")), keys[0], count, number) > 0;
}

// A missing section is shown without its keys.
bool is_shown(const Entry& entry) {
    if (entry.is_same() || is_left_out(entry.name) ||
        (is_about_loss && (entry.a.exists || !is_lost(entry)))) {
        return false;
    }
    const Entry* section = find(entry.section);
    return section == nullptr || section == &entry || entry.is_in_both() || section->is_in_both();
}

bool read_options(int argc, char** argv) {
    std::size_t count = 2;
    for (int option = 0; (option = getopt(argc, argv, "csx:")) != -1;) {
        is_about_loss |= option == 'c';
        is_about_switch |= option == 's';
        left_out[count] = optarg;
        count += option == 'x' ? 1 : 0;
        if (option == '?' || count == std::size(left_out)) {
            return false;
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
    if (!add_document(argv[optind + 1], &Entry::b) || !add_document(argv[optind], &Entry::a)) {
        fprintf(stderr, "switch-config-compare: fix the document that cannot be read\n");
        return 2;
    }
    int result = 0;
    for (int i = 0; i < entry_count; ++i) {
        if (is_shown(entries[i])) {
            print_difference(entries[i], is_about_switch);
            result = 1;
        }
    }
    for (int i = 0; is_about_loss && i < 64; ++i) {
        result |= show_torn(account_keys[i % 2], i / 2) ? 1 : 0;
    }
    return result;
}
