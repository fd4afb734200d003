// Choices of this switch: a rule replaces the one with the same index. A new
// rule takes the slot of its index (index 1 slot 0, index 33 slot 32); when that
// is taken or does not exist, the first empty slot. A full table refuses it.

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

// The first slot that holds this index, or slots when none does.
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
    return reads(call(__func__, slot), slot < slots, [&] { *rule = record_of(rule_in(slot)); });
}

uint16_t U_AclInsRule(uint16_t index, TstFlshAcl* rule) {
    const size_t slot = slot_for(index);
    return changes(call(__func__, index, written_record(*rule)), index != 0 && slot < slots,
                   [&] { state().acl.rules.at(slot) = rule_of(index, *rule); });
}
