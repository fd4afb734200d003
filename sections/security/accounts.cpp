// The document holds names and passwords in plain text. The number in a key is the
// account's slot, from 0, so an empty slot leaves a gap. Restore adds to the device's
// accounts; it deletes none but one with an empty name.

#include "sections/security/accounts.h"

#include "frame/text.h"
#include "platform/include/accounts.h"

namespace {

constexpr std::uint8_t slots = 15;
constexpr std::uint8_t text_size = 32;  // of a name or password, terminator included
constexpr std::size_t number_size = 64; // of the texts that numbers are read from

using AccountName = Text<text_size>;
using Password = Secret<text_size>;

void write_account(FILE* ini_file, int slot, const account_t& account) {
    account_err_t error = ACCOUNT_ERROR_NONE;
    // One byte more than the size the library is told, so that both are terminated.
    Text<text_size + 1> name;
    Secret<text_size + 1> password;
    account_decryptUsername(&account, name.chars, text_size, &error);
    account_decryptPassword(&account, password.chars, text_size, &error);
    fprintf(ini_file, "user name%d = \"%s\" ;\n", slot, name.chars);
    fprintf(ini_file, "password%d = \"%s\" ;\n", slot, password.chars);
    fprintf(ini_file, "access_right%d = \"%d\" ;\n", slot, account.access_right);
}

} // namespace

void backup_ini_password(FILE* ini_file) {
    write_section_line(ini_file, "password");
    for (std::uint8_t slot = 0; slot < slots; ++slot) {
        SecretRecord<account_t> account;
        account_err_t error = ACCOUNT_ERROR_NONE;
        account_getFromFlash(slot, &account.value, &error);
        if (error == ACCOUNT_ERROR_NONE) {
            write_account(ini_file, slot, account.value);
        }
    }
    std::uint8_t minimum = 0;
    std::uint8_t maximum = 0;
    usrflsh_getPSWD_minLen(&minimum);
    usrflsh_getPSWD_maxLen(&maximum);
    fprintf(ini_file, "minimum_length = \"%d\" ;\n", minimum);
    fprintf(ini_file, "maximum_length = \"%d\" ;\n", maximum);
}

// Nothing in this section is a fault.
int check_ini_password(const dictionary*, FILE*) {
    return 0;
}

namespace {

// A slot without keys adds an account with an empty name, which is deleted again.
void restore_account(const dictionary* ini, int slot) {
    SecretRecord<account_t> record;
    account_t& account = record.value;
    account_err_t error = ACCOUNT_ERROR_NONE;
    const AccountName name = read_text<text_size>(ini, EntryName("password:user name%d", slot));
    Password password;
    copy_text(password.chars, read_string(ini, EntryName("password:password%d", slot), ""));

    account_encryptUsername(&account, name.chars, text_size, &error);
    account_encryptPassword(&account, password.chars, text_size, &error);
    account.access_right =
        read_decimal<number_size>(ini, EntryName("password:access_right%d", slot));
    account_addToFlash(&account, &error);

    // Cleared first: a library that does not encrypt an empty name would leave the
    // name in the record, and the account that was just added would be deleted.
    memset(account.username, 0, sizeof account.username);
    account_encryptUsername(&account, AccountName().chars, text_size, &error);
    account_deleteFromFlash(&account, &error);
}

} // namespace

void restore_ini_password(const dictionary* ini) {
    for (int slot = 0; slot < slots; ++slot) {
        restore_account(ini, slot);
    }
    usrflsh_setPSWD_minLen(
        static_cast<std::uint8_t>(read_decimal<number_size>(ini, "password:minimum_length")));
    usrflsh_setPSWD_maxLen(
        static_cast<std::uint8_t>(read_decimal<number_size>(ini, "password:maximum_length")));
}
