// "password", "snmp settings", "static sak", the three sections of 802.1X,
// "auth server setting".

#include "frame/modes.h"
#include "platform/include/accounts.h"
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
        {dot1x, "shared key", {text_48}, "232\n"},
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
}

TEST_F(Security, AddressThatDoesNotConvertIsNone) {
    const std::string document = with(good, dot1x, "radius server ip", "\"nowhere\"");
    EXPECT_EQ(check(document), "223\n");
    state().dot1x.server = {0};
    EXPECT_EQ(check(document), "");
}

TEST_F(Security, AgentWithoutKeys) {
    const std::string document = without_section(good, snmp);
    EXPECT_EQ(restore_calls(document, "SnmpSet"),
              (Calls{"U_SnmpSetEbl(0)", "U_FlshSnmpSetVer(1)", "U_FlshSnmpSetMode(1)"}));
    EXPECT_EQ(restore_calls(document, "SnmpIns"), Calls{});
    reset();
    make_fail("U_SnmpGetCommunitySize,U_SnmpGetTrapSize,U_SnmpGetUsmSize");
    const std::string unreadable = backup(); // its tables are empty
    EXPECT_FALSE(contains(unreadable, "\nsnmp v3"));
    EXPECT_FALSE(contains(unreadable, "string1"));
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

TEST_F(Security, TrapReceivers) {
    std::string document = with(good, snmp, "snmp trap server ip1", "\"no address\"");
    document = with(document, snmp, "snmp trap server port1", "65537");
    EXPECT_EQ(restore_calls(document, "SnmpInsTrap").front(),
              "U_SnmpInsTrapIpv6(0.0.0.0, 1, \"public\")");
    for (const char* key : {"ip2", "port2", "community string2"}) {
        const std::string lacking = without(document, snmp, std::string("snmp trap server ") + key);
        EXPECT_EQ(restore_calls(lacking, "SnmpInsTrap").size(), 1U) << key;
    }
    // Without a mode the receivers are to be informed.
    EXPECT_EQ(restored(without(good, snmp, "snmp trap mode"), "U_FlshSnmpSetMode("), "1)");
    EXPECT_EQ(restored(good, "U_FlshSnmpSetMode("), "0)");
    EXPECT_EQ(restored(good, "U_FlshSnmpSetMode("), "");
}

TEST_F(Security, UserProtocolsFollowTheSecrets) {
    state().snmp.users = {{"none", 2, "", 1, ""}, {"key only", 0, "", 0, "key"}};
    EXPECT_EQ(restored(backup(), "U_SnmpInsUsm("),
              R"("none", 0, "", 0, ""); "key only", 1, "", 1, "key"))");
    state().snmp.users = {{"password only", 0, "p", 0, ""}, {"both", 0, "p", 0, "k"}};
    EXPECT_EQ(restored(backup(), "U_SnmpInsUsm("),
              R"("password only", 1, "p", 0, ""); "both", 1, "p", 1, "k"))");
    EXPECT_EQ(restored(without(good, snmp, "snmp v3 encryption key1"), "U_SnmpInsUsm("), "");
}

TEST_F(Security, Accounts) {
    std::string document = without_section(good, password);
    Calls empty_added;
    for (int slot = 0; slot < 15; ++slot) {
        empty_added.push_back(
            R"(account_addToFlash(account_t{username="", password="", access_right=0}))");
        empty_added.push_back(R"(account_deleteFromFlash(""))");
    }
    EXPECT_EQ(restore_calls(document, "account_"), empty_added);
    EXPECT_EQ(restored(document, "usrflsh_setPSWD_"), "minLen(0); maxLen(0)");
    EXPECT_EQ(state().accounts.slots.size(), 5U) << "the device keeps its accounts";

    document = with(good, password, "user name14", "\"" + std::string(40, 'u') + "\"");
    document = with(document, password, "password14", "\"" + std::string(40, 'p') + "\"");
    document = with(document, password, "access_right14", "\"2nd\"");
    document = with(document, password, {{"minimum_length", "256"}, {"maximum_length", "\"-1\""}});
    EXPECT_EQ(restore_calls(document, "account_addToFlash").back(),
              "account_addToFlash(account_t{username=\"" + std::string(31, 'u') +
                  "\", password=\"" + std::string(31, 'p') + "\", access_right=2})");
    EXPECT_EQ(restored(document, "usrflsh_setPSWD_"), "minLen(0); maxLen(255)");
    EXPECT_EQ(restored(good, "usrflsh_setPSWD_"), "minLen(6); maxLen(31)");
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

    account_t administrator = {};
    account_err_t error = ACCOUNT_ERROR_NONE;
    account_getFromFlash(1, &administrator, &error);
    account_deleteFromFlash(&administrator, &error);
    EXPECT_EQ(error, ACCOUNT_ERROR_LAST_ADMIN);
    account_getFromFlash(15, &administrator, &error);
    EXPECT_EQ(error, ACCOUNT_ERROR_INVALID_INDEX);
}

TEST_F(Security, Dot1xServer) {
    std::string document = with(good, dot1x, {{"802.1x", "\"True\""}, {"nas identifier", nullptr}});
    document = with(document, dot1x, "radius server ip", "\"nowhere\"");
    document = with(document, dot1x, {{"server port", "65537"}, {"accounting port", "\"0x10\""}});
    EXPECT_EQ(restored(document, "U_Dot1xSetEbl("), "1)");
    EXPECT_EQ(restored(document, "U_Dot1xSetRds"),
              R"((0.0.0.0, 1, 0); Id(""); Key("radius shared secret"))");

    // Texts are cut to 64 characters, which of a key are two blocks.
    const std::string digits = good.substr(good.find("shared key = \"") + 14, 64);
    document = with(good, dot1x, "shared key", "\"" + digits + "000000\"");
    document = with(document, dot1x, "nas identifier", std::string(70, 'n'));
    document = without(document, dot1x, "802.1x");
    EXPECT_EQ(restored(document, "U_Dot1xSetEbl("), "0)");
    EXPECT_EQ(restored(document, "U_Dot1xSetRdsId("), "\"" + std::string(64, 'n') + "\")");
    EXPECT_EQ(restored(document, "U_Dot1xSetRdsKey("), "\"radius shared secret\")");
}

TEST_F(Security, Dot1xParametersAndPorts) {
    // Numbers are cut to their widths; a missing one is 0.
    std::string document =
        with(good, parameters, {{"quiet period", "65546"}, {"tx period", nullptr}});
    document = with(document, parameters, {{"maximum requests", "258"}, {"reauth period", "-2"}});
    EXPECT_EQ(restored(document, "U_Dot1xSetTimeout"),
              "Quiet(10); Tx(0); Supplicant(30); Rds(30); Reauth(4294967294)");
    EXPECT_EQ(restored(document, "U_Dot1xSetMaxReq("), "2)");
    EXPECT_TRUE(contains(backup(), "\nreauth period = -2 ;\n"));

    document = with(good, port_modes, "port3_mode", "\"Standard Authorization\"");
    document = with(document, port_modes, {{"port4_mode", "\"N/A\""}, {"port8_mode", nullptr}});
    EXPECT_EQ(restored(document, "U_Dot1xSetPortMode("),
              "0, 1); 1, 1); 2, 2); 3, 3); 4, 1); 5, 1); 6, 1); 7, 3)");
}

TEST_F(Security, PortModeThatCannotBeRead) {
    state().dot1x.ports.at(4).mode = 2;
    make_fail("U_Dot1xGetPortMode:6");
    EXPECT_TRUE(contains(backup(), "\nport5_mode = \"Standard Authorization\" ;\n"
                                   "port6_mode = \"Standard Authorization\" ;\n"
                                   "port7_mode = \"Force Authorized\" ;\n"))
        << "it is written like the one before it";
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
    std::string document = with(good, login_server,
                                {{"authentication server", "257"},
                                 {"server type", "1"},
                                 {"server port", "65536"},
                                 {"server timeout", "256"}});
    document = with(document, login_server, "shared key", "\"" + std::string(35, 'k') + "\"");
    EXPECT_EQ(restore_calls(document, "AuthSrv"),
              (Calls{"U_LoginAuthSrvSetEbl(1, 1, 1)", "U_SetLoginAuthSrv(192.168.10.61, 0, \"" +
                                                          std::string(29, 'k') + "\", 2, 0, 1)"}));
    // 15 characters of the address count; what they are no address of changes nothing.
    document = with(document, login_server, "server Ip/Name", "\"2001:db8::10:200\"");
    EXPECT_EQ(restore_calls(document, "AuthSrv"), Calls{});
    for (const char* address : {"\"192.168.100.2000\"", "\"192.168.100.200:1812\""}) {
        document = with(document, login_server, "server Ip/Name", address);
        EXPECT_NE(restored(document, "U_SetLoginAuthSrv(192.168.100.200,"), "") << address;
    }
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
