#include "platform/check/check.h"

#include "platform/include/converters.h"

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int tried = 0;
int failed = 0;

Phrase::Phrase(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(chars, sizeof chars, format, arguments);
    va_end(arguments);
}

void report(const char* operation, const char* what, const Phrase& outcome) {
    const bool is_fault = outcome.is_fault();
    ++tried;
    failed += is_fault ? 1 : 0;
    std::printf("%sok %d - %s: %s%s%s\n", is_fault ? "not " : "", tried, operation, what,
                is_fault            ? "\n# "
                : outcome.is_skip() ? " # "
                                    : "",
                outcome.chars);
    std::fflush(stdout); // the library may crash
}

void expect(bool passed, const char* operation, const char* what, const Phrase& fault) {
    if (!writing) {
        report(operation, what, passed ? Phrase() : fault);
    }
}

namespace {

constexpr std::ptrdiff_t guard_size = 64;
constexpr unsigned char guard_byte = 0x96;
constexpr unsigned char fills[] = {0xa5, 0x5a};

// Where the bytes of a number are in an unsigned long.
unsigned char* low_bytes(unsigned long& number, std::size_t width) {
    auto* bytes = reinterpret_cast<unsigned char*>(&number);
    return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? bytes : bytes + sizeof number - width;
}

// The number after a mark, if that comes next.
unsigned long taken(const char*& text, char mark, unsigned long otherwise) {
    if (*text != mark) {
        return otherwise;
    }
    char* end = nullptr;
    const unsigned long number = std::strtoul(text + 1, &end, 10);
    text = end;
    return number;
}

// An argument, or a member of the last record.
struct Part {
    char name[24] = {};
    char kind = ' ';
    bool is_member = false;
    std::size_t width = 0, place = 0;
    unsigned long low = 0, high = 0;

    bool is_output() const { return kind != 'i' && kind != '#'; }
    bool is_text() const { return kind == 't' || kind == 'm' || kind == 'v'; }
    // Whether a byte does not count. An IPv4 address leaves most of its record unused.
    bool is_spare(std::size_t i) const {
        return kind == 'r' || !is_output() || (kind == 'p' && (i == 2 || i == 3 || i >= 8));
    }
};

// The described arguments in memory, with guard bytes around each. Without a fill all
// is zero, so that every text ends.
struct Memory {
    std::vector<Part> parts;
    unsigned char bytes[48 * 1024];

    Memory(const char* described, unsigned char fill, unsigned index);
    unsigned char* at(const Part& part) { return bytes + part.place; }
    void store(const Part& part, unsigned long value) {
        std::memcpy(at(part), low_bytes(value, part.width), part.width);
    }
    unsigned long number(const Part& part) {
        unsigned long value = 0;
        std::memcpy(low_bytes(value, part.width), at(part), part.width);
        return value;
    }
};

Memory::Memory(const char* text, unsigned char fill, unsigned index) {
    std::memset(bytes, fill == 0 ? 0 : guard_byte, sizeof bytes);
    std::size_t record = 0;
    std::size_t end = guard_size;
    for (; *text != '\0'; text += *text == ' ' ? 1 : 0) {
        Part part;
        const std::size_t length = std::strcspn(text, "@/");
        std::memcpy(part.name, text, length);
        text += length;
        part.is_member = *text == '@';
        record = part.is_member ? record : end;
        part.place = record + taken(text, '@', 0);
        part.width = text[1] == 'L' ? sizeof(long) : taken(text, '/', 0);
        text += *text == '/' ? 2 : 0;
        const unsigned long count = taken(text, '*', 1);
        const unsigned long distance = taken(text, '+', part.width);
        part.kind = std::strchr("= ", *text) == nullptr ? *text++ : ' ';
        part.low = taken(text, '=', 0);
        part.high = taken(text, '-', 0);
        end += part.is_member ? 0 : (part.width + 15) / 16 * 16 + 2 * guard_size;
        for (unsigned long i = 0; i < count; ++i, part.place += distance) {
            std::memset(at(part), fill, part.width);
            parts.push_back(part);
        }
        if (!part.is_output()) {
            store(parts.back(), part.kind == 'i' ? part.low : index);
        }
    }
}

int run(const Operation& operation, Memory& memory) {
    std::vector<Argument> arguments;
    for (const Part& part : memory.parts) {
        if (!part.is_member) {
            arguments.push_back(
                {memory.at(part), part.width <= sizeof(long) ? memory.number(part) : 0});
        }
    }
    return operation.call(arguments.data());
}

// The first byte of the value that differs, or the width.
std::size_t difference(const Part& part, const unsigned char* one, const unsigned char* other) {
    for (std::size_t i = 0; i < part.width; ++i) {
        if (one[i] != other[i] && !part.is_spare(i)) {
            return i;
        }
        if (part.is_text() && one[i] == '\0') {
            break;
        }
    }
    return part.width;
}

// Judges two reads into different fills.
Phrase judge(const Part& part, Memory& first, Memory& second, int result) {
    const auto width = static_cast<std::ptrdiff_t>(part.width);
    const unsigned char* bytes = first.at(part);
    for (std::ptrdiff_t i = -guard_size; i < width + guard_size && !part.is_member; ++i) {
        const bool is_inside = i >= 0 && i < width;
        const bool may_change = is_inside && (result == 0 || !part.is_output());
        if (!may_change && bytes[i] != (is_inside ? fills[0] : guard_byte)) {
            return {"expected %td bytes of %s after a result of %d, seen byte %td written",
                    result == 0 ? width : 0, part.name, result, i};
        }
    }
    const std::size_t i = difference(part, bytes, second.at(part));
    if (result == 0 && i < part.width) {
        return {"expected %zu bytes of %s%s, seen byte %zu %s",
                part.width,
                part.name,
                part.is_text() ? " or a shorter text" : "",
                i,
                bytes[i] == fills[0] ? "not written" : "changed in a second read"};
    }
    return {};
}

// A read beyond the range may well succeed, but is not judged then.
Phrase try_getter(const Operation& get, const char* described, unsigned index, bool is_beyond) {
    Memory first(described, fills[0], index);
    Memory second(described, fills[1], index);
    const int result = run(get, first);
    run(get, second);
    for (const Part& part : first.parts) {
        const Phrase found = judge(part, first, second, result);
        if (found.is_fault() && !(is_beyond && result == 0)) {
            return found;
        }
    }
    return result == 0 && !is_beyond ? Phrase() : Phrase("SKIP");
}

// Adds the outcome for an index: the first fault counts, and a skip only if all skip.
void add(Phrase& outcome, const Phrase& more, unsigned index) {
    if (more.is_fault() && !outcome.is_fault()) {
        outcome = {"%.180s (index %u)", more.chars, index};
    } else if (outcome.is_skip() && !more.is_skip()) {
        outcome = {};
    }
}

// Chooses one of the two values to set.
void choose(const Part& part, bool high, Memory& memory) {
    static constexpr const char* texts[] = {"abcdef0123456789", "fedcba9876543210fedcba9876543210"};
    static constexpr const char* mails[] = {"a@example.com", "0123456789abcdefghi@example.com"};
    static constexpr const char* vlans[] = {",4001,4003,4005", ",4001,4005"};
    static constexpr const char* addresses[] = {"192.0.2.10", "192.0.2.129", // then netmasks
                                                "255.255.255.0", "255.255.0.0"};
    auto* text = reinterpret_cast<char*>(memory.at(part));
    unsigned long value = high ? part.high : part.low;
    if (part.kind == 'v') {
        std::strncat(text, vlans[high] + (*text == '\0' ? 1 : 0), 20);
    } else if (part.is_text()) {
        std::snprintf(text, part.width, "%s", (part.kind == 'm' ? mails : texts)[high]);
    } else if (part.kind == 'p') {
        str_to_ipaddr(reinterpret_cast<ip_addr_t*>(text), addresses[high]);
    } else if (part.kind == 'a') {
        str_to_ip(&value, addresses[2 * part.low + high]);
        memory.store(part, value);
    } else if (part.kind == ' ') {
        memory.store(part, value);
    }
}

// Sets what is wanted and reads it back.
Phrase write(const Operation& get, const Operation& set, const char* described, unsigned index,
             Memory& wanted) {
    Memory given = wanted;
    Memory seen(described, 0, index);
    const int result = run(set, given);
    run(get, seen);
    for (const Part& part : wanted.parts) {
        const std::size_t i = difference(part, wanted.at(part), seen.at(part));
        if (i < part.width && part.kind == ' ') {
            return {"expected %s %lu after a result of %d, seen %lu", part.name,
                    wanted.number(part), result, seen.number(part)};
        }
        if (i < part.width) {
            return {"expected %s as set after a result of %d, seen another byte %zu", part.name,
                    result, i};
        }
    }
    return {};
}

// Sets both values, and then the old one.
void try_setter(const Operation& get, const Operation& set, const char* described, unsigned index,
                Phrase& outcome, Phrase& put_back) {
    Memory before(described, 0, index);
    if (run(get, before) != 0) {
        return;
    }
    for (const bool high : {false, true}) {
        Memory wanted = before;
        for (const Part& part : before.parts) {
            choose(part, high, wanted);
        }
        add(outcome, write(get, set, described, index, wanted), index);
    }
    add(put_back, write(get, set, described, index, before), index);
}

} // namespace

void check_getter(const Operation& get, const char* described, Range range) {
    if (writing) {
        return;
    }
    Phrase outcome = range.count == 0 ? "SKIP the device has none" : "SKIP no read succeeds";
    const unsigned beyond = range.first + range.count;
    for (unsigned index = range.first; index <= beyond; ++index) {
        add(outcome, try_getter(get, described, index, index == beyond), index);
    }
    report(get.name, "fills its outputs and nothing else, twice the same", outcome);
}

void check_setting(const Operation& get, const Operation& set, const char* described, Range range) {
    check_getter(get, described, range);
    if (!writing || stopped != 0) {
        return;
    }
    Phrase outcome = "SKIP no old value can be read";
    Phrase put_back = outcome;
    for (unsigned i = range.first; i < range.first + range.count && stopped == 0; ++i) {
        try_setter(get, set, described, i, outcome, put_back);
    }
    report(set.name, "what is set is read back", outcome);
    report(set.name, "the old value is put back", put_back);
}

namespace {

Row made(const Table& table, std::size_t n) {
    const std::string number = std::to_string(n);
    const std::string& detail = table.added.detail;
    return {table.added.name + number, detail.empty() ? "" : detail + number, table.added.number};
}

// Whether the first added of the rows made are listed, but for a deleted one.
Phrase judge_rows(const Table& table, std::size_t count, std::size_t added, std::size_t deleted) {
    const std::vector<Row> rows = table.read();
    for (std::size_t n = 0; n < added; ++n) {
        const Row wanted = made(table, n);
        const auto times = std::count_if(rows.begin(), rows.end(), [&wanted](const Row& row) {
            return row.name == wanted.name && row.detail == wanted.detail &&
                   row.number == wanted.number;
        });
        if (times != (n == deleted ? 0 : 1)) {
            return {"expected added row %zu %s, seen it %td times", n,
                    n == deleted ? "deleted" : "as given", times};
        }
    }
    return rows.size() == count ? Phrase()
                                : Phrase("expected %zu rows, seen %zu", count, rows.size());
}

} // namespace

void check_table(const Table& table) {
    if (!writing || stopped != 0) {
        return;
    }
    const std::size_t count = table.read().size();
    Phrase outcome = count < 15 ? "" : "SKIP the table is full";
    std::size_t added = 0;
    while (count + added < 15 && !outcome.is_fault() && stopped == 0) {
        table.insert(made(table, added));
        if (added > 0 && table.read().size() == count + added) {
            break; // the device takes no more
        }
        ++added;
        outcome = judge_rows(table, count + added, added, added);
    }
    report(table.insert_name, "every row up to the last is listed", outcome);
    table.remove(made(table, added / 2));
    outcome = added > 1 ? judge_rows(table, count + added - 1, added, added / 2)
                        : Phrase("SKIP there are no rows of its own");
    report(table.remove_name, "the table closes up when a row in the middle is deleted", outcome);
    for (std::size_t n = 0; n < added; ++n) {
        table.remove(made(table, n));
    }
    report(table.remove_name, "the old rows are put back", judge_rows(table, count, 0, 0));
}
