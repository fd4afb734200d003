// Shows how two documents differ, by section and key.
//
//   switch-config-compare [-123cs] [-x SECTION]... A B

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

bool options[128];       // by their letter
const char* left_out[8]; // sections
std::size_t left_out_count;
Document a;
Document b; // with -s a backup of the switch

bool given(int option) {
    return options[option];
}

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

void print_both(const Entry& in_a, const Entry& in_b) {
    print_name(in_a);
    printf(given('s') ? ": document " : ": ");
    print_value(in_a);
    printf(given('s') ? ", switch has " : " -> ");
    print_value(in_b);
    printf("\n");
}

// Only the switch's value: in a document, a misspelt key may hide a secret.
void print_one(const Document& document, const Entry& entry) {
    const bool in_a = &document == &a;
    print_name(entry);
    if (given('s') && !in_a && entry.value != nullptr) {
        printf(": switch has ");
        print_value(entry);
    } else if (given('s')) {
        printf(": only %s", in_a ? "in the document" : "on the switch");
    } else {
        printf(": only in %s", in_a ? "A" : "B");
    }
    printf(entry.value == nullptr ? ", the whole section\n" : "\n");
}

// A missing section is shown without its keys.
int compare_missing(const Document& document, const Entry& entry, const Document& other) {
    const Entry* section = entry.section;
    if (&document == &a ? given('1') : given('2')) {
        return same;
    }
    if (section == nullptr || section == &entry || counterpart(*section, other) != nullptr) {
        print_one(document, entry);
    }
    return different;
}

int compare_in(const Document& document, const Document& other) {
    int result = same;
    for (int i = 0; i < document.entry_count; ++i) {
        const Entry& entry = document.entries[i];
        const Entry* found = counterpart(entry, other);
        if (is_left_out(entry)) {
            continue;
        }
        if (found == nullptr) {
            result |= compare_missing(document, entry, other);
        } else if (&document == &a && !given('3') && !have_same_value(entry, *found)) {
            print_both(entry, *found);
            result = different;
        }
    }
    return result;
}

// The keys of one account, rule or port have the same number.
int number_in(const Entry& entry) {
    return atoi(entry.key + strcspn(entry.key, "0123456789"));
}

bool has_neighbour(const Entry& entry, const Entry& beside) {
    return beside.value != nullptr && entry.section == beside.section &&
           number_in(entry) == number_in(beside) && counterpart(beside, a) != nullptr;
}

// Whether A lacks the section, the last key or one between two keys that it has.
bool is_lost(int i) {
    const Entry& entry = b.entries[i];
    if (counterpart(entry, a) != nullptr || entry.section == nullptr) {
        return false;
    }
    if (entry.value == nullptr || i + 1 == b.entry_count) {
        return entry.value == nullptr || counterpart(*entry.section, a) != nullptr;
    }
    return i > 0 && has_neighbour(entry, b.entries[i - 1]) &&
           has_neighbour(entry, b.entries[i + 1]);
}

// Prints what A lacks of a complete document.
int judge_completeness() {
    int result = same;
    for (int i = 0; i < b.entry_count; ++i) {
        if (is_lost(i)) {
            print_name(b.entries[i]);
            printf(b.entries[i].value == nullptr ? ": the section is missing\n"
                                                 : ": the key is missing\n");
            result = different;
        }
    }
    return result;
}

bool read_options(int argc, char** argv) {
    for (int option = 0; (option = getopt(argc, argv, "123csx:")) != -1;) {
        if (option == '?' || left_out_count == std::size(left_out)) {
            return false;
        }
        options[option] = true;
        if (option == 'x') {
            left_out[left_out_count++] = optarg;
        }
    }
    return optind + 2 == argc;
}

} // namespace

int main(int argc, char** argv) {
    if (!read_options(argc, argv)) {
        fprintf(stderr, "usage: switch-config-compare [-123cs] [-x SECTION]... A B\n");
        return trouble;
    }
    if (!open_document(a, argv[optind]) || !open_document(b, argv[optind + 1])) {
        fprintf(stderr, "switch-config-compare: mend the document that cannot be read\n");
        return trouble;
    }
    return given('c') ? judge_completeness() : compare_in(a, b) | compare_in(b, a);
}
