#include "platform/simulator/gate.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace simulator {

namespace {

// The calls of an operation that must fail, numbered from 1.
struct FailingCalls {
    int first = 1;
    int last = INT_MAX;
};

// By operation: the calls that must fail, and how many there were so far.
struct Failures {
    std::map<std::string, FailingCalls> failing;
    std::map<std::string, int> calls;
};

// Reads what follows an operation's name: "", ":3" or ":3+".
FailingCalls parsed_calls(const std::string& text) {
    if (text.empty()) {
        return {};
    }
    const int first = std::atoi(text.c_str() + 1);
    return {first, text.back() == '+' ? INT_MAX : first};
}

Failures parsed_failures(const std::string& list) {
    Failures failures;
    std::istringstream names(list);
    for (std::string name; std::getline(names, name, ',');) {
        const std::size_t colon = std::min(name.find(':'), name.size());
        failures.failing[name.substr(0, colon)] = parsed_calls(name.substr(colon));
    }
    return failures;
}

std::string environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

void trace(const std::string& line) {
    static std::ofstream file(environment("SWITCH_SIMULATOR_TRACE"), std::ios::app);
    if (file.is_open()) {
        file << line << std::endl; // flushed, so that a crash loses nothing
    }
}

Failures& failures() {
    static Failures failures = parsed_failures(environment("SWITCH_SIMULATOR_FAIL"));
    return failures;
}

bool must_fail(const std::string& name) {
    const int call = ++failures().calls[name];
    const auto failing = failures().failing.find(name);
    return failing != failures().failing.end() && call >= failing->second.first &&
           call <= failing->second.last;
}

// Escapes quotes, backslashes, and all that is not printable ASCII, so that a
// call stays on one line.
std::string quoted(const char* text) {
    std::ostringstream line;
    line << '"';
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte == '"' || byte == '\\') {
            line << '\\' << *text;
        } else if (byte >= 0x20 && byte < 0x7f) {
            line << *text;
        } else {
            char escaped[5];
            snprintf(escaped, sizeof escaped, "\\x%02x", byte);
            line << escaped;
        }
    }
    line << '"';
    return line.str();
}

std::string set_of_ports(const PortSet& set) {
    return written_list(set.ports()).text;
}

} // namespace

std::vector<Call>& journal() {
    static std::vector<Call> journal;
    return journal;
}

void make_fail(const std::string& list) {
    failures() = parsed_failures(list);
}

bool enter(Call call, Access access) {
    call.access = access;
    journal().push_back(call);
    trace(call.text);
    return !must_fail(call.operation);
}

char judge(const Call& call, bool accepted) {
    return enter(call, Access::read) && accepted ? 1 : 0;
}

std::string written(const char* text) {
    return quoted(text);
}

std::string written(const unsigned char* text) {
    return quoted(reinterpret_cast<const char*>(text));
}

std::string written(const TstLPortMask& mask) {
    return set_of_ports(PortSet(mask));
}

std::string written(const TstPPortMask& mask) {
    return set_of_ports(PortSet(mask));
}

std::string written(Ipv4 address) {
    return dotted(address);
}

std::string written(Mac mac) {
    return colon_separated(mac);
}

std::string written(const ip_addr_t& address) {
    return address_text(address);
}

std::string written(const Written& argument) {
    return argument.text;
}

std::string written(char flag) {
    return std::to_string(static_cast<signed char>(flag));
}

} // namespace simulator
