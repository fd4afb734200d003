/*
 * Login accounts: 15 slots, numbered from 0. Any of them may be empty.
 *
 * The account_ operations report through their last argument. The tool looks at
 * the error of account_getFromFlash only, and clears it before the call. Names and
 * passwords have at most 31 characters; size is the size of the text's field, 32
 * bytes.
 */
#ifndef SWITCH_ACCOUNTS_H
#define SWITCH_ACCOUNTS_H

#include "platform/include/layout.h"

#include <time.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The access right of an account. Documents and devices may hold any other number. */
typedef int32_t permission_t;
enum { user = 0, admin = 1 };
CONTRACT_ASSERT(user == 0 && admin == 1);

typedef int32_t account_err_t;
enum {
    ACCOUNT_ERROR_NONE = 0,
    ACCOUNT_ERROR_ACCOUNT_PTR_NULL = 1,
    ACCOUNT_ERROR_ACCOUNT_NO_EXISTS = 2,
    ACCOUNT_ERROR_BUFFER_EMPTY = 3,
    ACCOUNT_ERROR_FLASH_FULL = 4,
    ACCOUNT_ERROR_INVALID_INDEX = 5,
    ACCOUNT_ERROR_LAST_ADMIN = 6
};
CONTRACT_ASSERT(ACCOUNT_ERROR_NONE == 0 && ACCOUNT_ERROR_ACCOUNT_PTR_NULL == 1);
CONTRACT_ASSERT(ACCOUNT_ERROR_ACCOUNT_NO_EXISTS == 2 && ACCOUNT_ERROR_BUFFER_EMPTY == 3);
CONTRACT_ASSERT(ACCOUNT_ERROR_FLASH_FULL == 4 && ACCOUNT_ERROR_INVALID_INDEX == 5);
CONTRACT_ASSERT(ACCOUNT_ERROR_LAST_ADMIN == 6);

/*
 * An account. Only the library reads or writes the stored form of the name and
 * the password, and the last three fields.
 */
typedef struct {
    uint8_t username[32];
    uint8_t password[32];
    permission_t access_right;
    time_t datePswdSet; /* when the password was set */
    uint32_t timestamp;
    uint8_t struct_version;
} account_t;

CONTRACT_FIELD(account_t, username, uint8_t[32], 0);
CONTRACT_FIELD(account_t, password, uint8_t[32], 32);
CONTRACT_FIELD(account_t, access_right, permission_t, 64);
/* The width of time_t is the machine's, and there may be a gap before it. */
CONTRACT_ASSERT(offsetof(account_t, datePswdSet) >= 68);
CONTRACT_FIELD(account_t, datePswdSet, time_t, offsetof(account_t, timestamp) - sizeof(time_t));
CONTRACT_FIELD(account_t, timestamp, uint32_t, offsetof(account_t, struct_version) - 4);
CONTRACT_ASSERT(CONTRACT_HAS_TYPE(account_t, struct_version, uint8_t));

/* Reads the account in a slot. Sets an error when the slot is empty or does not exist. */
void account_getFromFlash(uint8_t slot, account_t* account, account_err_t* error);

/* Write the plain name or password of a record, NUL-terminated, to at most size bytes of text. */
void account_decryptUsername(const account_t* account, char* text, uint8_t size,
                             account_err_t* error);
void account_decryptPassword(const account_t* account, char* text, uint8_t size,
                             account_err_t* error);

/* Put the stored form of a plain name or password into a record. */
void account_encryptUsername(account_t* account, const char* text, uint8_t size,
                             account_err_t* error);
void account_encryptPassword(account_t* account, const char* text, uint8_t size,
                             account_err_t* error);

/*
 * Adds an account. The library decides about a name that exists, an empty name
 * and a full store.
 */
void account_addToFlash(const account_t* account, account_err_t* error);

/*
 * Removes the stored account that has the record's name, if there is one. The
 * library may refuse to remove the last administrator.
 */
void account_deleteFromFlash(const account_t* account, account_err_t* error);

/* The shortest and longest password that any account may have, in characters. */
int usrflsh_getPSWD_minLen(uint8_t* length);
int usrflsh_getPSWD_maxLen(uint8_t* length);
int usrflsh_setPSWD_minLen(uint8_t length);
int usrflsh_setPSWD_maxLen(uint8_t length);

#ifdef __cplusplus
}
#endif

#endif
