#include "platform/check/check.h"

#include "frame/section_order.h"
#include "platform/include/ports.h"

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdlib>
#include <set>

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

static bool starts_with(const std::string& text, const char* start) {
    return text.compare(0, std::strlen(start), start) == 0;
}

void report(const char* operation, const std::string& what, const std::string& outcome) {
    const bool is_fault = starts_with(outcome, "expected");
    ++tried;
    failed += is_fault ? 1 : 0;
    std::printf("%sok %d - %s: %s%s%s\n", is_fault ? "not " : "", tried, operation, what.c_str(),
                outcome.empty() ? ""
                : is_fault      ? "\n# "
                                : " # ",
                outcome.c_str());
    std::fflush(stdout); // the library may crash
}

void expect(const char* operation, const std::string& what, const std::string& expected,
            const std::string& seen) {
    report(operation, what, seen == expected ? "" : "expected " + expected + ", seen " + seen);
}

void* Argument::output(std::size_t width, char kind) {
    if (kinds.empty()) {
        kinds.assign(width, kind);
    }
    memory.resize(kinds.size() + 64, fill);
    return memory.data();
}

unsigned long Argument::input() const {
    unsigned long value = memory.empty() ? number : 0;
    auto* bytes = reinterpret_cast<char*>(&value);
    if (!memory.empty()) {
        const bool is_little = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
        memory.copy(is_little ? bytes : bytes + sizeof value - kinds.size(), kinds.size());
    }
    return value;
}

static std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t start = 0, end = 0; start < text.size(); start = end + 1) {
        end = std::min(text.find(separator, start), text.size());
        parts.push_back(text.substr(start, end - start));
    }
    return parts;
}

namespace {

using Arguments = std::vector<Argument>;

// Sets again what has been read.
std::vector<std::function<void()>> kept;

// What a getter returns into outputs full of a byte.
int run(const Operation& get, Arguments& arguments, unsigned long index, char fill) {
    for (Argument& argument : arguments) {
        argument.number = argument.is_index ? index : argument.number;
        argument.fill = fill;
    }
    return get.call(arguments.data());
}

// Judges an argument after two reads into different fills.
std::string judge(const Argument& first, const Argument& second, int result) {
    const std::size_t width = result == 0 ? first.kinds.size() : 0;
    for (std::size_t i = 0; i < first.memory.size(); ++i) {
        const bool is_same = first.memory[i] == second.memory[i];
        const bool is_left = first.memory[i] == first.fill && second.memory[i] == second.fill;
        if (i >= width ? !is_left : !is_same && !(is_left && first.kinds[i] == 'r')) {
            return formatted("expected %zu bytes with result %d, seen byte %zu %s", width, result,
                             i, is_left ? "not written" : "changed");
        }
        if (i < width && first.kinds[i] == 't' && first.memory[i] == '\0') {
            i = width - 1; // the rest of its field does not count
        }
    }
    return "";
}

// Reads at each index, and beyond them, where a read may well succeed.
std::string try_getter(const Operation& get, const Operation& set, Arguments arguments) {
    arguments.resize(arguments.size() + 10); // as many as any has
    const auto found = std::find_if(arguments.begin(), arguments.end(),
                                    [](const Argument& argument) { return argument.is_index; });
    const Argument range = found != arguments.end() ? *found : index_up_to(1);
    std::string outcome = range.number == range.end  ? "SKIP the device has none"
                          : found != arguments.end() ? "SKIP no read succeeds"
                                                     : "expected a read that succeeds, seen none";
    for (unsigned long index = range.number; index <= range.end; ++index) {
        Arguments one = arguments, other = arguments, last = arguments;
        const int result = run(get, one, index, '\xa5');
        run(get, other, index, '\x5a');
        if (result == 0 && index == range.end) {
            break;
        }
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            const std::string fault = judge(one[i], other[i], result);
            if (!fault.empty()) {
                return fault + formatted(" (argument %zu, index %lu)", i, index);
            }
        }
        if (result == 0) {
            outcome = "";
        }
        if (result == 0 && set.call != nullptr) {
            run(get, last, index, '\0');
            kept.push_back([set, last]() mutable { set.call(last.data()); });
        }
    }
    return outcome;
}

} // namespace

void check_getter(const char* name, const Operation& get, const Arguments& arguments,
                  const Operation& set) {
    report(name, "fills its outputs and nothing else, twice the same",
           try_getter(get, set, arguments));
}

void check_getters(const std::string& names, const std::vector<Operation>& getters) {
    const std::vector<std::string> each = split(names, ',');
    for (std::size_t i = 0; i < getters.size(); ++i) {
        check_getter(each[i].c_str() + (i > 0 ? 1 : 0), getters[i]); // after the space
    }
}

Document written_document() {
    Document document;
    FILE* file = std::tmpfile(); // without a name, since a document holds secrets
    if (file == nullptr) {
        std::perror("switch-device-check: cannot create a temporary file");
        std::exit(2);
    }
    write_sections(file);
    std::rewind(file);
    dictionary* ini = load_document(formatted("/proc/self/fd/%d", fileno(file)).c_str());
    std::fclose(file);
    if (ini == nullptr) {
        return document;
    }
    for (int i = 0; i < static_cast<int>(ini->size); ++i) {
        if (ini->key[i] != nullptr && ini->val[i] != nullptr) {
            document[ini->key[i]] = ini->val[i];
        }
    }
    iniparser_freedict(ini);
    add_static_vlans(document);
    return document;
}

void move_rows_up(Document& document, const std::string& key, int number) {
    while (document.count(key + std::to_string(number + 1)) > 0) {
        document[key + std::to_string(number)] = document[key + std::to_string(number + 1)];
        ++number;
    }
    document.erase(key + std::to_string(number));
}

namespace {

dictionary* loaded(const Document& document) {
    dictionary* ini = dictionary_new(0);
    for (const auto& [key, value] : document) {
        dictionary_set(ini, key.c_str(), value.c_str());
    }
    return ini;
}

// The code that check reports, or 0.
int code_of(const Document& document) {
    char code[32] = "";
    FILE* error_file = fmemopen(code, sizeof code, "w");
    dictionary* ini = loaded(document);
    check_sections(ini, error_file);
    iniparser_freedict(ini);
    std::fclose(error_file);
    return document.empty() ? 211 : std::atoi(code);
}

// Restores all but the accounts and SNMP users that the device has, which may come twice.
void restore(const Document& wanted, const Document& before) {
    Document document = wanted;
    for (const auto& [key, value] : before) {
        const bool is_row = starts_with(key, "snmp settings:snmp v3") ||
                            (starts_with(key, "password:") && isdigit(key.back()) != 0);
        const auto same = wanted.find(key);
        if (is_row && same != wanted.end() && same->second == value) {
            document.erase(key);
        }
    }
    dictionary* ini = loaded(document);
    restore_sections(ini, 0);
    iniparser_freedict(ini);
}

// What a restore brings back: not the clock, the ports of a rule, and those of mirroring
// that is off. The device chooses the slots of accounts and rules, whose numbers are in
// the keys: the name of the account or the index of the rule takes their place.
Document restored_part(const Document& document) {
    Document part = document;
    part.erase("sntp setting:date");
    part.erase("sntp setting:time");
    if (part["port mirror setting:enable state"] == "0") {
        part.erase("port mirror setting:source port");
        part.erase("port mirror setting:destination port");
    }
    for (const auto& [key, value] : document) {
        const std::size_t slot = std::min(key.find_first_of("0123456789"), key.size());
        const std::size_t end = std::min(key.find_first_not_of("0123456789", slot), key.size());
        const bool is_rule = starts_with(key, "acl setting:");
        const auto name = document.find(is_rule ? key.substr(0, end) + " index_id"
                                                : "password:user name" + key.substr(slot));
        if (name != document.end() && (is_rule || starts_with(key, "password:"))) {
            part.erase(key);
            if (key.find("source_interface") == key.npos) {
                part[key.substr(0, slot) + name->second + key.substr(end)] = value;
            }
        }
    }
    return part;
}

// What is wrong with each key that differs.
Document differences(const Document& expected, const Document& seen) {
    const Document one = restored_part(expected), other = restored_part(seen);
    Document found;
    for (const auto& [key, value] : one) {
        const auto same = other.find(key);
        if (same == other.end() || same->second != value) {
            found[key] = "expected " + key + ", seen " + (same == other.end() ? "none" : "another");
        }
    }
    for (const auto& [key, value] : other) {
        if (one.count(key) == 0) {
            found[key] = "expected none, seen " + key;
        }
    }
    return found;
}

// A key that is set, or, without values, what keys begin with.
struct Row {
    const char* operation;
    const char* remove; // of a table, else null
    int first;          // number
    int index;          // among those that count
    int count;
    std::vector<std::string> values;
};
std::map<std::string, Row> rows, lasting_rows; // by their keys

std::string numbered(std::string text, int number) {
    const std::size_t mark = text.find('#');
    return mark == text.npos ? text : text.replace(mark, 1, std::to_string(number));
}

// The document of a turn.
Document changed(Document document, int turn) {
    for (const auto& [key, row] : rows) {
        const bool alternates = row.count > 0 && row.values.size() == 2;
        const auto which =
            static_cast<unsigned>(alternates ? (row.index >> turn / 2) ^ turn : turn);
        const std::string value = row.values.empty() ? "" : row.values[which % row.values.size()];
        if (is_absent(value.c_str())) {
            document.erase(key);
        } else if (!row.values.empty()) {
            document[key] = numbered(value, row.first + row.index);
        }
    }
    return document;
}

// The text after each key of a section.
Document parsed(const std::string& keys) {
    const std::string section = keys.substr(0, keys.find(':') + 1);
    Document texts;
    for (const std::string& part : split(keys.substr(section.size()), ';')) {
        const std::size_t end = std::min(part.find('='), part.size());
        texts[section + part.substr(0, end)] = part.substr(std::min(end + 1, part.size()));
    }
    return texts;
}

const Row& owner_of(const std::string& key) {
    static const Row none{"restore", nullptr, 0, 0, 0, {}};
    const auto own = rows.find(key);
    const auto prefix = std::find_if(rows.begin(), rows.end(), [&key](const auto& row) {
        return row.second.values.empty() && starts_with(key, row.first.c_str());
    });
    return own != rows.end() ? own->second : prefix != rows.end() ? prefix->second : none;
}

std::set<std::string> faulty; // operations

// Reports the first key of each operation. A table may take fewer rows than it is given.
void compare(const Document& expected, const char* what, bool is_deleted = false) {
    const Document seen = written_document();
    std::set<std::string> reported;
    for (const auto& [key, fault] : differences(expected, seen)) {
        const Row& row = owner_of(key);
        const bool is_left = is_deleted || expected.count(key) == 0;
        const bool is_refused = row.remove != nullptr && row.index > 0 && seen.count(key) == 0;
        const char* operation = is_left && row.remove != nullptr ? row.remove : row.operation;
        if (!is_refused && reported.insert(operation).second) {
            report(operation, what, fault);
            faulty.insert(operation);
        }
    }
}

// The operations in which compare has found no fault.
void report_others(const char* what, const char* outcome) {
    for (const auto& [key, row] : rows) {
        const bool is_tried = !row.values.empty() || row.remove != nullptr;
        for (const char* operation : {row.operation, row.remove}) {
            if (is_tried && operation != nullptr && faulty.insert(operation).second) {
                report(operation, what, outcome);
            }
        }
    }
}

} // namespace

void setting(const char* operation, const std::string& keys, int count, int first,
             const char* remove) {
    for (const auto& [key, values] : parsed(keys)) {
        for (int index = 0; index < std::max(count, 1); ++index) {
            rows[numbered(key, first + index)] = {operation, remove, first,
                                                  index,     count,  split(values, '|')};
        }
    }
}

void lasting_setting(const char* operation, const std::string& keys, int number) {
    rows.swap(lasting_rows);
    setting(operation, keys, 1, number);
    rows.swap(lasting_rows);
}

void check_verdict(const char* operation, bool is_good, const std::string& others,
                   const std::string& keys) {
    const Document before = written_document();
    Document document = parsed(others + keys);
    document.insert(before.begin(), before.end());
    const int own = code_of(before), code = code_of(document);
    report(operation, (is_good ? "accepts " : "refuses ") + keys,
           (code == own) == is_good ? ""
           : own != 0
               ? "SKIP check refuses the device's own document"
               : formatted("expected %s, seen code %d", is_good ? "no code" : "a code", code));
}

void check_backup() {
    const int code = code_of(written_document());
    report("backup", "check accepts the document",
           code == 0 || (code == 294 && g_ucMaxPhyPort < 8)
               ? ""
               : formatted("expected no code, seen %d: see docs/porting.md", code));
}

void check_same(const Document& before) {
    const Document found = differences(before, written_document());
    report("backup", "the document is the same before and after",
           found.empty() ? "" : found.begin()->second);
}

void check_settings() {
    const Document before = written_document();
    for (int turn = 0; turn < 6 && faulty.empty() && stopped == 0; ++turn) {
        Document wanted = changed(before, turn);
        restore(wanted, before);
        compare(wanted, "what is set is read back");
        if (faulty.empty()) {
            delete_accounts(wanted, 1);
            delete_snmp_rows(wanted);
            compare(wanted, "the others stay", true);
        }
        delete_accounts(wanted, 15);
    }
    const bool is_complete = faulty.empty() && stopped == 0;
    restore(before, before);
    for (const auto& set : kept) {
        set();
    }
    compare(before, "the old value is put back");
    report_others("what is set is read back, and then the old value",
                  is_complete ? "" : "SKIP it was not tried to the end");
}

void check_lasting_settings() {
    const Document before = written_document();
    rows = lasting_rows;
    faulty.clear();
    restore(changed(before, 1), before);
    compare(changed(before, 1), "each row is listed");
    report_others("each row is listed", "");
}
