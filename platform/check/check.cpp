#include "platform/check/check.h"

#include "platform/include/converters.h"

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

void report(const char* operation, const char* what, const Phrase& found) {
    ++tried;
    failed += found.is_fault() ? 1 : 0;
    std::printf("%sok %d - %s: %s%s%s\n", found.is_fault() ? "not " : "", tried, operation, what,
                found.is_fault() ? "\n# "
                : found          ? " # "
                                 : "",
                found.chars);
    std::fflush(stdout); // a library that dies does so after the last line
}

void expect(bool passed, const char* operation, const char* what, const char* fault, ...) {
    if (writing) {
        return;
    }
    Phrase found;
    va_list arguments;
    va_start(arguments, fault);
    std::vsnprintf(found.chars, passed ? 1 : sizeof found.chars, fault, arguments);
    va_end(arguments);
    report(operation, what, found);
}

Phrase shown(int value) {
    return {"%d", value};
}

Phrase shown(const char* text) {
    return {"\"%s\"", text};
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

// An argument, or a member of the record before it.
struct Part {
    char name[24] = {};
    char kind = ' ';
    bool is_member = false;
    std::size_t width = 0;
    unsigned long low = 0, high = 0;
    std::size_t place = 0;

    bool is_output() const { return kind != 'i' && kind != '#'; }
    bool is_text() const { return kind == 't' || kind == 'm' || kind == 's' || kind == 'v'; }
    // Whether a byte is no part of the value. An IPv4 address has no use for all.
    bool is_spare(std::size_t i) const {
        return kind == 'r' || !is_output() || (kind == 'p' && (i == 2 || i == 3 || i >= 8));
    }
};

// The described arguments in memory, each between guard bytes.
struct Memory {
    Part parts[80];
    std::size_t count = 0;
    unsigned char bytes[12 * 1024];

    Memory(const char* described, unsigned char fill, unsigned index);
    const Part* begin() const { return parts; }
    const Part* end() const { return parts + count; }
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
    std::memset(bytes, guard_byte, sizeof bytes);
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
        const unsigned long repetitions = taken(text, '*', 1);
        const unsigned long distance = taken(text, '+', part.width);
        part.kind = std::strchr("= ", *text) == nullptr ? *text++ : ' ';
        part.low = taken(text, '=', 0);
        part.high = taken(text, '-', 0);
        end += part.is_member ? 0 : (part.width + 15) / 16 * 16 + 2 * guard_size;
        for (unsigned long i = 0; i < repetitions; ++i, part.place += distance) {
            std::memset(at(part), fill, part.width);
            parts[count++] = part;
        }
        if (!part.is_output()) {
            store(parts[count - 1], part.kind == 'i' ? part.low : index);
        }
    }
}

int run(const Operation& operation, Memory& memory) {
    Arguments arguments = {};
    std::size_t count = 0;
    for (const Part& part : memory) {
        if (!part.is_member) {
            arguments.places[count] = memory.at(part);
            arguments.numbers[count++] = part.width <= sizeof(long) ? memory.number(part) : 0;
        }
    }
    return operation.call(arguments);
}

Phrase judge_guards(const Part& part, Memory& memory) {
    const auto width = static_cast<std::ptrdiff_t>(part.width);
    for (std::ptrdiff_t i = -guard_size; i < width + guard_size && !part.is_member; ++i) {
        if ((i < 0 || i >= width) && memory.at(part)[i] != guard_byte) {
            return {"expected %zu bytes of %s, seen byte %td written", part.width, part.name, i};
        }
    }
    return {};
}

// An output that was left alone has the two fills. A call that fails leaves it so.
Phrase judge_output(const Part& part, const unsigned char* first, const unsigned char* second,
                    int result) {
    for (std::size_t i = 0; i < part.width && part.is_output(); ++i) {
        const bool is_written = first[i] != fills[0] || second[i] != fills[1];
        if (result != 0 && is_written) {
            return {"expected %s left alone by a call that returns %d, seen byte %zu written",
                    part.name, result, i};
        }
        if (result == 0 && !is_written && !part.is_spare(i)) {
            return {"expected %zu bytes of %s%s, seen byte %zu not written", part.width, part.name,
                    part.is_text() ? " or a shorter text" : "", i};
        }
        if (result == 0 && first[i] != second[i] && !part.is_spare(i)) {
            return {"expected the same %s in a second read, seen another byte %zu", part.name, i};
        }
        if (part.is_text() && first[i] == '\0' && result == 0) {
            break;
        }
    }
    return {};
}

Phrase try_getter(const Operation& get, const char* described, unsigned index) {
    Memory first(described, fills[0], index);
    Memory second(described, fills[1], index);
    const int result = run(get, first);
    run(get, second);
    for (const Part& part : first) {
        const Phrase guards = judge_guards(part, first);
        const Phrase found =
            guards ? guards : judge_output(part, first.at(part), second.at(part), result);
        if (found) {
            return found;
        }
    }
    return result == 0 ? Phrase() : Phrase("SKIP it returns %d", result);
}

// A device may have more than the range. It is only asked to fail cleanly.
Phrase try_beyond(const Operation& get, const char* described, unsigned index) {
    Memory memory(described, 0, index);
    const bool fails = run(get, memory) != 0;
    const Phrase found = fails ? try_getter(get, described, index) : Phrase();
    return found.is_fault() ? found : Phrase();
}

// Adds what is found at an index to what was found before.
void add(Phrase& found, const Phrase& more, const char* described, unsigned index) {
    if (!found.is_fault() && more) {
        const bool has_index = std::strchr(described, '#') != nullptr;
        found = has_index ? Phrase("%.180s (%u)", more.chars, index) : more;
    }
}

bool is_same(const Part& part, const unsigned char* wanted, const unsigned char* seen) {
    for (std::size_t i = 0; i < part.width; ++i) {
        if (wanted[i] != seen[i] && !part.is_spare(i)) {
            return false;
        }
        if (part.is_text() && wanted[i] == '\0') {
            break;
        }
    }
    return true;
}

Phrase shown(const Part& part, Memory& memory) {
    char address[64] = "";
    if (part.kind == 'a') {
        ip_to_str(address, memory.number(part));
    }
    return part.kind == ' ' ? Phrase("%lu", memory.number(part))
           : part.kind == 't' || part.kind == 'm'
               ? Phrase("%.60s", memory.at(part))
               : Phrase("%s", part.kind == 'a' ? address : "...");
}

// Sets what is wanted and reads it back.
Phrase write(const Operation& get, const Operation& set, const char* described, unsigned index,
             Memory& wanted) {
    Memory given = wanted;
    for (const Part& part : given) {
        if (part.is_text() && !part.is_member) {
            given.at(part)[part.width] = '\0';
        }
    }
    const int result = run(set, given);
    Memory seen(described, 0, index);
    run(get, seen);
    for (const Part& part : wanted) {
        if (!is_same(part, wanted.at(part), seen.at(part))) {
            return {"expected %s %s, seen %s after a result of %d", part.name,
                    shown(part, wanted).chars, shown(part, seen).chars, result};
        }
    }
    return {};
}

// Puts one of the two values to try into an output.
void choose(const Part& part, bool high, Memory& memory) {
    static constexpr const char* texts[] = {"abcdef0123456789", "fedcba9876543210fedcba9876543210"};
    static constexpr const char* mails[] = {"a@example.com", "0123456789abcdefghi@example.com"};
    static constexpr const char* hosts[] = {"192.0.2.10", "192.0.2.129"};
    static constexpr const char* masks[] = {"255.255.255.0", "255.255.0.0"};
    unsigned char* bytes = memory.at(part);
    unsigned long value = high ? part.high : part.low;
    if (part.kind == 'v') {
        const char* more = high ? ",4001,4005" : ",4001,4003,4005";
        std::strncat(reinterpret_cast<char*>(bytes), more + (*bytes == 0 ? 1 : 0), 20);
    } else if (part.is_text()) {
        const char* chosen = (part.kind == 'm' ? mails : texts)[high];
        std::memset(bytes, 0, part.width);
        std::memcpy(bytes, chosen, strnlen(chosen, part.width - 1));
    } else if (part.kind == 'b') {
        std::memset(bytes, static_cast<int>(value), part.width);
    } else if (part.kind == 'p') {
        std::memset(bytes, 0, part.width);
        str_to_ipaddr(reinterpret_cast<ip_addr_t*>(bytes), hosts[high]);
    } else if (part.kind == 'a') {
        str_to_ip(&value, (part.low == 0 ? hosts : masks)[high]);
        memory.store(part, value);
    } else if (part.kind == ' ') {
        memory.store(part, value);
    }
}

// Sets both values to try, and then the old one again.
Phrase try_setter(const Operation& get, const Operation& set, const char* described, unsigned index,
                  Phrase& not_put_back) {
    Memory before(described, 0, index);
    if (run(get, before) != 0) {
        return {"SKIP its old value cannot be read"};
    }
    Phrase found;
    for (const bool high : {false, true}) {
        Memory wanted = before;
        for (const Part& part : before) {
            choose(part, high, wanted);
        }
        found = found ? found : write(get, set, described, index, wanted);
    }
    add(not_put_back, write(get, set, described, index, before), described, index);
    return found;
}

} // namespace

void check_getter(Operation get, const char* described, Range range) {
    if (writing) {
        return;
    }
    Phrase found = range.count == 0 ? Phrase("SKIP the device has none") : Phrase();
    const unsigned beyond = range.first + range.count;
    for (unsigned index = range.first; index < beyond; ++index) {
        add(found, try_getter(get, described, index), described, index);
    }
    add(found, try_beyond(get, described, beyond), described, beyond);
    report(get.name, "fills its outputs and nothing else, twice the same", found);
}

void check_setting(Operation get, Operation set, const char* described, Range range) {
    check_getter(get, described, range);
    if (!writing || stopped != 0) {
        return;
    }
    Phrase found;
    Phrase not_put_back;
    for (unsigned i = range.first; i < range.first + range.count && stopped == 0; ++i) {
        add(found, try_setter(get, set, described, i, not_put_back), described, i);
    }
    report(set.name, "what is set is read back", found);
    report(set.name, "the old value is put back", not_put_back);
}

namespace {

Row made(const Table& table, unsigned n) {
    Row row;
    row.number = table.number;
    std::snprintf(row.name, sizeof row.name, "check-%u", n);
    std::snprintf(row.detail, sizeof row.detail, "192.0.2.%u", 100 + n);
    return row;
}

unsigned times_listed(const Rows& rows, const Row& wanted) {
    unsigned times = 0;
    for (const Row* row = rows.list; row != rows.list + rows.count; ++row) {
        const bool same_detail = row->detail[0] == '\0' || !std::strcmp(row->detail, wanted.detail);
        times +=
            row->number == wanted.number && !std::strcmp(row->name, wanted.name) && same_detail;
    }
    return times;
}

// Of the rows made, the first added are listed, but for a deleted one.
Phrase judge_rows(const Table& table, unsigned count, unsigned added, unsigned deleted) {
    const Rows rows = table.read();
    for (unsigned n = 0; n < added; ++n) {
        const unsigned times = times_listed(rows, made(table, n));
        if (times != (n == deleted ? 0 : 1)) {
            return {"expected added row %u %s, seen it %u times", n,
                    n == deleted ? "deleted" : "as it was given", times};
        }
    }
    return rows.count == count ? Phrase() : Phrase("expected %u rows, seen %u", count, rows.count);
}

} // namespace

void check_table(const Table& table) {
    if (!writing || stopped != 0) {
        return;
    }
    const unsigned count = table.read().count;
    Phrase found = count < 15 ? Phrase() : Phrase("SKIP the table is full");
    unsigned added = 0;
    while (count + added < 15 && !found && stopped == 0) {
        table.insert(made(table, added));
        if (added > 0 && table.read().count == count + added) {
            break; // the device takes no more
        }
        ++added;
        found = judge_rows(table, count + added, added, added);
    }
    report(table.insert_name, "every row up to the last is listed", found);
    table.remove(made(table, added / 2));
    found = added > 1 ? judge_rows(table, count + added - 1, added, added / 2)
                      : Phrase("SKIP there are no rows of its own");
    report(table.remove_name, "the table closes up when a row in the middle is deleted", found);
    for (unsigned n = 0; n < added; ++n) {
        table.remove(made(table, n));
    }
    report(table.remove_name, "the old rows are put back", judge_rows(table, count, 0, 0));
}
