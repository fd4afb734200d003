// "password": the login accounts and the limits of a password's length.
#pragma once

#include "frame/document.h"

void backup_ini_password(FILE* ini_file);
int check_ini_password(const dictionary* ini, FILE* error_file);
void restore_ini_password(const dictionary* ini);
