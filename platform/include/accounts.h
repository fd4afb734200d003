/*
 * The login accounts: 15 slots, numbered from 0, any of which may be empty.
 *
 * Each operation reports through its last argument. Texts have at most 31
 * characters; size is that of the text's buffer, 32. One that fills its buffer
 * needs no terminator.
 */
#ifndef SWITCH_ACCOUNTS_H
#define SWITCH_ACCOUNTS_H

#include <stdint.h>
#include <time.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The access right of an account. Any number may come from a document or the device. */
typedef int32_t permission_t;
enum { user = 0, admin = 1 };

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

/* Name and password are in the library's stored form. The last three are the library's own. */
typedef struct {
    uint8_t username[32];
    uint8_t password[32];
    permission_t access_right;
    time_t datePswdSet;
    uint32_t timestamp;
    uint8_t struct_version;
} account_t;

/* The account in a slot; an error when the slot is empty or does not exist. */
void account_getFromFlash(uint8_t slot, account_t* account, account_err_t* error);

/* The plain name and password of a record. */
void account_decryptUsername(const account_t* account, char* text, uint8_t size,
                             account_err_t* error);
void account_decryptPassword(const account_t* account, char* text, uint8_t size,
                             account_err_t* error);

/* Put the stored form of a plain name or password into a record. */
void account_encryptUsername(account_t* account, const char* text, uint8_t size,
                             account_err_t* error);
void account_encryptPassword(account_t* account, const char* text, uint8_t size,
                             account_err_t* error);

void account_addToFlash(const account_t* account, account_err_t* error);

/* Removes the stored account that has the record's name. */
void account_deleteFromFlash(const account_t* account, account_err_t* error);

/* The limits of a password's length, for all accounts. */
int usrflsh_getPSWD_minLen(uint8_t* length);
int usrflsh_getPSWD_maxLen(uint8_t* length);
int usrflsh_setPSWD_minLen(uint8_t length);
int usrflsh_setPSWD_maxLen(uint8_t length);

#ifdef __cplusplus
}
#endif

#endif
