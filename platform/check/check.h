// What the checks of a device library are made of. Each try prints one line of
// the Test Anything Protocol. No secret is ever printed.
#pragma once

#include <csignal>
#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <utility>

extern bool writing;                       // the second pass, which sets what can be set
extern volatile std::sig_atomic_t stopped; // the signal that has asked to stop, or 0
extern int tried, failed;                  // lines printed

// A piece of a message, in printf's format. As what a try has found it is empty
// when all is well, "SKIP ..." when nothing could be judged, and else a fault:
// "expected ..., seen ...".
struct Phrase {
    char chars[200] = {};

    Phrase() = default;
    [[gnu::format(printf, 2, 3)]] Phrase(const char* format, ...);
    explicit operator bool() const { return chars[0] != '\0'; }
    bool is_fault() const { return chars[0] != '\0' && chars[0] != 'S'; }
};

void report(const char* operation, const char* what, const Phrase& found);

// A try of the first pass, which only reads.
[[gnu::format(printf, 4, 5)]] void expect(bool passed, const char* operation, const char* what,
                                          const char* fault, ...);

// The arguments of a call: where each is, and the number that is there.
struct Arguments {
    unsigned char* places[12];
    unsigned long numbers[12];
};

template <typename Type>
Type argument(const Arguments& arguments, std::size_t i) {
    if constexpr (std::is_pointer_v<Type>) {
        return reinterpret_cast<Type>(arguments.places[i]);
    } else {
        return static_cast<Type>(arguments.numbers[i]);
    }
}

template <typename Result, typename... Types, std::size_t... I>
int invoke(Result (*function)(Types...), const Arguments& arguments, std::index_sequence<I...>) {
    if constexpr (std::is_void_v<Result>) {
        return function(argument<Types>(arguments, I)...), 0;
    } else {
        return static_cast<int>(function(argument<Types>(arguments, I)...));
    }
}

template <typename Result, typename... Types>
int invoke(Result (*function)(Types...), const Arguments& arguments) {
    return invoke(function, arguments, std::index_sequence_for<Types...>{});
}

template <auto function>
int call(const Arguments& arguments) {
    return invoke(function, arguments);
}

// For an operation whose result says nothing about success.
template <auto function>
int call_only(const Arguments& arguments) {
    return invoke(function, arguments), 0;
}

// An operation takes as many of the arguments as it has parameters.
struct Operation {
    const char* name;
    int (*call)(const Arguments& arguments);
};

template <auto function>
Operation operation(const char* name) {
    return {name, call<function>};
}

#define NAMED(function) #function, function
#define OPERATION(function) operation<function>(#function)
#define GETTER(get, ...) check_getter(OPERATION(get), __VA_ARGS__)
#define SETTING(get, set, ...) check_setting(OPERATION(get), OPERATION(set), __VA_ARGS__)
#define VALIDATOR(accepts, ...) check_validator(NAMED(accepts), __VA_ARGS__)

// The indexes that a check goes through.
struct Range {
    unsigned first = 0;
    unsigned count = 1;
};

// First pass: a getter writes the width of its outputs and no more, twice the
// same, and leaves them alone when it fails. It is asked for one index too many.
//
// The arguments are described as "port/1# flag/1=0-1 name/30t setting/12r
// hour@2/2=0-23 weight@4/4*8+4=1-8": name, offset in the record before it, width
// (L is that of unsigned long), repetitions and their distance, one letter for
// the kind, and the two values that a write tries. The letters are
//   #  the index, passed by value
//   a  an IPv4 address as a number, a netmask when the value is 1
//   b  bytes; a write sets each to the value
//   i  a number passed by value
//   m  a text that is a mail address
//   p  an ip_addr_t
//   r  a record, judged by its members only
//   s  a text that is not printed
//   t  a text, terminated when it is shorter than its width
//   v  a list of VLANs, to which a write adds 4001, 4003 and 4005
// and a number has none. Of a text a write tries at most its width less 1.
void check_getter(Operation get, const char* described, Range range = {});

// The same. Second pass: what is set is read back, and the old value put back.
void check_setting(Operation get, Operation set, const char* described, Range range = {});

// A table whose rows are added and deleted.
struct Row {
    char name[33] = {};
    char detail[47] = {}; // password or address, if any
    long number = 0;      // access right, permission type or port
};

struct Rows {
    Row list[64];
    unsigned count = 0;
};

struct Table {
    const char* insert_name;
    const char* remove_name;
    Rows (*read)();
    void (*insert)(const Row& row);
    void (*remove)(const Row& row);
    long number; // of the rows that are added
};

// Second pass: fills a table of 15 rows, deletes from its middle, and puts it back.
void check_table(const Table& table);

Phrase shown(int value);
Phrase shown(const char* text);

// Validators accept what the device has, and refuse what no device takes.
template <typename Result, typename Value>
void check_validator(const char* name, Result (*accepts)(Value),
                     std::initializer_list<std::common_type_t<Value>> own,
                     std::initializer_list<std::common_type_t<Value>> wrong) {
    for (const Value value : own) {
        expect(static_cast<char>(accepts(value)) != 0, name, "accepts what the device has",
               "expected not 0 in the low 8 bits, seen 0");
    }
    for (const Value value : wrong) {
        expect(static_cast<char>(accepts(value)) == 0, name, "refuses what no device takes",
               "expected 0 in the low 8 bits for %s, seen not 0", shown(value).chars);
    }
}

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

// An output with room behind it, for a getter that writes too much.
template <typename Value>
struct Roomy {
    Value value = {};
    unsigned char room[64] = {};
};

// What a getter of one output reads.
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
