#include "platform/check/check.h"

#include "platform/include/converters.h"

#include <cstdarg>
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
    Phrase found;
    va_list arguments;
    va_start(arguments, fault);
    std::vsnprintf(found.chars, sizeof found.chars, fault, arguments);
    va_end(arguments);
    report(operation, what, passed ? Phrase() : found);
}

void judge(const char* name, bool is_accepted, bool is_own, const Phrase& value) {
    expect(is_accepted == is_own, name,
           is_own ? "accepts what the device has" : "refuses what no device takes",
           "expected %s in the low 8 bits for %s, seen the opposite", is_own ? "not 0" : "0",
           value.chars);
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

bool is_output(const Part& part) {
    return part.kind != Part::input && part.kind != Part::index;
}

bool is_text(const Part& part) {
    return part.kind == Part::text || part.kind == Part::mail || part.kind == Part::secret;
}

// Whether a byte is no part of a value: in a record, or what an IPv4 address has no use for.
bool is_spare(const Part& part, std::size_t byte) {
    return part.kind == Part::record || !is_output(part) ||
           (part.kind == Part::ip && (byte == 2 || byte == 3 || byte >= 8));
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

} // namespace

Parts::Parts(const char* text) {
    std::size_t next = guard_size;
    std::size_t argument = 0;
    for (; *text != '\0'; text += *text == ' ' ? 1 : 0) {
        Part part = {};
        part.name = text;
        part.name_length = static_cast<int>(std::strcspn(text, "@/"));
        text += part.name_length;
        part.is_member = *text == '@';
        part.place = part.is_member ? arguments[argument - 1]->place + taken(text, '@', 0) : next;
        const bool is_long = text[1] == 'L';
        part.width = taken(text, '/', 0);
        if (is_long) {
            part.width = sizeof(long);
            ++text;
        }
        const unsigned long repetitions = taken(text, '*', 1);
        const unsigned long distance = taken(text, '+', part.width);
        part.kind = std::strchr(" =", *text) != nullptr ? Part::number : Part::Kind{*text++};
        part.low = taken(text, '=', 0);
        part.high = taken(text, '-', 0);
        if (!part.is_member) {
            arguments[argument++] = &list[count];
            next += (part.width + 15) / 16 * 16 + 2 * guard_size;
        }
        for (unsigned long i = 0; i < repetitions; ++i, part.place += distance) {
            list[count++] = part;
        }
    }
}

Arguments::Arguments(const Parts& described, unsigned char fill, unsigned number)
    : parts(described) {
    std::memset(memory, guard_byte, sizeof memory);
    for (const Part& part : parts) {
        unsigned long value = part.kind == Part::input ? part.low : number;
        if (is_output(part)) {
            std::memset(at(part), fill, part.width);
        } else {
            std::memcpy(at(part), low_bytes(value, part.width), part.width);
        }
    }
}

unsigned long Arguments::number(const Part& part) const {
    unsigned long value = 0;
    std::memcpy(low_bytes(value, part.width), memory + part.place, part.width);
    return value;
}

namespace {

Phrase judge_guards(const Part& part, Arguments& arguments) {
    const auto width = static_cast<std::ptrdiff_t>(part.width);
    for (std::ptrdiff_t i = -guard_size; i < width + guard_size && !part.is_member; ++i) {
        if ((i < 0 || i >= width) && arguments.at(part)[i] != guard_byte) {
            return {"expected %zu bytes of %.*s, seen byte %td written", part.width,
                    part.name_length, part.name, i};
        }
    }
    return {};
}

// An output that was left alone has the two fills. A call that fails leaves it so.
Phrase judge_output(const Part& part, const unsigned char* first, const unsigned char* second,
                    int result) {
    for (std::size_t i = 0; i < part.width && is_output(part); ++i) {
        const bool is_written = first[i] != fills[0] || second[i] != fills[1];
        if (result != 0 && is_written) {
            return {"expected %.*s left alone by a call that returns %d, seen byte %zu written",
                    part.name_length, part.name, result, i};
        }
        if (result == 0 && !is_written && !is_spare(part, i)) {
            return {"expected %zu bytes of %.*s%s, seen byte %zu not written",
                    part.width,
                    part.name_length,
                    part.name,
                    is_text(part) ? " or a shorter text" : "",
                    i};
        }
        if (result == 0 && first[i] != second[i] && !is_spare(part, i)) {
            return {"expected the same %.*s in a second read, seen another byte %zu",
                    part.name_length, part.name, i};
        }
        if (is_text(part) && first[i] == '\0' && result == 0) {
            break;
        }
    }
    return {};
}

Phrase try_getter(const Operation& get, const Parts& parts, unsigned number) {
    Arguments first(parts, fills[0], number);
    Arguments second(parts, fills[1], number);
    const int result = get.call(first);
    get.call(second);
    for (const Part& part : parts) {
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
Phrase try_beyond(const Operation& get, const Parts& parts, unsigned number) {
    Arguments arguments(parts, 0, number);
    const bool fails = get.call(arguments) != 0;
    const Phrase found = fails ? try_getter(get, parts, number) : Phrase();
    return found.is_fault() ? found : Phrase();
}

// Adds what is found at an index to what was found before.
void add(Phrase& found, const Phrase& more, const Parts& parts, unsigned number) {
    if (found.is_fault() || !more) {
        return;
    }
    found = more;
    for (const Part& part : parts) {
        if (part.kind == Part::index) {
            found = {"%.150s (%.*s %u)", more.chars, part.name_length, part.name, number};
        }
    }
}

bool is_same(const Part& part, const unsigned char* wanted, const unsigned char* seen) {
    for (std::size_t i = 0; i < part.width; ++i) {
        if (wanted[i] != seen[i] && !is_spare(part, i)) {
            return false;
        }
        if (is_text(part) && wanted[i] == '\0') {
            break;
        }
    }
    return true;
}

Phrase shown(const Part& part, Arguments& arguments) {
    if (part.kind == Part::number) {
        return {"%lu", arguments.number(part)};
    }
    const bool is_shown = part.kind == Part::text || part.kind == Part::mail;
    return {"%.*s", static_cast<int>(part.width),
            is_shown ? reinterpret_cast<const char*>(arguments.at(part)) : "..."};
}

// Sets what is wanted and reads it back.
Phrase write(const Operation& get, const Operation& set, unsigned number, Arguments& wanted) {
    Arguments given = wanted;
    for (const Part& part : wanted.parts) {
        if (is_text(part) && !part.is_member) {
            given.at(part)[part.width] = '\0';
        }
    }
    const int result = set.call(given);
    Arguments seen(wanted.parts, 0, number);
    get.call(seen);
    for (const Part& part : wanted.parts) {
        if (!is_same(part, wanted.at(part), seen.at(part))) {
            return {"expected %.*s %.60s, seen %.60s after a result of %d",
                    part.name_length,
                    part.name,
                    shown(part, wanted).chars,
                    shown(part, seen).chars,
                    result};
        }
    }
    return {};
}

// Puts one of the two values to try into an output.
void choose(const Part& part, bool high, unsigned char* bytes) {
    static constexpr const char* texts[] = {"abcdef0123456789", "fedcba9876543210fedcba9876543210"};
    static constexpr const char* mails[] = {"a@example.com", "0123456789abcdefghi@example.com"};
    static constexpr const char* hosts[] = {"192.0.2.10", "192.0.2.129"};
    static constexpr const char* masks[] = {"255.255.255.0", "255.255.0.0"};
    unsigned long value = high ? part.high : part.low;
    if (is_text(part)) {
        const char* chosen = (part.kind == Part::mail ? mails : texts)[high];
        std::memset(bytes, 0, part.width);
        std::memcpy(bytes, chosen, strnlen(chosen, part.width - 1));
    } else if (part.kind == Part::bytes) {
        std::memset(bytes, static_cast<int>(value), part.width);
    } else if (part.kind == Part::ip) {
        std::memset(bytes, 0, part.width);
        str_to_ipaddr(reinterpret_cast<ip_addr_t*>(bytes), hosts[high]);
    } else if (part.kind == Part::address || part.kind == Part::number) {
        if (part.kind == Part::address) {
            str_to_ip(&value, (part.low == 0 ? hosts : masks)[high]);
        }
        std::memcpy(bytes, low_bytes(value, part.width), part.width);
    }
}

// Sets both values to try, and then the old one again.
Phrase try_setter(const Operation& get, const Operation& set, const Parts& parts, unsigned number,
                  Phrase& put_back) {
    Arguments before(parts, 0, number);
    if (get.call(before) != 0) {
        return {"SKIP its old value cannot be read"};
    }
    Phrase found;
    for (const bool high : {false, true}) {
        Arguments wanted = before;
        for (const Part& part : parts) {
            choose(part, high, wanted.at(part));
        }
        found = found ? found : write(get, set, number, wanted);
    }
    put_back = write(get, set, number, before);
    return found;
}

} // namespace

void check_getter(Operation get, const char* described, Range range) {
    const Parts parts(described);
    Phrase found = range.count == 0 ? Phrase("SKIP the device has none") : Phrase();
    const unsigned beyond = range.first + range.count;
    for (unsigned number = range.first; number < beyond; ++number) {
        add(found, try_getter(get, parts, number), parts, number);
    }
    add(found, try_beyond(get, parts, beyond), parts, beyond);
    report(get.name, "fills its outputs and nothing else, twice the same", found);
}

void check_setting(Operation get, Operation set, const char* described, Range range) {
    check_getter(get, described, range);
    if (!writing || stopped != 0) {
        return;
    }
    const Parts parts(described);
    Phrase found;
    Phrase not_put_back;
    for (unsigned i = range.first; i < range.first + range.count && stopped == 0; ++i) {
        Phrase put_back;
        add(found, try_setter(get, set, parts, i, put_back), parts, i);
        add(not_put_back, put_back, parts, i);
    }
    report(set.name, "what is set is read back", found);
    report(set.name, "the old value is put back", not_put_back);
}

namespace {

bool is_same(const Row& row, const Row& other) {
    const bool has_detail = row.detail[0] != '\0' && other.detail[0] != '\0';
    return std::strcmp(row.name, other.name) == 0 && row.number == other.number &&
           (!has_detail || std::strcmp(row.detail, other.detail) == 0);
}

// In any order: deleting may move rows.
Phrase judge_rows(const Rows& wanted, const Rows& seen) {
    for (unsigned i = 0; i < wanted.count; ++i) {
        unsigned times = 0;
        for (unsigned j = 0; j < seen.count; ++j) {
            times += is_same(wanted.list[i], seen.list[j]) ? 1 : 0;
        }
        if (times != 1) {
            return {"expected row %u once as it was given, seen %u like it", i + 1, times};
        }
    }
    return seen.count == wanted.count
               ? Phrase()
               : Phrase("expected %u rows, seen %u", wanted.count, seen.count);
}

Row made(const Table& table, unsigned n) {
    Row row;
    row.number = table.number;
    std::snprintf(row.name, sizeof row.name, "check-%u", n);
    std::snprintf(row.detail, sizeof row.detail, "192.0.2.%u", 100 + n);
    return row;
}

Phrase delete_row(const Table& table, Rows& rows, const Row& row) {
    for (unsigned i = 0; i < rows.count; ++i) {
        if (is_same(rows.list[i], row)) {
            rows.list[i] = rows.list[--rows.count];
            table.remove(row);
        }
    }
    return judge_rows(rows, table.read());
}

} // namespace

void check_table(const Table& table) {
    if (!writing || stopped != 0) {
        return;
    }
    Rows rows = table.read();
    Phrase found = rows.count < 15 ? Phrase() : Phrase("SKIP the table is full");
    unsigned added = 0;
    for (unsigned count = 0; rows.count < 15 && !found && stopped == 0 && count != rows.count;) {
        table.insert(made(table, added));
        count = table.read().count;
        if (added == 0 || count > rows.count) { // else the device takes no more
            rows.list[rows.count++] = made(table, added++);
            found = judge_rows(rows, table.read());
            count = 0;
        }
    }
    report(table.insert_name, "every row up to the last is listed", found);
    found = added > 1 ? delete_row(table, rows, made(table, added / 2)) : Phrase();
    report(table.remove_name, "the table closes up when a row in the middle is deleted", found);
    for (unsigned n = 0; n < added; ++n) {
        found = delete_row(table, rows, made(table, n));
    }
    report(table.remove_name, "the old rows are put back", found);
}
