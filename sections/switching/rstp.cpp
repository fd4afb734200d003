// Check judges only enable state, mode and priority. Restore leaves what is missing as
// it is, except three flags of a port: RSTP, root guard and BPDU filter are on unless
// the document turns them off. The document has no bridge timers: every restore sets
// the same ones.

#include "sections/switching/rstp.h"

#include "frame/ports.h"
#include "frame/report.h"
#include "platform/include/return_codes.h"
#include "platform/include/rstp.h"

namespace {

// Seconds.
constexpr std::uint8_t forward_delay = 15;
constexpr std::uint8_t maximum_age = 20;
constexpr std::uint8_t hello_time = 2;

constexpr unsigned maximum_priority = 61440;
constexpr unsigned priority_step = 4096;

constexpr char enabled_entry[] = "rstp setting:enable state";
constexpr char mode_entry[] = "rstp setting:mode";
constexpr char priority_entry[] = "rstp setting:priority";
constexpr char guard_entry[] = "rstp setting:BPDU Guard ebl";
constexpr char guard_interval_entry[] = "rstp setting:BPDU Guard inter_time";

void write_bridge(FILE* ini_file) {
    char enabled = 0;
    std::uint8_t version = 0;
    std::uint16_t priority = 0;
    TstBpduGuardCfg guard = {};

    U_StpGetEbl(&enabled);
    fprintf(ini_file, "enable state = \"%d\" ;\n", static_cast<std::int8_t>(enabled));
    U_StpGetForceVersion(&version);
    fprintf(ini_file, "mode = \"%d\" ;\n", version);
    U_StpGetPriority(&priority);
    fprintf(ini_file, "priority = \"%d\" ;\n", priority);
    U_FlshStpGetBpduGuardCfg(&guard);
    fprintf(ini_file, "BPDU Guard ebl = \"%d\" ;\n", guard.bEbl);
    fprintf(ini_file, "BPDU Guard inter_time = \"%ld\" ;\n", signed_32_bits(guard.ulIntervalTime));
}

std::int8_t stored_edge(std::uint8_t port) {
    char edge = 0;
    U_FlshStpGetPortEdge(port, &edge);
    return static_cast<std::int8_t>(edge);
}

void write_port(FILE* ini_file, std::uint8_t port) {
    const int number = key_number(port);
    char excluded = 0;
    TstBpduGuardPortState guard = {};
    stp_rstp_t protection = {};
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;

    fprintf(ini_file, "port%d_edge port = \"%d\" ;\n", number, stored_edge(port));
    U_FlshStpGetPortNonstp(port, &excluded);
    fprintf(ini_file, "port%d_enable RSTP = \"%d\" ;\n", number, excluded == 0 ? 1 : 0);
    guard.ucPortId = port;
    U_FlshStpGetBpduGuardPortState(&guard);
    fprintf(ini_file, "port%d_bpdu guard = \"%d\" ;\n", number,
            static_cast<std::int8_t>(guard.bBpduGuardEbl));
    stp_rstp_getFromFlash(&protection, port, &error);
    fprintf(ini_file, "port%d_root guard = \"%d\" ;\n", number, protection.root_guard != 0);
    fprintf(ini_file, "port%d_bpdu filter = \"%d\" ;\n", number, protection.bpdu_filter != 0);
}

} // namespace

void backup_ini_rstp_settings(FILE* ini_file) {
    write_section_line(ini_file, "rstp setting");
    write_bridge(ini_file);
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        write_port(ini_file, port);
    }
}

namespace {

int check_rstp_state(const dictionary* ini, FILE* error_file) {
    return check_number(ini, error_file, enabled_entry,
                        {USR_RET_ERR_RSTP_STATE_NOT_FOUND, USR_RET_ERR_RSTP_STATE_VALUE_INVALID},
                        [](int value) { return value == 0 || value == 1; });
}

int check_rstp_mode(const dictionary* ini, FILE* error_file) {
    return check_number(
        ini, error_file, mode_entry,
        {USR_RET_ERR_RSTP_MODE_VALUE_NOT_FOUND, USR_RET_ERR_RSTP_MODE_VALUE_INVALID},
        [](int value) { return value == STP_VERSION_RSTP; });
}

bool is_priority(int value) {
    const auto priority = static_cast<unsigned>(value); // a negative number is too large
    return priority <= maximum_priority && priority % priority_step == 0;
}

int check_rstp_priority(const dictionary* ini, FILE* error_file) {
    return check_number(
        ini, error_file, priority_entry,
        {USR_RET_ERR_RSTP_PRIORITY_VALUE_NOT_FOUND, USR_RET_ERR_RSTP_PRIORITY_VALUE_INVALID},
        is_priority);
}

} // namespace

int check_ini_rstp(const dictionary* ini, FILE* error_file) {
    return run_check_steps({check_rstp_state, check_rstp_mode, check_rstp_priority}, ini,
                           error_file);
}

namespace {

void restore_bridge(const dictionary* ini) {
    const std::optional<int> enabled = read_number(ini, enabled_entry);
    if (enabled) {
        U_StpSetEbl(static_cast<char>(*enabled));
    }
    const std::optional<int> version = read_number(ini, mode_entry);
    if (version) {
        U_StpSetForceVersion(static_cast<std::uint8_t>(*version));
    }
    const std::optional<int> priority = read_number(ini, priority_entry);
    if (priority) {
        U_StpSetPriority(static_cast<std::uint16_t>(*priority));
    }
    U_StpSetFwdAgeHello(forward_delay, maximum_age, hello_time);
}

// One call sets both: a missing one stays as the device has it, and when the
// device's cannot be read neither is set. An interval of -1 is a value, 32 one bits.
void restore_bpdu_guard(const dictionary* ini) {
    const std::optional<int> enabled = read_number(ini, guard_entry);
    const bool has_interval = read_string(ini, guard_interval_entry, nullptr) != nullptr;
    if (!enabled && !has_interval) {
        return;
    }
    TstBpduGuardCfg stored = {};
    if ((!enabled || !has_interval) && U_FlshStpGetBpduGuardCfg(&stored) != USR_RET_OK) {
        return;
    }
    const int interval =
        read_int(ini, guard_interval_entry, static_cast<int>(stored.ulIntervalTime));
    U_StpSetBpduGuardCfg(static_cast<char>(enabled.value_or(stored.bEbl)),
                         static_cast<std::uint32_t>(interval));
}

// Empty for an absent key, and for a value that is not a boolean.
std::optional<int> read_flag(const dictionary* ini, const EntryName& entry) {
    const int flag = read_boolean(ini, entry, -1);
    return flag != -1 ? std::optional<int>(flag) : std::nullopt;
}

// A flag that is missing or not a boolean is on.
char read_flag_or_on(const dictionary* ini, const EntryName& entry) {
    return static_cast<char>(read_flag(ini, entry).value_or(1));
}

void restore_edge(const dictionary* ini, std::uint8_t port) {
    const std::int8_t stored = stored_edge(port);
    const std::optional<int> edge =
        read_flag(ini, EntryName("rstp setting:port%d_edge port", key_number(port)));
    if (edge && *edge != stored) {
        U_FlshStpSetPortEdge(port, static_cast<char>(*edge));
    }
}

// Both flags are applied to the port, then stored.
void restore_protection(const dictionary* ini, std::uint8_t port) {
    stp_rstp_t protection = {};
    stp_rstp_err_t error = STP_RSTP_NO_ERROR;
    const int number = key_number(port);
    const char root_guard =
        read_flag_or_on(ini, EntryName("rstp setting:port%d_root guard", number));
    const char bpdu_filter =
        read_flag_or_on(ini, EntryName("rstp setting:port%d_bpdu filter", number));
    protection.root_guard = static_cast<std::uint8_t>(root_guard);
    protection.bpdu_filter = static_cast<std::uint8_t>(bpdu_filter);
    U_StpSetPortRootGuard(port, root_guard);
    U_StpSetPortBpduFilter(port, bpdu_filter);
    stp_rstp_setToFlash(&protection, port, &error);
}

void restore_port(const dictionary* ini, std::uint8_t port) {
    const int number = key_number(port);
    restore_edge(ini, port);
    const char takes_part =
        read_flag_or_on(ini, EntryName("rstp setting:port%d_enable RSTP", number));
    U_StpSetPortNonstp(port, takes_part != 0 ? 0 : 1);
    const std::optional<int> guard =
        read_flag(ini, EntryName("rstp setting:port%d_bpdu guard", number));
    if (guard) {
        U_StpSetPortBpduGuardEbl(port, static_cast<char>(*guard));
    }
    restore_protection(ini, port);
}

} // namespace

void restore_ini_rstp(const dictionary* ini) {
    restore_bridge(ini);
    restore_bpdu_guard(ini);
    for (std::uint8_t port = 0; port < g_ucMaxPhyPort; ++port) {
        restore_port(ini, port);
    }
}
