#include "platform/check/check.h"
#include "platform/include/accounts.h"
#include "platform/include/dot1x.h"
#include "platform/include/login_server.h"
#include "platform/include/macsec.h"
#include "platform/include/ports.h"

namespace {

// What an empty slot leaves in the record does not count.
int read_account(uint8_t slot, account_t* account) {
    account_err_t error = ACCOUNT_ERROR_NONE;
    const account_t before = *account;
    account_getFromFlash(slot, account, &error);
    *account = error == ACCOUNT_ERROR_NONE ? *account : before;
    return error;
}

template <auto decrypt>
int read_text(uint8_t slot, char* text) {
    account_t accounts[2] = {}; // with room for a getter that writes too much
    account_err_t error = read_account(slot, accounts);
    if (error == ACCOUNT_ERROR_NONE) {
        decrypt(accounts, text, 32, &error);
    }
    return error;
}

template <auto change>
void change_account(const std::string& name) {
    account_err_t error = ACCOUNT_ERROR_NONE;
    account_t account = {};
    account_encryptUsername(&account, name.c_str(), 32, &error);
    account_encryptPassword(&account, "password-1", 32, &error);
    account.access_right = user;
    change(&account, &error);
}

template <auto change>
void change_nth(unsigned n) {
    change_account<change>(formatted("check-a-name-of-31-characters%u", n));
}

// Restore adds an account with an empty name for each slot without keys, and deletes it.
void check_empty_name() {
    const Lines before = document_lines();
    change_account<account_addToFlash>("");
    change_account<account_deleteFromFlash>("");
    report("account_deleteFromFlash", "deletes an account with an empty name",
           difference(before, document_lines()));
}

void check_accounts() {
    int empty = 0;
    for (uint8_t slot = 0; slot < 15; ++slot) {
        account_t accounts[2] = {};
        empty += read_account(slot, accounts) != ACCOUNT_ERROR_NONE ? 1 : 0;
    }
    const Argument slots = index_up_to(15);
    check_getter({"account_getFromFlash", read_account}, {slots, bytes(sizeof(account_t), 68)});
    check_getter({"account_decryptUsername", read_text<account_decryptUsername>},
                 {slots, text(32)});
    check_getter({"account_decryptPassword", read_text<account_decryptPassword>},
                 {slots, text(32)});
    writes.push_back(check_empty_name);
    const Lines lines = {"user name = \"check-a-name-of-31-characters#\" ;",
                         "password = \"password-1\" ;", "access_right = \"0\" ;"};
    check_table({"account_addToFlash", change_nth<account_addToFlash>},
                {"account_deleteFromFlash", change_nth<account_deleteFromFlash>},
                {numbers_of(empty, 10), "[password] ", lines});
    // Nothing is known of the results of these reads.
    check_setting(
        {"usrflsh_getPSWD_minLen", [](uint8_t* length) { usrflsh_getPSWD_minLen(length); }},
        {NAMED(usrflsh_setPSWD_minLen)}, {{8, 10}});
    check_setting(
        {"usrflsh_getPSWD_maxLen", [](uint8_t* length) { usrflsh_getPSWD_maxLen(length); }},
        {NAMED(usrflsh_setPSWD_maxLen)}, {{20, 31}});
}

// In the order of restore. A text may fill its field.
int set_macsec(uint8_t port, const TstFlshMacsectEntry* entry) {
    const std::string sci(entry->key.sci, strnlen(entry->key.sci, sizeof entry->key.sci));
    const std::string sak(entry->key.sak, strnlen(entry->key.sak, sizeof entry->key.sak));
    U_MacsecPortEnable(port, entry->status);
    const int result = U_MacsecSetKey(port, sci.c_str(), sak.c_str());
    U_MacsecSetPortEnable(port, entry->status);
    return result;
}

} // namespace

void check_security() {
    const Argument ports = index_up_to(g_ucMaxPhyPort);
    check_accounts();
    SETTING(U_Dot1xGetEbl, U_Dot1xSetEbl, {0, 1});
    SETTING(U_FlshDot1xGetRds, U_Dot1xSetRds, hosts(), {1, 65535}, {65535, 1});
    SETTING(U_FlshDot1xGetRdsId, U_Dot1xSetRdsId, text(30), 30);
    SETTING(U_FlshDot1xGetRdsKey, U_Dot1xSetRdsKey, text(30), 30);
    SETTING(U_Dot1xGetTimeoutQuiet, U_Dot1xSetTimeoutQuiet, {10, 65535});
    SETTING(U_Dot1xGetTimeoutTx, U_Dot1xSetTimeoutTx, {10, 65535});
    SETTING(U_Dot1xGetTimeoutSupplicant, U_Dot1xSetTimeoutSupplicant, {10, 300});
    SETTING(U_Dot1xGetTimeoutRds, U_Dot1xSetTimeoutRds, {10, 300});
    SETTING(U_Dot1xGetMaxReq, U_Dot1xSetMaxReq, {2, 10});
    SETTING(U_Dot1xGetTimeoutReauth, U_Dot1xSetTimeoutReauth, {30, 65535});
    SETTING(U_Dot1xGetPortMode, U_Dot1xSetPortMode, ports, {0, 2});
    static const TstFlshMacsectEntry macsec = {
        1, {"tttttttttttttttt", "tttttttttttttttttttttttttttttttt"}};
    check_setting({NAMED(U_MacsecGetPortConf)}, {"U_MacsecSetKey", set_macsec},
                  {index_up_to(8, 6),
                   record(macsec, {0, {"0123456789abcdef", "0123456789abcdef0123456789abcdef"}},
                          {1, {"fedcba9876543210", "fedcba9876543210fedcba9876543210"}})});
    static const ip_addr_t ipv4 = {0xffff, {{1, 1, 1, 1}}};
    ip_addr_t addresses[2] = {};
    str_to_ipaddr(&addresses[0], "192.0.2.10");
    str_to_ipaddr(&addresses[1], "192.0.2.129");
    SETTING(U_LoginAuthSrvGetEbl, U_LoginAuthSrvSetEbl, {0, 1}, {1, 0}, 1);
    SETTING(U_GetLoginAuthSrv, U_SetLoginAuthSrv, record(ipv4, addresses[0], addresses[1]),
            {1, 65535}, text(30), {2, 3}, {5, 10}, 1);
}
