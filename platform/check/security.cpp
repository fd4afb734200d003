#include "platform/check/check.h"
#include "platform/include/accounts.h"
#include "platform/include/dot1x.h"
#include "platform/include/login_server.h"
#include "platform/include/macsec.h"
#include "platform/include/ports.h"

#include <cstring>

namespace {

account_err_t error; // of the last operation on an account

int read_account(uint8_t slot, account_t* account) {
    error = ACCOUNT_ERROR_NONE;
    account_getFromFlash(slot, account, &error);
    return error;
}

template <auto decrypt>
void read_text(uint8_t slot, char* text) {
    Roomy<account_t> account;
    read_account(slot, &account.value);
    decrypt(&account.value, text, 32, &error);
}

std::vector<Row> read_accounts() {
    std::vector<Row> rows;
    for (uint8_t slot = 0; slot < 15; ++slot) {
        Roomy<account_t> account;
        if (read_account(slot, &account.value) == ACCOUNT_ERROR_NONE) {
            char texts[2][33] = {};
            read_text<account_decryptUsername>(slot, texts[0]);
            read_text<account_decryptPassword>(slot, texts[1]);
            rows.push_back({texts[0], texts[1], account.value.access_right});
        }
    }
    return rows;
}

template <auto change>
void change_account(const Row& row) {
    account_t account = {};
    account_encryptUsername(&account, row.name.c_str(), 32, &error);
    account_encryptPassword(&account, row.detail.c_str(), 32, &error);
    account.access_right = static_cast<permission_t>(row.number);
    change(&account, &error);
}

// Restore adds an account with an empty name for each slot without keys, and deletes it.
void check_empty_name() {
    const std::size_t count = read_accounts().size();
    change_account<account_addToFlash>(Row());
    change_account<account_deleteFromFlash>(Row());
    const std::size_t seen = read_accounts().size();
    report("account_deleteFromFlash", "deletes an account with an empty name",
           seen == count ? Phrase() : Phrase("expected %zu accounts, seen %zu", count, seen));
}

void check_accounts() {
    const Phrase record("slot/1# account/%zur name@0/32 password@32/32 right@64/4",
                        sizeof(account_t));
    for (uint8_t slot = 0; slot < 15; ++slot) {
        Roomy<account_t> account;
        if (read_account(slot, &account.value) == ACCOUNT_ERROR_NONE) {
            check_getter({"account_getFromFlash", read_account}, record.chars, {slot});
            check_getter({"account_decryptUsername", read_text<account_decryptUsername>},
                         "slot/1# text/32t", {slot});
            check_getter({"account_decryptPassword", read_text<account_decryptPassword>},
                         "slot/1# text/32t", {slot});
        }
    }
    if (writing && stopped == 0) {
        check_empty_name();
    }
    check_table({"account_addToFlash",
                 "account_deleteFromFlash",
                 read_accounts,
                 change_account<account_addToFlash>,
                 change_account<account_deleteFromFlash>,
                 {"check-", "password-", user}});
    check_setting({"usrflsh_getPSWD_minLen", +[](uint8_t* size) { usrflsh_getPSWD_minLen(size); }},
                  {NAMED(usrflsh_setPSWD_minLen)}, "length/1=5-7");
    check_setting({"usrflsh_getPSWD_maxLen", +[](uint8_t* size) { usrflsh_getPSWD_maxLen(size); }},
                  {NAMED(usrflsh_setPSWD_maxLen)}, "length/1=20-31");
}

// In the order of restore.
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
    check_accounts();
    SETTING(U_Dot1xGetEbl, U_Dot1xSetEbl, "flag/1=0-1");
    SETTING(U_FlshDot1xGetRds, U_Dot1xSetRds, "address/4a server/2=1-65535 accounting/2=1-65535");
    SETTING(U_FlshDot1xGetRdsId, U_Dot1xSetRdsId, "identifier/30t size/1i=30");
    SETTING(U_FlshDot1xGetRdsKey, U_Dot1xSetRdsKey, "shared-key/30t size/1i=30");
    SETTING(U_Dot1xGetTimeoutQuiet, U_Dot1xSetTimeoutQuiet, "seconds/2=10-65535");
    SETTING(U_Dot1xGetTimeoutTx, U_Dot1xSetTimeoutTx, "seconds/2=10-65535");
    SETTING(U_Dot1xGetTimeoutSupplicant, U_Dot1xSetTimeoutSupplicant, "seconds/2=10-300");
    SETTING(U_Dot1xGetTimeoutRds, U_Dot1xSetTimeoutRds, "seconds/2=10-300");
    SETTING(U_Dot1xGetMaxReq, U_Dot1xSetMaxReq, "requests/1=2-10");
    SETTING(U_Dot1xGetTimeoutReauth, U_Dot1xSetTimeoutReauth, "seconds/4=30-65535");
    SETTING(U_Dot1xGetPortMode, U_Dot1xSetPortMode, "port/1# mode/1=0-2", {0, g_ucMaxPhyPort});
    check_setting({NAMED(U_MacsecGetPortConf)}, {"U_MacsecSetKey", set_macsec},
                  "port/1# entry/51r status@0/1=0-1 sci@1/17t sak@18/33t", {6, 2});
    SETTING(U_LoginAuthSrvGetEbl, U_LoginAuthSrvSetEbl, "flag/1=0-1 kind/1=0-1 apply/1i=1");
    SETTING(U_GetLoginAuthSrv, U_SetLoginAuthSrv,
            "address/20p port/2=1-65535 shared-key/30t method/1=0-4 timeout/1=1-255 apply/1i=1");
}
