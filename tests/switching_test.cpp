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
constexpr char acl[] = "Acl setting";

} // namespace

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
    // A library that takes any number: 65547 is 11 in the 16 bits that are compared.
    const std::string wrapped =
        with(good, vlan, {{"port1_vlan", "\"65547\""}, {"management vlan id", "11"}});
    EXPECT_EQ(check(wrapped), "");
    state().vlan.verdict = 0;
    EXPECT_EQ(check(wrapped), "299\n");
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

// The other ports keep what they have, and all of them what cannot be read.
TEST_F(Switching, VlansOfFewerPorts) {
    const char data[] = "set_vlan_data(vlan_data_t{";
    const std::string fewer = with(good, vlan,
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
    EXPECT_NE(restored(without_section(good, vlan) + "[vlan setting]\nport1_role = 1\n", data), "");
}

TEST_F(Switching, RestoreIsolation) {
    std::string document = without_section(good, isolation) + "[vlan port isolation setting]\n";
    EXPECT_EQ(restore_calls(document, "PortBased"), Calls{});
    state().vlan.isolation.fill({5, 40});
    document = with(document, isolation, "port8", "\"8,-1,9,,0,x, 7z,256,70000\"");
    document =
        with(document, isolation, {{"port1", "\"2,3\""}, {"port2", "\"\""}, {"port9", "\"1\""}});
    const std::string kept = ", {5,40}, {5,40}, {5,40}, {5,40}, {5,40}, ";
    const std::string call = "U_FlshVlanSetPortBasedEntry(TstFlshVlanPortBasedEntry{";
    EXPECT_EQ(restore_calls(document, "PortBased"),
              (Calls{call + "{1,2,8}, {5,40}" + kept + "{5,40}})",
                     call + "{1,2,8}, {8}" + kept + "{5,40}})",
                     call + "{1,2,8}, {8}" + kept + "{6,8}})"}));
    make_fail("U_FlshVlanGetPortBasedEntry");
    EXPECT_EQ(restore_calls(without(good, isolation, "port1"), "PortBased"), Calls{});
    EXPECT_EQ(restore_calls(good, "PortBased").size(), 8U);
}

// The line of a longer list does not fit the reader: its document cannot be restored.
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

// The id right after the last physical port counts as a port; those after it are trunks.
TEST_F(Switching, AclIngressPortsOfTrunks) {
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

// A mode without a text sets nothing; a classification without one becomes none.
TEST_F(Switching, QosWithoutTexts) {
    for (const int scheduling : {1, 65535}) {
        state().qos.scheduling = static_cast<std::uint16_t>(scheduling);
        const std::string document = backup();
        EXPECT_FALSE(contains(document, "\nmode        "));
        EXPECT_FALSE(contains(document, "Q7 "));
        EXPECT_EQ(restore_calls(document, "Qos"), Calls{"U_QosInit()"});
    }
    for (const int classification : {-1, 2, 4}) {
        reset();
        state().qos.classification = classification;
        const std::string document = backup();
        EXPECT_TRUE(contains(document, "\n0x3F(63)             = \"7\" ;\n"));
        restore(document);
        EXPECT_EQ(state().qos.classification, 0);
    }
}

// The library's arrays have fewer entries than there can be ports.
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
