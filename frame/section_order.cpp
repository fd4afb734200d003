#include "frame/section_order.h"

#include "frame/keep_config.h"
#include "sections/security/accounts.h"
#include "sections/security/auth_server.h"
#include "sections/security/dot1x.h"
#include "sections/security/static_sak.h"
#include "sections/services/modbus_tcp.h"
#include "sections/services/smtp.h"
#include "sections/services/snmp.h"
#include "sections/services/sntp.h"
#include "sections/services/system_log.h"
#include "sections/switching/acl.h"
#include "sections/switching/port_security.h"
#include "sections/switching/qos.h"
#include "sections/switching/rstp.h"
#include "sections/switching/vlan.h"
#include "sections/system/identity.h"
#include "sections/system/periodic_backup.h"
#include "sections/system/ports.h"
#include "sections/system/service_flags.h"
#include "sections/system/warnings.h"

#include <iterator>

namespace {

// What a section does in each mode.
struct Section {
    void (*backup)(FILE* ini_file);
    int (*check)(const dictionary* ini, FILE* error_file); // null: never refused
    void (*restore)(const dictionary* ini);                // null: nothing to apply by itself
    std::uint32_t keep = 0;                                // the bit that keeps the device's own
};

// In the order of the document.

constexpr Section system_information{backup_ini_system_information, check_ini_system_information,
                                     nullptr};
constexpr Section system_settings{backup_ini_system_settings, check_ini_system_settings,
                                  restore_ini_system_settings};
constexpr Section network_settings{backup_ini_network_settings, check_ini_network_settings,
                                   restore_ini_network_settings, KEEP_CONFIG_NETWORK};
constexpr Section password{backup_ini_password, check_ini_password, restore_ini_password,
                           KEEP_CONFIG_PASSWORD};
constexpr Section port_settings{backup_ini_port_settings, check_ini_port_settings,
                                restore_ini_port_settings};

constexpr Section snmp_settings{backup_ini_snmp_settings, check_ini_snmp_settings,
                                restore_ini_snmp_settings};
constexpr Section modbus_tcp_settings{backup_ini_modbus_tcp_settings, check_ini_modbusTcp_settings,
                                      restore_ini_modbusTcp_settings};
constexpr Section system_log_settings{backup_ini_system_log_settings, check_ini_systemLog_settings,
                                      restore_ini_systemLog_settings};

constexpr Section static_sak{backup_ini_static_sak, check_ini_static_sak, restore_ini_static_sak};
constexpr Section dot1x_settings{backup_ini_dot1x_settings, check_ini_dot1x_settings,
                                 restore_ini_dot1x_settings};
constexpr Section dot1x_parameter{backup_ini_dot1x_parameter, check_ini_dot1x_parameter,
                                  restore_ini_dot1x_parameter};
constexpr Section dot1x_port{backup_ini_dot1x_port, check_ini_dot1x_port, restore_ini_dot1x_port};
constexpr Section vlan_settings{backup_ini_vlan_settings, check_ini_vlan, restore_ini_vlan};
constexpr Section rstp_settings{backup_ini_rstp_settings, check_ini_rstp, restore_ini_rstp};
constexpr Section lldp{backup_ini_lldp_settings, check_ini_lldp, restore_ini_lldp};
constexpr Section port_security_settings{backup_ini_port_security_settings, nullptr,
                                         restore_ini_port_security};
constexpr Section port_mirror{backup_ini_port_mirror_settings, check_ini_port_mirror,
                              restore_ini_port_mirror};
constexpr Section sntp{backup_ini_sntp_settings, check_ini_sntp, restore_ini_sntp};
constexpr Section acl_settings{backup_ini_acl_settings, nullptr, restore_ini_acl};
constexpr Section https{backup_ini_https_settings, check_ini_https, restore_ini_https};
constexpr Section auto_default{backup_ini_adefault_settings, check_ini_adefault,
                               restore_ini_adefault};
constexpr Section auth_server{backup_ini_authserver_settings, check_ini_authserver,
                              restore_ini_authserver};
constexpr Section periodic_backup{backup_ini_periodicbackup_settings, nullptr,
                                  restore_ini_periodic_backup};
constexpr Section warning_alarm{backup_ini_warning_alarm_settings, nullptr,
                                restore_ini_warning_alarm};
constexpr Section smtp{backup_ini_smtp_settings, nullptr, restore_ini_smtp};
constexpr Section qos_settings{backup_ini_qos_settings, nullptr, restore_ini_qos};
constexpr Section cos_queue_mapping{backup_ini_cos_queue_mapping, nullptr, nullptr};
constexpr Section dscp_mapping{backup_ini_dscp_mapping, nullptr, nullptr};

// An item of the document: a banner or a section.
struct Item {
    const char* banner;
    const Section* section;
};

constexpr Item banner(const char* group) {
    return {group, nullptr};
}

constexpr Item section(const Section& section) {
    return {nullptr, &section};
}

// clang-format off
constexpr Item document_order[] = {
    banner("Information"),
    section(system_information),
    banner("Configuration"),
    section(system_settings),
    section(network_settings),
    section(password),
    section(port_settings),
    banner("Diagnostics"),
    section(snmp_settings),
    section(modbus_tcp_settings),
    section(system_log_settings),
    banner("Security"),
    section(static_sak),
    section(dot1x_settings),
    section(dot1x_parameter),
    section(dot1x_port),
    section(vlan_settings),
    section(rstp_settings),
    section(lldp),
    section(port_security_settings),
    section(port_mirror),
    section(sntp),
    section(acl_settings),
    section(https),
    section(auto_default),
    section(auth_server),
    section(periodic_backup),
    section(warning_alarm),
    section(smtp),
    section(qos_settings),
    section(cos_queue_mapping),
    section(dscp_mapping),
};

// Check and restore. Of several faults, check reports the first in this order.
constexpr const Section* apply_order[] = {
    &system_information,
    &system_settings,
    &network_settings,
    &password,
    &port_settings,
    &snmp_settings,
    &modbus_tcp_settings,
    &system_log_settings,
    &static_sak,
    &dot1x_settings,
    &dot1x_parameter,
    &dot1x_port,
    &vlan_settings,
    &rstp_settings,
    &lldp,
    &sntp, // earlier than in the document
    &port_security_settings,
    &port_mirror,
    &acl_settings,
    &https,
    &auto_default,
    &auth_server,
    &periodic_backup,
    &warning_alarm,
    &smtp,
    &qos_settings, // applies the two mappings as well
    &cos_queue_mapping,
    &dscp_mapping,
};
// clang-format on

constexpr std::size_t times_in_document(const Section* section) {
    std::size_t count = 0;
    for (const Item& item : document_order) {
        count += item.section == section ? 1 : 0;
    }
    return count;
}

constexpr std::size_t times_in_apply_order(const Section* section) {
    std::size_t count = 0;
    for (const Section* applied : apply_order) {
        count += applied == section ? 1 : 0;
    }
    return count;
}

constexpr bool both_orders_hold_the_same_sections() {
    for (const Section* section : apply_order) {
        if (times_in_document(section) != 1 || times_in_apply_order(section) != 1) {
            return false;
        }
    }
    const std::size_t banners = times_in_document(nullptr);
    return std::size(document_order) == std::size(apply_order) + banners;
}
static_assert(both_orders_hold_the_same_sections());

} // namespace

void write_sections(FILE* ini_file) {
    write_header(ini_file);
    for (const Item& item : document_order) {
        if (item.section != nullptr) {
            item.section->backup(ini_file);
        } else {
            write_banner(ini_file, item.banner);
        }
    }
}

int check_sections(const dictionary* ini, FILE* error_file) {
    for (const Section* section : apply_order) {
        if (section->check != nullptr && section->check(ini, error_file) != 0) {
            return -1;
        }
    }
    return 0;
}

void restore_sections(const dictionary* ini, std::uint32_t keep) {
    for (const Section* section : apply_order) {
        if (section->restore != nullptr && (section->keep & keep) == 0) {
            section->restore(ini);
        }
    }
}
