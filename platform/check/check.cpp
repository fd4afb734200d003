#include "platform/check/check.h"

#include "frame/section_order.h"
#include "platform/include/converters.h"

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <sys/mman.h>

int tried = 0;
int failed = 0;
volatile std::sig_atomic_t stopped = 0;
std::vector<std::function<void()>> writes, fills;

std::string formatted(const char* format, ...) {
    char chars[256];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(chars, sizeof chars, format, arguments);
    va_end(arguments);
    return chars;
}

std::string hex(const void* bytes, std::size_t size) {
    std::string digits;
    for (std::size_t i = 0; i < size; ++i) {
        digits += formatted("%02x", static_cast<const unsigned char*>(bytes)[i]);
    }
    return digits;
}

static bool is_fault(const std::string& outcome) {
    return outcome.compare(0, 8, "expected") == 0;
}

void report(const char* operation, const char* what, const std::string& outcome) {
    ++tried;
    failed += is_fault(outcome) ? 1 : 0;
    std::printf("%sok %d - %s: %s%s%s\n", is_fault(outcome) ? "not " : "", tried, operation, what,
                outcome.empty()     ? ""
                : is_fault(outcome) ? "\n# "
                                    : " # ",
                outcome.c_str());
    std::fflush(stdout); // the library may crash
}

void expect(const char* operation, const char* what, const std::string& expected,
            const std::string& seen) {
    report(operation, what, seen == expected ? "" : "expected " + expected + ", seen " + seen);
}

void expect(const char* operation, const char* what, long expected, long seen) {
    expect(operation, what, std::to_string(expected), std::to_string(seen));
}

// Where the bytes of a number are in an unsigned long.
static char* low_bytes(unsigned long& number, std::size_t width) {
    auto* bytes = reinterpret_cast<char*>(&number);
    return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? bytes : bytes + sizeof number - width;
}

void* Argument::at(std::size_t width, bool is_given) {
    if (counts.empty()) {
        counts.assign(width, 'n');
        values[0].assign(low_bytes(numbers[0], width), width);
        values[1].assign(low_bytes(numbers[1], width), width);
    }
    if (memory.empty() && is_given) {
        return values[0].data();
    }
    memory.resize(counts.size() + 64, fill);
    return memory.data();
}

unsigned long Argument::input() const {
    unsigned long number = memory.empty() ? numbers[0] : 0;
    if (!memory.empty()) {
        memory.copy(low_bytes(number, counts.size()), counts.size());
    }
    return number;
}

Argument text(std::size_t width, char separator, char start) {
    std::string first = "a.example.com", second = "0123456789abcdefghi.example.com";
    first[0] = second[0] = start;
    first[1] = second[19] = separator;
    first.resize(width - 1);
    second.resize(width - 1);
    return {std::string(width, 't'), first + '\0', second + '\0'};
}

Argument given(const std::string& text) {
    return {"t", text, ""};
}

Argument turned_on() {
    Argument flag(1, 1);
    flag.is_switch = true;
    return flag;
}

Argument bytes(std::size_t width, std::size_t counting, char first, char second) {
    std::string counts(counting, 'n'), values(width, first), others(width, second);
    counts.resize(width);
    for (std::size_t i = 1; i < width; i += 2) {
        std::swap(values[i], others[i]);
    }
    return {counts, values, others};
}

unsigned long ip(const char* text) {
    unsigned long address = 0;
    str_to_ip(&address, text);
    return address;
}

Argument hosts() {
    return {ip("192.0.2.10"), ip("192.0.2.129")};
}

namespace {

// An output that has none yet gets memory full of a byte.
int run(const Operation& operation, Arguments& arguments, unsigned long index, char fill) {
    for (Argument& argument : arguments) {
        argument.fill = fill;
        argument.numbers[0] = argument.is_index ? index : argument.numbers[0];
    }
    return operation.call(arguments.data());
}

// The first byte that counts and differs, or npos. A text counts up to its end.
std::size_t first_difference(const Argument& one, const Argument& other) {
    bool has_ended = false;
    for (std::size_t i = 0; i < one.counts.size() && i < one.memory.size(); ++i) {
        if (one.counts[i] != '\0' && !has_ended && one.memory[i] != other.memory[i]) {
            return i;
        }
        has_ended = one.counts[i] == 't' && (has_ended || one.memory[i] == '\0');
    }
    return std::string::npos;
}

// Judges an argument after two reads into different fills.
std::string judge(const Argument& first, const Argument& second, int result) {
    const std::size_t width = result == 0 ? first.counts.size() : 0;
    for (std::size_t i = width; i < first.memory.size(); ++i) {
        if (first.memory[i] != first.fill || second.memory[i] != second.fill) {
            return formatted("expected %zu bytes with result %d, seen byte %zu", width, result, i);
        }
    }
    const std::size_t i = first_difference(first, second);
    return i >= width ? ""
                      : formatted("expected %zu bytes or a text, seen byte %zu %s", width, i,
                                  first.memory[i] == first.fill ? "not written" : "changed");
}

// A read beyond the range may well succeed, but is not judged then.
std::string try_getter(const Operation& get, const Arguments& arguments, unsigned long index,
                       bool is_beyond) {
    Arguments first = arguments, second = arguments;
    const int result = run(get, first, index, '\xa5');
    run(get, second, index, '\x5a');
    std::string found = result == 0 && !is_beyond ? "" : "SKIP";
    for (std::size_t i = 0; i < first.size() && !(is_beyond && result == 0); ++i) {
        const std::string fault = judge(first[i], second[i], result);
        found = fault.empty() ? found : fault + formatted(" (argument %zu, index %lu)", i, index);
    }
    return found;
}

// Reads what is expected at an index.
std::string read_back(const Operation& get, const Arguments& expected, Arguments seen,
                      unsigned long index, const char* what) {
    run(get, seen, index, '\0');
    const bool is_off = expected[0].is_switch && expected[0].input() == 0;
    for (std::size_t i = 0; i < (is_off ? 1 : expected.size()); ++i) {
        const std::size_t byte = first_difference(expected[i], seen[i]);
        if (byte != std::string::npos) {
            return formatted("expected %s, seen another byte %zu (argument %zu, index %lu)", what,
                             byte, i, index);
        }
    }
    return "";
}

// Sets what is wanted and reads it back, and what another index has.
std::string write(const Operation& get, const Operation& set, const Arguments& wanted,
                  const Arguments& arguments, unsigned long index, unsigned long other) {
    Arguments given = wanted, before = arguments;
    run(get, before, other, '\0');
    const int result = run(set, given, index, '\0');
    const std::string what = formatted("what is set, with result %d", result);
    const std::string found = read_back(get, wanted, arguments, index, what.c_str());
    return other == index || !found.empty()
               ? found
               : read_back(get, before, arguments, other, "what it was at another index");
}

// Sets both values, and then the old one.
std::string try_setter(const Operation& get, const Operation& set, const Arguments& arguments,
                       unsigned long index, unsigned long other) {
    Arguments before = arguments;
    if (run(get, before, index, '\0') != 0) {
        return "SKIP";
    }
    std::string found;
    for (const std::size_t value : {0U, 1U}) {
        Arguments wanted = before;
        for (Argument& argument : wanted) {
            for (std::size_t i = 0; i < argument.memory.size() && i < argument.counts.size(); ++i) {
                if (argument.counts[i] != '\0') {
                    argument.memory[i] = argument.values.at(value)[i];
                }
            }
        }
        found = found.empty() ? write(get, set, wanted, arguments, index, other) : found;
    }
    const std::string put_back = write(get, set, before, arguments, index, other);
    return put_back.empty() ? found : put_back + ", the old value";
}

// The indexes that exist, or 0 alone.
Argument range_of(const Arguments& arguments) {
    const auto index = std::find_if(arguments.begin(), arguments.end(),
                                    [](const Argument& argument) { return argument.is_index; });
    return index == arguments.end() ? Argument(0, 1) : *index;
}

} // namespace

void check_getter(const Operation& get, const Arguments& arguments) {
    const Argument range = range_of(arguments);
    const auto [first, end] = range.numbers;
    std::string outcome = first == end ? "SKIP the device has none" : "SKIP no read succeeds";
    for (unsigned long index = first; index <= end && !is_fault(outcome); ++index) {
        const std::string found = try_getter(get, arguments, index, index == end);
        outcome = found == "SKIP" ? outcome : found;
    }
    report(get.name, "fills its outputs and nothing else, twice the same",
           range.is_index || outcome.empty() || is_fault(outcome)
               ? outcome
               : "expected a read that succeeds, seen none");
}

void check_setting(const Operation& get, const Operation& set, const Arguments& arguments) {
    check_getter(get, arguments);
    writes.push_back([get, set, arguments] {
        const auto [first, end] = range_of(arguments).numbers;
        std::string outcome = "SKIP no old value can be read";
        for (unsigned long i = first; i < end && !is_fault(outcome) && stopped == 0; ++i) {
            const std::string found =
                try_setter(get, set, arguments, i, i + 1 < end ? i + 1 : first);
            outcome = found == "SKIP" ? outcome : found;
        }
        report(set.name, "what is set is read back, and then the old value", outcome);
    });
}

// In memory, which does not fill up in the middle of a write, as /tmp may.
FILE* written_document() {
    FILE* file = fdopen(memfd_create("document", 0), "w+");
    if (file == nullptr) {
        std::perror("switch-device-check: cannot hold a document");
        std::exit(2);
    }
    write_sections(file);
    std::rewind(file);
    return file;
}

Lines document_lines() {
    FILE* document = written_document();
    Lines lines;
    std::string section;
    char line[2048];
    while (std::fgets(line, sizeof line, document) != nullptr) {
        line[std::strcspn(line, "\n")] = '\0';
        section = line[0] == '[' ? line : section;
        const auto is = [&line](const char* key) {
            return std::strncmp(line, key, std::strlen(key)) == 0;
        };
        if (!is("Date ") && !is("Time ") && !is("Source Port") && !is("Destination Port")) {
            lines.push_back(section + " " + line);
        }
    }
    std::fclose(document);
    return lines;
}

// Names a key that differs, and never its value.
std::string difference(const Lines& expected, const Lines& seen) {
    const auto [one, other] =
        std::mismatch(expected.begin(), expected.end(), seen.begin(), seen.end());
    if (one == expected.end() && other == seen.end()) {
        return "";
    }
    const std::string& line = one == expected.end() ? *other : *one;
    return formatted("expected %zu lines in a backup, seen %zu and another %s", expected.size(),
                     seen.size(), line.substr(0, line.find('=')).c_str());
}

namespace {

// A row may have any place in its table, and so any number in its keys.
std::string table_difference(Lines expected) {
    Lines seen = document_lines();
    for (Lines* lines : {&expected, &seen}) {
        for (std::string& line : *lines) {
            const auto end = std::find(line.begin(), line.end(), '=');
            line.erase(std::remove_if(line.begin(), end, isdigit), end);
        }
        std::sort(lines->begin(), lines->end());
    }
    return difference(expected, seen);
}

void add_row(const Rows& rows, unsigned number, Lines& lines) {
    for (std::string line : rows.lines) {
        const std::size_t mark = line.find('#');
        line = mark == line.npos ? line : line.replace(mark, 1, std::to_string(number));
        lines.push_back(rows.section + line);
    }
}

// Adds rows and their lines until the table takes no more, and returns their numbers.
std::vector<unsigned> fill(const Change& insert, const Rows& rows, Lines& expected) {
    std::vector<unsigned> added;
    std::string outcome = rows.numbers.empty() ? "SKIP the table is full" : "";
    for (const unsigned number : rows.numbers) {
        if (is_fault(outcome) || stopped != 0) {
            break;
        }
        insert.make(number);
        if (!added.empty() && table_difference(expected).empty()) {
            break; // it takes no more
        }
        added.push_back(number);
        add_row(rows, number, expected);
        outcome = table_difference(expected);
    }
    report(insert.name, "every row up to the last is listed", outcome);
    return added;
}

} // namespace

std::vector<unsigned> numbers_of(int count, unsigned first) {
    std::vector<unsigned> numbers(static_cast<std::size_t>(std::max(count, 0)));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

void check_table(const Change& insert, const Change& remove, const Rows& rows) {
    writes.push_back([insert, remove, rows] {
        const Lines before = document_lines();
        Lines expected = before;
        const std::vector<unsigned> added = fill(insert, rows, expected);
        expected = before;
        for (std::size_t i = 0; i < added.size(); ++i) {
            i == added.size() / 2 ? remove.make(added[i]) : add_row(rows, added[i], expected);
        }
        report(remove.name, "the table closes up when a row in the middle is deleted",
               added.size() > 1 ? table_difference(expected) : "SKIP there are no rows of its own");
        std::for_each(added.begin(), added.end(), remove.make);
        report(remove.name, "the old rows are put back", table_difference(before));
    });
}

void check_lasting_table(const Change& insert, const Rows& rows) {
    fills.push_back([insert, rows] {
        Lines expected = document_lines();
        fill(insert, rows, expected);
    });
}
