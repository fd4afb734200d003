// Choices of this switch: the stored form of a text is each byte of its 32
// with all bits inverted, so that nothing is plain in a record; the stored
// configuration has accounts in plain text, for those who edit it. An account
// whose name exists replaces that one in its slot, any other goes to the first
// empty slot. The last account with the right admin is not removed.

#include "platform/include/accounts.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <algorithm>

using namespace simulator;

namespace {

using Stored = uint8_t[32];

void to_stored(Stored& stored, const Field<32>& plain) {
    for (size_t i = 0; i < sizeof stored; ++i) {
        stored[i] = static_cast<uint8_t>(~plain.bytes[i]);
    }
}

std::string to_plain(const Stored& stored) {
    std::string plain;
    for (const uint8_t byte : stored) {
        plain += static_cast<char>(~byte);
    }
    return plain.c_str(); // up to the terminator
}

// Reads the size bytes of a text that may have no terminator.
void encrypt(Stored& stored, const char* text, uint8_t size) {
    to_stored(stored, std::string(text, strnlen(text, size)).c_str());
}

void decrypt(const Stored& stored, char* text, uint8_t size) {
    Field<32>(to_plain(stored).c_str()).copy_to(text, size);
}

constexpr size_t max_slots = 15;

std::vector<Account>& slots() {
    return state().accounts.slots;
}

Account account_of(const account_t& record) {
    return {false, to_plain(record.username).c_str(), to_plain(record.password).c_str(),
            record.access_right};
}

Written written_record(const account_t& record) {
    return {"account_t{username=" + written(to_plain(record.username).c_str()) +
            ", password=" + written(to_plain(record.password).c_str()) +
            ", access_right=" + written(record.access_right) + "}"};
}

auto find(const Field<32>& name) {
    return std::find_if(slots().begin(), slots().end(), [&](const Account& account) {
        return !account.empty && account.name == name;
    });
}

auto find_empty() {
    return std::find_if(slots().begin(), slots().end(),
                        [](const Account& account) { return account.empty; });
}

bool is_last_admin(const Account& candidate) {
    const auto admins = std::count_if(slots().begin(), slots().end(), [](const Account& account) {
        return !account.empty && account.access_right == admin;
    });
    return candidate.access_right == admin && admins == 1;
}

account_err_t add(const account_t& record) {
    const Account account = account_of(record);
    auto slot = find(account.name);
    if (slot == slots().end()) {
        slot = find_empty();
    }
    if (slot != slots().end()) {
        *slot = account;
    } else if (slots().size() < max_slots) {
        slots().push_back(account);
    } else {
        return ACCOUNT_ERROR_FLASH_FULL;
    }
    return ACCOUNT_ERROR_NONE;
}

account_err_t remove(const account_t& record) {
    const auto slot = find(to_plain(record.username).c_str());
    if (slot == slots().end()) {
        return ACCOUNT_ERROR_ACCOUNT_NO_EXISTS;
    }
    if (is_last_admin(*slot)) {
        return ACCOUNT_ERROR_LAST_ADMIN;
    }
    *slot = {true, "", "", 0};
    while (!slots().empty() && slots().back().empty) {
        slots().pop_back();
    }
    return ACCOUNT_ERROR_NONE;
}

// What an operation that is made to fail reports.
constexpr account_err_t failed = ACCOUNT_ERROR_BUFFER_EMPTY;

template <typename Action, typename... Arguments>
void report(account_err_t* error, Access access, const char* name, Action action,
            const Arguments&... arguments) {
    account_err_t result = failed;
    operation(
        access, name, [&] { result = action(); }, arguments...);
    *error = result;
}

} // namespace

void account_getFromFlash(uint8_t slot, account_t* account, account_err_t* error) {
    report(
        error, Access::read, "account_getFromFlash",
        [&]() -> account_err_t {
            if (slot >= max_slots) {
                return ACCOUNT_ERROR_INVALID_INDEX;
            }
            if (slot >= slots().size() || slots()[slot].empty) {
                return ACCOUNT_ERROR_ACCOUNT_NO_EXISTS;
            }
            const Account& stored = slots()[slot];
            to_stored(account->username, stored.name);
            to_stored(account->password, stored.password);
            account->access_right = stored.access_right;
            return ACCOUNT_ERROR_NONE;
        },
        slot);
}

void account_decryptUsername(const account_t* account, char* text, uint8_t size,
                             account_err_t* error) {
    report(
        error, Access::read, "account_decryptUsername",
        [&]() -> account_err_t {
            decrypt(account->username, text, size);
            return ACCOUNT_ERROR_NONE;
        },
        size);
}

void account_decryptPassword(const account_t* account, char* text, uint8_t size,
                             account_err_t* error) {
    report(
        error, Access::read, "account_decryptPassword",
        [&]() -> account_err_t {
            decrypt(account->password, text, size);
            return ACCOUNT_ERROR_NONE;
        },
        size);
}

void account_encryptUsername(account_t* account, const char* text, uint8_t size,
                             account_err_t* error) {
    report(
        error, Access::read, "account_encryptUsername",
        [&]() -> account_err_t {
            encrypt(account->username, text, size);
            return ACCOUNT_ERROR_NONE;
        },
        text, size);
}

void account_encryptPassword(account_t* account, const char* text, uint8_t size,
                             account_err_t* error) {
    report(
        error, Access::read, "account_encryptPassword",
        [&]() -> account_err_t {
            encrypt(account->password, text, size);
            return ACCOUNT_ERROR_NONE;
        },
        text, size);
}

void account_addToFlash(const account_t* account, account_err_t* error) {
    report(
        error, Access::change, "account_addToFlash", [&] { return add(*account); },
        written_record(*account));
}

void account_deleteFromFlash(const account_t* account, account_err_t* error) {
    report(
        error, Access::change, "account_deleteFromFlash", [&] { return remove(*account); },
        to_plain(account->username).c_str());
}

int usrflsh_getPSWD_minLen(uint8_t* length) {
    return reads("usrflsh_getPSWD_minLen", [&] { *length = state().accounts.minimum_length; });
}

int usrflsh_getPSWD_maxLen(uint8_t* length) {
    return reads("usrflsh_getPSWD_maxLen", [&] { *length = state().accounts.maximum_length; });
}

int usrflsh_setPSWD_minLen(uint8_t length) {
    return changes(
        "usrflsh_setPSWD_minLen", [&] { state().accounts.minimum_length = length; }, length);
}

int usrflsh_setPSWD_maxLen(uint8_t length) {
    return changes(
        "usrflsh_setPSWD_maxLen", [&] { state().accounts.maximum_length = length; }, length);
}
