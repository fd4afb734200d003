// The gate that every operation of the simulated switch passes through. It
// journals the call and may make it fail.
//
// A call is one line of text, U_PortSetEbl(6, 1): numbers in decimal, texts in
// quotes, IPv4 addresses dotted, masks as {0,1,8}, records as
// Type{field=value, ...}. What a call only fills in is not part of it.
//
// SWITCH_SIMULATOR_TRACE=FILE appends each call to FILE, one a line.
// SWITCH_SIMULATOR_FAIL=U_FlshPortGetEbl:3,U_SysGetMac:2+,U_PortSetEbl makes the
// third call of the first, the second and all later ones of the second, and
// every call of the last fail: they give an error and leave their outputs, and
// the switch, as they were.
#pragma once

#include "platform/include/converters.h"
#include "platform/include/port_masks.h"
#include "platform/simulator/state.h"

#include <string>
#include <type_traits>
#include <vector>

namespace simulator {

enum class Access { read, change };

struct Call {
    std::string text;
    Access access;
};

std::vector<Call>& journal();

// The same as SWITCH_SIMULATOR_FAIL. An empty list makes nothing fail, and
// counting starts anew.
void make_fail(const std::string& names);

// False when the call is to fail.
bool enter(const std::string& name, Access access, const std::string& arguments);

// What a U_ operation gives when it is made to fail or its arguments are out of range.
constexpr unsigned short refused = 1;

// Texts of a call.
std::string written(const char* text);
std::string written(const unsigned char* text);
std::string written(const TstLPortMask& mask);
std::string written(const TstPPortMask& mask);
std::string written(Ipv4 address);
std::string written(Mac mac);
std::string written(const ip_addr_t& address);
std::string written(char flag); // as a signed number on every machine

// An argument that is written already, such as a record.
struct Written {
    std::string text;
};
std::string written(const Written& argument);

template <typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number>>>
std::string written(Number number) {
    return std::to_string(number);
}

template <typename... Arguments>
std::string argument_list(const Arguments&... arguments) {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + written(arguments)), ...);
    return list;
}

// An operation that gives a value of its own, or this one when it is made to fail.
template <typename Result, typename Action, typename... Arguments>
Result answers(const char* name, Result when_failed, Action action, const Arguments&... arguments) {
    if (!enter(name, Access::read, argument_list(arguments...))) {
        return when_failed;
    }
    return action();
}

// An operation that gives 0 or an error. The action gives the same, or whether
// it went well, or nothing when it cannot go wrong.
template <typename Action, typename... Arguments>
unsigned short operation(Access access, const char* name, Action action,
                         const Arguments&... arguments) {
    if (!enter(name, access, argument_list(arguments...))) {
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

template <typename Action, typename... Arguments>
unsigned short reads(const char* name, Action action, const Arguments&... arguments) {
    return operation(Access::read, name, action, arguments...);
}

template <typename Action, typename... Arguments>
unsigned short changes(const char* name, Action action, const Arguments&... arguments) {
    return operation(Access::change, name, action, arguments...);
}

} // namespace simulator
