// VLANs and port isolation, RSTP, the access control list, QoS, port security.

#include "tests/support/switch_test.h"

using simulator::make_fail;
using simulator::reset;
using simulator::state;

class Switching : public SwitchTest {
protected:
    const std::string good = backup();
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

} // namespace

TEST_F(Switching, CheckVlans) {
    const char management[] = "management vlan id";
    const std::vector<Reported> edits = {
        {vlan, "port1_role", {nullptr}, "294\n"},
        {vlan, "port8_role", {"-1"}, "294\n"},
        {vlan, "port1_role", {"\"access\""}, "295\n"},
        {vlan, "port8_role", {"\"\""}, "295\n"},
        {vlan, "port1_role", {"\"Trunk\""}, ""},
        {vlan, "port8_vlan", {nullptr}, "297\n"},
        {vlan, "port1_vlan", {"-1"}, "297\n"},
        {vlan, "port1_vlan", {"\"1,10\"", "\"10-11\""}, "296\n"},
        {vlan, "port1_vlan", {"\"1,1\"", "\"\""}, ""},
        {vlan, "port8_vlan", {"\"1,,2\"", "\"1,2,\"", "\"1, 2\"", "\"one\"", "\"4-\""}, "298\n"},
        {vlan, "port8_vlan", {"\"0\"", "\"4095\"", "\"70000\"", "\"12-10\""}, "299\n"},
        {vlan, "port8_vlan", {"\"1-4094\""}, ""}, // too many, which has no code
        {vlan, management, {"-1"}, "301\n"},
        {vlan, management, {"one", "0", "4095", "70000", "65537"}, "51\n"},
        {vlan, management, {"256"}, "55\n"},
        {vlan, management, {"11"}, "55\n"}, // only within a range
        {vlan, management, {"\"20\""}, ""},
        {isolation, "port8", {"-1"}, "329\n"},
        {isolation, "port1", {"\"+3\"", "\"1,3a\"", "\"1, 3\""}, "331\n"},
        {isolation, "port8", {"\"-1,1\""}, "331\n"},
        {isolation, "port1", {"\"0\"", "\"1,2,3,4,5,6,7,8,9\""}, "330\n"},
        {isolation, "port8", {"\"9\"", "\"256\"", "\"70000\""}, "330\n"},
        {isolation, "port1", {"\"1,2,3,4,5,6,7,8,1\""}, "332\n"},
        {isolation, "port1", {"\"1,2,3,4,5,6,7,8\"", "\"1,,2\"", "\"\""}, ""},
        {isolation, "port1", {"\"1,1,,1,1,1,1,1,1,\""}, ""}, // eight
    };
    expect_reports(good, edits);
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
    const std::vector<Reported> edits = {
        {rstp, "enable state", {"-1"}, "303\n"},
        {rstp, "enable state", {"-2", "256"}, "316\n"},
        {rstp, "enable state", {"off"}, ""},
        {rstp, "mode", {"-1"}, "317\n"},
        {rstp, "mode", {"0", "258"}, "318\n"},
        {rstp, "priority", {"-1"}, "319\n"},
        {rstp, "priority", {"32769", "61441", "65536", "-4096"}, "320\n"},
        {rstp, "priority", {"0", "4096", "61440", "0xf000"}, ""},
        {rstp, "BPDU Guard ebl", {nullptr}, ""},
        {rstp, "BPDU Guard inter_time", {nullptr}, ""},
        {rstp, "port1_edge port", {nullptr}, ""},
        {rstp, "port8_bpdu filter", {"neither"}, ""},
    };
    expect_reports(good, edits);
}

TEST_F(Switching, OtherSectionsAreAcceptedAsTheyAre) {
    std::string document = good;
    for (const char* section : {acl, qos, cos, dscp, security}) {
        document = without_section(document, section);
    }
    EXPECT_EQ(check(document), "");
}

TEST_F(Switching, VlanTableFollowsTheLists) {
    restore(with(good, vlan, {{"port8_vlan", "\"1,10,30\""}, {"port6_vlan", "\"10\""}}));
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
    const std::string behind_the_role = R"( "1", 0 "1", 0 "1", 0 "10", 0 "10", 0 "20", )"
                                        R"(1 "1,10,20", 1 "1,10-12,20"}, 1))";
    const char data[] = "set_vlan_data(vlan_data_t{";
    const char management[] = "U_FlshVlanSetMgnVlanId(";
    const std::vector<Restored> edits = {
        {"management vlan id", {"70000"}, data, "0" + behind_the_role},
        {"management vlan id", {"70000"}, management, "4464)"},
        {"management vlan id", {"256"}, management, "256)"},
        {"management vlan id", {"one"}, management, "0)"},
        {"management vlan id", {"-1", nullptr}, management, ""},
        {"port1_role", {nullptr, "\"access\""}, data, "2" + behind_the_role},
        {"port8_vlan", {nullptr, "-1"}, data, "0" + behind_the_role}, // its own
    };
    expect_restored(good, vlan, edits);
    // A document of fewer ports: the others keep what they have.
    std::string fewer = with(good, vlan,
                             {{"port7_role", nullptr},
                              {"port7_vlan", nullptr},
                              {"port8_role", nullptr},
                              {"port8_vlan", nullptr}});
    state().vlan.roles[6] = 0;
    state().vlan.lists[6] = "20";
    EXPECT_TRUE(contains(restored(fewer, data), R"(0 "20", 1 "1,10-12,20"})"));
    make_fail("get_vlan_data");
    EXPECT_EQ(restored(fewer, data), "");
    make_fail("");
    EXPECT_EQ(restored(without_section(good, vlan), data), "");
    reset();
    // What the library refuses leaves the VLANs as they are, and nothing else.
    EXPECT_EQ(restore_calls(with(good, vlan, "port1_vlan", "\"x\""), "Vlan").size(), 9U);
    EXPECT_EQ(backup(), good);
}

TEST_F(Switching, RestoreIsolation) {
    std::string document = without_section(good, isolation) + "[vlan port isolation setting]\n";
    EXPECT_EQ(restore_calls(document, "PortBased"), Calls{});
    state().vlan.isolation.fill({5, 40});
    document = with(document, isolation, "port8", "\"8,-1,9,,0,x, 7z,256,70000\"");
    document = with(document, isolation, {{"port1", "\"2,3\""}, {"port2", "\"\""}});
    const std::string kept = ", {5,40}, {5,40}, {5,40}, {5,40}, {5,40}, ";
    const std::string call = "U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry{";
    EXPECT_EQ(restore_calls(document, "PortBased"),
              (Calls{call + "{1,2,8}, {5,40}" + kept + "{5,40}})",
                     call + "{1,2,8}, {8}" + kept + "{5,40}})",
                     call + "{1,2,8}, {8}" + kept + "{6,8}})"}));
    make_fail("U_FlshVlanGetPortBasedEntry");
    EXPECT_EQ(restore_calls(document, "PortBased"), Calls{});
    EXPECT_EQ(restore_calls(good, "PortBased").size(), 8U);
}

// A line of the longest lists does not fit the reader: its device cannot be
// restored from the document as it stands.
TEST_F(Switching, LongestVlanLists) {
    state().vlan.roles.fill(1);
    const std::pair<std::size_t, const char*> lengths[] = {
        {1005, ""}, {1006, "211\n"}, {1023, "211\n"}, {1024, "211\n"}};
    std::string list;
    for (const auto& [length, report] : lengths) {
        while (list.size() < length) {
            list += list.size() % 2 == 0 ? '1' : ',';
        }
        for (auto& stored : state().vlan.lists) {
            stored.fill(list.c_str());
        }
        const std::string document = backup();
        EXPECT_TRUE(contains(document, "port8_vlan = \"" + list + "\" ;\n"));
        EXPECT_EQ(check(document), report) << length;
    }
}

TEST_F(Switching, RestoreRstpBridge) {
    const char guard[] = "BPDU Guard ebl";
    const char interval[] = "BPDU Guard inter_time";
    const char guard_set[] = "U_StpSetBpduGuardCfg(";
    const std::vector<Restored> edits = {
        {"enable state", {"256", "on"}, "U_StpSetEbl(", "0)"},
        {"enable state", {"255"}, "U_StpSetEbl(", "-1)"},
        {"enable state", {"-1", nullptr}, "U_StpSetEbl(", ""},
        {"mode", {"70000"}, "U_StpSetForceVersion(", "112)"},
        {"mode", {nullptr}, "U_StpSetForceVersion(", ""},
        {"priority", {"70000"}, "U_StpSetPriority(", "4464)"},
        {"priority", {"x"}, "U_StpSetPriority(", "0)"},
        {"priority", {nullptr}, "U_StpSetPriority(", ""},
        {"priority", {nullptr}, "U_StpSetFwdAgeHello(", "15, 20, 2)"},
        {guard, {"257"}, guard_set, "1, 300)"},
        {guard, {"255"}, guard_set, "-1, 300)"},
        {interval, {"70000"}, guard_set, "0, 70000)"},
        {interval, {"-1"}, guard_set, "0, 4294967295)"},
        {interval, {"x"}, guard_set, "0, 0)"},
    };
    expect_restored(good, rstp, edits);
    state().rstp.bpdu_guard = 1;
    state().rstp.bpdu_guard_interval = 77;
    EXPECT_EQ(restored(without(good, rstp, guard), guard_set), "1, 300)");
    state().rstp.bpdu_guard_interval = 77;
    EXPECT_EQ(restored(without(good, rstp, interval), guard_set), "0, 77)");
    EXPECT_EQ(restored(with(good, rstp, {{interval, nullptr}, {guard, nullptr}}), guard_set), "");
    make_fail("U_FlshStpGetBpduGuardCfg");
    EXPECT_EQ(restored(without(good, rstp, interval), guard_set), "");
}

TEST_F(Switching, RestoreRstpPorts) {
    const char edge[] = "U_FlshStpSetPortEdge(";
    const char stored[] = "stp_rstp_setToFlash(7, stp_rstp_t{";
    const std::vector<Restored> edits = {
        {"port1_edge port", {"1"}, edge, ""}, // as it is stored
        {"port1_edge port", {"no"}, edge, "0, 0)"},
        {"port1_edge port", {"256"}, edge, ""}, // not a boolean
        {"port8_edge port", {"1x"}, edge, "7, 1)"},
        {"port1_edge port", {nullptr}, edge, ""},
        {"port8_enable RSTP", {"0"}, "U_StpSetPortNonstp(7, ", "1)"},
        {"port5_enable RSTP", {"-1", nullptr}, "U_StpSetPortNonstp(4, ", "0)"},
        {"port8_bpdu guard", {"70000", nullptr}, "U_StpSetPortBpduGuardEbl(7, ", ""},
        {"port8_bpdu guard", {"true"}, "U_StpSetPortBpduGuardEbl(7, ", "1)"},
        {"port8_root guard", {"256"}, "U_StpSetPortRootGuard(7, ", "1)"},
        {"port8_root guard", {nullptr}, stored, "bpdu_filter=0, root_guard=1})"},
        {"port8_bpdu filter", {"x"}, "U_StpSetPortBpduFilter(7, ", "1)"},
        {"port8_bpdu filter", {nullptr}, stored, "bpdu_filter=1, root_guard=0})"},
    };
    expect_restored(good, rstp, edits);
}

TEST_F(Switching, RestoreAcl) {
    const std::string behind_the_index =
        ", acAclName=\"cabinet only\", ulBitMap=1, aucSrcMac=02:00:5E:10:00:00, "
        "aucSrcMacMask=FF:FF:FF:FF:00:00, ulSrcIp=0.0.0.0, ulSrcIpMask=0.0.0.0, "
        "pstSrcPortMask={0,1,2,8}, stPolicy=1})";
    const auto indexed = [&](const std::string& index) {
        return index + ", TstFlshAcl{usIndex=" + index + behind_the_index;
    };
    const auto changed = [&](std::initializer_list<std::pair<std::string, const char*>> parts) {
        std::string rule = indexed("1");
        for (const auto& [from, to] : parts) {
            rule.replace(rule.find(from), from.size(), to);
        }
        return rule;
    };
    const char index[] = "Acl_Rule_0 Index_Id";
    const char name[] = "Acl_Rule_0 Profile Name";
    const char action[] = "Acl_Rule_0 Action";
    const char mac[] = "Acl_Rule_0 Source MAC";
    const char mac_mask[] = "Acl_Rule_0 Mask of Source MAC";
    const char ip[] = "Acl_Rule_0 Source IP";
    const char ports[] = "Acl_Rule_0 Source_Interface";
    const char insert[] = "U_AclInsRule(";
    const char no_mac[] = "00:00:00:00:00:00";
    const char bit[] = "ulBitMap=1";
    const char ip_bit[] = "ulBitMap=65";
    const std::vector<Restored> edits = {
        {index, {"70000"}, insert, indexed("4464")},
        {index, {"-1"}, insert, indexed("65535")},
        {index, {"010"}, insert, indexed("10")},
        {index, {"65536", "one", "\"\"", nullptr}, insert, ""},
        {name,
         {"\"cabinet-89012345678901234567890123\""},
         insert,
         changed({{"cabinet only", "cabinet-89012345678901234567890"}})},
        {name, {nullptr}, insert, changed({{"cabinet only", ""}})},
        {action, {"\"Deny\""}, insert, changed({{"stPolicy=1", "stPolicy=2"}})},
        {action, {"\"deny\"", nullptr}, insert, indexed("1")},
        {mac, {"\"x\"", nullptr}, insert, changed({{"02:00:5E:10:00:00", no_mac}})},
        {mac_mask, {"\"\""}, insert, changed({{"FF:FF:FF:FF:00:00", no_mac}})},
        {ip, {"\"1.2.3.4\""}, insert, changed({{bit, ip_bit}, {"SrcIp=0.0.0.0", "SrcIp=1.2.3.4"}})},
        {ip, {nullptr}, insert, changed({{bit, ip_bit}})},
        {"Acl_Rule_0 Mask of Source IP",
         {"\"192.168.100.2000\""},
         insert,
         changed({{bit, ip_bit}, {"Mask=0.0.0.0", "Mask=192.168.100.200"}})},
        {ports, {"\"\"", nullptr}, insert, changed({{"{0,1,2,8}", "{8}"}})},
        {ports, {"\"8,,9,0,-1,256,70000,x,1\""}, insert, changed({{"{0,1,2,8}", "{0,7,8}"}})},
    };
    const std::string one_rule = without(good, acl, "Acl_Rule_1 Index_Id");
    expect_restored(one_rule, acl, edits);
    // Without either key of the address the condition is gone.
    const std::string document = with(one_rule, acl, {{mac, "\"\""}, {mac_mask, "\"\""}});
    EXPECT_TRUE(contains(restored(document, insert), "ulBitMap=0,"));
}

TEST_F(Switching, AclSlotsAndShortTexts) {
    std::string document = with(good, acl, "Acl_Rule_33 Index_Id", "7"); // no such slot
    document = with(document, acl, "Acl_Rule_0 Source IP", "x");         // given all the same
    EXPECT_EQ(restore_calls(document, "U_AclInsRule").size(), 2U);
    EXPECT_EQ(state().acl.rules.get(0).conditions, 65U);
}

namespace {

void reset_to_ports(int physical, int logical, const std::vector<simulator::PortSet>& trunks) {
    simulator::State device;
    device.ports.physical = static_cast<std::uint8_t>(physical);
    device.ports.logical = static_cast<std::uint8_t>(logical);
    device.ports.trunks = trunks;
    reset(device);
}

} // namespace

TEST_F(Switching, AclCallsForTheSetOfPorts) {
    const std::string document =
        with(good, acl, {{"Acl_Rule_0 Source_Interface", "\"1\""}, {"Acl_Rule_1 Index_Id", "0"}});
    reset_to_ports(7, 12, {{}, {1, 2}});
    restore(document);
    EXPECT_EQ(calls_with(all_calls(), "PPortMask"),
              (Calls{"U_PPortMaskClrAll()", "U_PPortMaskSetPort(0)", "U_PPortMaskClrAll()",
                     "U_PPortMaskClrAll()", "U_PPortMaskCopy({0})", "U_PPortMaskOr({1,2}, {0})"}));
    // A set has 64 ports, whatever the device has.
    reset_to_ports(255, 255, {});
    restore(document);
    EXPECT_EQ(calls_with(all_calls(), "U_LPortMaskGetPort").back(),
              "U_LPortMaskGetPort({0,8}, 63)");
    simulator::journal().clear();
    backup();
    EXPECT_EQ(calls_with(all_calls(), ", 64)"), Calls{});
}

// The id behind the last physical port is a port; those behind it are trunks.
TEST_F(Switching, AclIngressPortsBehindTrunks) {
    const auto ingress_ports = [&](int physical, int logical) {
        reset_to_ports(physical, logical, {{60}, {1, 2}, {}, {50}, {0, 33}});
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

// A slot that cannot be read is left out, a policy without a text is permit.
TEST_F(Switching, AclRuleThatCannotBeReadOrWritten) {
    auto& rules = state().acl.rules;
    rules.at(1).policy = 3;
    make_fail("U_FlshGetAcl:1");
    const std::string document = backup();
    EXPECT_FALSE(contains(document, "Acl_Rule_0 "));
    EXPECT_TRUE(contains(document, "Acl_Rule_1 Action             = \"\" ;"));
    restore(document);
    EXPECT_EQ(rules.get(1).policy, 1U);
    EXPECT_EQ(rules.get(0).index, 1U) << "what the document does not mention stays";
}

TEST_F(Switching, RestoreQos) {
    const char type[] = "Classification Type";
    const char schedule[] = "U_QosSetScheduleMode(TstFlshSchedulemode{";
    const std::string first = "sch=0, paiWeights={";
    const std::string others = ",2,3,4,5,6,7,8}, classify=";
    const std::vector<Restored> modes = {
        {"mode", {"\"strict priority\"", "\"\"", nullptr}, "U_Qos", "Init()"},
        {"Q0", {"70000"}, schedule, first + "70000" + others + "3})"},
        {"Q0", {"256"}, schedule, first + "256" + others + "3})"},
        {"Q0", {"-1"}, schedule, first + "4294967295" + others + "3})"},
        {"Q0", {"010 packets"}, schedule, first + "10" + others + "3})"},
        {"Q0", {"abc", nullptr}, schedule, first + "0" + others + "3})"},
        {type, {"\"802.1p CoS only\""}, schedule, first + "1" + others + "1})"},
        {type, {"\"802.1p cos only\"", nullptr}, schedule, first + "1" + others + "0})"},
    };
    expect_restored(good, qos, modes);
    const char queues[] = "U_QosSetcosqueuemapping(";
    const std::string seven = "{1,0,2,3,4,5,6,";
    const std::vector<Restored> mappings = {
        {"7", {"Q3"}, queues, seven + "3})"},
        {"7", {"3", "Q256", "queue"}, queues, seven + "0})"},
        {"7", {"Q12"}, queues, seven + "12})"},
        {"7", {"Q70000"}, queues, seven + "112})"},
        {"7", {"Q-1"}, queues, seven + "255})"},
        {"7", {nullptr}, queues, ""},
        {"0", {"\"\""}, queues, ""},
    };
    expect_restored(good, cos, mappings);
    // Without a mapping of priorities the code points are still restored.
    EXPECT_EQ(restore_calls(without(good, cos, "7"), "dscp").size(), 1U);
}

TEST_F(Switching, RestoreDscp) {
    const char set[] = "U_QosSetdscpmapping(";
    const std::string first_ten = "U_QosSetdscpmapping({0,0,0,0,0,0,0,0,1,1,";
    const std::string stored = restored(good, first_ten); // the golden calls tell what it is
    const std::string others = stored.substr(stored.find(','));
    const std::vector<Restored> edits = {
        {"0x0A(10)", {"70000"}, first_ten, "112" + others},
        {"0x0A(10)", {"256", "x"}, first_ten, "0" + others},
        {"0x0A(10)", {"-1"}, first_ten, "255" + others},
        {"0x0A(10)", {nullptr}, set, ""},
        {"0x3F(63)", {"\"\""}, set, ""},
        {"Message", {"\"DSCP doesn't support 802.1p CoS only.\""}, set, ""},
        {"Message", {"\"any other\""}, first_ten, stored},
    };
    expect_restored(good, dscp, edits);
    const std::string lower_case = with(good, dscp, {{"0x0A(10)", nullptr}, {"0x0a(10)", "9"}});
    EXPECT_EQ(restored(lower_case, first_ten), "9" + others);
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
            EXPECT_EQ(contains(document, "\nmode        "), known);
            EXPECT_EQ(contains(document, "Q7 "), scheduling == 0);
            EXPECT_EQ(contains(document, "Message "), classification == 1);

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
    const char port8[] = "U_PortSecSwitchMac(7, ";
    const std::vector<Restored> edits = {
        {"port8_Maximum_MAC", {"70000"}, port8, "0, 0, 4464)"},
        {"port8_Maximum_MAC", {"-1"}, port8, "0, 0, 65535)"},
        {"port8_Maximum_MAC", {"256"}, port8, "0, 0, 256)"},
        {"port8_Maximum_MAC", {"0x10", nullptr}, port8, "0, 0, 0)"},
        {"port8_port_state", {"\"1\""}, port8, "1, 0, 1)"},
        {"port8_port_state", {"\" 1\"", "01", "yes", nullptr}, port8, "0, 0, 1)"},
        {"global_state", {"1"}, port8, "0, 1, 1)"},
        {"global_state", {"256", nullptr}, port8, "0, 0, 1)"},
    };
    expect_restored(good, security, edits);
    // The record goes first, so that nothing of the old ports is left.
    const Calls calls = restore_calls(with(good, security, "global_state", "1"), "PortSec");
    EXPECT_EQ(calls.size(), 9U);
    EXPECT_EQ(calls.front().find("U_FlshPortSecMacSet(TstFlshPortSecMac{port_max_mac={0:0,"), 0U);
    EXPECT_TRUE(contains(calls.front(), "gblebl=1}"));
}

// The library's arrays end before the ports do.
TEST_F(Switching, MorePortsThanTheArraysHold) {
    state().ports.physical = 255;
    state().ports.logical = 255;
    state().warnings.ports.at(31) = 1;
    reset(state());
    const std::string document = backup();
    EXPECT_TRUE(contains(document, "\nport255_bpdu filter = "));
    EXPECT_TRUE(contains(document, "\nport_32 Link_status    = \"Link UP\" ;\npower_1"));
    EXPECT_TRUE(contains(document, "\nport32_port_state =\""));
    EXPECT_FALSE(contains(document, "\nport33_port_state"));
    EXPECT_FALSE(contains(document, "\nport9_role"));
    EXPECT_FALSE(contains(document, "\nport9 = \""));
    EXPECT_EQ(check(document), "");
    state().warnings = {};
    EXPECT_EQ(restore_calls(document, "SwitchMac").size(), 32U);
    EXPECT_EQ(backup(), document);
}
