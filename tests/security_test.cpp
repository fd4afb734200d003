// "password", "snmp settings", "static sak", the three sections of 802.1X,
// "auth server setting".

#include "frame/modes.h"
#include "tests/support/switch_test.h"

#include <algorithm>

using simulator::make_fail;
using simulator::reset;
using simulator::state;

class Security : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

constexpr char snmp[] = "snmp settings";
constexpr char password[] = "password";
constexpr char static_sak[] = "static sak";
constexpr char dot1x[] = "802.1x setting";
constexpr char parameters[] = "802.1x parameter setting";
constexpr char port_modes[] = "802.1x port setting";
constexpr char login_server[] = "auth server setting";

// Encrypted texts of 48 and of 64 digits.
constexpr char text_48[] = "\"000000000000000000000000000000000000000000000000\"";
constexpr char text_64[] = "\"0000000000000000000000000000000000000000000000000000000000000000\"";

} // namespace

TEST_F(Security, CheckSnmp) {
    const std::vector<Reported> edits = {
        {snmp, "snmp", {"2"}, "249\n"},
        {snmp, "snmp version", {"-1"}, "250\n"},
        {snmp, "snmp version", {"4"}, "251\n"},
        {snmp, "snmp community string2", {"\"longer than 16 ch\""}, "253\n"},
        {snmp, "snmp community string2", {"\"-1\""}, ""}, // absent
        {snmp, "snmp community string15", {"\"\""}, "253\n"},
        {snmp, "snmp community string16", {"\"\""}, ""},
        {snmp, "snmp community permission type1", {"0"}, "255\n"},
        {snmp, "snmp community permission type15", {"3"}, "255\n"},
        {snmp, "snmp community permission type2", {nullptr}, ""},
        {snmp, "snmp trap mode", {nullptr}, "256\n"},
        {snmp, "snmp trap mode", {"2"}, "257\n"},
        {snmp, "snmp trap server ip1", {"\"192.168.10\""}, "259\n"},
        {snmp, "snmp trap server ip15", {"\"2001:db8::1\""}, ""},
        {snmp, "snmp trap server port2", {"65536"}, "261\n"},
        {snmp, "snmp trap server port16", {"0"}, ""},
        {snmp, "snmp v3 user name2", {"\"\""}, "265\n"},
        {snmp, "snmp v3 user name3", {"\"\""}, ""},
        {snmp, "snmp v3 authentication password1", {text_48}, "267\n"},
        {snmp, "snmp v3 encryption key1", {"\"authenticate me\""}, "269\n"},
        {snmp, "snmp v3 encryption key1", {nullptr}, ""},
    };
    expect_reports(good, edits);
}

TEST_F(Security, CheckStaticSakLoginServerAndAccounts) {
    const std::vector<Reported> edits = {
        {static_sak, "port 8 static sak status", {"-1"}, "219\n"},
        {static_sak, "port 8 static sak status", {nullptr}, ""},
        {static_sak, "port 7 sci", {text_64}, "220\n"},
        {static_sak, "port 8 sci", {nullptr}, "220\n"},
        {static_sak, "port 7 sak", {text_48}, "221\n"},
        {static_sak, "port 8 sak", {text_64}, ""},
        {static_sak, "port 7 sci", {"\"0123456789abcdef0123456789abcdeg\""}, "222\n"},
        {static_sak, "port 8 sak", {"\"0123456789abcdef0123456789abcd f\""}, "222\n"},
        {login_server, "authentication server", {"\"-1\""}, "307\n"},
        {login_server, "authentication server", {"\"on\""}, ""},
        {login_server, "server Ip/Name", {nullptr}, ""},
        {password, "access_right0", {"\"emperor\""}, ""},
    };
    expect_reports(good, edits);
    EXPECT_EQ(check(without_section(good, password)), "");
}

TEST_F(Security, CheckDot1x) {
    const char capitals[] = "AFA3250E392142F0B07A35839A9217A117C98319D042B7A8BCB668E85AE05ECB";
    // The factory switch has 802.1X off: the server may not change.
    const std::vector<Reported> off = {
        {dot1x, "802.1x", {nullptr, "\"maybe\""}, ""},
        {dot1x, "radius server ip", {"\"192.168.10.61\"", nullptr}, "223\n"},
        {dot1x, "server port", {"1813"}, "224\n"},
        {dot1x, "server port", {"67348"}, "224\n"}, // 1812 in its low 16 bits
        {dot1x, "accounting port", {"\"01813\""}, ""},
        {dot1x, "accounting port", {"\"0x715\""}, "225\n"}, // decimal only
        {dot1x, "nas identifier", {"\"Cabinet-4\""}, "226\n"},
        {dot1x, "shared key", {text_64, capitals}, "227\n"},
    };
    expect_reports(good, off);
    expect_reports(without(good, dot1x, "802.1x"), off);
    const std::vector<Reported> on = {
        {dot1x, "radius server ip", {"\"10.0.0.256\""}, "228\n"},
        {dot1x, "radius server ip", {"\"10.0.0.1\""}, ""},
        {dot1x, "server port", {"70000", "-1"}, "229\n"},
        {dot1x, "server port", {nullptr}, ""},
        {dot1x, "accounting port", {"65536"}, "230\n"},
        {dot1x, "accounting port", {"65535"}, ""},
        {dot1x, "nas identifier", {"\"12345678901234567890123456789\""}, ""},
        {dot1x, "nas identifier", {"\"123456789012345678901234567890\""}, "231\n"},
        {dot1x, "shared key", {text_48, "\"\"", nullptr}, "232\n"},
        {dot1x, "shared key", {text_64, "\"these 32 characters are no text.\""}, ""},
    };
    expect_reports(with(good, dot1x, "802.1x", "1"), on);
    const std::vector<Reported> either = {
        {parameters, "quiet period", {"9", "65536", nullptr}, "233\n"},
        {parameters, "tx period", {"-10", "65536"}, "234\n"},
        {parameters, "tx period", {"65535"}, ""},
        {parameters, "supplicant timeout", {"301"}, "235\n"},
        {parameters, "supplicant timeout", {"300"}, ""},
        {parameters, "server timeout", {"301"}, "236\n"},
        {parameters, "server timeout", {"10"}, ""},
        {parameters, "maximum requests", {"1", "11"}, "237\n"},
        {parameters, "reauth period", {"29", "65536"}, "238\n"},
        {parameters, "reauth period", {"30"}, ""},
        {port_modes, "port1_mode", {nullptr}, "239\n"},
        {port_modes, "port8_mode", {"\"force authorized\""}, "239\n"},
        {port_modes, "port8_mode", {"\"N/A\""}, ""},
        {port_modes, "port9_mode", {"\"none\""}, ""},
    };
    expect_reports(good, either);
    // A text that is not an address equals a device's missing one.
    state().dot1x.server = {0};
    EXPECT_EQ(check(with(good, dot1x, "radius server ip", "\"nowhere\"")), "");
}

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
    const auto first_removal = std::find(calls.begin(), calls.end(), removed[0]);
    EXPECT_EQ(*std::prev(first_removal), "U_FlshSnmpSetMode(1)");
    // Deleting moves the entries up, so that the loop meets the first one again.
    // Then all go, and those of the document come.
    EXPECT_EQ(calls_with(calls, "Ipv6"), (Calls{removed[0], inserted[0], removed[0], inserted[0],
                                                removed[1], removed[0], inserted[0], inserted[1]}));
    EXPECT_EQ(state().snmp.trap_mode, 1);
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
}

TEST_F(Security, TrapReceivers) {
    const std::vector<Restored> edits = {
        {"snmp trap server ip1",
         {"\"no address\""},
         "U_SnmpInsTrapIpv6(",
         R"(0.0.0.0, 162, "public"); 192.168.10.51, 1162, "traps"))"},
        {"snmp trap server port1",
         {"65537"},
         "U_SnmpInsTrapIpv6(192.168.10.50, ",
         "1, \"public\")"},
        {"snmp trap mode", {"1"}, "U_FlshSnmpSetMode(", "1)"},
    };
    expect_restored(good, snmp, edits);
}

TEST_F(Security, UserProtocolsFollowTheSecrets) {
    state().snmp.users = {{"none", 2, "", 1, ""}, {"key only", 0, "", 0, "key"}};
    EXPECT_EQ(restored(backup(), "U_SnmpInsUsm("),
              R"("none", 0, "", 0, ""); "key only", 1, "", 1, "key"))");
    state().snmp.users = {{"password only", 0, "p", 0, ""}, {"both", 0, "p", 0, "k"}};
    EXPECT_EQ(restored(backup(), "U_SnmpInsUsm("),
              R"("password only", 1, "p", 0, ""); "both", 1, "p", 1, "k"))");
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

    state().accounts.slots = {{false, "", "", 0}, {false, "ann", "", 1}};
    restore(without_section(full, password));
    EXPECT_TRUE(state().accounts.slots[0].empty) << "an empty name is removed";

    // A library that does not encrypt the empty name deletes nothing of the document.
    make_fail("account_encryptUsername:2");
    restore(full);
    make_fail("");
    EXPECT_TRUE(contains(backup(), "= \"user0\""));
}

TEST_F(Security, RestoreDot1x) {
    const std::string digits = good.substr(good.find("shared key = \"") + 14, 64);
    const std::string longer = "\"" + digits + "000000\""; // cut to 64 characters, two blocks
    const std::string name(70, 'n');
    const char server[] = "U_Dot1xSetRds(";
    const std::vector<Restored> edits = {
        {"802.1x", {"\"True\""}, "U_Dot1xSetEbl(", "1)"},
        {"radius server ip", {"\"nowhere\""}, server, "0.0.0.0, 1812, 1813)"},
        {"server port", {"65537"}, server, "192.168.10.60, 1, 1813)"},
        {"accounting port", {"\"0x10\""}, server, "192.168.10.60, 1812, 0)"},
        {"nas identifier", {name.c_str()}, "U_Dot1xSetRdsId(\"", std::string(64, 'n') + "\")"},
        {"shared key", {longer.c_str()}, "U_Dot1xSetRdsKey(", "\"radius shared secret\")"},
    };
    expect_restored(good, dot1x, edits);
    const std::vector<Restored> cut = {
        {"quiet period", {"65546"}, "U_Dot1xSetTimeoutQuiet(", "10)"},
        {"tx period", {"65546"}, "U_Dot1xSetTimeoutTx(", "10)"},
        {"supplicant timeout", {"65546"}, "U_Dot1xSetTimeoutSupplicant(", "10)"},
        {"server timeout", {"65546"}, "U_Dot1xSetTimeoutRds(", "10)"},
        {"maximum requests", {"258"}, "U_Dot1xSetMaxReq(", "2)"},
        {"reauth period", {"-2"}, "U_Dot1xSetTimeoutReauth(", "4294967294)"},
        {"reauth period", {"65546"}, "U_Dot1xSetTimeoutReauth(", "65546)"},
    };
    expect_restored(good, parameters, cut);
    state().dot1x.reauth_period = 4294967294;
    EXPECT_TRUE(contains(backup(), "\nreauth period = -2 ;\n"));
    const std::vector<Restored> modes = {
        {"port8_mode", {"\"Standard Authorization\""}, "U_Dot1xSetPortMode(7, ", "2)"},
        {"port8_mode", {"\"N/A\""}, "U_Dot1xSetPortMode(7, ", "3)"},
    };
    expect_restored(good, port_modes, modes);
}

TEST_F(Security, StaticSakOfOnePortAfterTheOther) {
    std::string document = with(good, static_sak, "port 7 static sak status", "257");
    document = with(document, static_sak,
                    {{"port 8 sak", nullptr}, {"port 8 static sak status", nullptr}});
    const Calls calls = restore_calls(document, "U_Macsec");
    EXPECT_EQ(calls[0], "U_MacsecPortEnable(6, 1)");
    EXPECT_EQ(calls[2], "U_MacsecSetPortEnable(6, 1)");
    EXPECT_EQ(calls[3], "U_MacsecPortEnable(7, 0)");
    EXPECT_TRUE(contains(calls[4], "U_MacsecSetKey(7, \"0200005e10200002\", \""));
    EXPECT_FALSE(contains(calls[4], ", \"\")")) << "an empty text is no empty secret";
    // Port 7 is applied whole before anything of port 8 is decoded.
    const Calls all = all_calls();
    const std::string sci_of_port_8 = good.substr(good.find("port 8 sci = ") + 14, 32);
    const auto applied = std::find(all.begin(), all.end(), calls[2]);
    const auto decoded =
        std::find(all.begin(), all.end(), "hexstr_to_byte(\"" + sci_of_port_8 + "\")");
    ASSERT_NE(decoded, all.end());
    EXPECT_LT(applied, decoded);
}

TEST_F(Security, LoginServer) {
    state().login_server.kind = 7;
    for (const char* off : {"0", "2", "\"on\""}) {
        const std::string document = with(good, login_server, "authentication server", off);
        EXPECT_EQ(restore_calls(document, "AuthSrv"), (Calls{"U_LoginAuthSrvSetEbl(0, 7, 1)"}));
    }
    const std::string key = "\"" + std::string(35, 'k') + "\"";
    const std::string on = with(good, login_server,
                                {{"authentication server", "257"},
                                 {"server type", "1"},
                                 {"server port", "65536"},
                                 {"shared key", key.c_str()},
                                 {"authentication type", "65537"},
                                 {"server timeout", "256"}});
    EXPECT_EQ(restore_calls(on, "AuthSrv"),
              (Calls{"U_LoginAuthSrvSetEbl(1, 1, 1)", "U_SetLoginAuthSrv(192.168.10.61, 0, \"" +
                                                          std::string(29, 'k') + "\", 1, 0, 1)"}));
    // Of an address 15 characters count. If they are not one, nothing changes.
    EXPECT_EQ(
        restore_calls(with(on, login_server, "server Ip/Name", "\"2001:db8::10:200\""), "Auth"),
        Calls{});
    const std::string longer = with(on, login_server, "server Ip/Name", "\"192.168.100.2000\"");
    EXPECT_NE(restored(longer, "U_SetLoginAuthSrv(192.168.100.200,"), "");
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
