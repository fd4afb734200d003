// What the checks of a device library are made of. Each try prints one line of
// the Test Anything Protocol. No secret is ever printed.
#pragma once

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

extern int tried, failed;                  // lines printed
extern volatile std::sig_atomic_t stopped; // the signal that asked to stop, or 0

// What reads is tried at once. What sets waits until all of that is well: first what can
// be undone, then what cannot.
extern std::vector<std::function<void()>> writes, fills;

[[gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...);
std::string hex(const void* bytes, std::size_t size);

// The outcome is empty when all is well, "SKIP ..." when nothing could be judged, and
// for a fault "expected ..., seen ...".
void report(const char* operation, const char* what, const std::string& outcome);
void expect(const char* operation, const char* what, const std::string& expected,
            const std::string& seen);
void expect(const char* operation, const char* what, long expected, long seen);

// An argument of a getter and its setter. It becomes whatever they take: for a getter
// that takes a pointer, an output with guard bytes after it.
struct Argument {
    std::array<unsigned long, 2> numbers = {}; // to set; the first is what is passed by value
    bool is_index = false;                     // by value: each from the first up to the second
    bool is_switch = false;                    // while it is 0, no other argument counts
    // An output that is no number: which bytes count ('t' in a text, else not zero), and
    // what to set.
    std::string counts = {};
    std::array<std::string, 2> values = {};
    std::string memory = {}; // during a call
    char fill = '\0';

    Argument(unsigned long first = 0, unsigned long second = 0, bool runs = false)
        : numbers{first, second}, is_index(runs) {}
    Argument(const std::string& counting, const std::string& first, const std::string& second)
        : counts(counting), values{first, second} {}

    void* at(std::size_t width, bool is_given);
    unsigned long input() const;
    template <typename Type>
    explicit operator Type() {
        if constexpr (std::is_pointer_v<Type>) {
            using Pointee = std::remove_pointer_t<Type>;
            return static_cast<Type>(at(sizeof(Pointee), std::is_const_v<Pointee>));
        } else if constexpr (std::is_class_v<Type>) {
            return *static_cast<Type*>(at(sizeof(Type), true));
        } else {
            return static_cast<Type>(input());
        }
    }
};
using Arguments = std::vector<Argument>;

inline Argument index_up_to(unsigned long end, unsigned long first = 0) {
    return {first, end, true};
}

// Values of which no two that are beside each other are the same.
Argument text(std::size_t width, char separator = '.', char start = 'a');
Argument bytes(std::size_t width, std::size_t counting, char first = 0, char second = 0);
Argument given(const std::string& text); // to a converter
Argument turned_on();                    // and when the old value is off, nothing else counts
unsigned long ip(const char* text);
Argument hosts(); // IPv4 addresses

// The record for counts is a static one, so that its padding is zero.
template <typename Record>
Argument record(const Record& counts, const Record& first = {}, const Record& second = {}) {
    const auto bytes_of = [](const Record& from) {
        return std::string(reinterpret_cast<const char*>(&from), sizeof from);
    };
    return {bytes_of(counts), bytes_of(first), bytes_of(second)};
}

// A function or a lambda of any type. It takes as many arguments as it has parameters.
struct Operation {
    const char* name;
    std::function<int(Argument*)> call;

    template <typename Result, typename... Types>
    Operation(const char* title, Result (*function)(Types...))
        : name(title), call([function](Argument* argument) {
              const auto next = [&argument]() -> Argument& { return *argument++; };
              const std::tuple<Types...> passed{static_cast<Types>(next())...};
              if constexpr (std::is_void_v<Result>) {
                  return std::apply(function, passed), 0;
              } else {
                  return static_cast<int>(std::apply(function, passed));
              }
          }) {}
    template <typename Lambda>
    Operation(const char* title, Lambda lambda) : Operation(title, +lambda) {}
};

// A getter writes the full width of its outputs and no more, returns the same twice, and
// writes nothing when it fails.
void check_getter(const Operation& get, const Arguments& arguments);

// The same, and with --write it returns what has been set.
void check_setting(const Operation& get, const Operation& set, const Arguments& arguments);

#define NAMED(function) #function, function
#define GETTER(get, ...) check_getter({NAMED(get)}, {__VA_ARGS__})
#define SETTING(get, set, ...) check_setting({NAMED(get)}, {NAMED(set)}, {__VA_ARGS__})

// What backup writes, but for the clock and the ports of mirroring, which may be off.
using Lines = std::vector<std::string>;
FILE* written_document();
Lines document_lines();
std::string difference(const Lines& expected, const Lines& seen);

// Inserts or removes a row by its number.
struct Change {
    const char* name;
    std::function<void(unsigned)> make;
};

// The numbers of the rows to add, and what backup writes in the section for each, with #
// for the number.
struct Rows {
    std::vector<unsigned> numbers;
    std::string section;
    Lines lines;
};

std::vector<unsigned> numbers_of(int count, unsigned first);

// With --write: fills the table, deletes from its middle, and then the other added rows.
void check_table(const Change& insert, const Change& remove, const Rows& rows);

// With --fill: fills a table whose rows no operation deletes.
void check_lasting_table(const Change& insert, const Rows& rows);

// A validator returns nonzero in the low 8 bits for what it accepts.
template <typename Result, typename Value, typename Values = std::initializer_list<Value>>
void check_validator(const char* name, Result (*accepts)(Value), Values own, Values wrong) {
    const auto verdict = [accepts](Value value) {
        return static_cast<char>(accepts(value)) == 0 ? "0 in the low 8 bits" : "another";
    };
    for (const Value value : own) {
        expect(name, "accepts what the device has, or a usual value", "another", verdict(value));
    }
    for (const Value value : wrong) {
        expect(name, "refuses what no device takes", "0 in the low 8 bits", verdict(value));
    }
}

// The first two numbers that a validator accepts, or twice the only one.
template <typename Result>
Argument accepted(Result (*accepts)(int)) {
    std::array<unsigned long, 2> found = {};
    for (unsigned long value = 0x10000, count = 0; value-- > 0;) {
        if (static_cast<char>(accepts(static_cast<int>(value))) != 0) {
            found = {value, count++ == 0 ? value : found[0]};
        }
    }
    return {found[0], found[1]};
}

template <typename Result>
int usual(Result (*accepts)(int)) {
    return static_cast<int>(accepted(accepts).numbers[0]);
}

// What a getter with one output reads, with room for one that writes too much.
template <typename Result, typename Value>
Value value_of(Result (*get)(Value*)) {
    Value values[64] = {};
    get(values);
    return values[0];
}

// The groups of headers, one file each.
void check_converters();
void check_ports();
void check_system();
void check_security();
void check_services();
void check_switching();
