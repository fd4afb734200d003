// What the checks of a device library are made of. Each try prints one line of
// the Test Anything Protocol. No secret is ever printed.
#pragma once

#include "frame/document.h"

#include <csignal>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

inline int tried = 0, failed = 0;              // lines printed
inline volatile std::sig_atomic_t stopped = 0; // the signal that asked to stop, or 0

[[gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...);
std::string hex(const void* bytes, std::size_t size);

// The outcome is empty when all is well, "SKIP ..." when nothing could be judged, and
// for a fault "expected ..., seen ...".
void report(const char* operation, const std::string& what, const std::string& outcome);
void expect(const char* operation, const std::string& what, const std::string& expected,
            const std::string& seen);

// An argument becomes whatever an operation takes: for a getter that takes a pointer, an
// output with guard bytes after it, and for its setter what has been read into that.
struct Argument {
    unsigned long number; // passed by value
    unsigned long end;    // of an index: each from the number up to here
    bool is_index;
    // The bytes of an output: 'n' in a number or an array, 't' in a text, 'r' in a record,
    // which may have gaps. Empty: as its type says.
    std::string kinds;
    std::string memory = {}; // of an output, after a call
    char fill = '\0';

    Argument(unsigned long value = 0, unsigned long limit = 0, bool runs = false,
             const std::string& bytes = "")
        : number(value), end(limit), is_index(runs), kinds(bytes) {}

    void* output(std::size_t width, char kind);
    unsigned long input() const;
    template <typename Type>
    explicit operator Type() {
        if constexpr (std::is_pointer_v<Type>) {
            using Pointee = std::remove_pointer_t<Type>;
            return static_cast<Type>(output(sizeof(Pointee), std::is_class_v<Pointee> ? 'r' : 'n'));
        } else if constexpr (std::is_class_v<Type>) {
            return *static_cast<Type*>(output(sizeof(Type), 'r'));
        } else {
            return static_cast<Type>(input());
        }
    }
};

inline Argument index_up_to(unsigned long end, unsigned long first = 0) {
    return {first, end, true};
}

inline Argument bytes(std::size_t width, char kind = 'n') {
    return {0, 0, false, std::string(width, kind)};
}

inline Argument text(std::size_t width) {
    return bytes(width, 't');
}

// A function or a lambda of any type. It takes as many arguments as it has parameters.
struct Operation {
    std::function<int(Argument*)> call = {};

    Operation() = default;
    template <typename Result, typename... Types>
    Operation(Result (*function)(Types...))
        : call([function](Argument* argument) {
              const auto next = [&argument]() -> Argument& { return *argument++; };
              const std::tuple<Types...> passed{static_cast<Types>(next())...};
              if constexpr (std::is_void_v<Result>) {
                  return std::apply(function, passed), 0;
              } else {
                  return static_cast<int>(std::apply(function, passed));
              }
          }) {}
    template <typename Lambda>
    Operation(Lambda lambda) : Operation(+lambda) {}
};

// A getter writes the full width of its outputs and no more, returns the same twice, and
// writes nothing when it fails. Arguments that are not given are numbers and records. Where
// a document does not hold all that there is, a setter puts back what the getter has read.
void check_getter(const char* name, const Operation& get,
                  const std::vector<Argument>& arguments = {}, const Operation& set = {});
void check_getters(const std::string& names, const std::vector<Operation>& getters);

#define NAMED(function) #function, function
#define GETTER(get, ...) check_getter(NAMED(get), {__VA_ARGS__})
#define GETTERS(...) check_getters(#__VA_ARGS__, {__VA_ARGS__})
#define KEPT(get, set, ...) check_getter(NAMED(get), {__VA_ARGS__}, set)

// What restore is tried with, "section:key=first|second|third;another key=..." in lower
// case. All keys get their first value, then the second, and so on; -1 stands for a document
// without the key. Of keys that count, # is the number in key and value; if they have two
// values, some numbers get one and some the other at a time, so that a port that also sets
// another is noticed. Keys without values are not set, but a change of what begins with them
// is a fault of the operation.
//
// Restore empties and fills a table, whose first value is -1. Then remove is the operation
// that deletes a row.
void setting(const char* operation, const std::string& keys, int count = 0, int first = 1,
             const char* remove = nullptr);

// One for --fill, in a row that no operation deletes.
void lasting_setting(const char* operation, const std::string& keys, int number);

inline const std::string texts_of_29 = "a.example.com|0123456789abcdefghi.a.example";
inline const std::string texts_of_31 = "a.example.com|0123456789abcdefghi.example.com";

using Document = std::map<std::string, std::string>; // "section:key" in lower case

Document written_document();
void move_rows_up(Document& document, const std::string& key, int number); // to this one
void add_static_vlans(Document& document); // "static vlan table:ID", of three unused IDs

void check_backup(); // that check accepts it
void check_same(const Document& before);

// Whether check accepts or refuses "key=value;another key=value" because of what an operation
// says. The other keys, and the section, have the same form.
void check_verdict(const char* operation, bool is_good, const std::string& others,
                   const std::string& keys);
void check_addresses();
void check_vlan_lists();

// Restores the values of the settings, and at the end the old ones.
void check_settings();
void check_lasting_settings();

// Delete rows that settings have added: accounts, and a community and a receiver in the
// middle, behind which the others move up.
void delete_accounts(Document& document, int count);
void delete_snmp_rows(Document& document);

// A validator returns nonzero in the low 8 bits for what it accepts.
template <typename Result, typename Value>
bool is_accepted(Result (*accepts)(Value), Value value) {
    return static_cast<char>(accepts(value)) != 0;
}

template <typename Result, typename Value, typename Values = std::initializer_list<Value>>
void check_validator(const char* name, Result (*accepts)(Value), Values usual, Values wrong) {
    const auto verdict = [accepts](Value value) {
        return is_accepted(accepts, value) ? "another" : "0 in the low 8 bits";
    };
    for (const Value value : usual) {
        expect(name, "accepts what the device has, or a usual value", "another", verdict(value));
    }
    for (const Value value : wrong) {
        expect(name, "refuses what no device takes", "0 in the low 8 bits", verdict(value));
    }
}

// The first two numbers that a validator accepts, as values of a setting.
template <typename Result>
std::string accepted(Result (*accepts)(int)) {
    std::string found;
    for (int value = 0; value < 0x10000 && found.find('|') == found.npos; ++value) {
        if (is_accepted(accepts, value)) {
            found += (found.empty() ? "" : "|") + std::to_string(value);
        }
    }
    return found;
}

// The groups of headers, one file each.
void check_converters();
void check_ports();
void check_system();
void check_security();
void check_services();
void check_switching();
