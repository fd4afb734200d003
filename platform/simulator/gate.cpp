#include "platform/simulator/gate.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace simulator {

namespace {

// The calls of an operation that are to fail, by their numbers from 1.
struct FailingCalls {
    int first = 1;
    int last = INT_MAX;
};

// What is to fail, and what has been called so far.
struct Failures {
    std::map<std::string, FailingCalls> failing; // by operation
    std::map<std::string, int> calls;
};

// The part behind the operation's name: "", ":3" or ":3+".
FailingCalls parsed_calls(const std::string& text) {
    if (text.empty()) {
        return {};
    }
    const int first = std::atoi(text.c_str() + 1);
    return {first, text.back() == '+' ? INT_MAX : first};
}

Failures parsed_failures(const std::string& names) {
    Failures failures;
    std::istringstream list(names);
    for (std::string name; std::getline(list, name, ',');) {
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
        file << line << std::endl; // at once, so that a crash loses nothing
    }
}

Failures& failures() {
    static Failures failures = parsed_failures(environment("SWITCH_SIMULATOR_FAIL"));
    return failures;
}

bool is_to_fail(const std::string& name) {
    const int call = ++failures().calls[name];
    const auto failing = failures().failing.find(name);
    return failing != failures().failing.end() && call >= failing->second.first &&
           call <= failing->second.last;
}

// On one line, and unmistakable: quotes, backslashes and everything that is
// not printable ASCII are escaped.
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

std::string set_of_ports(const uint32_t (&words)[2]) {
    std::string set;
    for (unsigned port = 0; port < 64; ++port) {
        if ((words[port / 32] >> (port % 32) & 1U) != 0) {
            set += (set.empty() ? "" : ",") + std::to_string(port);
        }
    }
    return "{" + set + "}";
}

} // namespace

std::vector<Call>& journal() {
    static std::vector<Call> journal;
    return journal;
}

void make_fail(const std::string& names) {
    failures() = parsed_failures(names);
}

bool enter(const std::string& name, Access access, const std::string& arguments) {
    const std::string line = name + "(" + arguments + ")";
    journal().push_back({line, access});
    trace(line);
    return !is_to_fail(name);
}

std::string written(const char* text) {
    return quoted(text);
}

std::string written(const unsigned char* text) {
    return quoted(reinterpret_cast<const char*>(text));
}

std::string written(const TstLPortMask& mask) {
    return set_of_ports(mask.ulMask);
}

std::string written(const TstPPortMask& mask) {
    return set_of_ports(mask.ulMask);
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
