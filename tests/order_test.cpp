// What holds over all sections: the order in which faults are found.

#include "tests/support/switch_test.h"

#include <sys/stat.h>

class Order : public SwitchTest {
protected:
    const std::string good = backup();
};

// Mending one fault after the other brings up the next of the total order.
TEST_F(Order, FirstFaultOnly) {
    const Reported faults[] = {
        {"system information", "model name", {"\"x\""}, "212\n"},
        {"system settings", "device name", {"\"123456789012345678901234567890\""}, "213\n"},
        {"network settings", "subnet mask", {"\"x\""}, "21\n"},
        {"network settings", "gateway", {"\"x\""}, "214\n"},
        {"network settings", "primary dns", {"\"x\""}, "215\n"},
        {"port settings", "port7", {nullptr}, "240\n"},
        {"port settings", "port8", {"7"}, "241\n"},
        {"port settings", "Port7 speed", {nullptr}, "242\n"},
        {"port settings", "Port8 speed", {"7"}, "243\n"},
        {"snmp settings", "snmp", {nullptr}, "248\n"},
        {"snmp settings", "snmp version", {"9"}, "251\n"},
        {"snmp settings", "snmp community string2", {"\"\""}, "253\n"},
        {"snmp settings", "snmp community permission type1", {"9"}, "255\n"},
        {"snmp settings", "snmp trap mode", {"9"}, "257\n"},
        {"snmp settings", "snmp trap server ip2", {"\"\""}, "259\n"},
        {"snmp settings", "snmp trap server port1", {"0"}, "261\n"},
        {"snmp settings", "snmp trap server community string1", {"\"\""}, "263\n"},
        {"snmp settings", "snmp v3 user name1", {"\"\""}, "265\n"},
        {"snmp settings", "snmp v3 authentication password1", {"\"\""}, "267\n"},
        {"snmp settings", "snmp v3 encryption key1", {"\"\""}, "269\n"},
        {"modbus tcp settings", "modbus address", {nullptr}, "270\n"},
        {"modbus tcp settings", "modbus address", {"0"}, "271\n"},
        {"modbus tcp settings", "modbus", {nullptr}, "272\n"},
        {"modbus tcp settings", "modbus", {"2"}, "273\n"},
        {"modbus tcp settings", "modbus port", {nullptr}, "274\n"},
        {"modbus tcp settings", "modbus port", {"0"}, "275\n"},
        {"system log settings", "system log event to flash", {nullptr}, "276\n"},
        {"system log settings", "system log event to flash", {"2"}, "277\n"},
        {"system log settings", "system log level", {nullptr}, "278\n"},
        {"system log settings", "system log level", {"8"}, "279\n"},
        {"system log settings", "system log server", {nullptr}, "280\n"},
        {"system log settings", "system log server", {"2"}, "281\n"},
        {"system log settings", "system log server ip", {nullptr}, "282\n"},
        {"system log settings", "system log server ip", {"\"x\""}, "283\n"},
        {"system log settings", "system log server port", {nullptr}, "284\n"},
        {"system log settings", "system log server port", {"70000"}, "285\n"},
        {"static sak", "port 7 static sak status", {"2"}, "219\n"},
        {"static sak", "port 7 sci", {"\"\""}, "220\n"},
        {"static sak", "port 7 sak", {"\"\""}, "221\n"},
        {"static sak", "port 8 static sak status", {"2"}, "219\n"},
        {"static sak", "port 8 sci", {"\"no hexadecimal text, 32 letters!\""}, "222\n"},
        {"802.1x setting", "radius server ip", {"\"\""}, "223\n"},
        {"802.1x setting", "server port", {"\"\""}, "224\n"},
        {"802.1x setting", "accounting port", {"\"\""}, "225\n"},
        {"802.1x setting", "nas identifier", {"\"\""}, "226\n"},
        {"802.1x setting", "shared key", {"\"\""}, "227\n"},
        {"802.1x parameter setting", "quiet period", {"0"}, "233\n"},
        {"802.1x parameter setting", "tx period", {"0"}, "234\n"},
        {"802.1x parameter setting", "supplicant timeout", {"0"}, "235\n"},
        {"802.1x parameter setting", "server timeout", {"0"}, "236\n"},
        {"802.1x parameter setting", "maximum requests", {"0"}, "237\n"},
        {"802.1x parameter setting", "reauth period", {"0"}, "238\n"},
        {"802.1x port setting", "port8_mode", {"\"\""}, "239\n"},
        {"vlan setting", "port8_role", {nullptr}, "294\n"},
        {"vlan setting", "port1_vlan", {nullptr}, "297\n"},
        {"vlan setting", "port3_role", {"\"Hybrid\""}, "295\n"},
        {"vlan setting", "port2_vlan", {"\"one\""}, "298\n"},
        {"vlan setting", "management vlan id", {nullptr}, "301\n"},
        {"vlan setting", "management vlan id", {"\"4095\""}, "51\n"},
        {"vlan setting", "management vlan id", {"\"99\""}, "55\n"},
        {"vlan port isolation setting", "port1", {nullptr}, "329\n"},
        {"vlan port isolation setting", "port1", {"\"3a,9\""}, "331\n"},
        {"vlan port isolation setting", "port2", {"\"9,3a\""}, "330\n"},
        {"vlan port isolation setting", "port8", {"\"1,1,1,1,1,1,1,1,1\""}, "332\n"},
        {"rstp setting", "enable state", {nullptr}, "303\n"},
        {"rstp setting", "enable state", {"2"}, "316\n"},
        {"rstp setting", "mode", {nullptr}, "317\n"},
        {"rstp setting", "mode", {"\"0\""}, "318\n"},
        {"rstp setting", "priority", {nullptr}, "319\n"},
        {"rstp setting", "priority", {"1"}, "320\n"},
        {"lldp setting", "enable state", {nullptr}, "304\n"},
        {"sntp setting", "Time and Date Setting :mode", {nullptr}, "312\n"},
        {"sntp setting", "NTP Server", {nullptr}, "313\n"},
        {"sntp setting", "NTP Server", {"1"}, "314\n"},
        {"sntp setting", "NTP Public Server1", {nullptr}, "315\n"},
        {"sntp setting", "Time Zone", {"63"}, "309\n"},
        {"sntp setting", "Time Server Query Period (Sec)", {"59"}, "310\n"},
        {"sntp setting", "Daylight saving :enable state", {nullptr}, "311\n"},
        {"port mirror setting", "enable state", {nullptr}, "308\n"},
        {"https setting", "enable state", {nullptr}, "305\n"},
        {"auto default setting", "enable state", {nullptr}, "306\n"},
        {"auth server setting", "authentication server", {nullptr}, "307\n"},
    };
    std::string document = good;
    for (auto fault = std::rbegin(faults); fault != std::rend(faults); ++fault) {
        document = with(document, fault->section, {{fault->key, fault->values[0]}});
        EXPECT_EQ(check(document), fault->report) << fault->key;
    }
}

TEST_F(Order, BackupKeepsTheMaskOfNewFiles) {
    const mode_t mask = umask(S_IWGRP | S_IRWXO);
    backup();
    EXPECT_EQ(umask(mask), static_cast<mode_t>(S_IWGRP | S_IRWXO));
}
