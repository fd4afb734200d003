#include "codec/secret_codec.h"
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

// Nothing is known of the results of these reads.
template <auto get>
void read_length(uint8_t* length) {
    get(length);
}

// A secret and the one in reverse, as a document holds them.
std::string encrypted(void (*encrypt)(const char*, char (&)[encrypted_size]),
                      const std::string& secret) {
    char texts[2][encrypted_size] = {};
    encrypt(secret.c_str(), texts[0]);
    encrypt(std::string(secret.rbegin(), secret.rend()).c_str(), texts[1]);
    return std::string(texts[0]) + "|" + texts[1];
}

constexpr const char* account_name = "check-a-name-of-31-characters%02d"; // of a slot

// Restore adds an account for each empty slot, but deletes none.
void set_accounts() {
    for (uint8_t slot = 0; slot < 15; ++slot) {
        account_t accounts[2] = {};
        if (read_account(slot, accounts) != ACCOUNT_ERROR_NONE) {
            setting("account_addToFlash",
                    "password:user name#=-1|" + formatted(account_name, slot) +
                        ";password#=-1|password-1;access_right#=-1|0",
                    1, slot);
        }
    }
    // And one with an empty name for each slot without keys, which it deletes.
    setting("account_addToFlash", "password:user name;password;access_right", 0, 0,
            "account_deleteFromFlash");
}

} // namespace

void delete_accounts(Document& document, int count) {
    for (int slot = 7; slot < 7 + 15 && count > 0; ++slot) { // from the middle on
        const std::string number = std::to_string(slot % 15);
        const std::string name = formatted(account_name, slot % 15);
        const auto found = document.find("password:user name" + number);
        if (found != document.end() && found->second == name) {
            account_err_t error = ACCOUNT_ERROR_NONE;
            account_t account = {};
            account_encryptUsername(&account, name.c_str(), 32, &error);
            account_deleteFromFlash(&account, &error);
            for (const char* key : {"user name", "password", "access_right"}) {
                document.erase("password:" + (key + number));
            }
            --count;
        }
    }
}

void check_security() {
    const Argument ports = index_up_to(g_ucMaxPhyPort);
    const Argument slots = index_up_to(15);
    check_getter("account_getFromFlash", read_account, {slots});
    check_getter("account_decryptUsername", read_text<account_decryptUsername>, {slots, text(32)});
    check_getter("account_decryptPassword", read_text<account_decryptPassword>, {slots, text(32)});
    check_getter("usrflsh_getPSWD_minLen", read_length<usrflsh_getPSWD_minLen>);
    check_getter("usrflsh_getPSWD_maxLen", read_length<usrflsh_getPSWD_maxLen>);
    GETTERS(U_Dot1xGetEbl, U_FlshDot1xGetRds, U_Dot1xGetTimeoutQuiet, U_Dot1xGetTimeoutTx,
            U_Dot1xGetTimeoutSupplicant, U_Dot1xGetTimeoutRds, U_Dot1xGetMaxReq,
            U_Dot1xGetTimeoutReauth);
    KEPT(U_FlshDot1xGetRdsId, U_Dot1xSetRdsId, text(30), 30);
    KEPT(U_FlshDot1xGetRdsKey, U_Dot1xSetRdsKey, text(30), 30);
    GETTER(U_Dot1xGetPortMode, ports);
    GETTER(U_MacsecGetPortConf, index_up_to(8, 6));
    KEPT(U_LoginAuthSrvGetEbl, U_LoginAuthSrvSetEbl, {}, {}, 1);
    KEPT(U_GetLoginAuthSrv, U_SetLoginAuthSrv, {}, {}, text(30), {}, {}, 1);
    setting("usrflsh_setPSWD_minLen", "password:minimum_length=6|8");
    setting("usrflsh_setPSWD_maxLen", "password:maximum_length=20|31");
    set_accounts();
    setting("U_Dot1xSetEbl", "802.1x setting:802.1x=0|1");
    setting("U_Dot1xSetRds", "802.1x setting:radius server ip=192.0.2.10|192.0.2.129;"
                             "server port=1|65535;accounting port=1|65535");
    setting("U_Dot1xSetRdsId", "802.1x setting:nas identifier=" + texts_of_29);
    setting("U_Dot1xSetRdsKey", "802.1x setting:shared key=" +
                                    encrypted(encrypt_dot1x_key, "a-shared-key-of-29-characters"));
    setting("U_Dot1xSetTimeoutQuiet", "802.1x parameter setting:quiet period=10|65535");
    setting("U_Dot1xSetTimeoutTx", "802.1x parameter setting:tx period=10|65535");
    setting("U_Dot1xSetTimeoutSupplicant", "802.1x parameter setting:supplicant timeout=10|300");
    setting("U_Dot1xSetTimeoutRds", "802.1x parameter setting:server timeout=10|300");
    setting("U_Dot1xSetMaxReq", "802.1x parameter setting:maximum requests=2|10");
    setting("U_Dot1xSetTimeoutReauth", "802.1x parameter setting:reauth period=30|65535");
    setting("U_Dot1xSetPortMode",
            "802.1x port setting:port#_mode=Force Unauthorized|Standard Authorization",
            g_ucMaxPhyPort);
    const std::string digits = "0123456789abcdef";
    setting("U_MacsecSetPortEnable", "static sak:port # static sak status=0|1", 2, 7);
    setting("U_MacsecSetKey", "static sak:port # sci=" + encrypted(encrypt_sci, digits), 2, 7);
    setting("U_MacsecSetKey", "static sak:port # sak=" + encrypted(encrypt_sak, digits + digits), 2,
            7);
    // While it is off, the device keeps its server.
    setting("U_LoginAuthSrvSetEbl",
            "auth server setting:authentication server=1|1|0;server type=0|1|1");
    setting("U_SetLoginAuthSrv",
            "auth server setting:server ip/name=192.0.2.10|192.0.2.129|192.0.2.129;"
            "server port=1|65535|65535;authentication type=2|3|3;server timeout=5|10|10;"
            "shared key=a-key|another-key|another-key");
}
