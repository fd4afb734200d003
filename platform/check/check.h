// What the checks of a device library are made of. Each try prints one line of
// the Test Anything Protocol. No secret is ever printed.
#pragma once

#include <csignal>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

extern bool writing;                       // the second pass, which sets what can be set
extern volatile std::sig_atomic_t stopped; // the signal that asked to stop, or 0
extern int tried, failed;                  // lines printed

// A formatted text. As the outcome of a try it is empty when all is well, "SKIP ..."
// when nothing could be judged, or a fault: "expected ..., seen ...".
struct Phrase {
    char chars[200] = {};

    Phrase() = default;
    [[gnu::format(printf, 2, 3)]] Phrase(const char* format, ...);
    bool is_fault() const { return chars[0] == 'e'; }
    bool is_skip() const { return chars[0] == 'S'; }
};

void report(const char* operation, const char* what, const Phrase& outcome);

// A try of the first pass, which only reads.
void expect(bool passed, const char* operation, const char* what, const Phrase& fault);

// An argument of a call: where it is, and the number found there.
struct Argument {
    void* place;
    unsigned long number;
};

template <typename Type>
Type passed(const Argument& argument) {
    if constexpr (std::is_pointer_v<Type>) {
        return static_cast<Type>(argument.place);
    } else if constexpr (std::is_class_v<Type>) {
        return *static_cast<Type*>(argument.place);
    } else {
        return static_cast<Type>(argument.number);
    }
}

template <typename Result, typename... Types, std::size_t... I>
int invoke(Result (*function)(Types...), const Argument* arguments, std::index_sequence<I...>) {
    if constexpr (std::is_void_v<Result>) {
        return function(passed<Types>(arguments[I])...), 0;
    } else {
        return static_cast<int>(function(passed<Types>(arguments[I])...));
    }
}

// Takes as many of the arguments as the function has parameters.
struct Operation {
    const char* name;
    std::function<int(const Argument*)> call;

    template <typename Result, typename... Types>
    Operation(const char* title, Result (*function)(Types...))
        : name(title), call([function](const Argument* arguments) {
              return invoke(function, arguments, std::index_sequence_for<Types...>());
          }) {}
};

#define NAMED(function) #function, function
#define GETTER(get, ...) check_getter({NAMED(get)}, __VA_ARGS__)
#define SETTING(get, set, ...) check_setting({NAMED(get)}, {NAMED(set)}, __VA_ARGS__)

// The indexes that are read. The one after them is read too, and may fail.
struct Range {
    unsigned first = 0;
    unsigned count = 1;
};

// First pass: a getter writes the full width of its outputs and no more, returns the
// same twice, and writes nothing when it fails.
//
// Arguments are described as "port/1# flag/1=0-1 setting/12r hour@2/2=0-23
// weight@4/4*8+4=1-8": a name, the offset in the last record, the width in bytes (L:
// that of unsigned long), a count and a distance for arrays, a kind, and the two values
// that the second pass sets. The kinds are
//   #  the index, passed by value
//   a  an IPv4 address, or a netmask if the value is 1
//   i  a number passed by value
//   m  a text that holds a mail address
//   p  an ip_addr_t
//   r  a record, judged by its members only
//   t  a text, terminated if it is shorter than its width
//   v  a list of VLANs, to which 4001, 4003 and 4005 are added
// and none for a number. Texts are set to at most their width less 1.
void check_getter(const Operation& get, const char* described, Range range = {});

// The same. Second pass: reads back what it sets, and puts the old value back.
void check_setting(const Operation& get, const Operation& set, const char* described,
                   Range range = {});

struct Row {
    std::string name;
    std::string detail; // password or address, if any
    long number = 0;    // access right, permission or port
};

struct Table {
    const char* insert_name;
    const char* remove_name;
    std::vector<Row> (*read)();
    void (*insert)(const Row& row);
    void (*remove)(const Row& row);
    Row added; // what the names and details of added rows start with
};

// Second pass: fills a table of 15 rows, deletes from its middle, and empties it again.
void check_table(const Table& table);

// A validator returns nonzero in the low 8 bits for what it accepts.
template <typename Result, typename Value>
void check_validator(const char* name, Result (*accepts)(Value),
                     std::initializer_list<std::common_type_t<Value>> own,
                     std::initializer_list<std::common_type_t<Value>> wrong) {
    for (const Value value : own) {
        expect(static_cast<char>(accepts(value)) != 0, name, "accepts what the device has",
               {"expected not 0 in the low 8 bits, seen 0"});
    }
    for (const Value& value : wrong) {
        expect(static_cast<char>(accepts(value)) == 0, name, "refuses what no device takes",
               {"expected 0 in the low 8 bits for wrong value %td, seen not 0",
                &value - wrong.begin()});
    }
}

#define ACCEPTS(accepts, ...) check_validator(NAMED(accepts), {__VA_ARGS__}, {})
#define REFUSES(accepts, ...) check_validator(NAMED(accepts), {}, {__VA_ARGS__})
#define VALIDATOR(accepts, own, ...) check_validator(NAMED(accepts), {own}, {__VA_ARGS__})

// The nth number from 0 that a validator accepts, or the last if there are fewer.
template <typename Result>
int accepted(Result (*accepts)(int), int nth) {
    int found = 0;
    for (int value = 0; value <= 0xffff && nth >= 0; ++value) {
        if (static_cast<char>(accepts(value)) != 0) {
            found = value;
            --nth;
        }
    }
    return found;
}

// An output with room after it, for a getter that writes too much.
template <typename Value>
struct Roomy {
    Value value = {};
    unsigned char room[64] = {};
};

// What a getter with one output reads.
template <typename Result, typename Value>
Value value_of(Result (*get)(Value*)) {
    Roomy<Value> output;
    get(&output.value);
    return output.value;
}

// The groups of headers, one file each.
void check_converters();
void check_aes();
void check_ports_and_masks();
void check_system();
void check_security();
void check_services();
void check_switching();
