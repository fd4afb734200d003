// The number in the keys of a rule is its storage slot, so rules in any slots come
// back. Restore adds rules, or replaces those with the same index; it deletes none.

#include "sections/switching/acl.h"

#include "frame/ports.h"
#include "platform/include/acl.h"
#include "platform/include/converters.h"
#include "platform/include/return_codes.h"

#include <netinet/in.h>

namespace {

constexpr int slots = 33;
constexpr std::size_t number_size = 50; // of the text that the index is read from

using MacText = Text<18>;

const char* action_text(std::uint32_t policy) {
    switch (policy) {
    case ACL_POLICY_NULL:
        return "Permit";
    case ACL_POLICY_DROP:
        return "Deny";
    default:
        return "";
    }
}

MacText mac_text(bool present, const std::uint8_t* mac) {
    MacText text;
    if (present) {
        mac_to_str(text.chars, mac);
    }
    return text;
}

Text<INET_ADDRSTRLEN> ip_text(bool present, std::uint32_t address) {
    Text<INET_ADDRSTRLEN> text;
    if (present) {
        ip_to_str(text.chars, address);
    }
    return text;
}

void write_source_interface(FILE* ini_file, int slot, const TstPPortMask& ports) {
    // No operation reads a set of physical ports, but both kinds have the same layout.
    TstLPortMask mask = {};
    memcpy(&mask, &ports, sizeof mask);
    fprintf(ini_file, "Acl_Rule_%d Source_Interface   = \"", slot);
    write_port_list(ini_file, mask, g_ucMaxPhyPort);
    fprintf(ini_file, "\" ;\n");
}

void write_rule(FILE* ini_file, int slot, const TstFlshAcl& rule) {
    const TstAclClassifier& match = rule.stClassifier;
    const bool has_mac = (match.ulBitMap & ACL_CLASSIFIER_SA) != 0;
    const bool has_ip = (match.ulBitMap & ACL_CLASSIFIER_SRC_IP) != 0;
    const Text<sizeof rule.acAclName + 1> name(rule.acAclName); // always terminated

    fprintf(ini_file, "Acl_Rule_%d Index_Id = \"%d\" ;\n", slot, rule.usIndex);
    fprintf(ini_file, "Acl_Rule_%d Profile Name       = \"%s\" ;\n", slot, name.chars);
    fprintf(ini_file, "Acl_Rule_%d Action             = \"%s\" ;\n", slot,
            action_text(rule.stPolicy.ulBitMap));
    fprintf(ini_file, "Acl_Rule_%d Source MAC         = \"%s\" ;\n", slot,
            mac_text(has_mac, match.aucSrcMac).chars);
    fprintf(ini_file, "Acl_Rule_%d Mask of Source MAC = \"%s\" ;\n", slot,
            mac_text(has_mac, match.aucSrcMacMask).chars);
    fprintf(ini_file, "Acl_Rule_%d Source IP          = \"%s\" ;\n", slot,
            ip_text(has_ip, match.ulSrcIp).chars);
    fprintf(ini_file, "Acl_Rule_%d Mask of Source IP  = \"%s\" ;\n", slot,
            ip_text(has_ip, match.ulSrcIpMask).chars);
    write_source_interface(ini_file, slot, match.pstSrcPortMask);
}

} // namespace

void backup_ini_acl_settings(FILE* ini_file) {
    write_section_line(ini_file, "Acl setting");
    for (int slot = 0; slot < slots; ++slot) {
        TstFlshAcl rule = {};
        const std::uint16_t result = U_FlshGetAcl(static_cast<std::uint32_t>(slot), &rule);
        if (result == USR_RET_OK && rule.usIndex != 0) {
            write_rule(ini_file, slot, rule);
        }
    }
}

namespace {

// An absent key reads as -1: its condition is set, its address stays zero.
const char* read_rule_text(const dictionary* ini, int slot, const char* key) {
    return read_string(ini, EntryName("Acl setting:Acl_Rule_%d %s", slot, key), absent);
}

// An address that does not convert stays zero.
void read_mac(const dictionary* ini, int slot, const char* key, TstAclClassifier& match,
              std::uint8_t* mac) {
    const char* text = read_rule_text(ini, slot, key);
    if (text[0] != '\0') {
        match.ulBitMap |= ACL_CLASSIFIER_SA;
        str_to_mac(mac, text);
    }
}

void read_ip(const dictionary* ini, int slot, const char* key, TstAclClassifier& match,
             std::uint32_t& address) {
    const Text<INET_ADDRSTRLEN> text(read_rule_text(ini, slot, key));
    if (text.chars[0] != '\0') {
        unsigned long number = 0;
        match.ulBitMap |= ACL_CLASSIFIER_SRC_IP;
        str_to_ip(&number, text.chars);
        address = static_cast<std::uint32_t>(number);
    }
}

TstPPortMask read_source_interface(const dictionary* ini, int slot) {
    TstLPortMask mask = {};
    U_LPortMaskClrAll(&mask);
    add_listed_ports(mask, read_rule_text(ini, slot, "Source_Interface"), none_left_out);
    return physical_ports(mask);
}

// A slot without an index holds no rule.
void restore_rule(const dictionary* ini, int slot) {
    TstFlshAcl rule = {};
    rule.usIndex = static_cast<std::uint16_t>(
        read_decimal<number_size>(ini, EntryName("Acl setting:Acl_Rule_%d Index_Id", slot)));
    if (rule.usIndex == 0) {
        return;
    }
    TstAclClassifier& match = rule.stClassifier;
    copy_text(rule.acAclName,
              read_string(ini, EntryName("Acl setting:Acl_Rule_%d Profile Name", slot), ""));
    const bool denies = strcmp(read_rule_text(ini, slot, "Action"), "Deny") == 0;
    rule.stPolicy.ulBitMap = denies ? ACL_POLICY_DROP : ACL_POLICY_NULL;
    read_mac(ini, slot, "Source MAC", match, match.aucSrcMac);
    read_mac(ini, slot, "Mask of Source MAC", match, match.aucSrcMacMask);
    read_ip(ini, slot, "Source IP", match, match.ulSrcIp);
    read_ip(ini, slot, "Mask of Source IP", match, match.ulSrcIpMask);
    match.pstSrcPortMask = read_source_interface(ini, slot);
    U_AclInsRule(rule.usIndex, &rule);
}

} // namespace

void restore_ini_acl(const dictionary* ini) {
    for (int slot = 0; slot < slots; ++slot) {
        restore_rule(ini, slot);
    }
}
