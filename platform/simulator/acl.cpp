// Choices of this switch: a rule replaces the one with its index. A new one
// goes to the slot before its index (1 to slot 0, 33 to slot 32), or, when this
// is taken or there is none, to the first empty slot.

#include "platform/include/acl.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <cstring>

using namespace simulator;

namespace {

constexpr size_t slots = 33;

AclRule rule_in(size_t slot) {
    return state().acl.rules.get(slot);
}

// The first slot with this index, or slots.
size_t find(uint16_t index) {
    size_t slot = 0;
    while (slot < slots && rule_in(slot).index != index) {
        ++slot;
    }
    return slot;
}

size_t slot_for(uint16_t index) {
    const size_t own = static_cast<size_t>(index) - 1;
    if (find(index) < slots) {
        return find(index);
    }
    return own < slots && rule_in(own).index == 0 ? own : find(0);
}

TstFlshAcl record_of(const AclRule& rule) {
    TstFlshAcl record = {};
    TstAclClassifier& match = record.stClassifier;
    record.usIndex = rule.index;
    rule.name.copy_to(record.acAclName, sizeof record.acAclName);
    match.ulBitMap = rule.conditions;
    memcpy(match.aucSrcMac, rule.mac.bytes.data(), sizeof match.aucSrcMac);
    memcpy(match.aucSrcMacMask, rule.mac_mask.bytes.data(), sizeof match.aucSrcMacMask);
    match.ulSrcIp = rule.ip.value;
    match.ulSrcIpMask = rule.ip_mask.value;
    match.pstSrcPortMask = rule.ports.as<TstPPortMask>();
    record.stPolicy.ulBitMap = rule.policy;
    return record;
}

AclRule rule_of(uint16_t index, const TstFlshAcl& record) {
    const TstAclClassifier& match = record.stClassifier;
    AclRule rule;
    rule.index = index;
    rule.name.assign(record.acAclName);
    rule.conditions = match.ulBitMap;
    memcpy(rule.mac.bytes.data(), match.aucSrcMac, sizeof match.aucSrcMac);
    memcpy(rule.mac_mask.bytes.data(), match.aucSrcMacMask, sizeof match.aucSrcMacMask);
    rule.ip = {match.ulSrcIp};
    rule.ip_mask = {match.ulSrcIpMask};
    rule.ports = PortSet(match.pstSrcPortMask);
    rule.policy = record.stPolicy.ulBitMap;
    return rule;
}

Written written_record(const TstFlshAcl& record) {
    const AclRule rule = rule_of(record.usIndex, record);
    return {"TstFlshAcl{usIndex=" + written(rule.index) + ", acAclName=" +
            written(rule.name.text().c_str()) + ", ulBitMap=" + written(rule.conditions) +
            ", aucSrcMac=" + written(rule.mac) + ", aucSrcMacMask=" + written(rule.mac_mask) +
            ", ulSrcIp=" + written(rule.ip) + ", ulSrcIpMask=" + written(rule.ip_mask) +
            ", pstSrcPortMask=" + written(record.stClassifier.pstSrcPortMask) +
            ", stPolicy=" + written(rule.policy) + "}"};
}

} // namespace

uint16_t U_FlshGetAcl(uint32_t slot, TstFlshAcl* rule) {
    return reads(
        "U_FlshGetAcl",
        [&] {
            if (slot >= slots) {
                return false;
            }
            *rule = record_of(rule_in(slot));
            return true;
        },
        slot);
}

uint16_t U_AclInsRule(uint16_t index, TstFlshAcl* rule) {
    return changes(
        "U_AclInsRule",
        [&] {
            const size_t slot = slot_for(index);
            if (index == 0 || slot >= slots) {
                return false;
            }
            state().acl.rules.at(slot) = rule_of(index, *rule);
            return true;
        },
        index, written_record(*rule));
}
