// Choices of this switch: an account replaces the one of the same name; any
// other takes the first empty slot, and a full store refuses it. The last admin
// cannot be deleted. The stored form of a text is its 32 bytes with all bits
// inverted, so that a record shows nothing in plain text; the state file does,
// for those who edit it.

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
    return plain.substr(0, plain.find('\0'));
}

// Reads at most size bytes of the text.
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

account_err_t read_slot(uint8_t slot, account_t& account) {
    if (slot >= max_slots) {
        return ACCOUNT_ERROR_INVALID_INDEX;
    }
    if (slot >= slots().size() || slots()[slot].empty) {
        return ACCOUNT_ERROR_ACCOUNT_NO_EXISTS;
    }
    const Account& stored = slots()[slot];
    to_stored(account.username, stored.name);
    to_stored(account.password, stored.password);
    account.access_right = stored.access_right;
    return ACCOUNT_ERROR_NONE;
}

void report(account_err_t* error, unsigned short result) {
    *error = result == 0 ? ACCOUNT_ERROR_NONE : failed;
}

} // namespace

void account_getFromFlash(uint8_t slot, account_t* account, account_err_t* error) {
    *error = failed;
    reads(call(__func__, slot), [&] { *error = read_slot(slot, *account); });
}

void account_decryptUsername(const account_t* account, char* text, uint8_t size,
                             account_err_t* error) {
    report(error, reads(call(__func__, size), [&] { decrypt(account->username, text, size); }));
}

void account_decryptPassword(const account_t* account, char* text, uint8_t size,
                             account_err_t* error) {
    report(error, reads(call(__func__, size), [&] { decrypt(account->password, text, size); }));
}

void account_encryptUsername(account_t* account, const char* text, uint8_t size,
                             account_err_t* error) {
    report(error,
           reads(call(__func__, text, size), [&] { encrypt(account->username, text, size); }));
}

void account_encryptPassword(account_t* account, const char* text, uint8_t size,
                             account_err_t* error) {
    report(error,
           reads(call(__func__, text, size), [&] { encrypt(account->password, text, size); }));
}

void account_addToFlash(const account_t* account, account_err_t* error) {
    *error = failed;
    changes(call(__func__, written_record(*account)), [&] { *error = add(*account); });
}

void account_deleteFromFlash(const account_t* account, account_err_t* error) {
    *error = failed;
    changes(call(__func__, to_plain(account->username).c_str()),
            [&] { *error = remove(*account); });
}

int usrflsh_getPSWD_minLen(uint8_t* length) {
    return reads(call(__func__), [&] { *length = state().accounts.minimum_length; });
}

int usrflsh_getPSWD_maxLen(uint8_t* length) {
    return reads(call(__func__), [&] { *length = state().accounts.maximum_length; });
}

int usrflsh_setPSWD_minLen(uint8_t length) {
    return changes(call(__func__, length), [&] { state().accounts.minimum_length = length; });
}

int usrflsh_setPSWD_maxLen(uint8_t length) {
    return changes(call(__func__, length), [&] { state().accounts.maximum_length = length; });
}
