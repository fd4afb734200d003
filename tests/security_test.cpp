// "password", "snmp settings", "static sak", the three sections of 802.1X,
// "auth server setting".

#include "frame/modes.h"
#include "platform/include/accounts.h"
#include "tests/support/switch_test.h"

using simulator::make_fail;
using simulator::reset;
using simulator::state;

class Security : public SwitchTest {
protected:
    const std::string good = backup();
};

namespace {

// Encrypted texts of 48 and of 64 digits.
#define TEXT_48 "\"000000000000000000000000000000000000000000000000\""
#define TEXT_64 "\"0000000000000000000000000000000000000000000000000000000000000000\""

constexpr Edit snmp_edits[] = {
    {"snmp settings", "snmp", nullptr, "248\n"},
    {"snmp settings", "snmp", "2", "249\n"},
    {"snmp settings", "snmp version", "-1", "250\n"},
    {"snmp settings", "snmp version", "4", "251\n"},
    {"snmp settings", "snmp community string2", "\"longer than 16 ch\"", "253\n"},
    {"snmp settings", "snmp community string15", "\"\"", "253\n"},
    {"snmp settings", "snmp community string16", "\"\"", ""},
    {"snmp settings", "snmp community string2", "\"-1\"", ""}, // absent
    {"snmp settings", "snmp community permission type1", "0", "255\n"},
    {"snmp settings", "snmp community permission type15", "3", "255\n"},
    {"snmp settings", "snmp community permission type2", nullptr, ""},
    {"snmp settings", "snmp trap mode", nullptr, "256\n"},
    {"snmp settings", "snmp trap mode", "2", "257\n"},
    {"snmp settings", "snmp trap server ip1", "\"192.168.10\"", "259\n"},
    {"snmp settings", "snmp trap server ip15", "\"2001:db8::1\"", ""},
    {"snmp settings", "snmp trap server port2", "65536", "261\n"},
    {"snmp settings", "snmp trap server port16", "0", ""},
    {"snmp settings", "snmp trap server community string1", "\"\"", "263\n"},
    {"snmp settings", "snmp v3 user name2", "\"\"", "265\n"},
    {"snmp settings", "snmp v3 user name3", "\"\"", ""},
    {"snmp settings", "snmp v3 authentication password1", TEXT_48, "267\n"},
    {"snmp settings", "snmp v3 encryption key1", "\"authenticate me\"", "269\n"},
    {"snmp settings", "snmp v3 encryption key1", nullptr, ""},
};

constexpr Edit static_sak_edits[] = {
    {"static sak", "port 7 static sak status", "2", "219\n"},
    {"static sak", "port 8 static sak status", "-1", "219\n"},
    {"static sak", "port 8 static sak status", nullptr, ""},
    {"static sak", "port 7 sci", TEXT_64, "220\n"},
    {"static sak", "port 8 sci", nullptr, "220\n"},
    {"static sak", "port 7 sak", TEXT_48, "221\n"},
    {"static sak", "port 8 sak", TEXT_64, ""},
    {"static sak", "port 7 sci", "\"0123456789abcdef0123456789abcdeg\"", "222\n"},
    {"static sak", "port 8 sak", "\"0123456789abcdef0123456789abcd f\"", "222\n"},
};

// The factory switch has 802.1X off: the server may not change.
constexpr Edit dot1x_off_edits[] = {
    {"802.1x setting", "802.1x", nullptr, ""},
    {"802.1x setting", "802.1x", "\"maybe\"", ""},
    {"802.1x setting", "radius server ip", "\"192.168.10.61\"", "223\n"},
    {"802.1x setting", "radius server ip", nullptr, "223\n"},
    {"802.1x setting", "server port", "1813", "224\n"},
    {"802.1x setting", "server port", "67348", "224\n"}, // 1812 in its low 16 bits
    {"802.1x setting", "accounting port", "\"01813\"", ""},
    {"802.1x setting", "accounting port", "\"0x715\"", "225\n"}, // decimal only
    {"802.1x setting", "nas identifier", "\"Cabinet-4\"", "226\n"},
    {"802.1x setting", "shared key", TEXT_64, "227\n"},
    {"802.1x setting", "shared key",
     "\"AFA3250E392142F0B07A35839A9217A117C98319D042B7A8BCB668E85AE05ECB\"", "227\n"},
};

constexpr Edit dot1x_on_edits[] = {
    {"802.1x setting", "radius server ip", "\"10.0.0.256\"", "228\n"},
    {"802.1x setting", "radius server ip", "\"10.0.0.1\"", ""},
    {"802.1x setting", "server port", "70000", "229\n"},
    {"802.1x setting", "server port", "-1", "229\n"},
    {"802.1x setting", "server port", nullptr, ""},
    {"802.1x setting", "accounting port", "65536", "230\n"},
    {"802.1x setting", "accounting port", "65535", ""},
    {"802.1x setting", "nas identifier", "\"12345678901234567890123456789\"", ""},
    {"802.1x setting", "nas identifier", "\"123456789012345678901234567890\"", "231\n"},
    {"802.1x setting", "shared key", TEXT_48, "232\n"},
    {"802.1x setting", "shared key", TEXT_64, ""},
    {"802.1x setting", "shared key", "\"these 32 characters are no text.\"", ""},
};

constexpr Edit dot1x_parameter_edits[] = {
    {"802.1x parameter setting", "quiet period", "9", "233\n"},
    {"802.1x parameter setting", "quiet period", "65536", "233\n"},
    {"802.1x parameter setting", "quiet period", nullptr, "233\n"},
    {"802.1x parameter setting", "tx period", "-10", "234\n"},
    {"802.1x parameter setting", "tx period", "65536", "234\n"},
    {"802.1x parameter setting", "tx period", "65535", ""},
    {"802.1x parameter setting", "supplicant timeout", "301", "235\n"},
    {"802.1x parameter setting", "supplicant timeout", "300", ""},
    {"802.1x parameter setting", "server timeout", "301", "236\n"},
    {"802.1x parameter setting", "server timeout", "10", ""},
    {"802.1x parameter setting", "maximum requests", "1", "237\n"},
    {"802.1x parameter setting", "maximum requests", "11", "237\n"},
    {"802.1x parameter setting", "reauth period", "29", "238\n"},
    {"802.1x parameter setting", "reauth period", "30", ""},
    {"802.1x parameter setting", "reauth period", "65536", "238\n"},
    {"802.1x port setting", "port1_mode", nullptr, "239\n"},
    {"802.1x port setting", "port8_mode", "\"force authorized\"", "239\n"},
    {"802.1x port setting", "port8_mode", "\"N/A\"", ""},
    {"802.1x port setting", "port9_mode", "\"none\"", ""},
    {"auth server setting", "authentication server", nullptr, "307\n"},
    {"auth server setting", "authentication server", "\"-1\"", "307\n"},
    {"auth server setting", "authentication server", "\"on\"", ""},
    {"auth server setting", "server Ip/Name", nullptr, ""},
    {"password", "access_right0", "\"emperor\"", ""},
};

bool has_call(const std::string& name) {
    for (const std::string& call : all_calls()) {
        if (call.find(name) != std::string::npos) {
            return true;
        }
    }
    return false;
}

} // namespace

TEST_F(Security, CheckReports) {
    expect_reports(good, snmp_edits);
    expect_reports(good, static_sak_edits);
    expect_reports(good, dot1x_off_edits);
    expect_reports(without(good, "802.1x setting", "802.1x"), dot1x_off_edits);
    expect_reports(with(good, "802.1x setting", "802.1x", "1"), dot1x_on_edits);
    expect_reports(good, dot1x_parameter_edits);
    EXPECT_EQ(check(without_section(good, "password")), "");
}

TEST_F(Security, AddressThatDoesNotConvertIsNone) {
    const std::string document = with(good, "802.1x setting", "radius server ip", "\"nowhere\"");
    EXPECT_EQ(check(document), "223\n");
    state().dot1x.server = {0};
    EXPECT_EQ(check(document), "");
}

TEST_F(Security, CheckDecodesNothing) {
    simulator::journal().clear();
    EXPECT_EQ(check(good), "");
    EXPECT_TRUE(has_call("AES_ECB_encrypt")); // the device's shared key, for comparison
    EXPECT_FALSE(has_call("AES_ECB_decrypt"));
}

TEST_F(Security, AgentWithoutKeys) {
    const std::string document = without_section(good, "snmp settings");
    EXPECT_EQ(restore_calls(document, "SnmpSet"),
              (Calls{"U_SnmpSetEbl(0)", "U_FlshSnmpSetVer(1)", "U_FlshSnmpSetMode(1)"}));
    EXPECT_EQ(restore_calls(document, "SnmpIns"), Calls{});
    reset();
    make_fail("U_SnmpGetCommunitySize,U_SnmpGetTrapSize,U_SnmpGetUsmSize");
    EXPECT_EQ(backup().find("\nsnmp v3"), std::string::npos);
    EXPECT_EQ(backup().find("string1"), std::string::npos)
        << "a table that cannot be read is empty";
}

TEST_F(Security, Communities) {
    const char section[] = "snmp settings";
    // Number 4 lacks its type; the complete number 15 is inserted all the same.
    std::string document = with(good, section, "snmp community string4", "\"lonely\"");
    document = with(document, section, "snmp community string15", "\"sixteen letters, and more\"");
    document = with(document, section, "snmp v3 user name1", "\"sixteen letters, and more\"");
    document = with(document, section, "snmp community permission type15", "258");
    document = with(document, section, "snmp community string16", "\"beyond\"");
    document = with(document, section, "snmp community permission type16", "1");
    EXPECT_EQ(restore_calls(document, "Community"),
              (Calls{"U_SnmpDelCommunity(\"public\")", "U_SnmpDelCommunity(\"private\")",
                     "U_SnmpInsCommunity(1, \"public\")", "U_SnmpInsCommunity(2, \"private\")",
                     "U_SnmpInsCommunity(2, \"sixteen letters,\")"}));
    EXPECT_EQ(state().snmp.users.back().name.text(), "sixteen letters,");
    // All are read before the first is deleted.
    Calls read_and_deleted;
    for (const std::string& call : all_calls()) {
        if (call.find("GetCommunityE") != std::string::npos || call.find("Del") == 6) {
            read_and_deleted.push_back(call);
        }
    }
    read_and_deleted.resize(4);
    EXPECT_EQ(read_and_deleted,
              (Calls{"U_SnmpGetCommunityEntry(0)", "U_SnmpGetCommunityEntry(1)",
                     "U_SnmpDelCommunity(\"public\")", "U_SnmpDelCommunity(\"private\")"}));
}

TEST_F(Security, ChangedTrapModeInsertsTheReceiversAnew) {
    const Calls removed = {"U_SnmpDelTrapIpv6(192.168.10.50, 162)",
                           "U_SnmpDelTrapIpv6(192.168.10.51, 1162)"};
    const Calls inserted = {"U_SnmpInsInformIpv6(192.168.10.50, 162, \"public\")",
                            "U_SnmpInsInformIpv6(192.168.10.51, 1162, \"traps\")"};
    // Deleting moves the entries up, so that the loop meets the first one again.
    const Calls anew = {"U_FlshSnmpSetMode(1)", removed[0], inserted[0], removed[0], inserted[0]};
    Calls expected = anew;
    const Calls order_then = {removed[1], removed[0]};
    expected.insert(expected.end(), order_then.begin(), order_then.end());
    expected.insert(expected.end(), inserted.begin(), inserted.end());

    const std::string document = with(good, "snmp settings", "snmp trap mode", "1");
    Calls calls;
    for (const std::string& call : restore(document)) {
        if (call.find("Ipv6") != std::string::npos || call.find("SetMode") != std::string::npos) {
            calls.push_back(call);
        }
    }
    EXPECT_EQ(calls, expected);
    EXPECT_EQ(state().snmp.trap_mode, 1);
}

TEST_F(Security, TrapReceivers) {
    std::string document = with(good, "snmp settings", "snmp trap server ip1", "\"no address\"");
    document = with(document, "snmp settings", "snmp trap server port1", "65537");
    EXPECT_EQ(restore_calls(document, "SnmpInsTrap").front(),
              "U_SnmpInsTrapIpv6(0.0.0.0, 1, \"public\")");
    for (const char* key : {"ip2", "port2", "community string2"}) {
        const std::string lacking =
            without(document, "snmp settings", std::string("snmp trap server ") + key);
        EXPECT_EQ(restore_calls(lacking, "SnmpInsTrap").size(), 1U) << key;
    }
    // Without a mode the receivers are to be informed.
    EXPECT_EQ(restore_calls(without(good, "snmp settings", "snmp trap mode"), "SetMode"),
              (Calls{"U_FlshSnmpSetMode(1)"}));
    EXPECT_EQ(restore_calls(good, "SetMode"), (Calls{"U_FlshSnmpSetMode(0)"}));
    EXPECT_EQ(restore_calls(good, "SetMode"), Calls{});
}

TEST_F(Security, UserProtocolsFollowTheSecrets) {
    state().snmp.users = {{"none", 2, "", 1, ""}, {"key only", 0, "", 0, "key"}};
    EXPECT_EQ(restore_calls(backup(), "InsUsm"),
              (Calls{R"(U_SnmpInsUsm("none", 0, "", 0, ""))",
                     R"(U_SnmpInsUsm("key only", 1, "", 1, "key"))"}));
    state().snmp.users = {{"password only", 0, "p", 0, ""}, {"both", 0, "p", 0, "k"}};
    EXPECT_EQ(restore_calls(backup(), "InsUsm"),
              (Calls{R"(U_SnmpInsUsm("password only", 1, "p", 0, ""))",
                     R"(U_SnmpInsUsm("both", 1, "p", 1, "k"))"}));
    EXPECT_EQ(restore_calls(without(good, "snmp settings", "snmp v3 encryption key1"), "InsUsm"),
              Calls{});
}

TEST_F(Security, Accounts) {
    std::string document = without_section(good, "password");
    Calls empty_added;
    for (int slot = 0; slot < 15; ++slot) {
        empty_added.push_back(
            R"(account_addToFlash(account_t{username="", password="", access_right=0}))");
        empty_added.push_back(R"(account_deleteFromFlash(""))");
    }
    EXPECT_EQ(restore_calls(document, "account_"), empty_added);
    EXPECT_EQ(restore_calls(document, "PSWD"),
              (Calls{"usrflsh_setPSWD_minLen(0)", "usrflsh_setPSWD_maxLen(0)"}));
    EXPECT_EQ(state().accounts.slots.size(), 5U) << "the device keeps its accounts";

    document = with(good, "password", "user name14", "\"" + std::string(40, 'u') + "\"");
    document = with(document, "password", "password14", "\"" + std::string(40, 'p') + "\"");
    document = with(document, "password", "access_right14", "\"2nd\"");
    document = with(document, "password", "minimum_length", "256");
    document = with(document, "password", "maximum_length", "\"-1\"");
    const Calls calls = restore_calls(document, "account_addToFlash");
    EXPECT_EQ(calls.back(), "account_addToFlash(account_t{username=\"" + std::string(31, 'u') +
                                "\", password=\"" + std::string(31, 'p') + "\", access_right=2})");
    EXPECT_EQ(restore_calls(document, "PSWD"),
              (Calls{"usrflsh_setPSWD_minLen(0)", "usrflsh_setPSWD_maxLen(255)"}));
    EXPECT_EQ(restore_calls(good, "PSWD").size(), 2U);
    restore(good, 1);
    EXPECT_FALSE(has_call("account_") || has_call("PSWD"));
}

TEST_F(Security, AccountErrorsOfTheDevice) {
    state().accounts.slots.assign(15, {false, "", "same", 0});
    for (std::size_t slot = 0; slot < 15; ++slot) {
        state().accounts.slots[slot].name = ("user" + std::to_string(slot)).c_str();
    }
    const std::string full = backup();
    const std::string other = with(full, "password", "user name3", "\"newcomer\"");
    restore(other); // no room, and the loop goes on
    EXPECT_EQ(backup(), full);

    state().accounts.slots = {{false, "", "", 0}, {false, "ann", "", 1}};
    restore(without_section(full, "password"));
    EXPECT_TRUE(state().accounts.slots[0].empty) << "an empty name is removed";

    account_t administrator = {};
    account_err_t error = ACCOUNT_ERROR_NONE;
    account_getFromFlash(1, &administrator, &error);
    account_deleteFromFlash(&administrator, &error);
    EXPECT_EQ(error, ACCOUNT_ERROR_LAST_ADMIN);
    account_getFromFlash(15, &administrator, &error);
    EXPECT_EQ(error, ACCOUNT_ERROR_INVALID_INDEX);
}

TEST_F(Security, Dot1x) {
    std::string document = with(good, "802.1x setting", "802.1x", "\"True\"");
    document = with(document, "802.1x setting", "radius server ip", "\"nowhere\"");
    document = with(document, "802.1x setting", "server port", "65537");
    document = with(document, "802.1x setting", "accounting port", "\"0x10\"");
    document = without(document, "802.1x setting", "nas identifier");
    EXPECT_EQ(restore_calls(document, "Dot1xSetE"), (Calls{"U_Dot1xSetEbl(1)"}));
    EXPECT_EQ(restore_calls(document, "Dot1xSetRds"),
              (Calls{"U_Dot1xSetRds(0.0.0.0, 1, 0)", "U_Dot1xSetRdsId(\"\")",
                     "U_Dot1xSetRdsKey(\"radius shared secret\")"}));

    // Texts are cut to 64 characters, which of a key are two blocks.
    const std::string digits = good.substr(good.find("shared key = \"") + 14, 64);
    document = with(good, "802.1x setting", "shared key", "\"" + digits + "000000\"");
    document = with(document, "802.1x setting", "nas identifier", std::string(70, 'n'));
    document = without(document, "802.1x setting", "802.1x");
    EXPECT_EQ(restore_calls(document, "Dot1xSetE"), (Calls{"U_Dot1xSetEbl(0)"}));
    EXPECT_EQ(restore_calls(document, "Dot1xSetRds").at(1),
              "U_Dot1xSetRdsId(\"" + std::string(64, 'n') + "\")");
    EXPECT_EQ(restore_calls(document, "Dot1xSetRds").at(2),
              "U_Dot1xSetRdsKey(\"radius shared secret\")");

    // Six are read before the first is set, and cut to their widths.
    const char section[] = "802.1x parameter setting";
    document = with(good, section, "quiet period", "65546");
    document = with(document, section, "maximum requests", "258");
    document = with(document, section, "reauth period", "-2");
    document = without(document, section, "tx period");
    Calls setters = restore_calls(document, "Dot1xSetTimeout");
    EXPECT_EQ(setters, (Calls{"U_Dot1xSetTimeoutQuiet(10)", "U_Dot1xSetTimeoutTx(0)",
                              "U_Dot1xSetTimeoutSupplicant(30)", "U_Dot1xSetTimeoutRds(30)",
                              "U_Dot1xSetTimeoutReauth(4294967294)"}));
    EXPECT_EQ(restore_calls(document, "MaxReq"), (Calls{"U_Dot1xSetMaxReq(2)"}));
    EXPECT_NE(backup().find("\nreauth period = -2 ;\n"), std::string::npos);

    document = with(good, "802.1x port setting", "port3_mode", "\"Standard Authorization\"");
    document = with(document, "802.1x port setting", "port4_mode", "\"N/A\"");
    document = without(document, "802.1x port setting", "port8_mode");
    const Calls modes = restore_calls(document, "PortMode");
    EXPECT_EQ(modes[2], "U_Dot1xSetPortMode(2, 2)");
    EXPECT_EQ(modes[3], "U_Dot1xSetPortMode(3, 3)");
    EXPECT_EQ(modes[7], "U_Dot1xSetPortMode(7, 3)");
}

TEST_F(Security, Dot1xPresetsAndPortsThatCannotBeRead) {
    state().dot1x.ports.at(4).mode = 2;
    make_fail("U_Dot1xGetPortMode:6,U_Dot1xGetTimeoutQuiet,U_Dot1xGetTimeoutTx,"
              "U_Dot1xGetTimeoutSupplicant,U_Dot1xGetTimeoutRds,U_Dot1xGetMaxReq,"
              "U_Dot1xGetTimeoutReauth,U_FlshDot1xGetRds,U_GetLoginAuthSrv,U_FlshSnmpGetVer");
    state().dot1x.quiet_period = 1;
    state().dot1x.tx_period = 1;
    state().dot1x.supplicant_timeout = 1;
    state().dot1x.server_timeout = 1;
    state().dot1x.maximum_requests = 1;
    state().dot1x.reauth_period = 1;
    const std::string document = backup();
    for (const char* lines :
         {"\nport5_mode = \"Standard Authorization\" ;\nport6_mode = \"Standard Authorization\" ;\n"
          "port7_mode = \"Force Authorized\" ;\n",
          "\nquiet period = 60 ;\ntx period = 15 ;\nsupplicant timeout = 30 ;\n"
          "server timeout = 30 ;\nmaximum requests = 2 ;\nreauth period = 3600 ;\n",
          "\nradius server ip = \"0.0.0.0\" ;\nserver port = 1812 ;\naccounting port = 1813 ;\n",
          "\nserver port   \t\t = \"1812\" ;\nshared key   \t\t = \"\" ;\n",
          "\nserver timeout  \t = \"1\" ;\n", "\nsnmp version = 1 ;\n"}) {
        EXPECT_NE(document.find(lines), std::string::npos) << lines;
    }
}

TEST_F(Security, StaticSakOfOnePortAfterTheOther) {
    std::string document = with(good, "static sak", "port 7 static sak status", "257");
    document = without(document, "static sak", "port 8 sak");
    document = without(document, "static sak", "port 8 static sak status");
    simulator::journal().clear();
    const Calls calls = restore_calls(document, "U_Macsec");
    EXPECT_EQ(calls[0], "U_MacsecPortEnable(6, 1)");
    EXPECT_EQ(calls[2], "U_MacsecSetPortEnable(6, 1)");
    EXPECT_EQ(calls[3], "U_MacsecPortEnable(7, 0)");
    EXPECT_NE(calls[4].find("U_MacsecSetKey(7, \"0200005e10200002\", \""), std::string::npos);
    EXPECT_EQ(calls[4].find(", \"\")"), std::string::npos) << "an empty text is no empty secret";
    // Port 7 is applied whole before anything of port 8 is decoded.
    const Calls all = all_calls();
    const auto applied = std::find(all.begin(), all.end(), calls[2]);
    const auto sci_of_port_8 = std::find_if(all.begin(), all.end(), [&](const std::string& call) {
        return call ==
               "hexstr_to_byte(\"" + good.substr(good.find("port 8 sci = ") + 14, 32) + "\")";
    });
    ASSERT_NE(sci_of_port_8, all.end());
    EXPECT_LT(applied, sci_of_port_8);
}

TEST_F(Security, LoginServer) {
    const char section[] = "auth server setting";
    state().login_server.kind = 7;
    for (const char* off : {"0", "2", "\"on\""}) {
        EXPECT_EQ(restore_calls(with(good, section, "authentication server", off), "AuthSrv"),
                  (Calls{"U_LoginAuthSrvSetEbl(0, 7, 1)"}));
    }
    std::string document = with(good, section, "authentication server", "257");
    document = with(document, section, "server type", "1");
    document = with(document, section, "server port", "65536");
    document = with(document, section, "shared key", "\"" + std::string(35, 'k') + "\"");
    document = with(document, section, "server timeout", "256");
    EXPECT_EQ(restore_calls(document, "AuthSrv"),
              (Calls{"U_LoginAuthSrvSetEbl(1, 1, 1)", "U_SetLoginAuthSrv(192.168.10.61, 0, \"" +
                                                          std::string(29, 'k') + "\", 2, 0, 1)"}));
    // 15 characters of the address count; what they are no address of changes nothing.
    EXPECT_EQ(
        restore_calls(with(document, section, "server Ip/Name", "\"2001:db8::10:200\""), "AuthSrv"),
        Calls{});
    document = with(document, section, "server Ip/Name", "\"192.168.100.2000\"");
    EXPECT_EQ(restore_calls(document, "SetLoginAuthSrv")
                  .front()
                  .find("U_SetLoginAuthSrv(192.168.100.200,"),
              0U);
}

// Full tables, IPv6 receivers, and texts that fill their fields without a
// terminator: the second backup is the same.
TEST_F(Security, FullAndEmptyTablesComeBack) {
    simulator::State device = state();
    device.snmp.communities.assign(15, {});
    device.snmp.receivers.assign(15, {});
    device.accounts.slots.assign(15, {});
    for (std::size_t i = 0; i < 15; ++i) {
        const std::string digits = std::to_string(10 + i);
        device.snmp.communities[i] = {("community12345" + digits).c_str(), 2};
        device.snmp.receivers[i].address.record =
            *simulator::address_from(("2001:db8:1111:2222:3333:4444:5555:66" + digits).c_str());
        device.snmp.receivers[i].community = ("receiver 12345" + digits).c_str();
        device.accounts.slots[i] = {false, ("name" + digits).c_str(), std::string(31, 'p').c_str(),
                                    static_cast<int>(i)};
    }
    const std::string secret_of_32 = "a secret of thirty-two characte!";
    device.snmp.users = {{"user of 16 chars", 1, secret_of_32.c_str(), 1, secret_of_32.c_str()},
                         {"second", 1, "second password", 0, ""}};
    device.dot1x.nas_identifier = "a NAS identifier of 30 charact";
    device.dot1x.shared_key = "a shared key of 30 characters.";
    device.macsec[0].sak = secret_of_32.c_str();

    simulator::reset(device);
    const std::string full = backup();
    EXPECT_NE(full.find("\"2001:db8:1111:2222:3333:4444:5555:6624\""), std::string::npos);
    EXPECT_EQ(check(full), "");
    restore(full);
    EXPECT_EQ(backup(), full);

    device.snmp.communities.clear();
    device.snmp.receivers.clear();
    device.snmp.users.clear();
    device.accounts.slots.clear();
    simulator::reset(device);
    const std::string empty = backup();
    EXPECT_EQ(empty.find("user name"), std::string::npos);
    EXPECT_EQ(check(empty), "");
    restore(empty);
    EXPECT_EQ(backup(), empty);
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
    EXPECT_NE(dump.find("[static sak:port 7 sci]"), std::string::npos);
    for (const char* secret : {"authenticate me", "and keep it private", "radius shared secret",
                               "0200005e10200001", "000102030405060708090a0b0c0d0e0f"}) {
        EXPECT_EQ((output + dump).find(secret), std::string::npos) << secret;
    }
}
