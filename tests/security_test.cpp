// "password", "snmp settings", "static sak", the three sections of 802.1X,
// "auth server setting".

#include "frame/modes.h"
#include "tests/support/switch_test.h"

#include <algorithm>

using simulator::make_fail;
using simulator::state;

class Security : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

constexpr char snmp[] = "snmp settings";
constexpr char password[] = "password";

} // namespace

TEST_F(Security, Communities) {
    // Number 4 lacks its type; the complete number 15 is inserted all the same.
    const std::string document =
        with(good, snmp,
             {{"snmp community string4", "\"lonely\""},
              {"snmp community string15", "\"fifteen letters, and more\""},
              {"snmp community permission type15", "258"},
              {"snmp community string16", "\"beyond\""},
              {"snmp community permission type16", "1"},
              {"snmp trap server community string1", "\"fifteen letters, and more\""},
              {"snmp v3 user name1", "\"fifteen letters, and more\""}});
    EXPECT_EQ(restore_calls(document, "Community"),
              (Calls{"U_SnmpDelCommunity(\"public\")", "U_SnmpDelCommunity(\"private\")",
                     "U_SnmpInsCommunity(1, \"public\")", "U_SnmpInsCommunity(2, \"private\")",
                     "U_SnmpInsCommunity(2, \"fifteen letters\")"}));
    EXPECT_EQ(calls_with(changes(), "U_SnmpInsUsm(\"fifteen letters\", ").size(), 1U);
    EXPECT_EQ(calls_with(changes(), ", \"fifteen letters\")").size(), 2U);
}

TEST_F(Security, ChangedTrapModeInsertsTheReceiversAnew) {
    const std::string del = "U_SnmpDelTrapIpv6(192.168.10.";
    const std::string ins = "U_SnmpInsInformIpv6(192.168.10.";
    const Calls removed = {del + "50, 162)", del + "51, 1162)"};
    const Calls inserted = {ins + "50, 162, \"public\")", ins + "51, 1162, \"traps\")"};
    const Calls calls = restore_calls(with(good, snmp, "snmp trap mode", "1"), "Snmp");
    // Deleting moves the entries up, so that the loop meets the first one again.
    // Then all go, and those of the document come.
    EXPECT_EQ(calls_with(calls, "Ipv6"), (Calls{removed[0], inserted[0], removed[0], inserted[0],
                                                removed[1], removed[0], inserted[0], inserted[1]}));
}

// The first 15 are removed; the rest, and what a device without limits lets in, stay.
TEST_F(Security, FullerTablesThanAnyDocument) {
    state().snmp.communities.assign(20, {"public", 1});
    state().snmp.receivers.assign(20, {{}, 162, "public"});
    for (std::uint16_t i = 0; i < 20; ++i) {
        state().snmp.communities[i].community = ("community " + std::to_string(i)).c_str();
        state().snmp.receivers[i].port = i;
    }
    const Calls calls = restore(good);
    EXPECT_EQ(calls_with(calls, "U_SnmpDelCommunity").size(), 15U);
    EXPECT_EQ(calls_with(calls, "U_SnmpDelCommunity").back(),
              "U_SnmpDelCommunity(\"community 14\")");
    EXPECT_EQ(calls_with(calls, "U_SnmpDelTrapIpv6").size(), 15U);
    EXPECT_EQ(calls_with(calls, "U_SnmpDelTrapIpv6").back(), "U_SnmpDelTrapIpv6(0.0.0.0, 14)");
    state().snmp.communities.resize(300);
    state().snmp.receivers.resize(300);
    state().snmp.users.resize(300);
    EXPECT_EQ(calls_with(lines_of(backup()), "300 = ").size(), 8U);
}

TEST_F(Security, Accounts) {
    Calls empty_added;
    for (int slot = 0; slot < 15; ++slot) {
        empty_added.push_back(
            R"(account_addToFlash(account_t{username="", password="", access_right=0}))");
        empty_added.push_back(R"(account_deleteFromFlash(""))");
    }
    EXPECT_EQ(restore_calls(without_section(good, password), "account_"), empty_added);
    EXPECT_EQ(state().accounts.slots.size(), 5U) << "the device keeps its accounts";
    EXPECT_EQ(calls_with(all_calls(), "Username(").back(), "account_encryptUsername(\"\", 32)");

    const std::string u40 = "\"" + std::string(40, 'u') + "\"";
    const std::string p40 = "\"" + std::string(40, 'p') + "\"";
    const std::string document = with(good, password,
                                      {{"user name14", u40.c_str()},
                                       {"password14", p40.c_str()},
                                       {"access_right14", "\"65538nd\""},
                                       {"minimum_length", "256"},
                                       {"maximum_length", "\"-1\""}});
    EXPECT_EQ(restore_calls(document, "account_addToFlash").back(),
              "account_addToFlash(account_t{username=\"" + std::string(31, 'u') +
                  "\", password=\"" + std::string(31, 'p') + "\", access_right=65538})");
    EXPECT_EQ(restored(document, "usrflsh_setPSWD_"), "minLen(0); maxLen(255)");
    restore(good, 1);
    EXPECT_EQ(calls_with(all_calls(), "account_"), Calls{});
    EXPECT_EQ(calls_with(all_calls(), "PSWD"), Calls{});
}

TEST_F(Security, AccountErrorsOfTheDevice) {
    state().accounts.slots.assign(15, {false, "", "same", 0});
    for (std::size_t slot = 0; slot < 15; ++slot) {
        state().accounts.slots[slot].name = ("user" + std::to_string(slot)).c_str();
    }
    const std::string full = backup();
    restore(with(full, password, "user name3", "\"newcomer\"")); // no room, and the loop goes on
    EXPECT_EQ(backup(), full);
    EXPECT_EQ(calls_with(all_calls(), "account_getFromFlash(15"), Calls{});

    state().accounts.slots = {{false, "", "", 0}, {false, "ann", "", 1}};
    restore(without_section(full, password));
    EXPECT_TRUE(state().accounts.slots[0].empty) << "an empty name is removed";

    // A library that does not encrypt the empty name deletes nothing of the document.
    make_fail("account_encryptUsername:2");
    restore(full);
    make_fail("");
    EXPECT_TRUE(contains(backup(), "= \"user0\""));
}

// Port 7 is applied whole before anything of port 8 is decoded.
TEST_F(Security, StaticSakOfOnePortAfterTheOther) {
    restore(good);
    const Calls all = all_calls();
    const std::string sci = good.substr(good.find("port 8 sci = ") + 14, 32);
    const auto applied = std::find(all.begin(), all.end(), "U_MacsecSetPortEnable(6, 0)");
    const auto decoded = std::find(applied, all.end(), "hexstr_to_byte(\"" + sci + "\")");
    EXPECT_NE(decoded, all.end());
}

TEST_F(Security, AnAddressThatIsNoneIsZero) {
    state().dot1x.server = {};
    EXPECT_EQ(check(with(good, "802.1x setting", "radius server ip", "x")), "");
}

// No field has room for a terminator then.
TEST_F(Security, TextsThatFillTheirFields) {
    const std::string letters = "a text of thirty-two letters, so";
    auto& device = state();
    std::vector<std::string> texts;
    const auto fill = [&](auto&... fields) {
        (fields.fill(letters.c_str()), ...);
        (texts.push_back(fields.text()), ...);
    };
    fill(device.snmp.communities[0].community, device.snmp.receivers[0].community,
         device.snmp.users[0].name, device.dot1x.nas_identifier, device.login_server.shared_key,
         device.sntp.server1, device.smtp.server, device.smtp.password,
         device.acl.rules.at(0).name);
    device.snmp.users[0].password.fill(letters.c_str());
    const std::string full = backup();
    for (const std::string& text : texts) {
        EXPECT_TRUE(contains(full, "\"" + text + "\"")) << text;
    }
    EXPECT_TRUE(contains(restored(full, "U_SnmpInsUsm("), ", 1, \"" + letters + "\", 1, "));
}

// What the document holds encrypted is in no output as plain text.
TEST_F(Security, SecretsStaySecret) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    std::string output = backup();
    write_file(restore_path, output);
    check_config_ini_file(restore_path);
    parse_config_ini_file(restore_path);
    output += read_file(report_path) + testing::internal::GetCapturedStdout();
    const std::string dump = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(contains(dump, "[static sak:port 7 sci]"));
    for (const char* secret : {"authenticate me", "and keep it private", "radius shared secret",
                               "0200005e10200001", "000102030405060708090a0b0c0d0e0f"}) {
        EXPECT_FALSE(contains(output + dump, secret)) << secret;
    }
}
