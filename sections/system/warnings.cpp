// The document holds codes as words, whose letter case counts. A code without a word
// is not written; an unknown word is restored as code 0.

#include "sections/system/warnings.h"

#include "frame/ports.h"
#include "platform/include/warnings.h"

#include <algorithm>

namespace {

// Backup writes a code's first word; restore accepts all of them.
struct Word {
    std::uint8_t code;
    const char* text;
};

constexpr Word link_words[] = {
    {EMAIL_LINK_DISABLED, "Disabled"},   {EMAIL_LINK_DISABLED, "Disable"},
    {EMAIL_LINK_UP, "Link UP"},          {EMAIL_LINK_DOWN, "Link Down"},
    {EMAIL_LINK_UP_DOWN, "LinkUp/Down"},
};

constexpr Word power_words[] = {
    {EMAIL_POWER_DISABLED, "Disabled"},
    {EMAIL_POWER_DISABLED, "Disable"},
    {EMAIL_POWER_ON, "Power On"},
    {EMAIL_POWER_OFF, "Power Off"},
};

constexpr Word level_words[] = {
    {EMAIL_SYSLOG_DISABLED, "Disabled"},
    {EMAIL_SYSLOG_DISABLED, "Disable"},
    {0, "LOG_EMERG"},
    {1, "LOG_ALERT"},
    {2, "LOG_CRIT"},
    {3, "LOG_ERR"},
    {4, "LOG_WARNING"},
    {5, "LOG_NOTICE"},
    {6, "LOG_INFO"},
    {7, "LOG_DEBUG"},
};

// Null for a code without a word.
template <std::size_t Count>
const char* word_of(const Word (&words)[Count], std::uint8_t code) {
    for (const Word& word : words) {
        if (word.code == code) {
            return word.text;
        }
    }
    return nullptr;
}

template <std::size_t Count>
std::uint8_t code_of(const Word (&words)[Count], const char* text) {
    for (const Word& word : words) {
        if (strcmp(word.text, text) == 0) {
            return word.code;
        }
    }
    return 0;
}

// The device has no codes for further ports.
int port_count() {
    return std::min<int>(g_ucMaxPhyPort, EMAIL_PORTS);
}

void write_ports(FILE* ini_file) {
    std::uint8_t codes[EMAIL_PORTS] = {};
    U_FlshSysGetEmailPort(codes);
    for (int port = 0; port < port_count(); ++port) {
        const char* word = word_of(link_words, codes[port]);
        if (word != nullptr) {
            fprintf(ini_file, "port_%d Link_status    = \"%s\" ;\n", key_number(port), word);
        }
    }
}

void write_powers(FILE* ini_file) {
    std::uint8_t codes[EMAIL_POWERS] = {};
    U_FlshSysGetEmailPower(codes);
    for (int power = 0; power < EMAIL_POWERS; ++power) {
        const char* word = word_of(power_words, codes[power]);
        if (word != nullptr) {
            fprintf(ini_file, "power_%d Power_status  = \"%s\" ;\n", power + 1, word);
        }
    }
}

void write_level(FILE* ini_file) {
    std::uint8_t level = 0;
    U_SysGetEmailSyslog(&level);
    const char* word = word_of(level_words, level);
    if (word != nullptr) {
        fprintf(ini_file, "syslog_level_alarm    = \"%s\" ;\n", word);
    }
}

} // namespace

void backup_ini_warning_alarm_settings(FILE* ini_file) {
    write_section_line(ini_file, "Warning/Alarm setting");
    write_ports(ini_file);
    write_powers(ini_file);
    write_level(ini_file);
}

// Reads everything before it sets anything. Code 0 of the level is not "Disabled" but the
// highest severity, which is what a document without the key sets.
void restore_ini_warning_alarm(const dictionary* ini) {
    std::uint8_t ports[EMAIL_PORTS] = {};
    std::uint8_t powers[EMAIL_POWERS] = {};
    for (int port = 0; port < port_count(); ++port) {
        const EntryName entry("Warning/Alarm setting:port_%d Link_status", key_number(port));
        ports[port] = code_of(link_words, read_string(ini, entry, ""));
    }
    for (int power = 0; power < EMAIL_POWERS; ++power) {
        const EntryName entry("Warning/Alarm setting:power_%d power_status", power + 1);
        powers[power] = code_of(power_words, read_string(ini, entry, ""));
    }
    std::uint8_t level =
        code_of(level_words, read_string(ini, "Warning/Alarm setting:syslog_level_alarm", ""));

    U_SysSetEmailPort(ports);
    U_SysSetEmailPower(powers);
    U_SysSetEmailSyslog(&level);
}
