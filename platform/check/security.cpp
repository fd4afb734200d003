#include "platform/check/check.h"
#include "platform/include/accounts.h"
#include "platform/include/converters.h"
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

Rows read_accounts() {
    Rows rows;
    for (uint8_t slot = 0; slot < 15; ++slot) {
        Roomy<account_t> account;
        if (read_account(slot, &account.value) == ACCOUNT_ERROR_NONE) {
            Row& row = rows.list[rows.count++];
            read_text<account_decryptUsername>(slot, row.name);
            read_text<account_decryptPassword>(slot, row.detail);
            row.number = account.value.access_right;
        }
    }
    return rows;
}

template <auto change>
void change_account(const Row& row) {
    account_t account = {};
    account_encryptUsername(&account, row.name, 32, &error);
    account_encryptPassword(&account, row.detail, 32, &error);
    account.access_right = static_cast<permission_t>(row.number);
    change(&account, &error);
}

// Restore adds an account with an empty name for each slot without keys, and deletes it.
void check_empty_name() {
    const unsigned count = read_accounts().count;
    change_account<account_addToFlash>(Row());
    change_account<account_deleteFromFlash>(Row());
    const unsigned seen = read_accounts().count;
    report("account_deleteFromFlash", "deletes an account with an empty name",
           seen == count ? Phrase() : Phrase("expected %u accounts, seen %u", count, seen));
}

void check_accounts() {
    const Phrase record("slot/1# account/%zur name@0/32b password@32/32b right@64/4",
                        sizeof(account_t));
    for (uint8_t slot = 0; slot < 15; ++slot) {
        Roomy<account_t> account;
        if (read_account(slot, &account.value) == ACCOUNT_ERROR_NONE) {
            check_getter({"account_getFromFlash", call<read_account>}, record.chars, {slot});
            check_getter({"account_decryptUsername", call<read_text<account_decryptUsername>>},
                         "slot/1# text/32t", {slot});
            check_getter({"account_decryptPassword", call<read_text<account_decryptPassword>>},
                         "slot/1# text/32s", {slot});
        }
    }
    if (writing && stopped == 0) {
        check_empty_name();
    }
    check_table({"account_addToFlash", "account_deleteFromFlash", read_accounts,
                 change_account<account_addToFlash>, change_account<account_deleteFromFlash>,
                 user});
    check_setting({"usrflsh_getPSWD_minLen", call_only<usrflsh_getPSWD_minLen>},
                  OPERATION(usrflsh_setPSWD_minLen), "length/1=5-7");
    check_setting({"usrflsh_getPSWD_maxLen", call_only<usrflsh_getPSWD_maxLen>},
                  OPERATION(usrflsh_setPSWD_maxLen), "length/1=20-31");
}

// In the order of restore.
int set_macsec(uint8_t port, const TstFlshMacsectEntry* entry) {
    char sci[sizeof entry->key.sci + 1] = {};
    char sak[sizeof entry->key.sak + 1] = {};
    std::memcpy(sci, entry->key.sci, sizeof entry->key.sci);
    std::memcpy(sak, entry->key.sak, sizeof entry->key.sak);
    U_MacsecPortEnable(port, entry->status);
    const int result = U_MacsecSetKey(port, sci, sak);
    U_MacsecSetPortEnable(port, entry->status);
    return result;
}

unsigned short set_login_server(const IP_ADDR_T* address, uint16_t port, const char* shared_key,
                                uint8_t method, uint8_t timeout, char apply) {
    return U_SetLoginAuthSrv(*address, port, shared_key, method, timeout, apply);
}

} // namespace

void check_security() {
    check_accounts();
    SETTING(U_Dot1xGetEbl, U_Dot1xSetEbl, "flag/1=0-1");
    SETTING(U_FlshDot1xGetRds, U_Dot1xSetRds, "address/4a server/2=1-65535 accounting/2=1-65535");
    SETTING(U_FlshDot1xGetRdsId, U_Dot1xSetRdsId, "identifier/30t size/1i=30");
    SETTING(U_FlshDot1xGetRdsKey, U_Dot1xSetRdsKey, "shared-key/30s size/1i=30");
    SETTING(U_Dot1xGetTimeoutQuiet, U_Dot1xSetTimeoutQuiet, "seconds/2=10-65535");
    SETTING(U_Dot1xGetTimeoutTx, U_Dot1xSetTimeoutTx, "seconds/2=10-65535");
    SETTING(U_Dot1xGetTimeoutSupplicant, U_Dot1xSetTimeoutSupplicant, "seconds/2=10-300");
    SETTING(U_Dot1xGetTimeoutRds, U_Dot1xSetTimeoutRds, "seconds/2=10-300");
    SETTING(U_Dot1xGetMaxReq, U_Dot1xSetMaxReq, "requests/1=2-10");
    SETTING(U_Dot1xGetTimeoutReauth, U_Dot1xSetTimeoutReauth, "seconds/4=30-65535");
    SETTING(U_Dot1xGetPortMode, U_Dot1xSetPortMode, "port/1# mode/1=0-2", {0, g_ucMaxPhyPort});
    check_setting(OPERATION(U_MacsecGetPortConf), {"U_MacsecSetKey", call<set_macsec>},
                  "port/1# entry/51r status@0/1=0-1 sci@1/17s sak@18/33s", {6, 2});
    SETTING(U_LoginAuthSrvGetEbl, U_LoginAuthSrvSetEbl, "flag/1=0-1 kind/1=0-1 apply/1i=1");
    check_setting(
        OPERATION(U_GetLoginAuthSrv), {"U_SetLoginAuthSrv", call<set_login_server>},
        "address/20p port/2=1-65535 shared-key/30s method/1=0-4 timeout/1=1-255 apply/1i=1");
}
