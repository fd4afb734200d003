// The gate that every operation of the simulated switch passes through. It
// journals the call and may make it fail:
//
//     return changes(call(__func__, port, enabled), has_port(port), [&] { ... });
//
// A call is one line of text, U_PortSetEbl(6, 1): numbers in decimal, texts in
// quotes, IPv4 addresses dotted, masks as {0,1,8}, records as
// Type{field=value, ...}. What a call only fills in is left out.
//
// SWITCH_SIMULATOR_TRACE=FILE appends each call to FILE, one a line.
// SWITCH_SIMULATOR_FAIL=U_FlshPortGetEbl:3,U_SysGetMac:2+,U_PortSetEbl makes the
// third call of the first, the second and all later ones of the second, and
// every call of the last fail: they return an error and leave their outputs,
// and the switch, as they were.
#pragma once

#include "platform/include/port_masks.h"
#include "platform/simulator/state.h"

#include <string>
#include <type_traits>
#include <vector>

namespace simulator {

enum class Access { read, change };

struct Call {
    std::string operation;
    std::string text;
    Access access = Access::read;
};

std::vector<Call>& journal();

// Takes a list like that of SWITCH_SIMULATOR_FAIL and counts calls anew. An
// empty list makes nothing fail.
void make_fail(const std::string& list);

// Journals the call; false when it must fail.
bool enter(Call call, Access access);

// What a U_ operation returns when it is made to fail or its arguments are out of range.
constexpr unsigned short refused = 1;

// Arguments as they are journalled.
std::string written(const char* text);
std::string written(const unsigned char* text);
std::string written(const TstLPortMask& mask);
std::string written(const TstPPortMask& mask);
std::string written(Ipv4 address);
std::string written(Mac mac);
std::string written(const ip_addr_t& address);
std::string written(char flag); // as a signed number on every machine

template <typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number>>>
std::string written(Number number) {
    return std::to_string(number);
}

// Texts that are in their journalled form already, such as records.
struct Written {
    std::string text;
};
std::string written(const Written& argument);

// {1,0,2}
template <typename Numbers>
Written written_list(const Numbers& numbers) {
    std::string list;
    for (const auto number : numbers) {
        list += (list.empty() ? "" : ",") + written(number);
    }
    return {"{" + list + "}"};
}

template <typename... Arguments>
Call call(const char* operation, const Arguments&... arguments) {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + written(arguments)), ...);
    return {operation, operation + ("(" + list + ")")};
}

// Returns what the action returns, or when_failed.
template <typename Result, typename Action>
Result answers(const Call& call, Result when_failed, Action action) {
    return enter(call, Access::read) ? action() : when_failed;
}

// A validator: 1 when it accepts its argument, else 0.
char judge(const Call& call, bool accepted);

// An operation that returns 0 or an error, and is refused unless possible. The
// action returns the same, or whether it succeeded, or nothing when it cannot fail.
template <typename Action>
unsigned short run(const Call& call, Access access, bool possible, Action action) {
    if (!enter(call, access) || !possible) {
        return refused;
    }
    if constexpr (std::is_void_v<decltype(action())>) {
        action();
        return 0;
    } else if constexpr (std::is_same_v<decltype(action()), bool>) {
        return action() ? 0 : refused;
    } else {
        return static_cast<unsigned short>(action());
    }
}

template <typename Action>
unsigned short reads(const Call& call, bool possible, Action action) {
    return run(call, Access::read, possible, action);
}

template <typename Action>
unsigned short reads(const Call& call, Action action) {
    return run(call, Access::read, true, action);
}

template <typename Action>
unsigned short changes(const Call& call, bool possible, Action action) {
    return run(call, Access::change, possible, action);
}

template <typename Action>
unsigned short changes(const Call& call, Action action) {
    return run(call, Access::change, true, action);
}

} // namespace simulator
