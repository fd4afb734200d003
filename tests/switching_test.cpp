// VLANs and port isolation, RSTP, the access control list, QoS, port security.

#include "tests/support/switch_test.h"

using simulator::make_fail;
using simulator::reset;
using simulator::state;

class Switching : public SwitchTest {
protected:
    std::string good = backup();

    // The calls that restore makes of one edit, of those with part in their text.
    struct Restored {
        const char* key;
        const char* value; // null removes the key
        const char* part;
        Calls calls;
    };

    void expect_calls(const char* section, const std::vector<Restored>& edits) {
        for (const Restored& edit : edits) {
            reset();
            const std::string document = edited(good, {section, edit.key, edit.value, ""});
            EXPECT_EQ(restore_calls(document, edit.part), edit.calls)
                << edit.key << " = " << (edit.value ? edit.value : "(none)");
        }
    }
};

namespace {

constexpr char vlan[] = "vlan setting";
constexpr char isolation[] = "vlan port isolation setting";
constexpr char rstp[] = "rstp setting";
constexpr char acl[] = "Acl setting";
constexpr char qos[] = "QoS Setting";
constexpr char cos[] = "CoS Queue Mapping";
constexpr char dscp[] = "DSCP Mapping";
constexpr char security[] = "port security setting";

constexpr Edit vlan_edits[] = {
    {vlan, "port1_role", nullptr, "294\n"},
    {vlan, "port8_role", "-1", "294\n"},
    {vlan, "port1_role", "\"access\"", "295\n"},
    {vlan, "port8_role", "\"\"", "295\n"},
    {vlan, "port1_role", "\"Trunk\"", ""},
    {vlan, "port8_vlan", nullptr, "297\n"},
    {vlan, "port1_vlan", "-1", "297\n"},
    {vlan, "port1_vlan", "\"1,10\"", "296\n"},
    {vlan, "port1_vlan", "\"10-11\"", "296\n"},
    {vlan, "port1_vlan", "\"1,1\"", ""},
    {vlan, "port1_vlan", "\"\"", ""},
    {vlan, "port8_vlan", "\"1,,2\"", "298\n"},
    {vlan, "port8_vlan", "\"1,2,\"", "298\n"},
    {vlan, "port8_vlan", "\"1, 2\"", "298\n"},
    {vlan, "port8_vlan", "\"one\"", "298\n"},
    {vlan, "port8_vlan", "\"4-\"", "298\n"},
    {vlan, "port8_vlan", "\"0\"", "299\n"},
    {vlan, "port8_vlan", "\"4095\"", "299\n"},
    {vlan, "port8_vlan", "\"70000\"", "299\n"},
    {vlan, "port8_vlan", "\"12-10\"", "299\n"},
    {vlan, "port8_vlan", "\"1-4094\"", ""}, // too many, which has no code
    {vlan, "management vlan id", nullptr, "301\n"},
    {vlan, "management vlan id", "-1", "301\n"},
    {vlan, "management vlan id", "one", "51\n"},
    {vlan, "management vlan id", "0", "51\n"},
    {vlan, "management vlan id", "4095", "51\n"},
    {vlan, "management vlan id", "70000", "51\n"},
    {vlan, "management vlan id", "65537", "51\n"},
    {vlan, "management vlan id", "256", "55\n"},
    {vlan, "management vlan id", "11", "55\n"}, // only within a range
    {vlan, "management vlan id", "\"20\"", ""},
    {isolation, "port1", nullptr, "329\n"},
    {isolation, "port8", "-1", "329\n"},
    {isolation, "port1", "\"+3\"", "331\n"},
    {isolation, "port1", "\"1,3a\"", "331\n"},
    {isolation, "port1", "\"1, 3\"", "331\n"},
    {isolation, "port8", "\"-1,1\"", "331\n"},
    {isolation, "port1", "\"0\"", "330\n"},
    {isolation, "port8", "\"9\"", "330\n"},
    {isolation, "port8", "\"256\"", "330\n"},
    {isolation, "port8", "\"70000\"", "330\n"},
    {isolation, "port1", "\"1,2,3,4,5,6,7,8,9\"", "330\n"},
    {isolation, "port1", "\"1,2,3,4,5,6,7,8,1\"", "332\n"},
    {isolation, "port1", "\"1,2,3,4,5,6,7,8\"", ""},
    {isolation, "port1", "\"1,,2\"", ""},
    {isolation, "port1", "\"1,1,,1,1,1,1,1,1,\"", ""}, // eight
    {isolation, "port1", "\"\"", ""},
};

constexpr Edit rstp_edits[] = {
    {rstp, "enable state", nullptr, "303\n"},
    {rstp, "enable state", "-1", "303\n"},
    {rstp, "enable state", "2", "316\n"},
    {rstp, "enable state", "-2", "316\n"},
    {rstp, "enable state", "256", "316\n"},
    {rstp, "enable state", "off", ""},
    {rstp, "mode", nullptr, "317\n"},
    {rstp, "mode", "-1", "317\n"},
    {rstp, "mode", "0", "318\n"},
    {rstp, "mode", "258", "318\n"},
    {rstp, "priority", nullptr, "319\n"},
    {rstp, "priority", "-1", "319\n"},
    {rstp, "priority", "0", ""},
    {rstp, "priority", "4096", ""},
    {rstp, "priority", "61440", ""},
    {rstp, "priority", "0xf000", ""},
    {rstp, "priority", "32769", "320\n"},
    {rstp, "priority", "61441", "320\n"},
    {rstp, "priority", "65536", "320\n"},
    {rstp, "priority", "-4096", "320\n"},
    {rstp, "BPDU Guard ebl", nullptr, ""},
    {rstp, "BPDU Guard inter_time", nullptr, ""},
    {rstp, "port1_edge port", nullptr, ""},
    {rstp, "port8_bpdu filter", "neither", ""},
};

std::string list_of(std::size_t length) {
    std::string list;
    while (list.size() < length) {
        list += "1,";
    }
    list.resize(length);
    return list;
}

} // namespace

TEST_F(Switching, CheckVlans) {
    expect_reports(good, vlan_edits);
}

TEST_F(Switching, CheckManagementVlanThatOnlyTheDocumentHas) {
    const std::string document = with(good, vlan, "port8_vlan", "\"1,10,20,30\"");
    EXPECT_EQ(check(with(document, vlan, "management vlan id", "30")), "51\n");
    state().vlan.table.push_back({30, "", {}, {}});
    EXPECT_EQ(check(with(document, vlan, "management vlan id", "30")), "");
}

TEST_F(Switching, CheckVerdictsOnTheManagementVlan) {
    for (const auto& [verdict, report] :
         {std::pair<int, const char*>{-5, "300\n"}, {-6, "300\n"}, {-7, ""}, {1, ""}}) {
        state().vlan.verdict = verdict;
        EXPECT_EQ(check(good), report) << verdict;
    }
}

TEST_F(Switching, CheckRstp) {
    expect_reports(good, rstp_edits);
}

TEST_F(Switching, OtherSectionsAreAcceptedAsTheyAre) {
    std::string document = good;
    for (const char* section : {acl, qos, cos, dscp, security}) {
        document = without_section(document, section);
    }
    EXPECT_EQ(check(document), "");
}

TEST_F(Switching, VlanTableFollowsTheLists) {
    restore(with(with(good, vlan, "port8_vlan", "\"1,10,30\""), vlan, "port6_vlan", "\"10\""));
    std::string table;
    for (const auto& entry : state().vlan.table) {
        table += std::to_string(entry.id) + " " + entry.name.text() + " " +
                 simulator::written(entry.members.as<TstLPortMask>()) +
                 simulator::written(entry.tagged.as<TstLPortMask>()) + "\n";
    }
    EXPECT_EQ(table, "1 default {0,1,2,6,7}{6,7}\n10 drives {3,4,5,6,7}{6,7}\n"
                     "20 cameras {6}{6}\n30 VLAN0030 {7}{7}\n");
}

TEST_F(Switching, RestoreVlans) {
    const std::string whole = "set_vlan_data(vlan_data_t{0 \"1\", 0 \"1\", 0 \"1\", 0 \"10\", "
                              "0 \"10\", 0 \"20\", 1 \"1,10,20\", 1 \"1,10-12,20\"}, 1)";
    const std::string no_role = "set_vlan_data(vlan_data_t{2" + whole.substr(27);
    expect_calls(vlan, {
                           {"management vlan id", "70000", "lan_data", {whole}},
                           {"management vlan id", "70000", "Mgn", {"U_FlshVlanSetMgnVlanId(4464)"}},
                           {"management vlan id", "256", "Mgn", {"U_FlshVlanSetMgnVlanId(256)"}},
                           {"management vlan id", "one", "Mgn", {"U_FlshVlanSetMgnVlanId(0)"}},
                           {"management vlan id", "-1", "Mgn", {}},
                           {"management vlan id", nullptr, "Mgn", {}},
                           {"port1_role", nullptr, "lan_data", {no_role}},
                           {"port1_role", "\"access\"", "lan_data", {no_role}},
                           {"port8_vlan", nullptr, "lan_data", {}},
                           {"port8_vlan", "-1", "lan_data", {}},
                       });
    // What the library refuses leaves the VLANs as they are, and nothing else.
    EXPECT_EQ(restore_calls(with(good, vlan, "port1_vlan", "\"x\""), "Vlan").size(), 9U);
    EXPECT_EQ(backup(), good);
}

TEST_F(Switching, RestoreIsolation) {
    std::string document = good;
    for (int port = 1; port <= 8; ++port) {
        document = without(document, isolation, "port" + std::to_string(port));
    }
    EXPECT_EQ(restore_calls(document, "PortBased"), Calls{});
    state().vlan.isolation.fill({5, 40});
    document = with(document, isolation, "port1", "\"2,3\"");
    document = with(document, isolation, "port2", "\"\"");
    document = with(document, isolation, "port8", "\"8,-1,9,,0,x, 7z,256,70000\"");
    const std::string kept = ", {5,40}, {5,40}, {5,40}, {5,40}, {5,40}, ";
    const std::string call = "U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry{";
    EXPECT_EQ(restore_calls(document, "PortBased"),
              (Calls{call + "{1,2,8}, {5,40}" + kept + "{5,40}})",
                     call + "{1,2,8}, {8}" + kept + "{5,40}})",
                     call + "{1,2,8}, {8}" + kept + "{6,8}})"}));
}

// A line of the longest lists does not fit the reader: its device cannot be
// restored from the document as it stands.
TEST_F(Switching, LongestVlanLists) {
    state().vlan.roles.fill(1);
    for (const auto& [length, report] : {std::pair<std::size_t, const char*>{1005, ""},
                                         {1006, "211\n"},
                                         {1023, "211\n"},
                                         {1024, "211\n"}}) {
        for (auto& list : state().vlan.lists) {
            list.assign(list_of(length).c_str());
        }
        const std::string document = backup();
        EXPECT_NE(document.find("port8_vlan = \"" + list_of(length) + "\" ;\n"), std::string::npos);
        EXPECT_EQ(check(document), report) << length;
    }
}

TEST_F(Switching, RestoreRstpBridge) {
    const char guard[] = "BPDU Guard ebl";
    const char interval[] = "BPDU Guard inter_time";
    expect_calls(rstp, {
                           {"enable state", "256", "StpSetEbl", {"U_StpSetEbl(0)"}},
                           {"enable state", "255", "StpSetEbl", {"U_StpSetEbl(-1)"}},
                           {"enable state", "on", "StpSetEbl", {"U_StpSetEbl(0)"}},
                           {"enable state", "-1", "StpSetEbl", {}},
                           {"enable state", nullptr, "StpSetEbl", {}},
                           {"mode", "70000", "Version", {"U_StpSetForceVersion(112)"}},
                           {"mode", nullptr, "Version", {}},
                           {"priority", "70000", "Priority", {"U_StpSetPriority(4464)"}},
                           {"priority", "x", "Priority", {"U_StpSetPriority(0)"}},
                           {"priority", nullptr, "Priority", {}},
                           {"priority", nullptr, "Hello", {"U_StpSetFwdAgeHello(15, 20, 2)"}},
                           {guard, "257", "GuardCfg", {"U_StpSetBpduGuardCfg(1, 300)"}},
                           {guard, "255", "GuardCfg", {"U_StpSetBpduGuardCfg(-1, 300)"}},
                           {interval, "70000", "GuardCfg", {"U_StpSetBpduGuardCfg(0, 70000)"}},
                           {interval, "-1", "GuardCfg", {"U_StpSetBpduGuardCfg(0, 4294967295)"}},
                           {interval, "x", "GuardCfg", {"U_StpSetBpduGuardCfg(0, 0)"}},
                       });
    state().rstp.bpdu_guard = 1;
    state().rstp.bpdu_guard_interval = 77;
    EXPECT_EQ(restore_calls(without(good, rstp, guard), "GuardCfg"),
              (Calls{"U_StpSetBpduGuardCfg(1, 300)"}));
    state().rstp.bpdu_guard_interval = 77;
    EXPECT_EQ(restore_calls(without(good, rstp, interval), "GuardCfg"),
              (Calls{"U_StpSetBpduGuardCfg(0, 77)"}));
    EXPECT_EQ(restore_calls(without(without(good, rstp, interval), rstp, guard), "GuardCfg"),
              Calls{});
}

TEST_F(Switching, RestoreRstpPorts) {
    const std::string root_only = "stp_rstp_setToFlash(7, stp_rstp_t{bpdu_filter=0, root_guard=1})";
    const std::string filter_only =
        "stp_rstp_setToFlash(7, stp_rstp_t{bpdu_filter=1, root_guard=0})";
    expect_calls(rstp,
                 {
                     {"port1_edge port", "1", "PortEdge", {}}, // as it is stored
                     {"port1_edge port", "no", "PortEdge", {"U_FlshStpSetPortEdge(0, 0)"}},
                     {"port1_edge port", "256", "PortEdge", {}}, // not a boolean
                     {"port8_edge port", "1x", "PortEdge", {"U_FlshStpSetPortEdge(7, 1)"}},
                     {"port1_edge port", nullptr, "PortEdge", {}},
                     {"port8_enable RSTP", "0", "Nonstp(7", {"U_StpSetPortNonstp(7, 1)"}},
                     {"port5_enable RSTP", "-1", "Nonstp(4", {"U_StpSetPortNonstp(4, 0)"}},
                     {"port5_enable RSTP", nullptr, "Nonstp(4", {"U_StpSetPortNonstp(4, 0)"}},
                     {"port8_bpdu guard", "70000", "GuardEbl(7", {}},
                     {"port8_bpdu guard", "true", "GuardEbl(7", {"U_StpSetPortBpduGuardEbl(7, 1)"}},
                     {"port8_bpdu guard", nullptr, "GuardEbl(7", {}},
                     {"port8_root guard", "256", "RootGuard(7", {"U_StpSetPortRootGuard(7, 1)"}},
                     {"port8_root guard", nullptr, "ToFlash(7", {root_only}},
                     {"port8_bpdu filter", "x", "Filter(7", {"U_StpSetPortBpduFilter(7, 1)"}},
                     {"port8_bpdu filter", nullptr, "ToFlash(7", {filter_only}},
                 });
}

TEST_F(Switching, RestoreAcl) {
    const std::string rule =
        "U_AclInsRule(1, TstFlshAcl{usIndex=1, acAclName=\"cabinet only\", ulBitMap=1, "
        "aucSrcMac=02:00:5E:10:00:00, aucSrcMacMask=FF:FF:FF:FF:00:00, ulSrcIp=0.0.0.0, "
        "ulSrcIpMask=0.0.0.0, pstSrcPortMask={0,1,2,8}, stPolicy=1})";
    const auto changed = [&](const std::string& from, const std::string& to) -> Calls {
        std::string call = rule;
        call.replace(call.find(from), from.size(), to);
        return {call};
    };
    const auto indexed = [&](const std::string& index) -> Calls {
        const auto behind = rule.find(", acAclName");
        return {"U_AclInsRule(" + index + ", TstFlshAcl{usIndex=" + index + rule.substr(behind)};
    };
    const char part[] = "acAclName=\"cabinet";
    const char mac[] = "Acl_Rule_0 Source MAC";
    const char ip[] = "Acl_Rule_0 Source IP";
    const char ports[] = "Acl_Rule_0 Source_Interface";
    expect_calls(
        acl,
        {
            {"Acl_Rule_0 Index_Id", "70000", part, indexed("4464")},
            {"Acl_Rule_0 Index_Id", "-1", part, indexed("65535")},
            {"Acl_Rule_0 Index_Id", "010", part, indexed("10")},
            {"Acl_Rule_0 Index_Id", "65536", part, {}},
            {"Acl_Rule_0 Index_Id", "one", part, {}},
            {"Acl_Rule_0 Index_Id", "\"\"", part, {}},
            {"Acl_Rule_0 Index_Id", nullptr, part, {}},
            {"Acl_Rule_0 Profile Name", "\"cabinet-89012345678901234567890123\"", part,
             changed("cabinet only", "cabinet-89012345678901234567890")},
            {"Acl_Rule_0 Profile Name", nullptr, "AclInsRule(1,", changed("cabinet only", "")},
            {"Acl_Rule_0 Action", "\"Deny\"", part, changed("stPolicy=1", "stPolicy=2")},
            {"Acl_Rule_0 Action", "\"deny\"", part, {rule}},
            {"Acl_Rule_0 Action", nullptr, part, {rule}},
            {mac, "\"x\"", part, changed("02:00:5E:10:00:00", "00:00:00:00:00:00")},
            {mac, nullptr, part, changed("02:00:5E:10:00:00", "00:00:00:00:00:00")},
            {"Acl_Rule_0 Mask of Source MAC", "\"\"", part,
             changed("FF:FF:FF:FF:00:00", "00:00:00:00:00:00")},
            {ip, "\"1.2.3.4\"", part,
             changed("ulBitMap=1, aucSrcMac=02:00:5E:10:00:00, aucSrcMacMask=FF:FF:FF:FF:00:00, "
                     "ulSrcIp=0.0.0.0",
                     "ulBitMap=65, aucSrcMac=02:00:5E:10:00:00, aucSrcMacMask=FF:FF:FF:FF:00:00, "
                     "ulSrcIp=1.2.3.4")},
            {ip, nullptr, part, changed("ulBitMap=1", "ulBitMap=65")},
            {"Acl_Rule_0 Mask of Source IP", "\"192.168.100.2000\"", part,
             changed("ulBitMap=1, aucSrcMac=02:00:5E:10:00:00, aucSrcMacMask=FF:FF:FF:FF:00:00, "
                     "ulSrcIp=0.0.0.0, ulSrcIpMask=0.0.0.0",
                     "ulBitMap=65, aucSrcMac=02:00:5E:10:00:00, aucSrcMacMask=FF:FF:FF:FF:00:00, "
                     "ulSrcIp=0.0.0.0, ulSrcIpMask=192.168.100.200")},
            {ports, "\"\"", part, changed("{0,1,2,8}", "{8}")},
            {ports, nullptr, part, changed("{0,1,2,8}", "{8}")},
            {ports, "\"8,,9,0,-1,256,70000,x,1\"", part, changed("{0,1,2,8}", "{0,7,8}")},
        });
    // Without either key of the address the condition is gone.
    const std::string document =
        with(with(good, acl, mac, "\"\""), acl, "Acl_Rule_0 Mask of Source MAC", "\"\"");
    EXPECT_NE(restore_calls(document, part).front().find("ulBitMap=0,"), std::string::npos);
}

TEST_F(Switching, AclSlotsAndShortTexts) {
    std::string document = with(good, acl, "Acl_Rule_33 Index_Id", "7"); // no such slot
    document = with(document, acl, "Acl_Rule_0 Source IP", "x");         // given all the same
    const Calls rules = restore_calls(document, "U_AclInsRule");
    EXPECT_EQ(rules.size(), 2U);
    EXPECT_EQ(state().acl.rules.get(0).conditions, 65U);
}

TEST_F(Switching, AclCallsForTheSetOfPorts) {
    const auto calls_of = [&](int physical, int logical, const std::string& part) {
        simulator::State device;
        device.ports.physical = static_cast<std::uint8_t>(physical);
        device.ports.logical = static_cast<std::uint8_t>(logical);
        device.ports.trunks = {{}, {1, 2}};
        reset(device);
        std::string document = with(good, acl, "Acl_Rule_0 Source_Interface", "\"1\"");
        restore(with(document, acl, "Acl_Rule_1 Index_Id", "0"));
        Calls calls;
        for (const std::string& call : all_calls()) {
            if (call.find(part) != std::string::npos) {
                calls.push_back(call);
            }
        }
        return calls;
    };
    EXPECT_EQ(calls_of(7, 12, "PPortMask"),
              (Calls{"U_PPortMaskClrAll()", "U_PPortMaskSetPort(0)", "U_PPortMaskClrAll()",
                     "U_PPortMaskClrAll()", "U_PPortMaskCopy({0})", "U_PPortMaskOr({1,2}, {0})"}));
    // A set has 64 ports, whatever the device has.
    EXPECT_EQ(calls_of(255, 255, "U_LPortMaskGetPort").back(), "U_LPortMaskGetPort({0,8}, 63)");
    simulator::journal().clear();
    backup();
    for (const std::string& call : all_calls()) {
        EXPECT_EQ(call.find(", 64)"), std::string::npos) << call;
    }
}

// The id behind the last physical port is a port; those behind it are trunks.
TEST_F(Switching, AclIngressPortsBehindTrunks) {
    const auto ingress_ports = [&](int physical, int logical) {
        simulator::State device;
        device.ports.physical = static_cast<std::uint8_t>(physical);
        device.ports.logical = static_cast<std::uint8_t>(logical);
        device.ports.trunks = {{60}, {1, 2}, {}, {50}, {0, 33}};
        reset(device);
        restore(with(good, acl, "Acl_Rule_0 Source_Interface", "\"4,5,6\""));
        return simulator::written(state().acl.rules.get(0).ports.as<TstPPortMask>());
    };
    EXPECT_EQ(ingress_ports(8, 16), "{3,4,5,8}");
    EXPECT_EQ(ingress_ports(8, 8), "{3,4,5}");
    EXPECT_EQ(ingress_ports(10, 12), "{3,4,5,8}");
    EXPECT_EQ(ingress_ports(7, 12), "{1,2,3,4,5}");
    EXPECT_EQ(ingress_ports(4, 12), "{0,1,2,3,4,33}");
    EXPECT_EQ(ingress_ports(4, 5), "{3,4}");
}

TEST_F(Switching, AclRulesInAnySlotsComeBack) {
    auto& rules = state().acl.rules;
    rules = {};
    for (const std::size_t slot : {0U, 5U, 32U}) {
        auto& rule = rules.at(slot);
        rule.index = static_cast<std::uint16_t>(slot + 1);
        rule.name.assign("thirty-one characters, no fewer");
        rule.conditions = 65;
        rule.ip = {0xfffffffe};
        rule.policy = 2;
        rule.ports = {0, 7, 8, 40};
    }
    const std::string document = backup();
    EXPECT_NE(document.find("Acl_Rule_32 Source_Interface   = \"1,8\" ;"), std::string::npos);
    rules = {};
    restore(document);
    EXPECT_EQ(backup(), document);
    // A slot that cannot be read is left out, a policy without a text is permit.
    rules.at(5).policy = 3;
    make_fail("U_FlshGetAcl:1");
    const std::string shorter = backup();
    EXPECT_EQ(shorter.find("Acl_Rule_0 "), std::string::npos);
    EXPECT_NE(shorter.find("Acl_Rule_5 Action             = \"\" ;"), std::string::npos);
    restore(shorter);
    EXPECT_EQ(rules.get(5).policy, 1U);
    EXPECT_EQ(rules.get(0).index, 1U) << "what the document does not mention stays";
}

TEST_F(Switching, RestoreQos) {
    const auto weights = [](const std::string& first) -> Calls {
        return {"U_QosSetScheduleMode(TstFlshSchedulemode{sch=0, paiWeights={" + first +
                ",2,3,4,5,6,7,8}, classify=3})"};
    };
    const auto classified = [](const std::string& number) -> Calls {
        return {"U_QosSetScheduleMode(TstFlshSchedulemode{sch=0, "
                "paiWeights={1,2,3,4,5,6,7,8}, classify=" +
                number + "})"};
    };
    const char type[] = "Classification Type";
    expect_calls(qos, {
                          {"mode", "\"strict priority\"", "Qos", {"U_QosInit()"}},
                          {"mode", "\"\"", "Qos", {"U_QosInit()"}},
                          {"mode", nullptr, "Qos", {"U_QosInit()"}},
                          {"Q0", "70000", "ScheduleMode", weights("70000")},
                          {"Q0", "256", "ScheduleMode", weights("256")},
                          {"Q0", "-1", "ScheduleMode", weights("4294967295")},
                          {"Q0", "010 packets", "ScheduleMode", weights("10")},
                          {"Q0", "abc", "ScheduleMode", weights("0")},
                          {"Q0", nullptr, "ScheduleMode", weights("0")},
                          {type, "\"802.1p CoS only\"", "ScheduleMode", classified("1")},
                          {type, "\"802.1p cos only\"", "ScheduleMode", classified("0")},
                          {type, nullptr, "ScheduleMode", classified("0")},
                      });
    const auto queues = [](const std::string& last) -> Calls {
        return {"U_QosSetcosqueuemapping({1,0,2,3,4,5,6," + last + "})"};
    };
    expect_calls(cos, {
                          {"7", "Q3", "cosqueue", queues("3")},
                          {"7", "3", "cosqueue", queues("0")},
                          {"7", "Q12", "cosqueue", queues("12")},
                          {"7", "Q70000", "cosqueue", queues("112")},
                          {"7", "Q256", "cosqueue", queues("0")},
                          {"7", "Q-1", "cosqueue", queues("255")},
                          {"7", "queue", "cosqueue", queues("0")},
                          {"0", "\"\"", "cosqueue", {}},
                          {"7", nullptr, "cosqueue", {}},
                      });
    // Without a mapping of priorities the code points are still restored.
    EXPECT_EQ(restore_calls(without(good, cos, "7"), "dscp").size(), 1U);
}

TEST_F(Switching, RestoreDscp) {
    const auto restored = [&](const char* key, const char* value) -> std::string {
        reset();
        const Calls calls = restore_calls(edited(good, {dscp, key, value, ""}), "dscp");
        return calls.empty() ? "" : std::to_string(state().qos.dscp[10]);
    };
    EXPECT_EQ(restored("0x0A(10)", "70000"), "112");
    EXPECT_EQ(restored("0x0A(10)", "256"), "0");
    EXPECT_EQ(restored("0x0A(10)", "-1"), "255");
    EXPECT_EQ(restored("0x0A(10)", "x"), "0");
    EXPECT_EQ(restored("0x0A(10)", nullptr), "");
    EXPECT_EQ(restored("0x3F(63)", "\"\""), "");
    EXPECT_EQ(restored("Message", "\"DSCP doesn't support 802.1p CoS only.\""), "");
    EXPECT_EQ(restored("Message", "\"any other\""), "1");
    EXPECT_EQ(restore_calls(with(without(good, dscp, "0x0A(10)"), dscp, "0x0a(10)", "\"9\""),
                            "U_QosSetdscpmapping({0,0,0,0,0,0,0,0,1,1,9,1,")
                  .size(),
              1U);
}

TEST_F(Switching, QosOfEachKind) {
    const simulator::State factory;
    for (const int scheduling : {0, 1, 7, 65535}) {
        for (const int classification : {-1, 0, 1, 2, 3, 4}) {
            reset(factory);
            state().qos.scheduling = static_cast<std::uint16_t>(scheduling);
            state().qos.classification = classification;
            state().qos.weights[7] = 0xffffffff;
            state().qos.dscp.fill(255);
            const std::string document = backup();
            const bool known = scheduling == 0 || scheduling == 7;
            EXPECT_EQ(document.find("\nmode        ") != std::string::npos, known);
            EXPECT_EQ(document.find("Q7 ") != std::string::npos, scheduling == 0);
            EXPECT_EQ(document.find("Message ") != std::string::npos, classification == 1);

            reset(factory); // its weights and its DSCP mapping stay where the document has none
            state().qos.cos.fill(9);
            state().qos.weights[7] = 5;
            const Calls calls = restore_calls(document, "Qos");
            if (!known) {
                EXPECT_EQ(calls, Calls{"U_QosInit()"});
                continue;
            }
            const bool has_text = classification == 1 || classification == 3;
            EXPECT_EQ(state().qos.classification, has_text ? classification : 0);
            EXPECT_EQ(state().qos.weights[7], scheduling == 0 ? 0xffffffff : 5);
            EXPECT_EQ(state().qos.cos, factory.qos.cos);
            EXPECT_EQ(state().qos.dscp[63], classification == 1 ? 7 : 255);
        }
    }
}

TEST_F(Switching, RestorePortSecurity) {
    const auto port8 = [](const std::string& arguments) -> Calls {
        return {"U_PortSecSwitchMac(7, " + arguments + ")"};
    };
    const char part[] = "SwitchMac(7,";
    expect_calls(security, {
                               {"port8_Maximum_MAC", "70000", part, port8("0, 0, 4464")},
                               {"port8_Maximum_MAC", "-1", part, port8("0, 0, 65535")},
                               {"port8_Maximum_MAC", "256", part, port8("0, 0, 256")},
                               {"port8_Maximum_MAC", "0x10", part, port8("0, 0, 0")},
                               {"port8_Maximum_MAC", nullptr, part, port8("0, 0, 0")},
                               {"port8_port_state", "\"1\"", part, port8("1, 0, 1")},
                               {"port8_port_state", "\" 1\"", part, port8("0, 0, 1")},
                               {"port8_port_state", "01", part, port8("0, 0, 1")},
                               {"port8_port_state", "yes", part, port8("0, 0, 1")},
                               {"port8_port_state", nullptr, part, port8("0, 0, 1")},
                               {"global_state", "1", part, port8("0, 1, 1")},
                               {"global_state", "256", part, port8("0, 0, 1")},
                               {"global_state", nullptr, part, port8("0, 0, 1")},
                           });
    // The record goes first, so that nothing of the old ports is left.
    const Calls calls = restore_calls(with(good, security, "global_state", "1"), "PortSec");
    EXPECT_EQ(calls.size(), 9U);
    EXPECT_EQ(calls.front().find("U_FlshPortSecMacSet(TstFlshPortSecMac{port_max_mac={0:0,"), 0U);
    EXPECT_NE(calls.front().find("gblebl=1}"), std::string::npos);
}

// The library's arrays end before the ports do.
TEST_F(Switching, MorePortsThanTheArraysHold) {
    state().ports.physical = 255;
    state().ports.logical = 255;
    reset(state());
    const std::string document = backup();
    EXPECT_NE(document.find("\nport255_bpdu filter = "), std::string::npos);
    EXPECT_NE(document.find("\nport32_port_state =\""), std::string::npos);
    EXPECT_EQ(document.find("\nport33_port_state"), std::string::npos);
    EXPECT_EQ(document.find("\nport9_role"), std::string::npos);
    EXPECT_EQ(document.find("\nport9 = \""), std::string::npos);
    EXPECT_EQ(check(document), "");
    EXPECT_EQ(restore_calls(document, "SwitchMac").size(), 32U);
    EXPECT_EQ(backup(), document);
}
